#include "tags/TagBinding.h"

#include "dialogs/AddVar.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/StrUtils.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QMessageBox>
#include <QStatusBar>
#include <cstring>

namespace {

// A tree search with MatchRecursive alone, from the hit of the step before.
QModelIndex FindFrom(const QModelIndex& start, int role, const QVariant& value) {
    const QModelIndexList hits = start.model()->match(start, role, value, 1, Qt::MatchRecursive);
    return hits.isEmpty() ? QModelIndex() : hits.first();
}

// The default base name of the type at `typeIndex` of the template list:
// its list key, or the template's default variable name.
std::string DefaultTagName(int typeIndex) {
    if (!pDcDTTP)
        return std::string();
    std::string text = pDcDTTP->Types.Strings(typeIndex);
    DcICCPBase* type = ListOb(pDcDTTP->Types, typeIndex);
    if (!type)
        return text;
    if (type->ClassName() == "DcDOType")
        text = static_cast<DcDOType*>(type)->defname;
    else if (type->ClassName() == "DcDAType")
        text = static_cast<DcDAType*>(type)->defname;
    return text;
}

} // namespace

DcICCPBase* DomainContainer(int domain) {
    if (!pVCC)
        return nullptr;
    // A negative number names no ICC, INT_MIN included.
    return domain == 0 ? pVCC : ListOb(pVCC->ICCs, domain < 0 ? -1 : domain - 1);
}

StringList* VarsOf(DcICCPBase* container) {
    if (auto vcc = qobject_cast<DcVCC*>(container))
        return &vcc->Vars;
    if (auto icc = qobject_cast<DcLD*>(container))
        return &icc->Vars;
    return nullptr;
}

DcDataSet* DataSetOf(DcICCPBase* container, int number) {
    StringList* sets = nullptr;
    if (auto vcc = qobject_cast<DcVCC*>(container))
        sets = &vcc->DataSets;
    else if (auto icc = qobject_cast<DcLD*>(container))
        sets = &icc->DataSets;
    return sets ? qobject_cast<DcDataSet*>(ListOb(*sets, number < 0 ? -1 : number - 1)) : nullptr;
}

TagData GetTagData(void* tag) {
    TagData data;
    GetIntProp(tag, "number", data.number);
    GetIntProp(tag, "tag_type", data.tag_type);
    // A nameless tag takes its type's default name, and the host keeps it.
    // A default that is empty, or a host that doesn't keep the text, ends
    // the naming: the record then holds what would have been written.
    if (GetTextProp(tag, "tag_name", data.tag_name) && data.tag_name.empty()) {
        const std::string name = DefaultTagName(data.tag_type);
        if (!name.empty()) {
            SetStr2PropOb(tag, "tag_name", QString::fromStdString(name));
            if (!GetTextProp(tag, "tag_name", data.tag_name) || data.tag_name.empty())
                data.tag_name = name;
        }
    }
    GetIntProp(tag, "domain", data.domain);
    GetIntProp(tag, "isinDataSet", data.isinDataSet);
    GetTextProp(tag, "caption", data.caption);
    return data;
}

std::string GetNamewNumberByTag(void* tag) {
    std::string name;
    int number = 0;
    if (!tag || !GetTextProp(tag, "tag_name", name) || !GetIntProp(tag, "number", number))
        return std::string();
    return name + "_" + Int2Str(number);
}

QModelIndex VarsFolderRow(QAbstractItemModel* model, DcICCPBase* container) {
    if (!model || !container)
        return QModelIndex();
    const QModelIndex hit = FindFrom(model->index(0, 0), Qt::UserRole,
                                     QVariant::fromValue(static_cast<void*>(container)));
    return hit.isValid() ? FindFrom(hit, Qt::DisplayRole, QString("Переменные")) : QModelIndex();
}

QModelIndex VarRowOf(QAbstractItemModel* model, DcICCPBase* container, const QString& name) {
    const QModelIndex folder = VarsFolderRow(model, container);
    return folder.isValid() ? FindFrom(folder, Qt::DisplayRole, name) : QModelIndex();
}

DcICCPBase* GetObTreeIedByTag(void* tag, QModelIndex& index, int& domain, std::string& localName) {
    int number = 0;
    if (!GetIntProp(tag, "domain", domain) || !GetTextProp(tag, "tag_name", localName) ||
        !GetIntProp(tag, "number", number))
        return nullptr;
    localName += "_" + Int2Str(number);
    // A domain past the ICCs names no container, and no row carries none.
    DcICCPBase* container = DomainContainer(domain);
    CfgArvenSR* form = FCfgArvenSR;
    if (!container || !form || !form->pTreeIedModel)
        return nullptr;
    const QModelIndex hit =
        VarRowOf(form->pTreeIedModel, container, QString::fromStdString(localName));
    if (!hit.isValid())
        return nullptr;
    index = hit;
    form->tVIed->setCurrentIndex(hit);
    return static_cast<DcICCPBase*>(hit.data(Qt::UserRole).value<void*>());
}

void* RowObject(const QModelIndex& index) {
    return index.data(Qt::UserRole).value<void*>();
}

void CfgArvenSR::OnBindTag() {
    const QModelIndex tagIndex = tVTags->currentIndex();
    void* tag = RowObject(tagIndex);
    if (!tag)
        return;
    if (cfgObType(tag) > cotControlPass) {
        QMessageBox::information(this, "Предупреждение", "В связях участвуют только теги");
        return;
    }
    const QModelIndex varIndex = tVIed->currentIndex();
    auto var = static_cast<DcICCPBase*>(RowObject(varIndex));
    if (!varIndex.isValid() || !var)
        return;
    if (var->ClassName() != "DcDA") {
        QMessageBox::information(this, "Предупреждение", "В связях участвуют только объекты DA");
        return;
    }
    const std::string key = var->GetFullName();
    if (pListTag->IndexOf(key) >= 0) {
        statusBar->showMessage("Тег с заданным tag_id уже существует");
        return;
    }
    pListTag->AddObject(key, tag, true);
    SetStr2PropOb(tag, "tag_id", QString::fromStdString(key));
    SetIntProp(tag, "tag_type", TagTypeOf(var));
    emit pTagsModel->dataChanged(tagIndex, tagIndex);
}

bool CfgArvenSR::TagValid4Bind() {
    void* tag = RowObject(tVTags->currentIndex());
    return tag && cfgObType(tag) <= cotControlPass;
}

bool CfgArvenSR::IedObValid4Bind() {
    const QModelIndex index = tVIed->currentIndex();
    auto var = static_cast<DcICCPBase*>(RowObject(index));
    return index.isValid() && var && var->ClassName() == "DcDA";
}

void CfgArvenSR::BindDAandTag(DcDA*& var, void*& tag) {
    SetStr2PropOb(tag, "tag_id", QString::fromStdString(var->GetFullName()));
    SetIntProp(tag, "tag_type", TagTypeOf(var));
    if (var->name == "Value") {
        std::string caption;
        GetTextProp(tag, "caption", caption);
        var->desc = caption;
    }
}

void CfgArvenSR::FreeTag(std::string key) {
    const int i = pListTag->IndexOf(key);
    if (i < 0)
        return;
    if (void* tag = pListTag->Objects(i)) {
        SetTextProp(tag, "tag_id", QByteArray());
        SetIntProp(tag, "tag_type", 0);
    }
    pListTag->Delete(i);
}

int CfgArvenSR::CheckValid4NewICCP(QList<QModelIndex>& tags) {
    int free = 0;
    for (const QModelIndex& index : tags) {
        void* tag = RowObject(index);
        if (cfgObType(tag) > cotControlPass)
            continue;
        cfgParamValue value = {};
        cfgPropGet(tag, "tag_id", &value);
        if (value.type != cptUndef && value.type != cptText) {
            QMessageBox::information(this, "Предупреждение", "Некорректное свойство тега ");
            return 0;
        }
        std::string key;
        if (value.type == cptText && value.text && value.length > 0)
            key.assign(value.text, strnlen(value.text, size_t(value.length)));
        Str2Lower(key);
        // A placeholder key counts as free, like an empty one.
        if (value.type != cptUndef && !key.empty() && key.find("noname") == std::string::npos &&
            key.find("empty") == std::string::npos)
            return 0;
        ++free;
    }
    return free;
}

bool CfgArvenSR::CreateInTreeTags(QList<QModelIndex>& tags, StringList& vars) {
    for (int i = 0; i < tags.size(); ++i) {
        void* tag = RowObject(tags[i]);
        if (i >= vars.Count)
            return false;
        auto node = static_cast<myNode*>(vars.Objects(i));
        auto var = node ? static_cast<DcICCPBase*>(node->object) : nullptr;
        if (!var)
            return false;
        if (var->ClassName() == "DcDO") {
            StringList& members = static_cast<DcDO*>(var)->Members;
            var = ListOb(members, members.IndexOf("Value"));
            if (!var || var->ClassName() != "DcDA")
                return false;
        } else if (var->ClassName() != "DcDA") {
            return false;
        }
        auto da = static_cast<DcDA*>(var);
        BindDAandTag(da, tag);
    }
    if (!tags.isEmpty())
        emit pTagsModel->dataChanged(tags.first(), tags.last());
    return true;
}

void CfgArvenSR::Tags2TaseTree(QList<void*> tags, int, DcICCPBase* var) {
    for (void* tag : tags) {
        const TagData data = GetTagData(tag);
        QVariant container = QVariant::fromValue(static_cast<void*>(DomainContainer(data.domain)));
        const QModelIndex host = FindByRole(container, Qt::UserRole, pTreeIedModel, QModelIndex());
        if (!host.isValid())
            continue;
        QVariant folderText = QString("Переменные");
        const QModelIndex folder = FindByRole(folderText, Qt::DisplayRole, pTreeIedModel, host);
        myNode* parent = folder.isValid() ? pTreeIedModel->nodeFromIndex(folder) : nullptr;
        if (!parent || !var)
            continue;
        const int row = parent->GetChildCount();
        pTreeIedModel->beginInsertRows(folder, row, row);
        parent->AddChild(new myNode(var->name, var));
        pTreeIedModel->endInsertRows();
    }
}

void CfgArvenSR::slotFindinTag() {
    auto var = static_cast<DcICCPBase*>(RowObject(tVIed->currentIndex()));
    if (!var || (var->ClassName() != "DcDA" && var->ClassName() != "DcDO") || !var->BoundTag)
        return;
    const QModelIndexList hits =
        pTagsModel->match(pTagsModel->index(0, 0), Qt::UserRole, QVariant::fromValue(var->BoundTag),
                          1, Qt::MatchRecursive | Qt::MatchWrap);
    if (!hits.isEmpty())
        tVTags->setCurrentIndex(hits.first());
}

void CfgArvenSR::OnFindTree() {
    void* tag = RowObject(tVTags->currentIndex());
    if (!tag || cfgObType(tag) > cotControlPass)
        return;
    QModelIndex index;
    int domain = 0;
    std::string name;
    GetObTreeIedByTag(tag, index, domain, name);
}

void CfgArvenSR::OnCreateVarICCP() {
    QList<QModelIndex> selected =
        tVTags->selectionModel() ? tVTags->selectionModel()->selectedIndexes() : QModelIndexList();
    const int free = CheckValid4NewICCP(selected);
    if (free == 0) {
        QMessageBox::warning(this, "Предупреждение",
                             "Среди выбранных тегов присутствуютсвязанные с ICCP\n Следует "
                             "очистить эти поля");
        return;
    }
    if (selected.isEmpty())
        return;
    GetVarFrm* dialog = NeedGetVarFrm(this);
    dialog->ui.sBCount->setValue(selected.size());
    Prepare4AddVar(free);
    for (;;) {
        if (dialog->exec() != QDialog::Accepted)
            return;
        if (dialog->ui.lEName->text().isEmpty()) {
            QMessageBox::information(this, "Предупреждение", "Ошибка в задании имени");
            return;
        }
        bool number = false;
        dialog->ui.lEStart->text().toInt(&number);
        if (!number) {
            QMessageBox::information(this, "Предупреждение", "Ошибка в задании диапазона");
            return;
        }
        if (selected.size() <= dialog->ui.sBCount->value())
            break;
        const int answer = QMessageBox::question(
            this, "Предупреждение", "Число добавляемых переменных меньше требуемого",
            QMessageBox::Retry | QMessageBox::Ignore | QMessageBox::Cancel);
        if (answer == QMessageBox::Cancel)
            return;
        if (answer == QMessageBox::Ignore)
            break;
    }
    // The variables of the selection are to come in this list; it stays
    // empty, so the tags are left as they are.
    StringList vars;
    const QModelIndex type = dialog->ui.listVAD->currentIndex();
    if (!type.isValid() || !RowObject(type))
        return;
    CreateInTreeTags(selected, vars);
}
