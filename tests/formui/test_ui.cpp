// The generated form and the icon resources: the form code finds widgets by
// their object names and exact class names, and icons by resource path, so
// a renamed widget or a lost resource entry must fail here first.
#include "ui_DArvenCfg.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QImageReader>
#include <QPixmap>
#include <QSplitter>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

QApplication& app() {
    static int argc = 1;
    static char name[] = "test_formui";
    static char* argv[] = {name, nullptr};
    static QApplication a(argc, argv);
    return a;
}

// The application must exist before the dialog member is built.
struct AppFirst {
    AppFirst() { app(); }
};

struct Form : AppFirst {
    QDialog dlg;
    Ui_DArvenCfg ui;
    Form() { ui.setupUi(&dlg); }
};

std::vector<QObject*> widgetsOf(QSplitter* s) {
    std::vector<QObject*> out;
    for (int i = 0; i < s->count(); ++i)
        out.push_back(s->widget(i));
    return out;
}

std::vector<QObject*> itemsOf(QLayout* l) {
    std::vector<QObject*> out;
    for (int i = 0; i < l->count(); ++i)
        out.push_back(l->itemAt(i)->widget());
    return out;
}

TEST(FormUi, EveryNameIsUniqueWithItsExactClass) {
    Form f;
    // Each entry: the object name, ":", the class name.
    const QStringList names =
        QString(
            "splitter1:QSplitter frame:QFrame verticalLayout:QVBoxLayout lE_Info:QLineEdit "
            "label:QLabel splitter_2:QSplitter lW_ieds:QListWidget tVTags:QTreeView "
            "tVProp:QTreeView tabWidget:QTabWidget tab:QWidget verticalLayout_2:QVBoxLayout "
            "splitter_4:QSplitter splitter:QSplitter tVIed:QTreeView tVprop:QTreeView "
            "splitter_3:QSplitter layoutWidget:QWidget verticalLayout_3:QVBoxLayout "
            "label_2:QLabel lWInfo:QListWidget layoutWidget1:QWidget verticalLayout_4:QVBoxLayout "
            "label_3:QLabel lWInfo_2:QListWidget tab_2:QWidget")
            .split(' ');
    for (const QString& entry : names) {
        const QStringList parts = entry.split(':');
        const auto found = f.dlg.findChildren<QObject*>(parts[0]);
        ASSERT_EQ(found.size(), 1) << entry.toStdString();
        // The key filter tells lists and trees by this exact text.
        EXPECT_EQ(QString(found[0]->metaObject()->className()), parts[1]) << entry.toStdString();
    }
    EXPECT_EQ(f.dlg.objectName(), "DArvenCfg");
}

TEST(FormUi, PanesNestAsTheColumnsOfTheForm) {
    Form f;
    auto& u = f.ui;
    // The dialog keeps no layout: the form puts its own main window there.
    EXPECT_EQ(f.dlg.layout(), nullptr);
    EXPECT_EQ(u.splitter1->parent(), &f.dlg);
    EXPECT_EQ(u.splitter1->geometry(), QRect(9, 9, 806, 634));

    EXPECT_EQ(widgetsOf(u.splitter1), (std::vector<QObject*>{u.frame, u.tabWidget}));
    EXPECT_EQ(u.frame->layout(), u.verticalLayout);
    EXPECT_EQ(itemsOf(u.verticalLayout), (std::vector<QObject*>{u.lE_Info, u.label, u.splitter_2}));
    EXPECT_EQ(widgetsOf(u.splitter_2), (std::vector<QObject*>{u.lW_ieds, u.tVTags, u.tVProp}));

    ASSERT_EQ(u.tabWidget->count(), 2);
    EXPECT_EQ(u.tabWidget->widget(0), u.tab);
    EXPECT_EQ(u.tab->layout(), u.verticalLayout_2);
    EXPECT_EQ(itemsOf(u.verticalLayout_2), (std::vector<QObject*>{u.splitter_4}));
    EXPECT_EQ(widgetsOf(u.splitter_4), (std::vector<QObject*>{u.splitter, u.splitter_3}));
    EXPECT_EQ(widgetsOf(u.splitter), (std::vector<QObject*>{u.tVIed, u.tVprop}));
    EXPECT_EQ(widgetsOf(u.splitter_3), (std::vector<QObject*>{u.layoutWidget, u.layoutWidget1}));
    EXPECT_EQ(u.layoutWidget->layout(), u.verticalLayout_3);
    EXPECT_EQ(itemsOf(u.verticalLayout_3), (std::vector<QObject*>{u.label_2, u.lWInfo}));
    EXPECT_EQ(u.layoutWidget1->layout(), u.verticalLayout_4);
    EXPECT_EQ(itemsOf(u.verticalLayout_4), (std::vector<QObject*>{u.label_3, u.lWInfo_2}));
    // The second tab is empty.
    EXPECT_TRUE(u.tab_2->findChildren<QWidget*>().isEmpty());
    EXPECT_EQ(u.tab_2->layout(), nullptr);
}

TEST(FormUi, TextsSizesAndStartState) {
    Form f;
    auto& u = f.ui;
    EXPECT_EQ(f.dlg.windowTitle(), QString::fromUtf8("Конфигуратор ICCP"));
    EXPECT_EQ(f.dlg.size(), QSize(935, 747));
    // The caption ends in a Latin "o".
    EXPECT_EQ(u.label->text(), QString::fromUtf8("Устройств") + QLatin1Char('o'));
    EXPECT_EQ(u.label_2->text(), "Список DataSet");
    EXPECT_EQ(u.label_3->text(), "Состав выбранного DataSet");
    EXPECT_EQ(u.tabWidget->tabText(0), "Операции с тегами");
    EXPECT_EQ(u.tabWidget->tabText(1), "Общие данные протокола");
    // The object pane starts hidden; the form shows it for some classes.
    EXPECT_TRUE(u.tVprop->isHidden());
}

TEST(Icons, EveryResourceIsADistinctImage) {
    app();
    // The resources of each side, blanks between them.
    const std::vector<std::pair<int, QStringList>> icons = {
        {16,
         QString(":/Ied16Green.bmp :/IEDico.png :/LDico :/LNico.png :/DAico.png :/FCico.png "
                 ":/DOIico.png :/Pass.png :/Source.png :/ContrIn.png :/ContrOut.png :/Device10.png "
                 ":/MapFolger :/Link :/plus :/minus :/DS :/FCDA :/AddVar :/VCC_10 :/DS_10 :/VAR_10 "
                 ":/DSplus :/Obplus :/DA_10 :/DO_10")
             .split(' ')},
        {24, QString(":/SimOpen.png :/SimSave :/Add2List :/Vplus :/DELETE :/Source2 :/Pass2 "
                     ":/CtrlPass2 :/CtrlSource2 :/update")
                 .split(' ')}};
    std::vector<QImage> seen;
    for (const auto& [side, paths] : icons)
        for (const QString& path : paths) {
            QPixmap pm;
            ASSERT_TRUE(pm.load(path)) << path.toStdString();
            EXPECT_EQ(pm.size(), QSize(side, side)) << path.toStdString();
            const QImage img = pm.toImage().convertToFormat(QImage::Format_ARGB32);
            for (const QImage& other : seen)
                EXPECT_NE(img, other) << path.toStdString() << " repeats an earlier image";
            seen.push_back(img);
        }
    EXPECT_EQ(QImageReader(":/Ied16Green.bmp").format(), "bmp");
    // The key "CtrlSource" loads ":/CtrlSource2"; there is no resource of its own name.
    EXPECT_TRUE(QPixmap(":/CtrlSource").isNull());
}

} // namespace
