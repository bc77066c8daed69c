// Tag property edits carried into the model; the tag commands no menu reaches.
#include "common/FormFixture.h"
#include "common/ItemTexts.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "tags/TagBinding.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

namespace {

bool HasMember(DcDataSet* set, const std::string& key) {
    return set->Elems.IndexOf(key) >= 0;
}

// The texts of the rows under the "Переменные" row of an ICC.
QStringList VarRows(CfgArvenSR* form, DcLD* icc) {
    return ChildTexts(*form->pTreeIedModel, VarsFolderRow(form->pTreeIedModel, icc));
}

} // namespace

using Tags = FormTest;

TEST_F(Tags, PropertyEditsMoveAndRebuildTheVariable) {
    const std::string name = "Q1_" + std::to_string(p.tagState->get("number").toInt());
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ASSERT_NE(Var(ICC(1)->Vars, name), nullptr);
        ASSERT_TRUE(HasMember(DataSetOf(ICC(1)->DataSets, 1), "ICC_1/" + name));
        const QString qname = QString::fromStdString(name);

        // Another owner: made anew in ICC_2 and its set, gone from ICC_1.
        EditProp(form, p.tagState, "domain", "2", "1");
        EXPECT_EQ(Var(ICC(1)->Vars, name), nullptr);
        EXPECT_FALSE(HasMember(DataSetOf(ICC(1)->DataSets, 1), "ICC_1/" + name));
        EXPECT_FALSE(VarRows(form, ICC(1)).contains(qname));
        DcICCPBase* moved = Var(ICC(2)->Vars, name);
        ASSERT_NE(moved, nullptr);
        EXPECT_EQ(moved->ClassName(), "DcDA");
        EXPECT_EQ(moved->BoundTag, p.tagState->handle());
        EXPECT_EQ(moved->desc, "Выключатель Q1");
        EXPECT_EQ(VarRows(form, ICC(2)).last(), qname);
        EXPECT_TRUE(HasMember(DataSetOf(ICC(2)->DataSets, 1), "ICC_2/" + name));
        EXPECT_TRUE(form->tVIed->isEnabled());

        // Another data set of the same owner; the shown set's content follows.
        for (int row = 0; row < form->lWInfo->count(); ++row)
            if (form->lWInfo->item(row)->text() == "ICC_2/DataSet_3")
                form->lWInfo->setCurrentRow(row);
        EditProp(form, p.tagState, "isinDataSet", "3", "1");
        EXPECT_FALSE(HasMember(DataSetOf(ICC(2)->DataSets, 1), "ICC_2/" + name));
        EXPECT_TRUE(HasMember(DataSetOf(ICC(2)->DataSets, 3), "ICC_2/" + name));
        EXPECT_EQ(form->lWInfo_2->item(0)->text(), "ICC_2/" + qname);

        // Another type: a structure of that name, the set entry pointing at it.
        EditProp(form, p.tagState, "tag_type", "28", "19");
        DcICCPBase* rebuilt = Var(ICC(2)->Vars, name);
        ASSERT_NE(rebuilt, nullptr);
        EXPECT_EQ(rebuilt->ClassName(), "DcDO");
        StringList& members = DataSetOf(ICC(2)->DataSets, 3)->Elems;
        EXPECT_EQ(members.Objects(members.IndexOf("ICC_2/" + name)), rebuilt);
        EXPECT_EQ(VarRows(form, ICC(2)).count(qname), 1);

        // Equal values, no numbers, and an enumeration applied by its keys.
        EditProp(form, p.tagState, "domain", "2", "2");
        EditProp(form, p.tagState, "isinDataSet", "x", "3");
        EXPECT_EQ(Var(ICC(2)->Vars, name), rebuilt);
        p.tagState->set("domain", 1);
        CpropNode node;
        node.enumList << "0=VCC"
                      << "1 = ICC_1"
                      << "2=ICC_2";
        node.value = "ICC_1";
        QByteArray key("domain");
        form->UpdPropTagUnit(&node, "ICC_2", p.tagState, key.data());
        EXPECT_EQ(Var(ICC(2)->Vars, name), nullptr);
        EXPECT_NE(Var(ICC(1)->Vars, name), nullptr);
    });
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(Tags, UnconnectedTagCommands) {
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ShowTags(form, 0, p.folder[0]);
        IEDTreeModel* model = form->pTreeIedModel;
        // Variables of the VCC have no rows; one of an ICC is taken.
        const QString q1 = "Q1_" + QString::number(p.tagState->get("number").toInt());

        // A tag for the selected variable, keyed by its full name, once only.
        form->pListTag->Clear();
        form->tVIed->setCurrentIndex(NamedRow(form, q1));
        form->tVTags->setCurrentIndex(TagRow(form, p.tagReal));
        const int before = p.folder[0]->children(cotSource).size();
        form->OnCreateTagInFld();
        ASSERT_EQ(p.folder[0]->children(cotSource).size(), before + 1);
        HostObject* made = p.folder[0]->children(cotSource).last();
        EXPECT_EQ(made->get("tag_id").toByteArray(), ("ICC_1/" + q1).toUtf8());
        EXPECT_EQ(made->moduleKey(), "IecArven");
        form->OnCreateTagInFld();
        EXPECT_EQ(p.folder[0]->children(cotSource).size(), before + 1);

        // A folder row of the tree makes nothing.
        form->tVIed->setCurrentIndex(model->index(0, 0));
        form->OnCreateTagInFld();
        EXPECT_EQ(p.folder[0]->children(cotSource).size(), before + 1);

        // Freeing the key empties it on the tag; a key not in the list is passed over.
        made->set("tag_type", 4);
        form->FreeTag(("ICC_1/" + q1).toStdString());
        EXPECT_EQ(made->get("tag_id").toByteArray(), "");
        EXPECT_EQ(made->get("tag_type").toInt(), 0);
        form->FreeTag("ICC_9/None");
        // The key went with it: the tag binds to the variable anew.
        form->tVTags->setCurrentIndex(TagRow(form, made));
        form->tVIed->setCurrentIndex(NamedRow(form, q1));
        form->OnBindTag();
        EXPECT_EQ(made->get("tag_id").toByteArray(), ("ICC_1/" + q1).toUtf8());

        // Deleting one tag asks first and leaves the model alone.
        form->tVTags->setCurrentIndex(TagRow(form, made));
        boxes.answerNext(QMessageBox::Cancel);
        form->OnDelTag();
        EXPECT_EQ(p.folder[0]->children(cotSource).size(), before + 1);
        form->tVTags->setCurrentIndex(TagRow(form, made));
        boxes.answerNext(QMessageBox::Ok);
        form->OnDelTag();
        EXPECT_EQ(p.folder[0]->children(cotSource).size(), before);
        EXPECT_TRUE(NamedRow(form, q1).isValid());
    });
    const QString tagTitle = "Сообщение|Удаление тега: ";
    const QStringList texts = BoxTexts();
    ASSERT_EQ(texts.size(), 3);
    EXPECT_EQ(texts[0], "Предупреждение|Уже существует тег с данным tag_td");
    EXPECT_TRUE(texts[1].startsWith(tagTitle));
    EXPECT_EQ(texts[1], texts[2]);
}
