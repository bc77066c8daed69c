// Binding keys, the tag record, jumps between views, a misbehaving host.
#include "common/FormFixture.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "tags/TagBinding.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QStatusBar>

using Tags = FormTest;

TEST_F(Tags, BindKeysAndFindAcrossViews) {
    HostObject* second = p.addTag(p.folder[0], cotSource, "Other", 4, 0, 0, "");
    const QByteArray stateKey = "ICC_1/Q1_" + p.tagState->get("number").toByteArray();
    p.tagReal->set("tag_id", QByteArray("Noname12"));
    second->set("tag_id", QByteArray("xEmptyx"));
    p.tagPass->set("tag_id", QByteArray("NONAME40"));
    p.tagState->set("tag_id", stateKey);
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ShowTags(form, 0, p.folder[0]);
        QList<QModelIndex> rows = {TagRow(form, p.tagReal), TagRow(form, second)};
        EXPECT_EQ(form->CheckValid4NewICCP(rows), 2);
        rows << TagRow(form, p.tagState);
        EXPECT_EQ(form->CheckValid4NewICCP(rows), 0);

        form->pListTag->Clear();

        // A folder, then a structure, are refused; a DA binds once.
        QModelIndex row;
        int domain = 0;
        std::string name;
        DcICCPBase* state = GetObTreeIedByTag(p.tagState, row, domain, name);
        ASSERT_NE(state, nullptr);
        EXPECT_EQ(form->tVIed->currentIndex(), row);
        form->tVTags->setCurrentIndex(TagRow(form, p.subFolder));
        form->OnBindTag();
        form->tVTags->setCurrentIndex(TagRow(form, p.tagReal));
        form->tVIed->setCurrentIndex(NamedRow(form, "ICC_1"));
        form->OnBindTag();
        form->tVIed->setCurrentIndex(row);
        form->OnBindTag();
        form->tVTags->setCurrentIndex(TagRow(form, second));
        form->tVIed->setCurrentIndex(row);
        form->OnBindTag();
        EXPECT_EQ(form->statusBar->currentMessage(), "Тег с заданным tag_id уже существует");

        // From the variable to its tag and back.
        form->tVTags->setCurrentIndex(QModelIndex());
        form->slotFindinTag();
        EXPECT_EQ(form->tVTags->currentIndex(), TagRow(form, p.tagState));
        form->tVIed->setCurrentIndex(QModelIndex());
        form->OnFindTree();
        EXPECT_EQ(form->tVIed->currentIndex(), row);
        // A domain past the ICCs finds nothing.
        p.tagState->set("domain", 7);
        EXPECT_EQ(GetObTreeIedByTag(p.tagState, row, domain, name), nullptr);
    });
    EXPECT_EQ(p.tagReal->get("tag_id").toByteArray(), stateKey);
    EXPECT_EQ(second->get("tag_id").toByteArray(), "xEmptyx");
    EXPECT_EQ(BoxTexts(), QStringList({"Предупреждение|В связях участвуют только теги",
                                       "Предупреждение|В связях участвуют только объекты DA"}));
}

TEST_F(Tags, TagCommandsSurviveABadHost) {
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ShowTags(form, 0, p.folder[0]);
        p.host.mixChildLists(true);
        p.host.failSlot(slotObCreate);
        p.host.failParam("domain", HostProject::FailRead);
        AnswerInput("Ещё");
        form->OnCreateFolg();
        SelectTags(form, {p.subFolder});
        form->DeleteFromtVTags();
        form->DeleteTagOrFolder(p.folder[0]);
        int maxNoname = 0;
        form->FillListBTag(p.unit, maxNoname);
        p.host.failParam("tag_name", HostProject::FailAll);
        form->tVTags->setCurrentIndex(TagRow(form, p.tagState));
        form->OnFindTree();
        EditProp(form, p.tagState, "tag_name", "Новое", "Q1");
        EditProp(form, p.tagState, "caption", "Подпись", "");
    });
    EXPECT_EQ(BoxTexts(),
              QStringList({"Сообщение|Ошибка. По-видимому нарушена уникальность имен"}));
    EXPECT_EQ(HostObject::fromHandle(p.tagState), p.tagState);
}
