// How the panes follow one another in the running form.
#include "common/FormFixture.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/PropModel.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QAction>
#include <QSignalSpy>
#include <QStatusBar>

namespace {

// The first row of the model tree that shows text.
QModelIndex Row(CfgArvenSR* f, const QString& text) {
    QVariant value = text;
    return f->FindByRole(value, Qt::DisplayRole, f->pTreeIedModel, QModelIndex());
}

// Appends a row for object under parent, as the editing commands do.
void AddRow(CfgArvenSR* f, const QModelIndex& parent, const char* name, void* object) {
    const int row = f->pTreeIedModel->rowCount(parent);
    f->pTreeIedModel->beginInsertRows(parent, row, row);
    f->pTreeIedModel->nodeFromIndex(parent)->AddChild(name, object);
    f->pTreeIedModel->endInsertRows();
}

} // namespace

using Navigation = FormTest;

TEST_F(Navigation, ShowingTheUnitOpensItsTransmittedTagsAndModesSwitchTheFolder) {
    OpenForm(p.unit, [this](CfgArvenSR* f) {
        EXPECT_EQ(f->tVTags->model(), f->pTagsModel);
        EXPECT_EQ(f->pTagsModel->mode, 1);
        EXPECT_EQ(f->pTagsModel->index(0, 0).data(Qt::UserRole).value<void*>(), p.tagPass);
        EXPECT_EQ(f->statusBar->currentMessage(),
                  "Для изменения полей maxICC и maxDS пользуйтесь основным конфигуратором");

        f->actModeRecv->trigger();
        EXPECT_EQ(f->pTagsModel->index(0, 0).data(Qt::UserRole).value<void*>(), p.subFolder);
        // Other actions count as the last mode; no folder keeps the root.
        p.host.remove(p.folder[3]);
        f->SetTagModeView(f->actUserTypes);
        EXPECT_EQ(f->pTagsModel->mode, 3);
        EXPECT_EQ(f->pTagsModel->rootNode(), p.folder[0]);

        // An edited unit gets its new title, an edited current tag its row repainted.
        QSignalSpy itemChanged(f->lW_ieds, SIGNAL(itemChanged(QListWidgetItem*)));
        p.unit->set("caption", QString("Сервер А"));
        f->OnExtUpd(p.unit);
        // Told once by hand, once more by the list for the new text.
        EXPECT_EQ(itemChanged.count(), 2);
        EXPECT_TRUE(f->lW_ieds->currentItem()->text().contains("Сервер А"));
        f->SetTagModeView(f->actModePass);
        f->tVTags->setCurrentIndex(f->pTagsModel->index(0, 0));
        QSignalSpy repaint(f->pTagsModel, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        f->OnExtUpd(p.tagReal);
        f->OnExtUpd(p.tagPass);
        EXPECT_EQ(repaint.count(), 1);
        f->OntVTagsClick(QModelIndex());
        EXPECT_TRUE(f->statusBar->currentMessage().isEmpty());
    });
}

TEST_F(Navigation, AClickInTheModelTreeFillsTheObjectPaneByClass) {
    OpenForm(p.unit2, [this](CfgArvenSR* f) {
        const QModelIndex tase2 = Row(f, "TASE2_Version");
        f->OntVIedClicked(tase2);
        EXPECT_EQ(f->statusBar->currentMessage(), "Объект  TASE2_Version(DcDO)");
        EXPECT_TRUE(f->actAdd2DS->isEnabled());
        ASSERT_EQ(f->pPropIccp->rowCount(), 2);
        EXPECT_EQ(f->pPropIccp->index(0, 0).data().toString(), "MajorVersionNumber");
        EXPECT_TRUE(f->tVprop->isHidden());

        const QModelIndex trSet = Row(f, "TrSet_1");
        f->OntVIedClicked(trSet);
        EXPECT_FALSE(f->tVprop->isHidden());
        EXPECT_EQ(f->pPropIccp->index(0, 0).data().toString(), "DataSetName");
        // The second column only takes the pane's model away.
        f->OntVIedClicked(trSet.sibling(trSet.row(), 1));
        EXPECT_EQ(f->tVprop->model(), nullptr);
        for (const char* hides : {"Supported_Features", "DataSet_1", "Переменные"}) {
            f->OntVIedClicked(trSet);
            f->OntVIedClicked(Row(f, hides));
            EXPECT_TRUE(f->tVprop->isHidden()) << hides;
            EXPECT_EQ(f->tVprop->model(), nullptr) << hides;
        }

        // A structure shown as a member of a data set isn't offered for one.
        const QModelIndex dataSet = Row(f, "DataSet_1");
        AddRow(f, dataSet, "TASE2_Version", tase2.data(Qt::UserRole).value<void*>());
        f->OntVIedClicked(f->pTreeIedModel->index(0, 0, dataSet));
        EXPECT_FALSE(f->actAdd2DS->isEnabled());
        EXPECT_EQ(boxes.count(), 0);
    });
}

TEST_F(Navigation, DataSetListsSearchesAndTypes) {
    OpenForm(p.unit2, [this](CfgArvenSR* f) {
        auto icc = static_cast<DcLD*>(ListOb(pVCC->ICCs, 0));
        auto var = new DcDA("Var_1", GetDcDAType("Data_Real"), icc);
        icc->Vars.AddObject("Var_1", var);
        // The dragged variables join the set chosen; each joins once.
        GlobVarMem.Clear();
        GlobVarMem.AddObject("ICC_1/Var_1", var);
        f->lWInfo->setCurrentRow(1);
        EXPECT_EQ(f->lWInfo_2->count(), 4);
        f->slotOnRecvData();
        f->slotOnRecvData();
        GlobVarMem.Clear();
        ASSERT_EQ(f->lWInfo_2->count(), 5);
        EXPECT_EQ(f->lWInfo_2->item(0)->text(), "ICC_1/Var_1");

        // The list refilled keeps the members until a set is chosen again.
        f->ResetInfoDS();
        EXPECT_EQ(f->lWInfo_2->count(), 5);
        // A member without a row in the tree can't be found.
        f->OnItemDoubleClicked(f->lWInfo_2->item(0));
        EXPECT_EQ(BoxTexts(), QStringList("Info|Search was failed"));
        f->UpDateFullDSList();
        EXPECT_EQ(f->lWInfo_2->count(), 0);

        // A member of the VCC's set leads to its variable's row.
        const QModelIndex tase2 = Row(f, "TASE2_Version");
        GlobVarMem.AddObject("TASE2_Version", tase2.data(Qt::UserRole).value<void*>());
        f->lWInfo->setCurrentRow(0);
        f->slotOnRecvData();
        GlobVarMem.Clear();
        EXPECT_EQ(f->lWInfo_2->item(0)->text(), "TASE2_Version");
        f->OnItemDoubleClicked(f->lWInfo_2->item(0));
        EXPECT_EQ(f->tVIed->currentIndex(), tase2);
        boxes.clear();

        const QModelIndex top = f->pTreeIedModel->index(0, 0);
        EXPECT_EQ(f->FindInTreeByLongName(top, "ICC_1").data().toString(), "ICC_1");
        EXPECT_FALSE(f->FindByPVOID(this, nullptr, QModelIndex()).isValid());
        EXPECT_EQ(boxes.count(), 0);

        // A leaf's type leads through its aliases to a base type.
        const QModelIndex vars = Row(f, "Переменные");
        AddRow(f, vars, "Var_1", var);
        f->tVIed->setCurrentIndex(Row(f, "Var_1"));
        f->slotShowType();
        f->tVIed->setCurrentIndex(Row(f, "TASE2_Version"));
        f->slotShowType();
        f->tVIed->setCurrentIndex(Row(f, "ICC_1"));
        f->slotShowType();
        EXPECT_EQ(BoxTexts(),
                  QStringList({"Инфо |Тип переменной -- Data_Real\n (Базовый тип - FLOAT32",
                               "Инфо |Тип структуры -- TASE2Version"}));

        QSignalSpy changed(f->pTreeIedModel, SIGNAL(dataChanged(QModelIndex, QModelIndex)));
        f->SetIsTagV(Row(f, "Var_1"));
        f->SetIsTagV(vars);
        EXPECT_TRUE(var->IsTagV);
        EXPECT_EQ(changed.count(), 1);
    });
}
