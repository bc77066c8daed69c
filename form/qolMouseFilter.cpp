#include "form/qolMouseFilter.h"

#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"

#include <QKeyEvent>

namespace {

// The delete key of the views: Delete, or X with Control alone.
bool IsDeleteKey(const QKeyEvent* key) {
    return key->key() == Qt::Key_Delete ||
           (key->key() == Qt::Key_X && key->modifiers() == Qt::ControlModifier);
}

} // namespace

qolMouseFilter::qolMouseFilter(QObject* parent) : QObject(parent) {}

bool qolMouseFilter::eventFilter(QObject* ob, QEvent* e) {
    if (e->type() == QEvent::KeyPress) {
        if (!IsDeleteKey(static_cast<QKeyEvent*>(e)))
            return false;
        // The deleting members are slots of the form, reached by name. The
        // other views swallow the key.
        const char* member = nullptr;
        if (ob->objectName() == "lWInfo_2")
            member = "DeleteFromContentRefDS";
        else if (ob->objectName() == "tVIed")
            member = "DeleteFromiedTree";
        else if (ob->objectName() == "tVTags")
            member = "DeleteFromtVTags";
        if (member && FCfgArvenSR)
            QMetaObject::invokeMethod(FCfgArvenSR, member, Qt::DirectConnection);
        return true;
    }
    if (e->type() == QEvent::FocusIn) {
        const QString cls = ob->metaObject()->className();
        if (cls == "QListWidget" || cls == "QTreeView") {
            if (FCfgArvenSR)
                FCfgArvenSR->TekWdg = ob;
            emit SigActOb(ob);
        }
        static const QStringList named = {"tVTags", "tVProp", "tVIed", "tVprop"};
        const int n = named.indexOf(ob->objectName());
        if (n >= 0 && FCfgArvenSR && FCfgArvenSR->FocusWidget != ob)
            emit CapOb(ob, n);
    }
    return false;
}

QMenuQol::QMenuQol(QWidget* parent) : QMenu(parent) {}

QMenuBarQol::QMenuBarQol(QWidget* parent) : QMenuBar(parent) {}

void QMenuBarQol::mouseMoveEvent(QMouseEvent* e) {
    emit qolBarMouse();
    QMenuBar::mouseMoveEvent(e);
}

void QMenuBarQol::mousePressEvent(QMouseEvent* e) {
    emit qolBarMouse();
    QMenuBar::mousePressEvent(e);
}
