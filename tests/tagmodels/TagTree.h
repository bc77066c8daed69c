// Tag trees for the tests of the tag models.
#pragma once

#include "common/SmallProject.h"
#include "common/TestApp.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/UnitTagsModel.h"

#include <QModelIndex>
#include <gtest/gtest.h>
#include <ostream>

// Under `unit`, for the mode: base "База" holding s1 "Ячейка 1" (s11 "Отсек"
// (c1), a1, a2), s2 "Ячейка 2" (b1), t1, t2, t3. Tags are captioned by their
// names and made in the order t1 t2 t3 a1 a2 b1 c1.
struct TagTree {
    TagTree(HostProject& host, HostObject* unit, int mode) {
        auto make = [&](HostObject* parent, int kind, const char* caption) {
            HostObject* ob = host.create(parent, kind, 0, kind < 8 ? "IecArven" : "IecOrmelcli");
            ob->set("caption", QString(caption));
            return ob;
        };
        base = make(unit, mode + 8, "База");
        s1 = make(base, mode + 8, "Ячейка 1");
        s2 = make(base, mode + 8, "Ячейка 2");
        s11 = make(s1, mode + 8, "Отсек");
        t1 = make(base, mode, "t1");
        t2 = make(base, mode, "t2");
        t3 = make(base, mode, "t3");
        a1 = make(s1, mode, "a1");
        a2 = make(s1, mode, "a2");
        b1 = make(s2, mode, "b1");
        c1 = make(s11, mode, "c1");
    }
    HostObject *base, *s1, *s2, *s11, *t1, *t2, *t3, *a1, *a2, *b1, *c1;
};

// A tag model of mode 0 over the base of a tag tree under the second unit.
class TagModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureApp();
        model.mode = 0;
        model.setRootNode(tree.base);
    }
    SmallProject p;
    TableInUse table;
    TagTree tree{p.host, p.unit2, 0};
    UnitTagsModel model;
};

inline HostObject* RowObject(const QModelIndex& index) {
    return static_cast<HostObject*>(index.internalPointer());
}

// The stand-in's table with some fns replaced, in use while the object lives.
struct PatchedHost : PatchedTable {
    TableInUse use{fns};
};

// Every row of the model that holds the object, by a search of all rows.
inline QModelIndexList FindRows(const QAbstractItemModel& model, void* ob) {
    return model.match(model.index(0, 0), Qt::UserRole, QVariant::fromValue(ob), -1,
                       Qt::MatchRecursive | Qt::MatchWrap);
}

inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
