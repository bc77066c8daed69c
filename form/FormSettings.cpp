// The window settings: "CfgTarn.ini" in the current directory, written at
// close and read at each show, and the tracking of the normal geometry.
#include "form/FormSettings.h"

#include "form/CfgIecArven.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QMessageBox>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QSettings>

namespace {

QString IniPath() {
    return QDir::currentPath() + "/CfgTarn.ini";
}

bool HasGroup(QSettings& s, const QString& group) {
    return s.childGroups().contains(group, Qt::CaseInsensitive);
}

} // namespace

void Split2Ini(QSettings& s, QString group, QSplitter* splitter) {
    s.beginGroup(group);
    s.setValue("Width", splitter->width());
    s.setValue("Height", splitter->height());
    const QList<int> sizes = splitter->sizes();
    s.beginWriteArray("sizes", sizes.size());
    for (int i = 0; i < sizes.size(); ++i) {
        s.setArrayIndex(i);
        s.setValue("size", sizes[i]);
    }
    s.endArray();
    s.endGroup();
}

void SplitFromIni(QSettings& s, QString group, QSplitter* splitter) {
    s.beginGroup(group);
    splitter->resize(s.value("Width", 0).toInt(), s.value("Height", 0).toInt());
    const int count = s.beginReadArray("sizes");
    QList<int> sizes;
    for (int i = 0; i < count; ++i) {
        s.setArrayIndex(i);
        const int size = s.value("size", 0).toInt();
        // A pane of no size would vanish for good.
        sizes << (size <= 0 ? 30 : size);
    }
    s.endArray();
    if (count > 0)
        splitter->setSizes(sizes);
    s.endGroup();
}

void Wdg2Ini(QSettings& s, QString group, QWidget* widget) {
    s.beginGroup(group);
    s.setValue("left", widget->x());
    s.setValue("top", widget->y());
    s.setValue("Width", widget->width());
    s.setValue("Height", widget->height());
    s.endGroup();
}

void WdgFromIni(QSettings& s, QString group, QWidget* widget) {
    s.beginGroup(group);
    widget->setGeometry(s.value("left").toInt(), s.value("top").toInt(), s.value("Width").toInt(),
                        s.value("Height").toInt());
    s.endGroup();
}

void QMap_QStrQStr2Ini(QSettings& s, QString group, QMap<QString, QString>& map) {
    s.beginGroup(group);
    s.beginWriteArray("items", map.size());
    int i = 0;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it, ++i) {
        s.setArrayIndex(i);
        s.setValue("item", it.key() + "=" + it.value());
    }
    s.endArray();
    s.endGroup();
}

void QMap_QStrQStrFromIni(QSettings& s, QString group, QMap<QString, QString>& map) {
    map.clear();
    s.beginGroup(group);
    const int count = s.beginReadArray("items");
    for (int i = 0; i < count; ++i) {
        s.setArrayIndex(i);
        const QString item = s.value("item").toString();
        const int eq = item.indexOf('=');
        if (eq < 0)
            map.insert(item.trimmed(), QString());
        else
            map.insert(item.left(eq).trimmed(), item.mid(eq + 1).trimmed());
    }
    s.endArray();
    s.endGroup();
}

void CfgArvenSR::SaveSettings() {
    QSettings s(IniPath(), QSettings::IniFormat);
    const int state = int(windowState());
    s.beginGroup("FORM");
    s.setValue("x", x());
    s.setValue("y", y());
    s.setValue("Width", width());
    s.setValue("Height", height());
    s.setValue("windowState", state);
    s.setValue("TagModeView", TagMode);
    s.endGroup();

    // The size to come back to: in a maximised or other state the one kept
    // from the normal state, as far as one is known.
    s.beginGroup("dimension");
    s.setValue("windowState", state);
    if (state != 0) {
        if (NormW != 0 && NormH != 0) {
            s.setValue("Width", NormW);
            s.setValue("Height", NormH);
            s.setValue("pos", NormPos);
        }
    } else {
        s.setValue("Width", width());
        s.setValue("Height", height());
        s.setValue("pos", pos());
    }
    s.endGroup();

    Split2Ini(s, "splitter1", splitter1);
    Split2Ini(s, "splitter_2", splitter_2);
    Split2Ini(s, "splitter_4", splitter_4);
    Split2Ini(s, "splitter_3", splitter_3);
    Split2Ini(s, "splitter", splitter);

    s.beginGroup("IedTreeCols");
    s.setValue("IedTreeCol0", tVIed->header()->sectionSize(0));
    s.setValue("IedTreeCol1", tVIed->header()->sectionSize(1));
    s.endGroup();
    s.beginGroup("ICCPProp");
    s.setValue("ICCPPropCol0", tVprop->header()->sectionSize(0));
    s.setValue("ICCPPropCol1", tVprop->header()->sectionSize(1));
    s.endGroup();
}

void CfgArvenSR::LoadSettings() {
    if (!QFile::exists(IniPath())) {
        LoadDefSize();
        return;
    }
    QSettings s(IniPath(), QSettings::IniFormat);
    if (!HasGroup(s, "FORM")) {
        QMessageBox::information(this, "Information", "Fail");
        return;
    }
    s.beginGroup("FORM");
    setGeometry(s.value("x", 0).toInt(), s.value("y", 0).toInt(), s.value("Width", 0).toInt(),
                s.value("Height", 0).toInt());
    const int formState = s.value("windowState", 0).toInt();
    if (formState != 0)
        setWindowState(Qt::WindowStates(formState));
    s.endGroup();

    s.beginGroup("dimension");
    const int state = s.value("windowState", 0).toInt();
    const int width = s.value("Width", 0).toInt();
    const int height = s.value("Height", 0).toInt();
    QPoint position = s.value("pos", QPoint(0, 0)).toPoint();
    s.endGroup();
    // A window lying off the screen's top left comes back to its edge.
    position.setX(qMax(position.x(), -4));
    position.setY(qMax(position.y(), -4));
    if (state != 0) {
        NormW = width;
        NormH = height;
        NormPos = position;
        setWindowState(Qt::WindowStates(state));
    } else {
        resize(width, height);
        move(position);
        NormW = width;
        NormH = height;
        NormPos = position;
    }
    WinState = int(windowState());

    LoadSettingsTVIED();
    s.beginGroup("ICCPProp");
    tVprop->setColumnWidth(0, s.value("ICCPPropCol0", 0).toInt());
    tVprop->setColumnWidth(1, s.value("ICCPPropCol1", 0).toInt());
    s.endGroup();

    // The last three groups all land on splitter_3, which ends with the
    // sizes of "splitter"; splitter_4 and splitter keep their layout.
    const struct {
        const char* group;
        QSplitter* target;
    } splitters[] = {{"splitter1", splitter1},
                     {"splitter_2", splitter_2},
                     {"splitter_4", splitter_3},
                     {"splitter_3", splitter_3},
                     {"splitter", splitter_3}};
    for (const auto& sp : splitters)
        if (HasGroup(s, sp.group))
            SplitFromIni(s, sp.group, sp.target);
}

void CfgArvenSR::LoadDefSize() {
    setGeometry(QRect(QPoint(50, 50), QPoint(1457, 946)));
    setWindowState(Qt::WindowNoState);
    WinState = 0;
    TagMode = 0;
    tVIed->setColumnWidth(0, 293);
    tVIed->setColumnWidth(1, 235);
    IedCol0 = 293;
    IedCol1 = 235;
    splitter1->resize(1382, 780);
    splitter1->setSizes({461, 915});
    splitter_2->resize(459, 753);
    splitter_2->setSizes({166, 401, 173});
    splitter_3->resize(915, 780);
    splitter_3->setSizes({583, 194});
    splitter->resize(915, 583);
    splitter->setSizes({551, 358});
}

void CfgArvenSR::SaveSettingsTVIED() {
    QSettings s(IniPath(), QSettings::IniFormat);
    s.beginGroup("IedTreeCols");
    s.setValue("IedTreeCol0", tVIed->header()->sectionSize(0));
    s.setValue("IedTreeCol1", tVIed->header()->sectionSize(1));
    s.endGroup();
}

void CfgArvenSR::LoadSettingsTVIED() {
    QSettings s(IniPath(), QSettings::IniFormat);
    s.beginGroup("IedTreeCols");
    IedCol0 = s.value("IedTreeCol0", 0).toInt();
    IedCol1 = s.value("IedTreeCol1", 0).toInt();
    s.endGroup();
    tVIed->setColumnWidth(0, IedCol0);
    tVIed->setColumnWidth(1, IedCol1);
}

bool CfgArvenSR::event(QEvent* e) {
    // Set while the form restores its own normal geometry: then the new
    // size and position are the right ones.
    static bool fl_chM = false;
    static bool fl_chR = false;
    switch (e->type()) {
    case QEvent::WindowStateChange: {
        if (static_cast<QWindowStateChangeEvent*>(e)->oldState() == Qt::WindowNoState)
            fl_chM = fl_chR = false;
        WinState = int(windowState());
        if (WinState != 0)
            return true;
        fl_chR = true;
        resize(NormW, NormH);
        fl_chR = false;
        fl_chM = true;
        move(NormPos);
        fl_chM = false;
        return true;
    }
    case QEvent::Resize: {
        if (WinState != 0)
            return true;
        // At a maximise the events come before the state change is seen:
        // the old size is the last normal one.
        auto resize = static_cast<QResizeEvent*>(e);
        const QSize size = fl_chR ? resize->size() : resize->oldSize();
        if (size.width() > 0 && size.height() > 0) {
            NormW = size.width();
            NormH = size.height();
        }
        return true;
    }
    case QEvent::Move:
        if (WinState == 0) {
            auto move = static_cast<QMoveEvent*>(e);
            NormPos = fl_chM ? move->pos() : move->oldPos();
            return true;
        }
        return QWidget::event(e);
    default:
        return QWidget::event(e);
    }
}
