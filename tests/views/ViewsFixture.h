// The template with RealQ_1, Bool_1 and Count_1 added to ICC_1, in an IEDTreeModel.
#pragma once

#include <QModelIndex>
#include <QStringList>
#include <gtest/gtest.h>

#include "common/ItemTexts.h"
#include "model/ICCPTypes_Nat.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

class TemplTreeTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // The row reached from the top by display texts, in that column.
    QModelIndex Row(const QStringList& path, int column = 0) const;
    QStringList Children(const QStringList& path) const;

    IEDTreeModel* model = nullptr;
    DcLD* icc = nullptr;
    DcDO* realQ = nullptr;
    DcDA* flag = nullptr;
    DcDA* count = nullptr;
};

// The row's object through role 256, in any model.
DcICCPBase* ObjectOf(const QModelIndex& index);
// The row of model found by display texts from parent down, in that column.
QModelIndex FindRow(const QAbstractItemModel& model, const QStringList& path, int column = 0);
// The same picture as the resource.
bool SameImage(const QVariant& icon, const QString& resource);

extern const QStringList kVccVars, kIcc, kIccVars, kIccSet;
