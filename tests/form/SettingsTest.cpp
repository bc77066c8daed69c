// The window settings file: defaults, what a close writes and a show reads back.
#include "common/FormFixture.h"

#include "form/CfgIecArven.h"
#include "form/FormSettings.h"

#include <QApplication>
#include <QResizeEvent>
#include <QSettings>

using FormSettings = FormTest;

TEST_F(FormSettings, FirstRunTakesTheDefaultsAndTheCloseWritesThem) {
    ASSERT_FALSE(QFile::exists(IniPath()));
    QPoint position;
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        EXPECT_EQ(f->geometry(), QRect(50, 50, 1408, 897));
        EXPECT_EQ(f->tVIed->columnWidth(0), 293);
        EXPECT_EQ(f->IedCol1, 235);
        position = f->pos();
    });
    QSettings s(IniPath(), QSettings::IniFormat);
    EXPECT_EQ(s.value("FORM/Width").toInt(), 1408);
    EXPECT_EQ(s.value("FORM/TagModeView").toInt(), 1); // the transmitted values
    EXPECT_EQ(s.value("dimension/pos").toPoint(), position);
    EXPECT_EQ(s.value("IedTreeCols/IedTreeCol0").toInt(), 293);
    EXPECT_EQ(s.value("splitter_2/sizes/size").toInt(), 3);
}

TEST_F(FormSettings, ShowReadsTheFileBack) {
    {
        QSettings s(IniPath(), QSettings::IniFormat);
        s.setValue("FORM/Width", 700);
        s.setValue("FORM/Height", 500);
        s.setValue("FORM/TagModeView", 3);
        s.setValue("dimension/Width", 640);
        s.setValue("dimension/Height", 480);
        s.setValue("dimension/pos", QPoint(-100, -100));
        s.setValue("IedTreeCols/IedTreeCol0", 111);
        s.setValue("IedTreeCols/IedTreeCol1", 222);
        // The last three groups all go to splitter_3, which keeps those of "splitter".
        for (const char* group : {"splitter_4", "splitter_3", "splitter"}) {
            const int first = QString(group) == "splitter" ? 100 : 300;
            s.setValue(QString(group) + "/sizes/1/size", first);
            s.setValue(QString(group) + "/sizes/2/size", 400 - first);
            s.setValue(QString(group) + "/sizes/size", 2);
        }
    }
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        EXPECT_EQ(f->tVIed->columnWidth(0), 111);
        EXPECT_EQ(f->IedCol1, 222);
        EXPECT_NE(f->TagMode, 3);
        const QList<int> sizes = f->splitter_3->sizes();
        ASSERT_EQ(sizes.size(), 2);
        EXPECT_LT(sizes[0], sizes[1]);
        // A position off the screen's top left comes back to its edge.
        f->LoadSettings();
        EXPECT_EQ(f->size(), QSize(640, 480));
        EXPECT_EQ(f->NormPos, QPoint(-4, -4));
    });
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormSettings, FileWithoutFormGroupIsRefused) {
    QSettings(IniPath(), QSettings::IniFormat).setValue("other/x", 1);
    OpenForm(p.unit2);
    EXPECT_EQ(BoxTexts(), QStringList("Information|Fail"));
    QFile::remove(IniPath()); // the group is found without regard to case
    QSettings(IniPath(), QSettings::IniFormat).setValue("form/Width", 600);
    boxes.clear();
    OpenForm(p.unit2);
    EXPECT_EQ(boxes.count(), 0);
}

TEST_F(FormSettings, MaximisedCloseKeepsTheNormalSize) {
    OpenForm(p.unit2, [](CfgArvenSR* f) {
        f->setGeometry(30, 40, 600, 400);
        QApplication::processEvents();
        // A resize before the new state is seen: its old size is the normal one.
        QResizeEvent toMaximum(QSize(800, 600), QSize(600, 400));
        QApplication::sendEvent(f, &toMaximum);
        f->setWindowState(Qt::WindowMaximized);
        QApplication::processEvents();
        EXPECT_NE(f->WinState, 0);
        // Resizes in that state leave the normal size alone.
        QResizeEvent again(QSize(700, 500), QSize(800, 600));
        QApplication::sendEvent(f, &again);
        EXPECT_EQ(QSize(f->NormW, f->NormH), QSize(600, 400));
    });
    QSettings s(IniPath(), QSettings::IniFormat);
    EXPECT_EQ(s.value("dimension/windowState").toInt(), int(Qt::WindowMaximized));
    EXPECT_EQ(s.value("dimension/Width").toInt(), 600);
    EXPECT_EQ(s.value("dimension/Height").toInt(), 400);
    EXPECT_EQ(s.value("FORM/windowState").toInt(), int(Qt::WindowMaximized));
    EXPECT_NE(s.value("FORM/Width").toInt(), 600);

    // The next show restores the state; back to normal the form takes that size.
    OpenForm(p.unit2, [&](CfgArvenSR* f) {
        EXPECT_TRUE(f->windowState() & Qt::WindowMaximized);
        f->setWindowState(Qt::WindowNoState);
        EXPECT_EQ(f->WinState, 0);
        EXPECT_EQ(f->size(), QSize(600, 400));
    });
}

// A widget's geometry reads back; a text map splits at its first "=" and trims.
TEST_F(FormSettings, WidgetAndTextMapGroups) {
    QSettings s(IniPath(), QSettings::IniFormat);
    QWidget widget, back;
    widget.setGeometry(5, 6, 70, 80);
    Wdg2Ini(s, "w", &widget);
    WdgFromIni(s, "w", &back);
    EXPECT_EQ(back.geometry(), QRect(5, 6, 70, 80));
    QMap<QString, QString> map{{"a", "x=y"}, {"b ", " v "}}, read{{"stale", "1"}};
    QMap_QStrQStr2Ini(s, "m", map);
    s.setValue("m/items/3/item", " bare ");
    s.setValue("m/items/size", 3);
    QMap_QStrQStrFromIni(s, "m", read);
    EXPECT_EQ(read, (QMap<QString, QString>{{"a", "x=y"}, {"b", "v"}, {"bare", ""}}));
}
