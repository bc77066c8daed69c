#include "tags/TagFolders.h"

#include "editing/Deleting.h"
// A tag's "domain", "isinDataSet" and "tag_type" are edited on the tag's
// properties, and that road drives the moves of the variables by design.
#include "editing/MoveVars.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "tags/TagBinding.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"
#include "views/ViewModel.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QPersistentModelIndex>
#include <algorithm>
#include <cstdlib>
#include <unordered_set>
#include <vector>

namespace {

// Children of `kind` that are of that kind: the host's list isn't trusted.
std::vector<void*> ChildrenOfKind(void* ob, int kind) {
    std::vector<void*> children = GetChildren(ob, kind);
    children.erase(std::remove_if(children.begin(), children.end(),
                                  [kind](void* child) { return cfgObType(child) != kind; }),
                   children.end());
    return children;
}

// The first child of `kind` whose caption is `name`, or null.
void* FindByCaption(void* parent, int kind, const QString& name) {
    for (void* child : ChildrenOfKind(parent, kind))
        if (GetPropStrVal(child, "caption") == name)
            return child;
    return nullptr;
}

void* CreateNamedFolder(void* parent, int kind, const QString& name) {
    void* folder = cfgObCreate(parent, kind, 0, "IecOrmelcli");
    if (folder)
        SetStr2PropOb(folder, "caption", name);
    return folder;
}

void Inform(QWidget* parent, const QString& title, const QString& text) {
    QMessageBox::information(parent, title, text, QMessageBox::Ok);
}

} // namespace

bool CreateSecFlg(void* parent, TCfgObjectType kind, QString& name) {
    if (FindByCaption(parent, kind, name))
        return false;
    return CreateNamedFolder(parent, kind, name) != nullptr;
}

void* CreateOrTakeFlg4DS(void* parent, TCfgObjectType kind, QString& name) {
    void* base = cfgObChildCount(parent, kind) > 0 ? cfgObChild(parent, kind, 0) : nullptr;
    if (!base)
        return nullptr;
    if (void* folder = FindByCaption(base, kind, name))
        return folder;
    return CreateNamedFolder(base, kind, name);
}

void* GetFolger(void* unit, TCfgObjectType mode) {
    if (mode < cotSource || mode > cotControlPass)
        return nullptr;
    const int kind = mode + cotFolderSource;
    if (cfgObChildCount(unit, kind) > 0)
        return cfgObChild(unit, kind, 0);
    return cfgObCreate(unit, kind, cfgObFreeNumber(unit, kind), "Arven");
}

void* CreateTag(void* parent, TCfgObjectType& kind) {
    if (!parent)
        return nullptr;
    void* tag = cfgObCreate(parent, kind, cfgObFreeNumber(parent, kind), "IecArven");
    if (tag)
        Settag_id(tag, GetDefCaption(kind));
    return tag;
}

void Settag_id(void* tag, QString id) {
    SetStr2PropOb(tag, "tag_id", id);
}

void Changetag_name(QString newName, QString oldName, void* tag) {
    int number = 0, domain = 0;
    CfgArvenSR* form = FCfgArvenSR;
    if (!GetIntProp(tag, "number", number) || !GetIntProp(tag, "domain", domain) || !form)
        return;
    IEDTreeModel* model = form->pTreeIedModel;
    const QString suffix = "_" + QString::number(number);
    // The first row of the old name changes, whichever container holds it.
    const QModelIndexList hits = model->match(model->index(0, 0), Qt::DisplayRole, oldName + suffix,
                                              1, Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty())
        return;
    myNode* node = model->nodeFromIndex(hits.first());
    if (!node)
        return;
    node->name = (newName + suffix).toStdString();
    if (auto var = static_cast<DcICCPBase*>(node->object))
        var->name = node->name;
    emit model->dataChanged(hits.first(), hits.first());
}

void Changetag_caption(QString, QString, void* tag) {
    std::string caption;
    GetTextProp(tag, "caption", caption);
    QModelIndex index;
    int domain = 0;
    std::string name;
    DcICCPBase* var = GetObTreeIedByTag(tag, index, domain, name);
    if (!var)
        return;
    var->desc = caption;
    emit FCfgArvenSR->pTreeIedModel->dataChanged(index.sibling(index.row(), 0),
                                                 index.sibling(index.row(), 1));
}

void CfgArvenSR::OnCreateFolg() {
    const int folderKind = TagMode + cotFolderSource;
    void* parent = nullptr;
    const QModelIndex current = tVTags->currentIndex();
    if (current.isValid()) {
        void* ob = RowObject(current);
        if (cfgObType(ob) == folderKind) {
            parent = ob;
        } else {
            void* owner = cfgObOwner(ob);
            if (!owner || cfgObType(owner) != folderKind) {
                Inform(this, "Сообщение", "Не могу найти родительский объект");
                return;
            }
            parent = owner;
        }
    } else {
        if (cfgObChildCount(RecvUnit, folderKind) <= 0) {
            Inform(this, "Сообщение", "Отсутствует базовая папка");
            return;
        }
        const std::vector<void*> bases = ChildrenOfKind(RecvUnit, folderKind);
        if (bases.empty()) {
            Inform(this, "Сообщение", "Невозможно создать папку");
            return;
        }
        parent = bases.front();
    }
    bool ok = false;
    QString name =
        QInputDialog::getText(this, "Введите имя папки", "", QLineEdit::Normal, QString(), &ok);
    if (!ok)
        return;
    if (!CreateSecFlg(parent, TCfgObjectType(folderKind), name)) {
        Inform(this, "Сообщение", "Ошибка. По-видимому нарушена уникальность имен");
        return;
    }
    SetViewModel(tVTags, nullptr);
    SetViewModel(tVTags, pTagsModel);
}

void CfgArvenSR::OnCreateTag() {}

void CfgArvenSR::OnCreateTagInFld() {
    auto var = static_cast<DcICCPBase*>(RowObject(tVIed->currentIndex()));
    if (!var || var->ClassName() != "DcDA")
        return;
    const std::string key = var->GetFullName();
    if (pListTag->IndexOf(key) >= 0) {
        Inform(this, "Предупреждение", "Уже существует тег с данным tag_td");
        return;
    }
    const int folderKind = TagMode + cotFolderSource;
    void* parent = nullptr;
    QModelIndex parentIndex = tVTags->currentIndex();
    if (parentIndex.isValid()) {
        parent = RowObject(parentIndex);
        if (!IsFlg(parent)) {
            parent = cfgObOwner(parent);
            parentIndex = parentIndex.parent();
        }
    } else {
        parentIndex = pTagsModel->index(0, 0);
        QListWidgetItem* item = lW_ieds->currentItem();
        void* unit = item ? item->data(Qt::UserRole).value<void*>() : nullptr;
        if (!unit)
            return;
        if (cfgObChildCount(unit, folderKind) > 0) {
            parent = cfgObChild(unit, folderKind, 0);
        } else {
            const int count = cfgObAllCount(unit, TagMode);
            if (count <= 0)
                return;
            std::vector<void*> all(size_t(count), nullptr);
            const int stored = cfgObChildList(unit, TagMode, all.data(), count);
            for (int i = 0; i < stored && i < count && !parent; ++i)
                if (IsFlg(all[size_t(i)]))
                    parent = all[size_t(i)];
        }
    }
    if (!parent)
        return;
    const int row = pTagsModel->rowCount(parentIndex);
    void* tag =
        pTagsModel->CreateTag(var, parent, TagMode, QString::fromStdString(key), parentIndex, row);
    if (tag)
        pListTag->AddObject(key, tag, true);
    if (pTagsModel->rootNode() == parent && row == 0) {
        SetViewModel(tVTags, nullptr);
        pTagsModel->setRootNode(parent);
        SetViewModel(tVTags, pTagsModel);
        emit pTagsModel->dataChanged(pTagsModel->index(0, 0), pTagsModel->index(0, 0));
    } else {
        const int rows = pTagsModel->rowCount(parentIndex);
        if (rows >= 1)
            emit pTagsModel->dataChanged(pTagsModel->index(0, 0), pTagsModel->index(rows - 1, 0));
    }
}

void CfgArvenSR::OnDelTag() {
    void* ob = RowObject(tVTags->currentIndex());
    if (ob) {
        const QString text =
            (cfgObType(ob) > cotControlPass ? "Удаление папки: " : "Удаление тега: ") +
            GetTitle(ob);
        if (QMessageBox::information(this, "Сообщение", text, QMessageBox::Ok,
                                     QMessageBox::Cancel) == QMessageBox::Ok)
            cfgObDelete(ob);
    }
    tVTags->reset();
}

void CfgArvenSR::OnDelTags() {
    DeleteFromtVTags();
}

void CfgArvenSR::DelFromtVTags() {
    const QModelIndexList selected =
        tVTags->selectionModel() ? tVTags->selectionModel()->selectedIndexes() : QModelIndexList();
    if (selected.isEmpty())
        return;
    const QString text = "Удаление  " + QString::number(selected.size()) + " элементов ";
    if (QMessageBox::question(this, "Предупреждение", text,
                              QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Cancel)
        return;
    // Rows removed before may move the later ones, or take them away with
    // their folder.
    QList<QPersistentModelIndex> rows;
    for (const QModelIndex& index : selected)
        rows << index;
    for (int i = rows.size() - 1; i >= 0; --i) {
        if (!rows[i].isValid())
            continue;
        void* ob = RowObject(rows[i]);
        DeleteTagOrFolder(ob);
        pTagsModel->DeleteNode(rows[i], ob);
    }
}

void CfgArvenSR::DeleteTagOrFolder(void* ob) {
    const int kind = cfgObType(ob);
    if (kind <= cotControlPass) {
        DeleteVarFromtIED(ob);
        return;
    }
    // Each variable is searched for through the whole tree, and the tree
    // view moves to its row: the searches of a folder's variables go to an
    // index of the tree, and the view moves once at the end.
    IEDTreeModel::SearchBatch batch(pTreeIedModel);
    QuietView quiet(tVIed, true);
    // The host deletes the tags and sub-folders with the folder; only their
    // variables go by hand.
    for (void* tag : GetChildren(ob, kind - cotFolderSource))
        if (IsTag(tag))
            DeleteVarFromtIED(tag);
    for (void* folder : GetChildren(ob, kind))
        if (!IsTag(folder))
            DeleteTagOrFolder(folder);
}

void CfgArvenSR::DeleteVarFromtIED(void* tag) {
    QModelIndex index;
    int domain = 0;
    std::string name;
    DcICCPBase* var = GetObTreeIedByTag(tag, index, domain, name);
    if (!var)
        return;
    const std::string fullName = var->GetFullName();
    int dataSet = 0;
    GetIntProp(tag, "isinDataSet", dataSet);
    DcICCPBase* container = DomainContainer(domain);
    if (dataSet > 0)
        RemoveMember(DataSetOf(container, dataSet), fullName);
    pTreeIedModel->RemoveNode(index.parent(), index.row(), pTreeIedModel->nodeFromIndex(index));
    StringList* vars = VarsOf(container);
    const int i = vars ? vars->IndexOf(var->name) : -1;
    if (i < 0)
        return;
    // A variable being deleted takes its own entry out of its owner's list,
    // found by its name; with the entry gone first it would look for it
    // through the whole list.
    if (!needemit || vars->Objects(i) != var || var->OwnerOb() != container)
        vars->Delete(i);
    delete var;
}

void CfgArvenSR::DeleteFromtVTags() {
    const QModelIndexList selected =
        tVTags->selectionModel() ? tVTags->selectionModel()->selectedIndexes() : QModelIndexList();
    if (selected.isEmpty())
        return;
    const QModelIndex parent = selected.first().parent();
    int first = 10000;
    for (const QModelIndex& index : selected) {
        if (index.parent() != parent) {
            Inform(this, QString(), "Разные родители у выбранных компонентов");
            return;
        }
        first = std::min(first, index.row());
    }
    // Folder rows lie past the model's row count, which counts tags alone:
    // a range the views can't place resets them instead.
    const int last = first + selected.size() - 1;
    const bool placed = last < pTagsModel->rowCount(parent);
    if (placed)
        pTagsModel->beginRemoveRows(parent, first, last);
    else
        pTagsModel->beginResetModel();
    for (const QModelIndex& index : selected) {
        void* ob = RowObject(index);
        if (!IsFlg(ob))
            DeleteFromTag(ob);
        else
            DeleteFromTagFolder(ob);
    }
    if (placed)
        pTagsModel->endRemoveRows();
    else
        pTagsModel->endResetModel();
}

void CfgArvenSR::DeleteFromTagFolder(void* folder) {
    const int folderKind = TagMode + cotFolderSource;
    for (void* child : GetChildren(folder, folderKind)) {
        const int kind = cfgObType(child);
        if (kind == folderKind)
            DeleteFromTagFolder(child);
        else if (kind == TagMode)
            DeleteFromTag(child);
    }
    for (void* child : ChildrenOfKind(folder, TagMode))
        DeleteFromTag(child);
}

void CfgArvenSR::DeleteFromTag(void* tag) {
    const TagData data = GetTagData(tag);
    const std::string local = data.tag_name + "_" + Int2Str(data.number);
    DcICCPBase* container = DomainContainer(data.domain);
    StringList* vars = VarsOf(container);
    if (!vars)
        return;
    const std::string member = data.domain > 0 ? container->name + "/" + local : local;
    if (data.isinDataSet > 0)
        RemoveMember(DataSetOf(container, data.isinDataSet), member);
    // A tag without a variable has no row to lose, and stays in the host.
    const int i = vars->IndexOf(local);
    void* var = i >= 0 ? vars->Objects(i) : nullptr;
    if (!var)
        return;
    const QModelIndexList hits =
        pTreeIedModel->match(pTreeIedModel->index(0, 0), Qt::UserRole, QVariant::fromValue(var), 1,
                             Qt::MatchRecursive | Qt::MatchWrap);
    if (hits.isEmpty())
        return;
    const QModelIndex hit = hits.first();
    pTreeIedModel->beginRemoveRows(hit.parent(), hit.row(), hit.row());
    myNode* node = pTreeIedModel->nodeFromIndex(hit);
    node->DeleteNode();
    delete node;
    vars->Delete(i);
    cfgObDelete(tag);
    pTreeIedModel->endRemoveRows();
    QListWidgetItem* current = lWInfo->currentItem();
    emit lWInfo->currentItemChanged(current, current);
}

namespace {

// The keys of the tags below unit, folder by folder, that are neither in the
// list nor met before, with their tags.
struct TagKeys {
    const StringList* list;
    std::vector<std::pair<std::string, void*>> found;
    std::unordered_set<std::string> met;

    void Collect(void* unit, int& maxNoname) {
        for (int kind = cotSource; kind <= cotControlPass; ++kind) {
            for (void* tag : ChildrenOfKind(unit, kind)) {
                const QString key = GetPropStrVal(tag, "tag_id");
                if (key.isEmpty())
                    continue;
                std::string text = key.toStdString();
                if (met.count(text) || list->IndexOf(text) >= 0)
                    continue;
                met.insert(text);
                found.emplace_back(std::move(text), tag);
                const int at = key.lastIndexOf("Noname");
                if (at >= 0)
                    maxNoname = std::max(maxNoname, Str2Int(key.mid(at + 6).toStdString()));
            }
        }
        for (int kind = cotFolderSource; kind <= cotFolderControlPass; ++kind)
            for (void* folder : ChildrenOfKind(unit, kind))
                Collect(folder, maxNoname);
    }
};

} // namespace

int CfgArvenSR::FillListBTag(void* unit, int& maxNoname) {
    // A unit may hold 100,000 tags: they go into the list in one merge.
    TagKeys keys{pListTag, {}, {}};
    keys.Collect(unit, maxNoname);
    pListTag->AddObjects(keys.found);
    return pListTag->Count;
}

namespace {

void ApplyLimit(CfgArvenSR* form, const QString& newValue, const QString& oldValue, void* ob,
                const char* key) {
    form->UpdLimitProp(ob, key, newValue, oldValue);
}

void ApplyTagName(CfgArvenSR*, const QString& newValue, const QString& oldValue, void* ob,
                  const char*) {
    if (newValue != oldValue)
        Changetag_name(newValue, oldValue, ob);
}

void ApplyCaption(CfgArvenSR*, const QString& newValue, const QString& oldValue, void* ob,
                  const char*) {
    if (newValue != oldValue)
        Changetag_caption(newValue, oldValue, ob);
}

// Both texts as ints; false when either is no number.
bool BothInts(const QString& newText, const QString& oldText, int& newValue, int& oldValue) {
    bool newOk = false, oldOk = false;
    newValue = newText.toInt(&newOk);
    oldValue = oldText.toInt(&oldOk);
    return newOk && oldOk;
}

void ApplyDomain(CfgArvenSR* form, const QString& newValue, const QString& oldValue, void* ob,
                 const char*) {
    int newDomain = 0, oldDomain = 0;
    if (!BothInts(newValue, oldValue, newDomain, oldDomain))
        return;
    SetViewModel(form->tVProp, nullptr);
    if (newDomain == oldDomain)
        return;
    // The tree changes under the view; no click may reach it meanwhile.
    const char* const clicked = SIGNAL(clicked(QModelIndex));
    const char* const handler = SLOT(OntVIedClicked(QModelIndex));
    QObject::disconnect(form->tVIed, clicked, form, handler);
    form->tVIed->setEnabled(false);
    Changedomain(newDomain, oldDomain, ob);
    form->tVIed->setEnabled(true);
    QObject::connect(form->tVIed, clicked, form, handler);
}

void ApplyDataSet(CfgArvenSR*, const QString& newValue, const QString& oldValue, void* ob,
                  const char*) {
    int newDs = 0, oldDs = 0;
    if (BothInts(newValue, oldValue, newDs, oldDs) && newDs != oldDs)
        Changedsnum(newDs, oldDs, ob);
}

void ApplyType(CfgArvenSR*, const QString& newValue, const QString& oldValue, void* ob,
               const char*) {
    int newType = 0, oldType = 0;
    if (BothInts(newValue, oldValue, newType, oldType) && newType != oldType)
        Changedtype(newType, oldType, ob);
}

struct tPropAction {
    const char* key;
    void (*apply)(CfgArvenSR*, const QString&, const QString&, void*, const char*);
};

// What an edited property changes in the model, by its key.
const tPropAction PropActions[] = {{"maxICC", ApplyLimit},        {"maxDS", ApplyLimit},
                                   {"tag_name", ApplyTagName},    {"domain", ApplyDomain},
                                   {"isinDataSet", ApplyDataSet}, {"caption", ApplyCaption},
                                   {"tag_type", ApplyType}};

} // namespace

void CfgArvenSR::UpdPropTagUnit(CpropNode* node, QString old, void* ob, char* key) {
    if (!node || !key)
        return;
    QString value = node->value;
    // An enumeration is compared and applied by its keys.
    if (!node->enumList.isEmpty()) {
        value = node->GetKeyByVal(value);
        old = node->GetKeyByVal(old);
    }
    for (const tPropAction& action : PropActions) {
        if (qstrcmp(action.key, key) == 0) {
            action.apply(this, value, old, ob, key);
            return;
        }
    }
}
