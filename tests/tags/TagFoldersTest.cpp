// The folder command and the tag view's Delete key.
#include "common/FormFixture.h"

#include "form/CfgIecArven.h"
#include "host/HostProject.h"
#include "plugin/CfgIecArvenlib.h"
#include "tags/TagFolders.h"
#include "views/UnitTagsModel.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

QString Caption(const HostObject* ob) {
    return QString::fromUtf8(ob->get("caption").toByteArray());
}

} // namespace

using Tags = FormTest;

TEST_F(Tags, CreateFolderCommand) {
    HostObject* unitTag = p.addTag(p.unit, cotPass, "Loose", 4, 0, 0, "Вне папок");
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ShowTags(form, 0, p.folder[0]);
        form->tVTags->setCurrentIndex(QModelIndex());
        AnswerInput("Новая");
        form->OnCreateFolg();
        form->OnCreateFolg();
        // Beside a selected tag, in its folder; the name may repeat there.
        form->tVTags->setCurrentIndex(TagRow(form, p.tagState));
        form->OnCreateFolg();
        AnswerInput(QString());
        form->OnCreateFolg();
        EXPECT_EQ(form->tVTags->model(), form->pTagsModel);

        ShowTags(form, 1, p.unit);
        form->tVTags->setCurrentIndex(TagRow(form, unitTag));
        form->OnCreateFolg();
        p.host.remove(p.folder[1]);
        ShowTags(form, 1, p.unit);
        form->OnCreateFolg();
    });
    const QList<HostObject*> top = p.folder[0]->children(cotFolderSource);
    ASSERT_EQ(top.size(), 2);
    EXPECT_EQ(Caption(top[1]), "Новая");
    EXPECT_EQ(top[1]->moduleKey(), "IecOrmelcli");
    ASSERT_EQ(p.subFolder->children(cotFolderSource).size(), 1);
    EXPECT_EQ(inputTitles.first(), "Введите имя папки|");
    EXPECT_EQ(inputTitles.size(), 4);
    EXPECT_EQ(BoxTexts(), QStringList({"Сообщение|Ошибка. По-видимому нарушена уникальность имен",
                                       "Сообщение|Не могу найти родительский объект",
                                       "Сообщение|Отсутствует базовая папка"}));
}

TEST_F(Tags, DeleteKeyRefusesRowsOfTwoFolders) {
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        ShowTags(form, 0, p.folder[0]);
        SelectTags(form, {p.tagReal, p.tagState});
        FocusTags(form);
        QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QApplication::sendEvent(form->tVTags, &del);
    });
    EXPECT_EQ(BoxTexts(), QStringList("|Разные родители у выбранных компонентов"));
    EXPECT_EQ(HostObject::fromHandle(p.tagReal), p.tagReal);
}

TEST_F(Tags, FolderAndTagFunctionsUseTheirModuleKeys) {
    pGlobcfgInterface = HostProject::table();
    // Found inside the first folder of the kind, or made there.
    QString name = "Ячейка 1", other = "Ячейка 2";
    EXPECT_EQ(CreateOrTakeFlg4DS(p.unit, cotFolderSource, name), p.subFolder->handle());
    void* second = CreateOrTakeFlg4DS(p.unit, cotFolderSource, other);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(HostObject::fromHandle(second)->owner(), p.folder[0]);
    EXPECT_EQ(CreateOrTakeFlg4DS(p.unit2, cotFolderSource, other), nullptr);

    void* base = GetFolger(p.unit2, cotPass);
    ASSERT_NE(base, nullptr);
    EXPECT_EQ(HostObject::fromHandle(base)->moduleKey(), "Arven");
    EXPECT_EQ(GetFolger(p.unit2, cotPass), base);
    EXPECT_EQ(GetFolger(p.unit2, cotUnit), nullptr);
    TCfgObjectType kind = cotPass;
    auto tag = HostObject::fromHandle(CreateTag(base, kind));
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->moduleKey(), "IecArven");
    EXPECT_EQ(tag->get("tag_id").toByteArray(), "tagPass");
    EXPECT_EQ(CreateTag(nullptr, kind), nullptr);
}
