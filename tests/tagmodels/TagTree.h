// Tag trees for the tests of the tag models: a base folder with nested
// folders and tags of one mode, and a copy of the stand-in host's table with
// chosen fns replaced.
#pragma once

#include "common/SmallProject.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/UnitTagsModel.h"

#include <QModelIndex>
#include <QString>
#include <gtest/gtest.h>
#include <ostream>

// Under `unit`, for the mode:
//   base "База"
//     s1 "Ячейка 1"
//       s11 "Отсек"
//         c1
//       a1, a2
//     s2 "Ячейка 2"
//       b1
//     t1, t2, t3
// Tags have their names as captions and are made in the order t1 t2 t3 a1 a2
// b1 c1, after the unit's earlier tags.
struct TagTree {
    TagTree(HostProject& host, HostObject* unit, int mode);

    HostObject* base;
    HostObject* s1;
    HostObject* s2;
    HostObject* s11;
    HostObject* t1;
    HostObject* t2;
    HostObject* t3;
    HostObject* a1;
    HostObject* a2;
    HostObject* b1;
    HostObject* c1;
};

// A tag model of mode 0 over the base of a tag tree under the project's
// second unit, with the stand-in's table in place.
class TagModelTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    SmallProject p;
    TagTree tree{p.host, p.unit2, 0};
    UnitTagsModel model;
};

// The object of a model row.
inline HostObject* RowObject(const QModelIndex& index) {
    return static_cast<HostObject*>(index.internalPointer());
}

// The stand-in host's table with some fns replaced; it is the plug-in's
// table while the object lives.
struct PatchedHost : PatchedTable {
    PatchedHost() { pGlobcfgInterface = fns; }
    ~PatchedHost() { pGlobcfgInterface = HostProject::table(); }
};

// Every row of the model that holds the object, by a search of all rows.
inline QModelIndexList FindRows(const QAbstractItemModel& model, void* ob) {
    return model.match(model.index(0, 0), Qt::UserRole, QVariant::fromValue(ob), -1,
                       Qt::MatchRecursive | Qt::MatchWrap);
}

inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
