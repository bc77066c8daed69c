// The IED tree model over the template.
#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>
#include <memory>

#include "ViewsFixture.h"
#include "common/SmallProject.h"
#include "host/HostObject.h"
#include "plugin/CfgIecArvenlib.h"

namespace {

QStringList Keys(const StringList& list) {
    QStringList keys;
    for (int i = 0; i < list.Count; ++i)
        keys << QString::fromStdString(list.Strings(i));
    return keys;
}

const Qt::ItemFlags kBase = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

} // namespace

TEST_F(TemplTreeTest, RowsFollowTheTableOfFoldersAndObjects) {
    EXPECT_EQ(Children({}), QStringList{"VCC_1"});
    // No row for the commands folder; the ICC's own structure has no members shown.
    EXPECT_EQ(Children(kIcc), (QStringList{"Next_DSTransfer_Set", "Transfer_Sets",
                                           "Наборы данных (DataSets)", "Переменные"}));
    EXPECT_EQ(Children(kIccVars + QStringList{"RealQ_1"}), (QStringList{"Value", "Flags"}));

    const QModelIndex value = Row(kIccVars + QStringList{"RealQ_1", "Value"}, 1);
    EXPECT_EQ(model->parent(value), Row(kIccVars + QStringList{"RealQ_1"}));
    // Column 1 has the same children as column 0.
    EXPECT_EQ(model->rowCount(Row(kIccVars, 1)), 3);

    IEDTreeModel empty(nullptr);
    EXPECT_EQ(empty.rowCount(), 0);
    EXPECT_FALSE(empty.index(0, 0).data().isValid());
}

TEST_F(TemplTreeTest, TextsObjectsIconsAndFlags) {
    count->desc = "Счётчик импульсов";
    icc->desc = "Центр управления";
    EXPECT_EQ(ObjectOf(Row(kIccVars + QStringList{"Count_1"})), count);
    EXPECT_EQ(ObjectOf(Row(kIccVars)), nullptr);
    EXPECT_EQ(Row(kIccVars + QStringList{"Count_1"}, 1).data().toString(), "Счётчик импульсов");
    EXPECT_EQ(Row(kIcc, 1).data().toString(), "Центр управления");
    EXPECT_FALSE(model->data(QModelIndex(), 256).isValid());

    EXPECT_TRUE(SameImage(Row(kIcc).data(Qt::DecorationRole), ":/LDico"));
    EXPECT_TRUE(SameImage(Row(kIcc + QStringList{"Next_DSTransfer_Set"}).data(1), ":/DO_10"));
    EXPECT_TRUE(SameImage(Row(kIccVars + QStringList{"RealQ_1", "Value"}).data(1), ":/DA_10"));
    // Rows under folders, data sets and transfer sets have none.
    for (const QStringList& path : {kIccVars + QStringList{"RealQ_1"}, kIccSet})
        EXPECT_FALSE(Row(path).data(Qt::DecorationRole).isValid()) << path.join("/").toStdString();

    const QModelIndex countRow = Row(kIccVars + QStringList{"Count_1"});
    const QModelIndex countDesc = countRow.sibling(countRow.row(), 1);
    EXPECT_EQ(model->flags(countRow), kBase);
    EXPECT_EQ(model->flags(countDesc), kBase | Qt::ItemIsEditable);
    EXPECT_EQ(model->flags(Row(kIccVars, 1)), kBase);
    count->IsTagV = true;
    icc->IsTagV = true;
    EXPECT_EQ(model->flags(countRow), kBase | Qt::ItemIsUserCheckable);
    EXPECT_FALSE(countRow.data(Qt::CheckStateRole).isValid());
    model->FlagBindTag = true;
    EXPECT_EQ(countRow.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    EXPECT_FALSE(Row(kIccVars + QStringList{"RealQ_1"}).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(countDesc.data(Qt::CheckStateRole).isValid());
    EXPECT_TRUE(model->flags(Row(kIcc)) & Qt::ItemIsUserCheckable);
}

TEST_F(TemplTreeTest, DescriptionEditsAndTheTagCaption) {
    SmallProject project;
    pGlobcfgInterface = static_cast<TCfgSlotFn*>(project.table());
    DcICCPBase* dataSet = ListOb(icc->DataSets, 0);
    dataSet->BoundTag = project.tagState->handle();
    count->BoundTag = project.tagReal->handle();
    const QVariant realCaption = project.tagReal->get("caption");
    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    const QModelIndex countDesc = Row(kIccVars + QStringList{"Count_1"}, 1);

    EXPECT_TRUE(model->setData(Row(kIccVars + QStringList{"Count_1"}), "в колонке имени"));
    EXPECT_TRUE(model->setData(countDesc, "x", Qt::ToolTipRole));
    EXPECT_EQ(count->desc, "");
    EXPECT_TRUE(model->setData(countDesc, "Счётчик"));
    EXPECT_EQ(countDesc.data().toString(), "Счётчик");
    EXPECT_TRUE(model->setData(countDesc, 2, Qt::CheckStateRole));
    EXPECT_EQ(count->desc, "2");
    EXPECT_EQ(project.tagReal->get("caption"), realCaption);

    // Objects other than variables give the text to their tag as well.
    EXPECT_TRUE(model->setData(Row(kIccSet, 1), "Набор аварийных сигналов", Qt::DisplayRole));
    EXPECT_EQ(dataSet->desc, "Набор аварийных сигналов");
    EXPECT_EQ(project.tagState->get("caption").toString(), "Набор аварийных сигналов");
    EXPECT_TRUE(model->setData(Row(kIcc, 1), "ЦУ"));
    EXPECT_EQ(icc->desc, "ЦУ");
    EXPECT_EQ(changed.count(), 0);
    dataSet->BoundTag = count->BoundTag = pGlobcfgInterface = nullptr;
}

TEST_F(TemplTreeTest, DragCollectsVariablesInGlobVarMem) {
    QSignalSpy status(model, &IEDTreeModel::sigShowStat);
    const QModelIndex real = Row(kIccVars + QStringList{"RealQ_1"});
    std::unique_ptr<QMimeData> mime(model->mimeData(
        {real, real.sibling(real.row(), 1), Row(kIccVars), Row(kIcc),
         Row(kIccVars + QStringList{"Bool_1"}), Row(kVccVars + QStringList{"Bilateral_Table_ID"}),
         Row(kIccVars + QStringList{"RealQ_1", "Value"}),
         Row(kIcc + QStringList{"Transfer_Sets", "TrSet_1"})}));
    EXPECT_EQ(status.value(0).value(0).toString(), "Selected Count=8");
    EXPECT_EQ(Keys(GlobVarMem),
              (QStringList{"ICC_1/RealQ_1", "ICC_1/Bool_1", "Bilateral_Table_ID", "ICC_1/Value"}));
    EXPECT_EQ(GlobVarMem.Objects(1), flag);
    QDataStream stream(mime->data("text/plain"));
    QStringList texts;
    for (QString text; !stream.atEnd(); texts << text)
        stream >> text;
    EXPECT_EQ(texts, (QStringList{"RealQ_1", "Bool_1", "Bilateral_Table_ID", "Value"}));

    mime.reset(model->mimeData({Row(kIccVars), Row(kIcc)}));
    EXPECT_EQ(GlobVarMem.Count, 0);
    EXPECT_TRUE(mime->data("text/plain").isEmpty());
}

TEST_F(TemplTreeTest, HostAndICCLookups) {
    myNode* value = model->nodeFromIndex(Row(kIccVars + QStringList{"RealQ_1", "Value"}));
    EXPECT_EQ(FindHost(model, Row(kIccVars + QStringList{"RealQ_1", "Value"})), Row(kIcc));
    EXPECT_EQ(FindHost(model, Row(kVccVars + QStringList{"TASE2_Version"})), Row({"VCC_1"}));
    EXPECT_FALSE(FindHost(model, QModelIndex()).isValid());

    EXPECT_EQ(GetLDByNode(value), icc);
    // A folder under a folder stops at its parent.
    EXPECT_EQ(GetLDByNode(model->nodeFromIndex(Row({"VCC_1", "Inter Control Center's (ICC)"}))),
              nullptr);

    EXPECT_TRUE(IsOwn(value, "DcDO"));
    // The walk ends at the folder "Переменные", below the ICC.
    EXPECT_FALSE(IsOwn(value, "DcLD"));
    EXPECT_TRUE(
        IsOwn(model->nodeFromIndex(Row(kIcc + QStringList{"Next_DSTransfer_Set"})), "DcLD"));
    EXPECT_TRUE(IsOwn(model->nodeFromIndex(Row(kIccSet)), "DcDataSet"));
}

TEST_F(TemplTreeTest, BatchRowsGoInFrontAndDelFromDSTakesSetMembersOnly) {
    const QStringList kVccSet{"VCC_1", "Наборы данных (DataSets)", "DataSet_1"};
    StringList out;
    for (const QStringList& path : {kVccSet, kIccSet}) {
        StringList batch;
        for (const char* name : {"Count_1", "Bool_1", "Count_1"})
            batch.AddObject(name, new myNode(name, count), true);
        model->AddVarmNode(Row(path), 0, &batch, &out);
    }
    EXPECT_EQ(Children(kIccSet).size(), 3);
    EXPECT_EQ(out.Count, 6);
    QSignalSpy removing(model, &QAbstractItemModel::rowsAboutToBeRemoved);
    model->DelFromDS("Count_1");
    EXPECT_EQ(Children(kIccSet), QStringList{"Bool_1"});
    EXPECT_EQ(Children(kVccSet), QStringList{"Bool_1"});
    EXPECT_EQ(Children(kIccVars), (QStringList{"RealQ_1", "Bool_1", "Count_1"}));
    // The second hit in a set has moved up by one when its turn comes.
    ASSERT_EQ(removing.count(), 4);
    EXPECT_EQ(removing[1], (QVariantList{QVariant::fromValue(Row(kVccSet)), 1, 1}));
}
