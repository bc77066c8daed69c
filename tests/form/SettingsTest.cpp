// The window settings file: defaults on a first run, what a close writes,
// what a show reads back, and the normal geometry kept while maximised.
#include "FormFixture.h"

#include "form/CfgIecArven.h"
#include "form/FormSettings.h"
#include "plugin/CfgIecArvenlib.h"

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QResizeEvent>
#include <QSettings>
#include <QSplitter>

using FormSettings = FormTest;

TEST_F(FormSettings, FirstRunTakesTheDefaultsAndTheCloseWritesThem) {
    ASSERT_FALSE(QFile::exists(IniPath()));
    QRect geometry;
    QPoint position;
    int col0 = 0;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        geometry = f->geometry();
        position = f->pos();
        col0 = f->tVIed->columnWidth(0);
        EXPECT_EQ(f->IedCol0, 293);
        EXPECT_EQ(f->IedCol1, 235);
        EXPECT_EQ(f->TagMode, 0);
        EXPECT_EQ(f->WinState, 0);
    });
    EXPECT_EQ(geometry, QRect(50, 50, 1408, 897));
    EXPECT_EQ(col0, 293);

    ASSERT_TRUE(QFile::exists(IniPath()));
    QSettings s(IniPath(), QSettings::IniFormat);
    QStringList groups = s.childGroups();
    groups.sort();
    EXPECT_EQ(groups, QStringList({"FORM", "ICCPProp", "IedTreeCols", "dimension", "splitter",
                                   "splitter1", "splitter_2", "splitter_3", "splitter_4"}));
    EXPECT_EQ(s.value("FORM/Width").toInt(), 1408);
    EXPECT_EQ(s.value("FORM/Height").toInt(), 897);
    EXPECT_EQ(s.value("FORM/windowState").toInt(), 0);
    EXPECT_EQ(s.value("FORM/TagModeView").toInt(), 0);
    EXPECT_EQ(s.value("dimension/windowState").toInt(), 0);
    EXPECT_EQ(s.value("dimension/Width").toInt(), 1408);
    EXPECT_EQ(s.value("dimension/Height").toInt(), 897);
    // The position of the window with its frame.
    EXPECT_EQ(s.value("dimension/pos").toPoint(), position);
    EXPECT_EQ(s.value("IedTreeCols/IedTreeCol0").toInt(), 293);
    s.beginGroup("splitter_2");
    EXPECT_EQ(s.beginReadArray("sizes"), 3);
    s.endArray();
    s.endGroup();
}

TEST_F(FormSettings, ShowReadsTheFileBack) {
    {
        QSettings s(IniPath(), QSettings::IniFormat);
        s.setValue("FORM/x", 10);
        s.setValue("FORM/y", 20);
        s.setValue("FORM/Width", 700);
        s.setValue("FORM/Height", 500);
        s.setValue("FORM/windowState", 0);
        s.setValue("FORM/TagModeView", 3);
        s.setValue("dimension/windowState", 0);
        s.setValue("dimension/Width", 640);
        s.setValue("dimension/Height", 480);
        s.setValue("dimension/pos", QPoint(-100, -100));
        s.setValue("IedTreeCols/IedTreeCol0", 111);
        s.setValue("IedTreeCols/IedTreeCol1", 222);
        // The last three splitter groups all go to splitter_3: the sizes of
        // "splitter" are the ones it keeps.
        for (const char* group : {"splitter_4", "splitter_3", "splitter"}) {
            s.beginGroup(group);
            s.setValue("Width", 400);
            s.setValue("Height", 300);
            s.beginWriteArray("sizes");
            const int first = QString(group) == "splitter" ? 100 : 300;
            s.setArrayIndex(0);
            s.setValue("size", first);
            s.setArrayIndex(1);
            s.setValue("size", 400 - first);
            s.endArray();
            s.endGroup();
        }
    }
    QSize size;
    QPoint normalPosition;
    QList<int> sizes3;
    int col0 = 0, tagMode = -1;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        col0 = f->tVIed->columnWidth(0);
        EXPECT_EQ(f->IedCol0, 111);
        EXPECT_EQ(f->IedCol1, 222);
        sizes3 = f->splitter_3->sizes();
        tagMode = f->TagMode;
        // A position off the screen's top left comes back to its edge.
        f->LoadSettings();
        size = f->size();
        normalPosition = f->NormPos;
    });
    EXPECT_EQ(size, QSize(640, 480));
    EXPECT_EQ(normalPosition, QPoint(-4, -4));
    EXPECT_EQ(col0, 111);
    EXPECT_NE(tagMode, 3);
    ASSERT_EQ(sizes3.size(), 2);
    EXPECT_LT(sizes3[0], sizes3[1]);
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormSettings, FileWithoutFormGroupIsRefused) {
    {
        QSettings s(IniPath(), QSettings::IniFormat);
        s.setValue("other/x", 1);
    }
    OpenForm(p.unit2);
    ASSERT_EQ(boxes.count(), 1);
    EXPECT_EQ(boxes.boxes()[0].title, "Information");
    EXPECT_EQ(boxes.boxes()[0].text, "Fail");
    // The group is found without regard to case.
    QFile::remove(IniPath());
    {
        QSettings s(IniPath(), QSettings::IniFormat);
        s.setValue("form/Width", 600);
        s.setValue("form/Height", 400);
    }
    boxes.clear();
    OpenForm(p.unit2);
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormSettings, MaximisedCloseKeepsTheNormalSize) {
    OpenForm(p.unit2, [](CfgArvenSR* f) {
        f->setGeometry(30, 40, 600, 400);
        QApplication::processEvents();
        // A window manager resizes before the new state is seen: the old
        // size of that resize is the normal one.
        QResizeEvent toMaximum(QSize(800, 600), QSize(600, 400));
        QApplication::sendEvent(f, &toMaximum);
        f->setWindowState(Qt::WindowMaximized);
        QApplication::processEvents();
        EXPECT_NE(f->WinState, 0);
        EXPECT_EQ(f->NormW, 600);
        EXPECT_EQ(f->NormH, 400);
        // Resizes in that state leave the normal size alone.
        QResizeEvent again(QSize(700, 500), QSize(800, 600));
        QApplication::sendEvent(f, &again);
        EXPECT_EQ(f->NormW, 600);
    });
    QSettings s(IniPath(), QSettings::IniFormat);
    EXPECT_EQ(s.value("dimension/windowState").toInt(), int(Qt::WindowMaximized));
    EXPECT_EQ(s.value("dimension/Width").toInt(), 600);
    EXPECT_EQ(s.value("dimension/Height").toInt(), 400);
    EXPECT_EQ(s.value("FORM/windowState").toInt(), int(Qt::WindowMaximized));
    EXPECT_NE(s.value("FORM/Width").toInt(), 600);

    // The next show restores the maximised state with that normal size;
    // back in the normal state the form takes it again.
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        EXPECT_TRUE(f->windowState() & Qt::WindowMaximized);
        EXPECT_EQ(f->NormW, 600);
        f->setWindowState(Qt::WindowNoState);
        EXPECT_EQ(f->WinState, 0);
        EXPECT_EQ(f->size(), QSize(600, 400));
    });
}

TEST_F(FormSettings, NoNormalSizeKnownWritesNone) {
    OpenForm(p.unit2, [](CfgArvenSR* f) {
        f->setWindowState(Qt::WindowMaximized);
        QApplication::processEvents();
        f->NormW = 0;
        QFile::remove(QDir::currentPath() + "/CfgTarn.ini");
        f->SaveSettings();
        QSettings s(QDir::currentPath() + "/CfgTarn.ini", QSettings::IniFormat);
        EXPECT_TRUE(s.contains("dimension/windowState"));
        EXPECT_FALSE(s.contains("dimension/Width"));
        EXPECT_FALSE(s.contains("dimension/Height"));
        EXPECT_FALSE(s.contains("dimension/pos"));
        f->NormW = 500;
        f->NormH = 300;
        f->setWindowState(Qt::WindowNoState);
    });
}

TEST_F(FormSettings, GroupHelpers) {
    QSettings s(IniPath(), QSettings::IniFormat);
    QSplitter splitter;
    for (int i = 0; i < 3; ++i)
        splitter.addWidget(new QLabel);
    s.beginGroup("sp");
    s.setValue("Width", 300);
    s.setValue("Height", 100);
    s.beginWriteArray("sizes");
    const int sizes[] = {0, -5, 50};
    for (int i = 0; i < 3; ++i) {
        s.setArrayIndex(i);
        s.setValue("size", sizes[i]);
    }
    s.endArray();
    s.endGroup();
    SplitFromIni(s, "sp", &splitter);
    EXPECT_EQ(splitter.size(), QSize(300, 100));
    // Sizes of 0 or less count as 30: the panes share the width 30 to 30
    // to 50.
    const QList<int> got = splitter.sizes();
    ASSERT_EQ(got.size(), 3);
    EXPECT_GT(got[0], 0);
    EXPECT_LE(qAbs(got[0] - got[1]), 1);
    EXPECT_NEAR(double(got[2]) / got[0], 50.0 / 30.0, 0.05);
    Split2Ini(s, "copy", &splitter);
    QSplitter other;
    for (int i = 0; i < 3; ++i)
        other.addWidget(new QLabel);
    SplitFromIni(s, "copy", &other);
    EXPECT_EQ(other.sizes(), splitter.sizes());
    // A group without sizes leaves them alone.
    SplitFromIni(s, "none", &other);
    EXPECT_EQ(other.sizes(), splitter.sizes());

    QLabel widget;
    widget.setGeometry(5, 6, 70, 80);
    Wdg2Ini(s, "w", &widget);
    QLabel back;
    WdgFromIni(s, "w", &back);
    EXPECT_EQ(back.geometry(), QRect(5, 6, 70, 80));

    QMap<QString, QString> map{{"a", "x=y"}, {"b", " v "}};
    QMap_QStrQStr2Ini(s, "m", map);
    QMap<QString, QString> read{{"stale", "1"}};
    QMap_QStrQStrFromIni(s, "m", read);
    EXPECT_EQ(read, (QMap<QString, QString>{{"a", "x=y"}, {"b", "v"}}));
}
