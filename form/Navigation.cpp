// How the panes follow one another: the unit list fills the tag tree, the
// model tree fills the object pane, a data set fills its member list; and
// the small searches that jump between the trees.
#include "form/CfgIecArven.h"

#include "editing/CreateVars.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostTitles.h"
#include "plugin/cfgCalls.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "views/PropModel.h"
#include "views/PropTreeModel.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"
#include "views/ViewModel.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QMessageBox>
#include <QStatusBar>

namespace {

// The model object of a row of any list or tree of the form.
DcICCPBase* RowObject(const QVariant& userRole) {
    return static_cast<DcICCPBase*>(userRole.value<void*>());
}

// Gives the tag model the form's mode, renews its root and puts it back on
// tVTags; true when it has a root.
bool AttachTagModel(CfgArvenSR* f) {
    f->pTagsModel->mode = f->TagMode;
    void* root = f->pTagsModel->rootNode();
    if (root)
        f->pTagsModel->setRootNode(root);
    SetViewModel(f->tVTags, f->pTagsModel);
    return root;
}

} // namespace

void CfgArvenSR::showEvent(QShowEvent* e) {
    LoadSettings();
    // Whatever mode was shown last, the form opens on the transmitted values.
    emit actModePass->triggered(false);
    OnlW_UnitClicked(lW_ieds->currentItem());
    QDialog::showEvent(e);
}

void CfgArvenSR::OnlW_UnitClicked(QListWidgetItem* item) {
    if (!item)
        return;
    void* unit = item->data(Qt::UserRole).value<void*>();
    SetViewModel(tVTags, nullptr);
    RepaintTags();
    AttachTagModel(this);
    SetPropModel(unit);
    statusBar->showMessage("Для изменения полей maxICC и maxDS пользуйтесь основным конфигуратором",
                           5000);
}

void CfgArvenSR::RepaintTags() {
    QListWidgetItem* item = lW_ieds->currentItem();
    if (!item)
        return;
    void* unit = item->data(Qt::UserRole).value<void*>();
    const int kind = TagMode + 8;
    if (cfgObChildCount(unit, kind) < 1)
        return;
    const std::vector<void*> folders = GetChildren(unit, kind);
    pTagsModel->setRootNode(folders.empty() ? unit : folders.front());
}

void CfgArvenSR::ViewTags(void* unit) {
    SetViewModel(tVTags, nullptr);
    pTagsModel->mode = TagMode;
    const std::vector<void*> folders = GetChildren(unit, TagMode + 8);
    pTagsModel->setRootNode(folders.empty() ? unit : folders.front());
    SetViewModel(tVTags, pTagsModel);
}

void CfgArvenSR::SetTagModeView(QAction* action) {
    if (action == actModeRecv)
        TagMode = 0;
    else if (action == actModePass)
        TagMode = 1;
    else if (action == actModeCtrlRecv)
        TagMode = 2;
    else
        TagMode = 3;
    SetViewModel(tVTags, nullptr);
    SetViewModel(tVProp, nullptr);
    RepaintTags();
    if (AttachTagModel(this)) {
        tVTags->header()->show();
        tVTags->setHeaderHidden(false);
    }
    if (action)
        action->setChecked(true);
}

void CfgArvenSR::OntVTagsClick(const QModelIndex& index) {
    statusBar->clearMessage();
    // No sort proxy is made: the index is the tag model's own.
    void* node = index.isValid() ? index.data(Qt::UserRole).value<void*>() : nullptr;
    // A click beside the rows leaves the property pane empty.
    if (!node) {
        SetViewModel(tVProp, nullptr);
        return;
    }
    pPropTree->setRootNode(node);
    SetViewModel(tVProp, pPropTree);
    tVProp->header()->setSectionResizeMode(QHeaderView::Stretch);
    tVProp->expandAll();
}

void CfgArvenSR::SetPropModel(void* ob) {
    if (!ob) {
        SetViewModel(tVProp, nullptr);
        return;
    }
    pPropTree->setRootNode(ob);
    SetViewModel(tVProp, pPropTree);
    // A cell opens its editor as soon as it becomes current.
    tVProp->setSelectionBehavior(QAbstractItemView::SelectItems);
    tVProp->setSelectionMode(QAbstractItemView::SingleSelection);
    tVProp->setEditTriggers(QAbstractItemView::CurrentChanged);
    tVProp->expandAll();
    tVProp->resizeColumnToContents(0);
    tVProp->resizeColumnToContents(1);
}

void CfgArvenSR::OntVIedClicked(const QModelIndex& index) {
    SetViewModel(tVprop, nullptr);
    if (index.column() > 0)
        return;
    myNode* node = pTreeIedModel && index.model() == pTreeIedModel
                       ? pTreeIedModel->nodeFromIndex(index)
                       : nullptr;
    DcICCPBase* object = node ? static_cast<DcICCPBase*>(node->object) : nullptr;
    if (!object) {
        tVprop->hide();
        return;
    }
    const QString cls = object->ClassName();
    statusBar->showMessage("Объект  " + LocalToQ(object->name) + "(" + cls + ")", 5000);
    if (cls == "DcDA" || cls == "DcDataSet") {
        tVprop->hide();
        return;
    }
    const bool structure = cls == "DcDO";
    // A member of a data set is shown by its own row elsewhere.
    if (structure && IsOwn(node, "DcDataSet")) {
        actAdd2DS->setEnabled(false);
        return;
    }
    if (!structure && cls != "DcTransSet")
        return;
    auto shown = new myNode(object->name, object);
    if (structure) {
        actAdd2DS->setEnabled(true);
        DcDO2Tree(shown);
    } else {
        tVprop->show();
        List2Tree(shown, &static_cast<DcTransSet*>(object)->Members);
    }
    // The pane shows a tree of its own, headed by the object.
    myNode* old = pPropIccp->rootNode;
    pPropIccp->setRootNode(shown);
    if (old)
        old->DeleteSubTree();
    SetViewModel(tVprop, pPropIccp);
}

void CfgArvenSR::OnExtUpd(void* node) {
    QListWidgetItem* item = lW_ieds->currentItem();
    if (item && item->data(Qt::UserRole).value<void*>() == node) {
        emit lW_ieds->itemChanged(item);
        item->setText(GetTitle(node));
    }
    const QModelIndex current = tVTags->currentIndex();
    if (current.isValid() && current.model() == pTagsModel &&
        current.data(Qt::UserRole).value<void*>() == node)
        emit pTagsModel->dataChanged(current, current);
}

void ForEachDataSetList(const std::function<void(StringList&)>& f) {
    if (!pVCC)
        return;
    f(pVCC->DataSets);
    for (int i = 0; i < pVCC->ICCs.Count; ++i)
        if (auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i)))
            f(icc->DataSets);
}

StringList* ScopedList(DcVCC* vcc, const std::string& key, bool dataSets, std::string& name) {
    if (!vcc)
        return nullptr;
    const size_t slash = key.find('/');
    if (slash == std::string::npos) {
        name = key;
        return dataSets ? &vcc->DataSets : &vcc->Vars;
    }
    auto icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, vcc->ICCs.IndexOf(key.substr(0, slash))));
    name = key.substr(slash + 1);
    if (!icc)
        return nullptr;
    return dataSets ? &icc->DataSets : &icc->Vars;
}

// Refills lWInfo with its handler disconnected: emptying the list mustn't
// empty the member list by the way.
void CfgArvenSR::FillDSList() {
    const char* const changed = SIGNAL(currentItemChanged(QListWidgetItem*, QListWidgetItem*));
    const char* const handler = SLOT(OncurrentItemChangedDS(QListWidgetItem*, QListWidgetItem*));
    disconnect(lWInfo, changed, this, handler);
    for (int row = lWInfo->count() - 1; row >= 0; --row)
        delete lWInfo->takeItem(row);
    lWInfo->clear();
    ForEachDataSetList([this](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i) {
            DcICCPBase* dataSet = ListOb(dataSets, i);
            if (!dataSet)
                continue;
            // A set of an ICC shows as "ICC/set", one of the VCC by its name.
            auto item = new QListWidgetItem(LocalToQ(dataSet->GetFullName()), lWInfo);
            item->setData(Qt::UserRole, QVariant::fromValue(static_cast<void*>(dataSet)));
        }
    });
    connect(lWInfo, changed, this, handler);
}

void CfgArvenSR::ResetInfoDS() {
    FillDSList();
}

void CfgArvenSR::UpDateFullDSList() {
    if (!pVCC)
        return;
    lWInfo_2->clear();
    FillDSList();
}

void CfgArvenSR::OncurrentItemChangedDS(QListWidgetItem* current, QListWidgetItem*) {
    lWInfo_2->clear();
    if (!current)
        return;
    auto dataSet = qobject_cast<DcDataSet*>(RowObject(current->data(Qt::UserRole)));
    if (!dataSet)
        return;
    for (int i = 0; i < dataSet->Elems.Count; ++i) {
        auto item = new QListWidgetItem(LocalToQ(dataSet->Elems.Strings(i)), lWInfo_2);
        item->setData(Qt::UserRole, QVariant::fromValue(dataSet->Elems.Objects(i)));
    }
}

void CfgArvenSR::OnItemDoubleClicked(QListWidgetItem* item) {
    if (!item || !pTreeIedModel)
        return;
    const QModelIndex hit = FindByPVOID(item->data(Qt::UserRole).value<void*>(), pTreeIedModel,
                                        pTreeIedModel->index(0, 0));
    if (hit.isValid())
        tVIed->setCurrentIndex(hit);
}

QModelIndex CfgArvenSR::FindByPVOID(void* ob, QAbstractItemModel* model, QModelIndex start) {
    QVariant value = QVariant::fromValue(ob);
    return FindByRole(value, Qt::UserRole, model, start);
}

QModelIndex CfgArvenSR::FindByRole(QVariant& value, int role, QAbstractItemModel* model,
                                   QModelIndex start) {
    if (!model)
        return QModelIndex();
    if (!start.isValid())
        start = model->index(0, 0);
    // The first hit of a whole search is the first that the search meets.
    const QModelIndexList hits =
        model->match(start, role, value, 1, Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty()) {
        QMessageBox::information(this, "Info", "Search was failed");
        return QModelIndex();
    }
    return hits.first();
}

QModelIndex CfgArvenSR::FindInTreeByLongName(QModelIndex start, std::string name) {
    if (!start.model())
        return QModelIndex();
    const QModelIndexList hits = start.model()->match(start, Qt::DisplayRole, Utf8ToQ(name), 1,
                                                      Qt::MatchRecursive | Qt::MatchWrap);
    return hits.isEmpty() ? QModelIndex() : hits.first();
}

QModelIndex CfgArvenSR::FindNode(QString) {
    return QModelIndex();
}

void CfgArvenSR::slotShowType() {
    DcICCPBase* object = RowObject(tVIed->currentIndex().data(Qt::UserRole));
    if (!object)
        return;
    const QString cls = object->ClassName();
    if (cls == "DcDA") {
        DcDAType* type = static_cast<DcDA*>(object)->Template;
        if (!type)
            return;
        // The type's aliases lead to one of the base types.
        const int row = FindDAType2(DATypes, 0, DATypesCount - 1, Str2UpperP(type->type).c_str());
        const QString base = row >= 0 ? QString(DATypes[row].name) : QString();
        QMessageBox::information(this, "Инфо ",
                                 "Тип переменной -- " + LocalToQ(type->type) +
                                     "\n (Базовый тип - " + base);
    } else if (cls == "DcDO") {
        QMessageBox::information(this, "Инфо ",
                                 "Тип структуры -- " + LocalToQ(static_cast<DcDO*>(object)->type));
    }
}

void CfgArvenSR::SetIsTagV(QModelIndex index) {
    DcICCPBase* object = RowObject(index.data(Qt::UserRole));
    if (!object)
        return;
    object->IsTagV = true;
    if (pTreeIedModel)
        emit pTreeIedModel->dataChanged(index, index);
}

void CfgArvenSR::slotOnRecvData() {
    QListWidgetItem* item = lWInfo->currentItem();
    if (!item || !pVCC)
        return;
    // "ICC/set" names a set of an ICC, a bare name one of the VCC.
    std::string name;
    StringList* dataSets = ScopedList(pVCC, QToLocal(item->text()), true, name);
    if (!dataSets)
        return;
    auto dataSet = qobject_cast<DcDataSet*>(ListOb(*dataSets, dataSets->IndexOf(name)));
    if (!dataSet)
        return;
    for (int i = 0; i < GlobVarMem.Count; ++i)
        if (dataSet->Elems.IndexOf(GlobVarMem.Strings(i)) < 0)
            dataSet->AddObRef(static_cast<DcICCPBase*>(GlobVarMem.Objects(i)));
    OncurrentItemChangedDS(item, item);
}
