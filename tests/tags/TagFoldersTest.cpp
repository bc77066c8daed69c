// Folders and tags made in the host; the tag view's deletes.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/cfgInterface.h"
#include "tags/TagBinding.h"
#include "tags/TagFolders.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

QString Caption(const HostObject* ob) {
    return QString::fromUtf8(ob->get("caption").toByteArray());
}

// The variable of a tag with its tree row: the load's, or made as adding one makes it.
DcICCPBase* MakeVar(CfgArvenSR* form, HostObject* tag) {
    QModelIndex row;
    int domain = 0;
    std::string name;
    if (DcICCPBase* var = GetObTreeIedByTag(tag, row, domain, name))
        return var;
    DcICCPBase* container = DomainContainer(domain);
    StringList& vars = domain ? qobject_cast<DcLD*>(container)->Vars : pVCC->Vars;
    int isDO = 0;
    DcICCPBase* var = ListOb(vars, vars.IndexOf(name));
    if (!var)
        var = form->CreateNewVarSimple(tag, isDO, -1);
    form->Tags2TaseTree({tag}, isDO, var);
    return var;
}

} // namespace

using Tags = FormTest;

TEST_F(Tags, FolderAndTagFunctionsUseTheirModuleKeys) {
    pGlobcfgInterface = HostProject::table();
    QString name = "Ячейка 1";
    EXPECT_FALSE(CreateSecFlg(p.folder[0], cotFolderSource, name)); // a sibling has it
    EXPECT_TRUE(CreateSecFlg(p.folder[1], cotFolderPass, name));
    HostObject* made = p.folder[1]->children(cotFolderPass).last();
    EXPECT_EQ(Caption(made), name);
    EXPECT_EQ(made->moduleKey(), "IecOrmelcli");

    // Found inside the first folder of the kind, or made there.
    EXPECT_EQ(CreateOrTakeFlg4DS(p.unit, cotFolderSource, name), p.subFolder->handle());
    QString other = "Ячейка 2";
    void* second = CreateOrTakeFlg4DS(p.unit, cotFolderSource, other);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(HostObject::fromHandle(second)->owner(), p.folder[0]);
    EXPECT_EQ(CreateOrTakeFlg4DS(p.unit2, cotFolderSource, other), nullptr);

    void* base = GetFolger(p.unit2, cotPass);
    ASSERT_NE(base, nullptr);
    EXPECT_EQ(HostObject::fromHandle(base)->kind(), cotFolderPass);
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

TEST_F(Tags, DeletesTakeTagsWithTheirVariables) {
    HostObject* freeTag = p.addTag(p.subFolder, cotSource, "Spare", 4, 0, 0, "Без переменной");
    HostObject* inner = p.host.create(p.subFolder, cotFolderSource, 0, "IecOrmelcli");
    HostObject* deep = p.addTag(inner, cotSource, "Deep", 4, 1, 0, "Глубоко");
    OpenForm(p.unit, [&](CfgArvenSR* form) {
        DcICCPBase* real = MakeVar(form, p.tagReal);
        DcICCPBase* state = MakeVar(form, p.tagState);
        DcICCPBase* deepVar = MakeVar(form, deep);
        ASSERT_TRUE(real && state && deepVar);
        const QString realName = QString::fromStdString(real->name);
        const QString stateName = QString::fromStdString(state->name);
        const QString deepName = QString::fromStdString(deepVar->name);
        StringList& members = DataSetOf(ICC(1)->DataSets, 1)->Elems;
        const std::string stateKey = "ICC_1/" + state->name;
        ASSERT_GE(members.IndexOf(stateKey), 0);
        ShowTags(form, 0, p.folder[0]);

        // The Delete key: rows of two folders are refused as a whole.
        SelectTags(form, {p.tagReal, p.tagState});
        FocusTags(form);
        QKeyEvent del(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QApplication::sendEvent(form->tVTags, &del);
        EXPECT_EQ(HostObject::fromHandle(p.tagReal), p.tagReal);
        EXPECT_TRUE(NamedRow(form, realName).isValid());

        // The delete command asks first, then takes the folder with its tags and their variables.
        SelectTags(form, {inner});
        FocusTags(form);
        boxes.answerNext(QMessageBox::Cancel);
        form->OnDelOb();
        EXPECT_TRUE(NamedRow(form, deepName).isValid());
        boxes.answerNext(QMessageBox::Ok);
        FocusTags(form);
        form->OnDelOb();
        EXPECT_FALSE(NamedRow(form, deepName).isValid());

        // Control+X on a folder: its tags and their variables go, the folder stays.
        ShowTags(form, 0, p.folder[0]);
        SelectTags(form, {p.subFolder});
        FocusTags(form);
        QKeyEvent cut(QEvent::KeyPress, Qt::Key_X, Qt::ControlModifier);
        QApplication::sendEvent(form->tVTags, &cut);
        EXPECT_LT(members.IndexOf(stateKey), 0);
        EXPECT_FALSE(NamedRow(form, stateName).isValid());
        EXPECT_LT(ICC(1)->Vars.IndexOf(state->name), 0);

        SelectTags(form, {p.tagReal});
        form->DeleteFromtVTags();
        EXPECT_FALSE(NamedRow(form, realName).isValid());
        EXPECT_LT(pVCC->Vars.IndexOf(real->name), 0);
    });
    EXPECT_EQ(BoxTexts(), QStringList({"|Разные родители у выбранных компонентов",
                                       "Предупреждение|Удаление  1 элементов ",
                                       "Предупреждение|Удаление  1 элементов "}));
    for (HostObject* gone : {p.tagReal, p.tagState, deep, inner})
        EXPECT_EQ(HostObject::fromHandle(gone), nullptr);
    EXPECT_EQ(HostObject::fromHandle(freeTag), freeTag);
    EXPECT_EQ(HostObject::fromHandle(p.subFolder), p.subFolder);
}
