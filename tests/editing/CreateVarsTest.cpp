// Tags turned into variables; the add-variable command through its dialog.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "dialogs/AddVar.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

class CreateVars : public FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        p.unit2->set("maxICC", 2);
        p.unit2->set("maxDS", 2);
    }
};

// What the written text cannot show: the class, the bound tag, the twin's.
TEST_F(CreateVars, TagsBecomeBoundVariablesOfTheirOwner) {
    struct Case {
        QByteArray name;
        int type, domain, dataSet;
        const char *made, *twin;
    };
    const Case cases[] = {{"", 19, 2, 1, "State_901", "State_901_SBO"},
                          {"Q", 28, 0, 5, "Q_902", nullptr}};
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        HostObject* folder = p.host.create(p.unit2, cotFolderSource, 0, "Arven");
        int number = 901;
        for (const Case& c : cases) {
            SCOPED_TRACE(c.made);
            int isDO = -1;
            HostObject* tag = AddTag(folder, cotSource, number++, c.name, c.type, c.domain,
                                     c.dataSet, c.twin != nullptr);
            DcICCPBase* v = f->CreateNewVarSimple(tag, isDO, -1);
            const StringList& vars = c.domain ? ICC(c.domain)->Vars : pVCC->Vars;
            ASSERT_NE(v, nullptr);
            EXPECT_EQ(Var(vars, c.made), v);
            EXPECT_EQ(v->ClassName(), c.type == 28 ? "DcDO" : "DcDA");
            EXPECT_EQ(isDO, c.type == 28);
            EXPECT_EQ(v->BoundTag, tag);
            if (c.twin) {
                ASSERT_NE(Var(vars, c.twin), nullptr);
                EXPECT_EQ(Var(vars, c.twin)->BoundTag, nullptr);
            }
        }
        // A member of the set shown in the data set list shows up at once.
        f->lWInfo->setCurrentRow(f->lWInfo->count() - 1);
        ASSERT_EQ(f->lWInfo->currentItem()->text(), "ICC_2/DataSet_2");
        int isDO = 0;
        DcICCPBase* v =
            f->CreateNewVarSimple(AddTag(folder, cotSource, 905, "Shown", 4, 2, 2, 0), isDO, -1);
        EXPECT_EQ(f->lWInfo_2->item(0)->text(), "ICC_2/Shown_905");
        EXPECT_EQ(f->lWInfo_2->item(0)->data(Qt::UserRole).value<void*>(), v);
        EXPECT_EQ(boxes.count(), 0);
    });
}

// Picks the shown type of that name, a base name, a count and the places.
static void Fill(GetVarFrm* d, const QString& type, const QString& name, int count, int where,
                 int dataSet) {
    QAbstractItemModel* types = d->ui.listVAD->model();
    for (int row = 0; row < types->rowCount(); ++row)
        if (types->index(row, 0).data().toString() == type)
            d->OnlistVADcliked(types->index(row, 0));
    d->ui.lEName->setText(name);
    d->ui.sBCount->setValue(count);
    d->ui.cBWhere->setCurrentIndex(where);
    d->ui.cBDataSet->setCurrentIndex(dataSet);
}

TEST_F(CreateVars, AddVarMakesTagsAndVariables) {
    // The form opens on transmitted values: new tags go to the mode's first folder.
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        ASSERT_EQ(f->TagMode, cotPass);
        const QList<HostObject*> before = p.host.findAll(cotPass);
        DialogScript<GetVarFrm> script({[](GetVarFrm* d) {
            // The lists as the tag's numbers read them.
            EXPECT_EQ(d->ui.cBWhere->itemText(2), "ICC_2");
            EXPECT_EQ(d->ui.cBWhere->currentIndex(), 1);
            EXPECT_EQ(d->ui.cBDataSet->count(), 4);
            EXPECT_EQ(d->ui.cBDataSet->itemText(0), "NoDataSet");
            EXPECT_EQ(d->ui.cBDataSet->currentIndex(), 1);
            Fill(d, "Data_RealQTimeTag", "Flow", 2, 2, 2);
            d->accept();
        }});
        f->OnAddVar();
        QList<HostObject*> made = p.host.findAll(cotPass);
        for (HostObject* tag : before)
            made.removeOne(tag);
        ASSERT_EQ(made.size(), 2);
        DcLD* icc = ICC(2);
        for (HostObject* tag : made) {
            EXPECT_EQ(tag->owner(), p.folder[1]);
            EXPECT_EQ(tag->get("tag_name").toString(), "Flow");
            EXPECT_EQ(tag->get("tag_type").toInt(), 1);
            EXPECT_EQ(tag->get("domain").toInt(), 2);
            EXPECT_EQ(tag->get("isinDataSet").toInt(), 2);
            DcICCPBase* v = Var(icc->Vars, "Flow_" + std::to_string(tag->get("number").toInt()));
            ASSERT_NE(v, nullptr);
            EXPECT_EQ(v->ClassName(), "DcDO");
            EXPECT_EQ(v->BoundTag, tag);
            EXPECT_GE(FindIdObjByPtr(v, &DataSetOf(icc->DataSets, 2)->Elems), 0);
            // Its row stands under the ICC's "Переменные".
            const QModelIndex row = RowOf(*f->pTreeIedModel, v);
            EXPECT_EQ(row.parent().data().toString(), "Переменные");
            EXPECT_EQ(row.parent().parent().data().toString(), "ICC_2");
        }
        EXPECT_EQ(boxes.count(), 0);

        // A name clash without "_" is told, the tag stays, the dialog comes back.
        HostObject* probe = p.host.create(p.folder[1], cotPass, 0, "IecArven");
        const int number = probe->get("number").toInt();
        p.host.remove(probe);
        const std::string clash = "Clash" + std::to_string(number);
        pVCC->Vars.AddObject(clash, new DcDA(clash, GetDcDAType("INT16"), pVCC), true);
        const int tags = p.host.findAll(cotPass).size();
        script.steps = {[](GetVarFrm* d) {
            Fill(d, "Data_DiscreteQTimeTag", "Clash", 1, 0, 0);
            d->accept();
        }};
        f->OnAddVar();
        EXPECT_EQ(script.shows, 3);
        EXPECT_EQ(BoxTexts(), QStringList("Ошибка|Нарушена уникальность имен"));
        EXPECT_EQ(p.host.findAll(cotPass).size(), tags + 1);
        EXPECT_EQ(Var(pVCC->Vars, "Clash_" + std::to_string(number)), nullptr);

        // Accepting with no type clicked makes nothing.
        script.steps = {[](GetVarFrm* d) { d->accept(); }};
        f->OnAddVar();
        EXPECT_EQ(p.host.findAll(cotPass).size(), tags + 1);
    });
}

// A later call loads the templates anew and builds the same model: the
// structure shown by the dialog's last showing is gone, and showing one again
// must not touch freed types.
TEST_F(CreateVars, StructureShownInTheDialogDoesNotOutliveAReload) {
    QByteArray first;
    for (const bool again : {false, true}) {
        OpenForm(p.unit, [again](CfgArvenSR* f) {
            DialogScript<GetVarFrm> script({[again](GetVarFrm* d) {
                EXPECT_TRUE(!again || d->ui.tVStruct->model() == nullptr);
                for (int turn = 0; turn < 3 && d->ui.tVStruct->model() == nullptr; ++turn) {
                    Fill(d, "Data_State_SupplementalQTimeTagExtended", "S", 1, 0, 0);
                    if (d->ui.tVStruct->model() == nullptr)
                        d->ui.tBut->click();
                }
                const QAbstractItemModel* shown = d->ui.tVStruct->model();
                EXPECT_EQ(shown ? shown->index(0, 0).data().toString() : QString(), "Value");
                d->reject();
            }});
            f->OnAddVar();
        });
        EXPECT_TRUE(!again || Datarun(p.unit) == first);
        first = Datarun(p.unit);
    }
}
