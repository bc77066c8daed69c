// Display texts of item model rows, for tests of any model.
#pragma once

#include <QAbstractItemModel>
#include <QStringList>

// Display texts of the children of parent, in column 0.
QStringList ChildTexts(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex());
