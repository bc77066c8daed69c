// Shortcuts into the loaded model and the model tree for the tests that run
// the form: ICCs, data sets and variables by number or name, rows by object.
#pragma once

#include "model/ICCPTypes_Nat.h"

#include <QAbstractItemModel>
#include <string>

// ICC number n of the loaded VCC, counted from 1, or null.
inline DcLD* ICC(int n) {
    return pVCC ? qobject_cast<DcLD*>(ListOb(pVCC->ICCs, n - 1)) : nullptr;
}

// Data set number n of the list, counted from 1, or null.
inline DcDataSet* DataSetOf(const StringList& list, int n) {
    return qobject_cast<DcDataSet*>(ListOb(list, n - 1));
}

// The object of that name in the list, or null.
inline DcICCPBase* Var(const StringList& vars, const std::string& name) {
    return ListOb(vars, vars.IndexOf(name));
}

// The variable bound to tag, in list.
inline DcICCPBase* VarOfTag(const StringList& list, const void* tag) {
    for (int i = 0; i < list.Count; ++i)
        if (ListOb(list, i) && ListOb(list, i)->BoundTag == tag)
            return ListOb(list, i);
    return nullptr;
}

// The row of ob under a "Переменные" folder, not one of its member rows.
inline QModelIndex VarRow(const QAbstractItemModel& model, DcICCPBase* ob) {
    for (const QModelIndex& hit :
         model.match(model.index(0, 0), Qt::UserRole, QVariant::fromValue(static_cast<void*>(ob)),
                     -1, Qt::MatchRecursive | Qt::MatchWrap))
        if (hit.parent().data().toString() == "Переменные")
            return hit;
    return QModelIndex();
}

// The first row of the model, at any depth, that carries ob.
inline QModelIndex RowOf(const QAbstractItemModel& model, void* ob) {
    return model
        .match(model.index(0, 0), Qt::UserRole, QVariant::fromValue(ob), 1,
               Qt::MatchRecursive | Qt::MatchWrap)
        .value(0);
}
