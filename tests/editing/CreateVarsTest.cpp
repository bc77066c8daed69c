// Tags turned into variables: owner, template, name, twin and data set; the
// add-variable command through its dialog; the display trees of a variable.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "dialogs/AddVar.h"
#include "editing/CreateVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QApplication>
#include <QTimer>

namespace {

QStringList ChildNames(myNode* node) {
    QStringList out;
    for (myNode* c = node ? node->FirstChild : nullptr; c; c = c->Next)
        out << QString::fromStdString(c->name);
    return out;
}

} // namespace

class CreateVars : public FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        p.unit2->set("maxICC", 2);
        p.unit2->set("maxDS", 2);
        folder = p.host.create(p.unit2, cotFolderSource, 0, "Arven");
        sub = p.host.create(folder, cotFolderSource, 0, "Arven");
    }
    // A tag of unit2 with a fixed number, made while the form is open.
    HostObject* Tag(HostObject* parent, int kind, int number, const QByteArray& name, int type,
                    int domain, int dataSet, int sbo = 0) {
        HostObject* tag = p.host.create(parent, kind, number, "IecArven");
        tag->set("tag_name", name);
        tag->set("tag_type", type);
        tag->set("domain", domain);
        tag->set("isinDataSet", dataSet);
        tag->set("caption", QString("Подпись %1").arg(number));
        tag->set("presentSBO", sbo);
        return tag;
    }
    HostObject* folder = nullptr;
    HostObject* sub = nullptr;
};

TEST_F(CreateVars, TagsBecomeVariablesOfTheirOwnerAndDataSet) {
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        int isDO = -1;
        // A VCC variable of any data set number joins the VCC's first set.
        HostObject* real = Tag(sub, cotSource, 901, "Freq", 4, 0, 7);
        DcICCPBase* v = f->CreateNewVarSimple(real, isDO, -1);
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->ClassName(), "DcDA");
        EXPECT_EQ(isDO, 0);
        EXPECT_EQ(Var(pVCC->Vars, "Freq_901"), v);
        EXPECT_EQ(v->BoundTag, real);
        EXPECT_EQ(DataSetOf(pVCC->DataSets, 1)->Elems.Strings(0), "Freq_901");

        // A nameless tag takes its type's default name; kind 0 with
        // "presentSBO" gets a twin that is bound to nothing.
        HostObject* state = Tag(folder, cotSource, 902, "", 19, 2, 2, 1);
        v = f->CreateNewVarSimple(state, isDO, -1);
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->name, "State_902");
        EXPECT_EQ(Var(ICC(2)->Vars, "State_902"), v);
        DcICCPBase* twin = Var(ICC(2)->Vars, "State_902_SBO");
        ASSERT_NE(twin, nullptr);
        EXPECT_EQ(static_cast<DcDA*>(twin)->type, "Data_State");
        EXPECT_EQ(twin->BoundTag, nullptr);
        StringList& members = DataSetOf(ICC(2)->DataSets, 2)->Elems;
        EXPECT_EQ(members.Strings(0), "ICC_2/State_902");
        EXPECT_EQ(FindIdObjByPtr(twin, &members), -1);

        // No twin for a transmitted kind, nor for a structure; a data set
        // number past the ICC's sets makes no member and stays on the tag.
        v = f->CreateNewVarSimple(
            Tag(p.host.create(p.unit2, cotFolderPass), cotPass, 903, "P", 19, 1, 1, 1), isDO, -1);
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(Var(ICC(1)->Vars, "P_903_SBO"), nullptr);
        HostObject* structure = Tag(folder, cotSource, 904, "Q", 28, 1, 5, 1);
        v = f->CreateNewVarSimple(structure, isDO, -1);
        ASSERT_NE(v, nullptr);
        EXPECT_EQ(v->ClassName(), "DcDO");
        EXPECT_EQ(isDO, 1);
        EXPECT_EQ(Var(ICC(1)->Vars, "Q_904_SBO"), nullptr);
        for (int set : {1, 2})
            EXPECT_EQ(FindIdObjByPtr(v, &DataSetOf(ICC(1)->DataSets, set)->Elems), -1);
        EXPECT_EQ(structure->get("isinDataSet").toInt(), 5);

        // A member of the set shown in the data set list shows up at once.
        f->lWInfo->setCurrentRow(f->lWInfo->count() - 1);
        ASSERT_EQ(f->lWInfo->currentItem()->text(), "ICC_2/DataSet_2");
        v = f->CreateNewVarSimple(Tag(folder, cotSource, 905, "Shown", 4, 2, 2), isDO, -1);
        EXPECT_EQ(f->lWInfo_2->item(0)->text(), "ICC_2/Shown_905");
        EXPECT_EQ(f->lWInfo_2->item(0)->data(Qt::UserRole).value<void*>(), v);
        EXPECT_EQ(boxes.count(), 0);
    });
}

// Runs the steps one by one, each when the add-variable dialog is up and no
// message box is.
static void ScriptDialog(QList<std::function<void(GetVarFrm*)>> steps) {
    auto timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, [timer, steps]() mutable {
        if (steps.isEmpty()) {
            timer->deleteLater();
            return;
        }
        if (!FGetVarFrm || !FGetVarFrm->isVisible() ||
            qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            return;
        steps.takeFirst()(FGetVarFrm);
    });
    timer->start(20);
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
    // The form lists the first unit only, and opens on transmitted values:
    // new tags are of that kind, in the first folder of the mode.
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        ASSERT_EQ(f->TagMode, cotPass);
        const QList<HostObject*> before = p.host.findAll(cotPass);
        ScriptDialog({[](GetVarFrm* d) {
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

        // Name and number without "_" against a variable of the place:
        // the clash is told, the tag stays without variable, the dialog
        // comes back and is cancelled.
        HostObject* probe = p.host.create(p.folder[1], cotPass, 0, "IecArven");
        const int number = probe->get("number").toInt();
        p.host.remove(probe);
        const std::string clash = "Clash" + std::to_string(number);
        pVCC->Vars.AddObject(clash, new DcDA(clash, GetDcDAType("INT16"), pVCC), true);
        const int tags = p.host.findAll(cotPass).size();
        ScriptDialog({[](GetVarFrm* d) {
                          Fill(d, "Data_DiscreteQTimeTag", "Clash", 1, 0, 0);
                          d->accept();
                      },
                      [](GetVarFrm* d) { d->reject(); }});
        f->OnAddVar();
        EXPECT_EQ(BoxTexts(), QStringList("Ошибка|Нарушена уникальность имен"));
        EXPECT_EQ(p.host.findAll(cotPass).size(), tags + 1);
        EXPECT_EQ(Var(pVCC->Vars, "Clash_" + std::to_string(number)), nullptr);

        // Accepting with no type clicked makes nothing.
        ScriptDialog({[](GetVarFrm* d) { d->accept(); }});
        f->OnAddVar();
        EXPECT_EQ(p.host.findAll(cotPass).size(), tags + 1);
    });
}

// Clicks a structure of three members. It stands in the list's second part,
// which the "Еще" button may have to show (a refilled list shows the first).
static void ClickStructure(GetVarFrm* d) {
    for (int turn = 0; turn < 3 && d->ui.tVStruct->model() == nullptr; ++turn) {
        Fill(d, "Data_State_SupplementalQTimeTagExtended", "S", 1, 0, 0);
        if (d->ui.tVStruct->model() == nullptr)
            d->ui.tBut->click();
    }
}

TEST_F(CreateVars, StructureShownInTheDialogDoesNotOutliveAReload) {
    OpenForm(p.unit, [](CfgArvenSR* f) {
        ScriptDialog({[](GetVarFrm* d) {
            ClickStructure(d);
            EXPECT_NE(d->ui.tVStruct->model(), nullptr);
            d->reject();
        }});
        f->OnAddVar();
    });
    // The later call loads the templates anew: the dialog shows no structure
    // until a type is clicked.
    OpenForm(p.unit, [](CfgArvenSR* f) {
        ScriptDialog({[](GetVarFrm* d) {
            EXPECT_EQ(d->ui.tVStruct->model(), nullptr);
            ClickStructure(d);
            const QAbstractItemModel* shown = d->ui.tVStruct->model();
            EXPECT_EQ(shown ? shown->index(0, 0).data().toString() : QString(), "Value");
            d->reject();
        }});
        f->OnAddVar();
    });
}

TEST_F(CreateVars, DisplayTreesOfAVariable) {
    OpenForm(p.unit2, [](CfgArvenSR*) {
        StringList list;
        DcDA bits("B", GetDcDAType("BitString"), nullptr);
        DcDO structure("S", qobject_cast<DcDOType*>(FindTemplate("Data_RealQ")), nullptr);
        list.AddObject("B", &bits, false);
        list.AddObject("S", &structure, false);
        myNode root("root");
        List2Tree(&root, &list);
        EXPECT_EQ(ChildNames(&root), QStringList({"B", "S"}));
        // Four used bits of one byte, named by number for a type without
        // names of its own.
        EXPECT_EQ(ChildNames(root.FirstChild), QStringList({"h0", "h1", "h2", "h3"}));
        EXPECT_EQ(ChildNames(root.FirstChild->Next), QStringList({"Value", "Flags"}));

        myNode top("S", &structure);
        DcDO2Tree(&top);
        EXPECT_EQ(ChildNames(&top), QStringList({"Value", "Flags"}));
        EXPECT_EQ(ChildNames(top.FirstChild), QStringList("value"));
        EXPECT_EQ(top.FirstChild->FirstChild->object, ListOb(structure.Members, 0));
        root.FirstChild->DeleteSubTree();
        top.FirstChild->DeleteSubTree();
    });
}

TEST_F(CreateVars, TagsOfAUnitReachItsBlob) {
    // An ICC value with a twin in the ICC's set, and a nameless VCC value
    // whose set number points past the VCC's only set.
    HostObject* q = Tag(sub, cotSource, 1, "Q", 19, 1, 1, 1);
    q->set("caption", QString("Выключатель"));
    HostObject* nameless =
        Tag(p.host.create(p.unit2, cotFolderPass, 0, "Arven"), cotPass, 2, "", 17, 0, 3, 1);
    nameless->set("caption", QString("Счётчик"));
    p.unit2->set("maxICC", 1);
    p.unit2->set("maxDS", 1);
    OpenForm(p.unit2);
    EXPECT_EQ(Datarun(p.unit2).toStdString(), Golden("datarun_tags.txt"));
    EXPECT_EQ(nameless->get("tag_name").toString(), "I16");
    EXPECT_EQ(boxes.count(), 0);
}
