// The form as built: connections, commands, key and focus filter, context menu.
#include "common/FormFixture.h"

#include "form/CfgIecArven.h"
#include "form/qolMouseFilter.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"

#include <QDir>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSignalSpy>

namespace {

// Whether the filter of the view takes the key.
bool TakesKey(QWidget* view, int key, Qt::KeyboardModifiers modifiers) {
    auto filter = view->findChild<qolMouseFilter*>();
    QKeyEvent e(QEvent::KeyPress, key, modifiers);
    return filter && filter->eventFilter(view, &e);
}

// What Qt says of the connections that can't be made, without the place that
// debug builds add.
QStringList connectWarnings;
void CollectConnectWarnings(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith("QObject::connect: No such"))
        connectWarnings << QString(text).remove(QRegularExpression(" in \\S+:\\d+$"));
}

} // namespace

// Only the two connections kept as they stand fail: a statement given as a slot
// and the drop signal of the member list, a plain list.
TEST_F(FormTest, ConnectionsThatFailAreTheKeptOnes) {
    delete FCfgArvenSR; // a form of an earlier test: the entry builds anew
    FCfgArvenSR = nullptr;
    connectWarnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(CollectConnectWarnings);
    OpenForm(p.unit2);
    qInstallMessageHandler(previous);
    ASSERT_NE(FCfgArvenSR, nullptr);
    EXPECT_EQ(connectWarnings.join('\n').toStdString(),
              "QObject::connect: No such slot CfgArvenSR::if "
              "(pTreeIedModel&&pTreeIedModel->FlagBindTag)pTreeIedModel->FlagBindTag = false;\n"
              "QObject::connect: No such signal QListWidget::sigRecvData()");
}

class FormBuilt : public FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        OpenForm(p.unit2);
        ASSERT_NE(FCfgArvenSR, nullptr);
        f = FCfgArvenSR;
    }
    CfgArvenSR* f = nullptr;
};

TEST_F(FormBuilt, BarsMenusAndActions) {
    // Showing the form has switched to the transmitted values; control modes are off.
    EXPECT_TRUE(f->actModePass->isChecked() && f->actModeRecv->isEnabled());
    EXPECT_FALSE(f->actModeCtrlRecv->isEnabled() || f->actModeCtrlPass->isEnabled());
    // The file commands ask for their files; the unbinding entry does nothing.
    const QString start = QDir(dir.path()).dirName();
    OpenForm(p.unit2, [&](CfgArvenSR* form) {
        form->actOpenFile->trigger();
        form->actSaveIed->trigger();
        form->actUpDTTP->trigger();
        form->actUserTypes->trigger();
        form->pTreeIedModel->FlagBindTag = true;
        form->actUnBind->trigger();
        EXPECT_TRUE(form->pTreeIedModel->FlagBindTag);
    });
    EXPECT_EQ(fileDialogs, QStringList({"Загрузка файла|*.xml;;*.blt;;*.*|" + start,
                                        "Сохранение описания устройства|*.blt;;*.*|" + start,
                                        "Выбор нового файла с DTTP|*.xml;;*.blt|" + start}));
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormBuilt, KeyAndFocusFilter) {
    // Delete, or X with Control alone, is taken.
    EXPECT_TRUE(TakesKey(f->tVTags, Qt::Key_Delete, Qt::NoModifier));
    EXPECT_TRUE(TakesKey(f->tVTags, Qt::Key_X, Qt::ControlModifier));
    EXPECT_FALSE(TakesKey(f->tVTags, Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier));
    EXPECT_FALSE(TakesKey(f->tVTags, Qt::Key_X, Qt::NoModifier));
    // Focus: the number a named tree reports when it wasn't the last, "-" for none.
    auto focus = [this](QWidget* view) {
        auto filter = view->findChild<qolMouseFilter*>();
        QSignalSpy captured(filter, SIGNAL(CapOb(QObject*, int)));
        QFocusEvent in(QEvent::FocusIn);
        EXPECT_FALSE(filter->eventFilter(view, &in));
        EXPECT_EQ(f->TekWdg, view);
        return captured.isEmpty() ? QString("-") : captured[0][1].toString();
    };
    f->FocusWidget = nullptr;
    f->actAddVar->setEnabled(false);
    EXPECT_EQ(focus(f->lWInfo_2), "-");
    EXPECT_FALSE(f->actAddVar->isEnabled());
    EXPECT_EQ(focus(f->tVIed), "2");
    EXPECT_TRUE(f->actAddVar->isEnabled());
    EXPECT_EQ(focus(f->tVIed), "-");
    EXPECT_EQ(focus(f->tVprop), "3");
    EXPECT_EQ(focus(f->tVTags), "0");
    EXPECT_EQ(f->FocusWidget, f->tVTags);
}

TEST_F(FormBuilt, ContextMenuFollowsTheCurrentRow) {
    // Add to and delete from a data set, type, delete, find in tags: 1 on, 0 off.
    auto state = [this] {
        QString out;
        for (QAction* a :
             {f->actAdd2DS, f->actDelFromDS, f->actShowType, f->actDelOb, f->actFindInTag})
            out += a->isEnabled() ? '1' : '0';
        return out;
    };
    OpenForm(p.unit2, [&](CfgArvenSR* form) {
        QAbstractItemModel* tree = form->tVIed->model();
        ASSERT_NE(tree, nullptr);
        const QModelIndex vcc = tree->index(0, 0);
        const QModelIndex version = tree->index(0, 0, tree->index(1, 0, vcc));
        ASSERT_EQ(version.data().toString(), "TASE2_Version");
        const std::pair<QModelIndex, const char*> rows[] = {{QModelIndex(), "00000"},
                                                            {version, "11110"},
                                                            {vcc, "00010"},
                                                            {tree->index(1, 0, vcc), "00000"}};
        for (const auto& row : rows) {
            form->tVIed->setCurrentIndex(row.first);
            form->SetEAena();
            EXPECT_EQ(state(), row.second);
        }
        // The rest of the menu keeps its state for an object.
        form->actFindInTag->setEnabled(true);
        form->tVIed->setCurrentIndex(vcc);
        form->SetEAena();
        EXPECT_EQ(state(), "00011");

        // The unbinding entry follows the tag check flag.
        for (bool flag : {false, true}) {
            form->pTreeIedModel->FlagBindTag = flag;
            form->OnContMenuVIed(QPoint(1, 1));
            EXPECT_EQ(form->actUnBind->isEnabled(), flag);
            EXPECT_TRUE(form->MenuIed->isVisible());
            form->MenuIed->hide();
        }
    });
}
