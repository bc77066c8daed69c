#include "TagsFixture.h"

#include "form/CfgIecArven.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QApplication>
#include <QInputDialog>

void TagsTest::ShowTags(CfgArvenSR* form, int mode, HostObject* root) {
    form->TagMode = mode;
    form->tVTags->setModel(nullptr);
    form->pTagsModel->mode = mode;
    form->pTagsModel->setRootNode(root);
    form->tVTags->setModel(form->pTagsModel);
}

namespace {

// Walks the rows by index() alone: the row count counts tags only, so the
// rows of a folder's tags that follow its sub-folders lie beyond it.
QModelIndex FindRow(UnitTagsModel* model, const QModelIndex& parent, void* ob) {
    for (int r = 0;; ++r) {
        const QModelIndex row = model->index(r, 0, parent);
        if (!row.isValid())
            return QModelIndex();
        if (row.internalPointer() == ob)
            return row;
        const QModelIndex below = FindRow(model, row, ob);
        if (below.isValid())
            return below;
    }
}

} // namespace

QModelIndex TagsTest::TagRow(CfgArvenSR* form, HostObject* ob) const {
    return FindRow(form->pTagsModel, QModelIndex(), ob->handle());
}

QModelIndex TagsTest::VarRow(CfgArvenSR* form, const QString& name) const {
    IEDTreeModel* model = form->pTreeIedModel;
    const QModelIndexList hits =
        model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchRecursive);
    return hits.isEmpty() ? QModelIndex() : hits.first();
}

void TagsTest::FocusTags(CfgArvenSR* form) {
    QApplication::setActiveWindow(form);
    form->tVTags->setFocus();
}

void TagsTest::SelectTags(CfgArvenSR* form, const QList<HostObject*>& obs) {
    QItemSelectionModel* selection = form->tVTags->selectionModel();
    selection->clear();
    for (HostObject* ob : obs)
        selection->select(TagRow(form, ob), QItemSelectionModel::Select);
    if (!obs.isEmpty())
        selection->setCurrentIndex(TagRow(form, obs.first()), QItemSelectionModel::NoUpdate);
}

void TagsTest::AnswerInput(const QString& text) {
    boxes.setDialogHandler([this, text](QWidget* w) {
        auto input = qobject_cast<QInputDialog*>(w);
        if (!input)
            return false;
        inputTitles << input->windowTitle() + "|" + input->labelText();
        if (text.isNull()) {
            input->reject();
        } else {
            input->setTextValue(text);
            input->accept();
        }
        return true;
    });
}

void TagsTest::EditProp(CfgArvenSR* form, HostObject* ob, const char* key, const QString& value,
                        const QString& old) {
    ob->set(key, value);
    CpropNode node;
    node.key = key;
    node.value = value;
    QByteArray name(key);
    form->UpdPropTagUnit(&node, old, ob, name.data());
}
