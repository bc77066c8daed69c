// "Корректность тегов": the unit's tags held against the model. Each tag's
// key marks the rows it names; what no tag names, and the tags whose key
// names nothing, are listed, and the listed variables may be deleted. Beside
// it the checks of a key against the model and the sweeps of full names
// when an ICC goes away.
#include "tags/Validation.h"

#include "dialogs/Log4Tree.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"
#include "views/ViewModel.h"

#include <QAbstractItemModel>
#include <algorithm>
#include <cstring>

TagRowIndex::TagRowIndex(QAbstractItemModel* model) {
    if (model)
        Read(model, QModelIndex(), -1);
}

void TagRowIndex::Read(QAbstractItemModel* model, const QModelIndex& parent, int parentPlace) {
    const int count = model->rowCount(parent);
    for (int r = 0; r < count; ++r) {
        const QModelIndex index = model->index(r, 0, parent);
        if (!index.isValid())
            continue;
        const int place = int(m_rows.size());
        m_rows.push_back({index, parentPlace, place + 1});
        const QVariant text = model->data(index, Qt::DisplayRole);
        if (text.userType() == QMetaType::QString)
            m_byText[text.toString()].push_back(place);
        if (model->hasChildren(index))
            Read(model, index, place);
        m_rows[size_t(place)].end = int(m_rows.size());
    }
}

int TagRowIndex::Find(int start, const QString& text) const {
    if (start < 0 || start >= int(m_rows.size()))
        return -1;
    const auto found = m_byText.constFind(text);
    if (found == m_byText.constEnd())
        return -1;
    const std::vector<int>& places = *found;
    // The siblings of `start` and everything below them lie in one run of
    // places: from `start` to the run's end first, then its beginning.
    const int parent = m_rows[size_t(start)].parent;
    const int first = parent < 0 ? 0 : parent + 1;
    const int last = parent < 0 ? int(m_rows.size()) : m_rows[size_t(parent)].end;
    auto at = std::lower_bound(places.begin(), places.end(), start);
    if (at != places.end() && *at < last)
        return *at;
    at = std::lower_bound(places.begin(), places.end(), first);
    return at != places.end() && *at < start ? *at : -1;
}

namespace {

// Runs the check on each tag of `kind` below the unit, through its folders.
// The folder list may bring tags too, as a careless host lists; the tag list
// is asked for once without an array first.
void CheckTagsOfKind(CfgArvenSR* f, void* unit, int kind) {
    const int folderKind = kind + 8;
    auto check = [f](void* tag) {
        if (f->FunTagAndTree(tag) < 0)
            f->FillListNoValid(tag);
    };
    std::vector<void*> stack{unit};
    while (!stack.empty()) {
        void* ob = stack.back();
        stack.pop_back();
        for (void* child : GetChildren(ob, folderKind)) {
            const int type = cfgObType(child);
            if (type == folderKind)
                stack.push_back(child);
            else if (type == kind)
                check(child);
        }
        const int count = cfgObChildCount(ob, kind);
        if (count <= 0)
            continue;
        cfgObChildList(ob, kind, nullptr, count);
        std::vector<void*> tags(size_t(count), nullptr);
        const int stored = std::min(cfgObChildList(ob, kind, tags.data(), count), count);
        for (int i = 0; i < stored; ++i)
            if (tags[size_t(i)] && cfgObType(tags[size_t(i)]) == kind)
                check(tags[size_t(i)]);
    }
}

// Adds the variables of the list that no key marked, under prefix + name.
void ListUnmarked(StringList& vars, const std::string& prefix, StringList& out) {
    for (int i = 0; i < vars.Count; ++i) {
        DcICCPBase* var = ListOb(vars, i);
        // Sorted later only if ever searched: the order of adding is the
        // order shown.
        if (var && !var->IsTagV)
            out.AddObject(prefix + var->name, var, false);
    }
}

// A variable path inside one variable list: a name, or a structure's name,
// "$" and a path of its members.
bool IsValidVarPath(StringList& vars, const std::string& path) {
    const size_t dollar = path.find('$');
    if (dollar == std::string::npos)
        return vars.IndexOf(path) >= 0;
    auto head = qobject_cast<DcDO*>(ListOb(vars, vars.IndexOf(path.substr(0, dollar))));
    return head && head->IsValidFName(path.substr(dollar + 1));
}

bool StartsWith(const std::string& text, const std::string& head) {
    return text.compare(0, head.size(), head) == 0;
}

} // namespace

void CfgArvenSR::OnValTagTree() {
    QListWidgetItem* item = lW_ieds->currentItem();
    if (!item)
        return;
    void* unit = item->data(Qt::UserRole).value<void*>();
    ListNoValid.Clear();
    if (pTreeIedModel)
        pTreeIedModel->FlagBindTag = true;
    // Marking changes no row, so one reading of the tree serves every tag.
    TagRowIndex rows(pTreeIedModel);
    TagRows = &rows;
    // Transmitted control is not examined.
    for (int kind = cotSource; kind < cotControlPass; ++kind)
        CheckTagsOfKind(this, unit, kind);
    TagRows = nullptr;
    if (pVCC) {
        ListUnmarked(pVCC->Vars, std::string(), ListNoValid);
        for (int i = 0; i < pVCC->ICCs.Count; ++i)
            if (auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, i)))
                ListUnmarked(icc->Vars, icc->name + "/", ListNoValid);
    }
    if (ListNoValid.Count == 0)
        return;
    Log4Tree* dialog = NeedLog4Tree(this);
    dialog->Init();
    dialog->FillLW(ListNoValid);
    dialog->Answer = 0;
    if (dialog->exec() == QDialog::Accepted && dialog->Answer == 2)
        DelElemsTree(ListNoValid);
}

int CfgArvenSR::FunTagAndTree(void* tag) {
    cfgObType(tag);
    cfgParamValue value = {};
    cfgPropGet(tag, "tag_id", &value);
    if (value.type != cptText || value.length < 1 || !value.text)
        return -1;
    const std::string key(value.text, strnlen(value.text, size_t(value.length)));

    // Outside a whole check the tree is read for this one tag.
    const TagRowIndex local(TagRows ? nullptr : pTreeIedModel);
    const TagRowIndex& rows = TagRows ? *TagRows : local;
    // Each segment is sought from the row of the one before, or from where
    // the search stood when it was not found.
    std::string rest = key;
    int start = rows.Top();
    for (;;) {
        size_t p = rest.find('/');
        if (p == std::string::npos)
            p = rest.find('$');
        if (p == std::string::npos)
            break;
        const std::string segment = rest.substr(0, p);
        rest = rest.substr(p + 1);
        const int hit = rows.Find(start, Utf8ToQ(segment));
        if (hit >= 0) {
            SetIsTagV(rows.Row(hit));
            start = hit;
        }
    }
    if (rest == key)
        start = rows.Top();
    const int hit = rows.Find(start, Utf8ToQ(rest));
    if (hit < 0)
        return -2;
    SetIsTagV(rows.Row(hit));
    return 0;
}

void CfgArvenSR::FillListNoValid(void* tag) {
    ListNoValid.AddObject(QToLocal(GetTitle(tag)), nullptr, false);
}

void CfgArvenSR::DelElemsTree(StringList& list) {
    if (!pVCC)
        return;
    for (int i = 0; i < list.Count; ++i) {
        const std::string key = list.Strings(i);
        // A bare name is a variable of the VCC, "ICC/name" one of an ICC. A
        // tag's title is looked up in vain as a rule.
        std::string name;
        StringList* vars = ScopedList(pVCC, key, false, name);
        if (!vars)
            continue;
        const int at = vars->IndexOf(name);
        if (at < 0)
            continue;
        DcICCPBase* object = ListOb(*vars, at);
        DelElemsFromDS(key, pVCC);
        // A variable deleted while editing takes its own entry out of the
        // list, found by its name; once the entry had gone, its search by
        // pointer would walk the whole list for each one.
        const int count = vars->Count;
        delete object;
        if (vars->Count == count)
            vars->Delete(at);
    }

    // Only the tree is rebuilt; the columns keep their widths.
    SaveSettingsTVIED();
    SetViewModel(tVIed, nullptr);
    auto root = new myNode(pVCC->name, pVCC);
    pVCC->FillmyNode(root);
    if (!pTreeIedModel)
        pTreeIedModel = new IEDTreeModel(this);
    pTreeIedModel->setRootNode(root);
    SetViewModel(tVIed, pTreeIedModel);
    LoadSettingsTVIED();
    tVIed->expandAll();
    OncurrentItemChangedDS(lWInfo->currentItem(), nullptr);
}

bool CfgArvenSR::IsValidTagId(DcVCC* vcc, std::string key) {
    std::string name;
    StringList* vars = ScopedList(vcc, key, false, name);
    return vars && IsValidVarPath(*vars, name);
}

void CfgArvenSR::InspectADSonLD(std::string oldName, std::string newName, int rename) {
    ForEachDataSetList([&](StringList& dataSets) {
        for (int i = 0; i < dataSets.Count; ++i)
            if (auto dataSet = qobject_cast<DcDataSet*>(ListOb(dataSets, i)))
                InspDSonLD(oldName, newName, dataSet, rename);
    });
}

void CfgArvenSR::InspDSonLD(std::string oldName, std::string newName, DcDataSet* ds, int rename) {
    if (!ds)
        return;
    const std::string oldHead = oldName + "/";
    const std::string newHead = newName + "/";
    for (int i = ds->Elems.Count - 1; i >= 0; --i) {
        const std::string member = ds->Elems.Strings(i);
        if (!StartsWith(member, oldHead))
            continue;
        if (rename)
            ds->Elems.ChString(i, newHead + member.substr(oldHead.size()));
        else
            ds->Elems.Delete(i);
    }
}

void CfgArvenSR::InspectATagonLD(std::string oldName, std::string newName, int rename) {
    if (!pListTag)
        return;
    const std::string oldHead = oldName + "/";
    for (int i = pListTag->Count - 1; i >= 0; --i) {
        const std::string key = pListTag->Strings(i);
        if (!StartsWith(key, oldHead))
            continue;
        // A key of a deleted ICC is emptied, in the list as on the tag.
        const std::string text = rename == 1 ? newName + "/" + key.substr(oldHead.size()) : "";
        pListTag->ChString(i, text);
        SetStr2PropOb(pListTag->Objects(i), "tag_id", QString::fromStdString(text));
    }
}

void CfgArvenSR::TreatRefDSinOb(DcICCPBase* ob) {
    if (!ob || !pVCC)
        return;
    const std::string fullName = ob->GetFullName();
    QListWidgetItem* current = lWInfo->currentItem();
    void* shown = current ? current->data(Qt::UserRole).value<void*>() : nullptr;
    for (const QString& item : ob->refDS.split(';', Qt::SkipEmptyParts)) {
        std::string name;
        StringList* dataSets = ScopedList(pVCC, QToLocal(item), true, name);
        if (!dataSets)
            continue;
        auto dataSet = qobject_cast<DcDataSet*>(ListOb(*dataSets, dataSets->IndexOf(name)));
        if (!dataSet)
            continue;
        dataSet->Elems.Delete(dataSet->Elems.IndexOf(fullName));
        if (dataSet != shown)
            continue;
        for (QListWidgetItem* row : lWInfo_2->findItems(LocalToQ(fullName), Qt::MatchExactly))
            delete lWInfo_2->takeItem(lWInfo_2->row(row));
    }
}

int CfgArvenSR::FindDuplicates(DcICCPBase* ob) {
    // Only a VCC or an ICC could hold duplicates, and none are sought.
    if (ob)
        ob->ClassName();
    return 0;
}

void CfgArvenSR::FillSpecListDSansTS(DcVCC* vcc) {
    for (int i = 0; i < ReserveList.Count; ++i)
        delete ListOb(ReserveList, i);
    ReserveList.Clear();
    if (!vcc || vcc->ICCs.Count == 0)
        return;
    // Copies keyed by full name, the key by which a later load finds them.
    for (int k = 0; k < vcc->ICCs.Count; ++k) {
        auto icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, k));
        if (!icc)
            continue;
        for (int i = 0; i < icc->TransSets.Count; ++i) {
            auto transSet = qobject_cast<DcTransSet*>(ListOb(icc->TransSets, i));
            if (!transSet)
                continue;
            auto copy = new DcTransSet(transSet->GetFullName(), false, nullptr);
            copy->AssignSelf(transSet);
            ReserveList.AddObject(copy->name, copy);
        }
        for (int i = 0; i < icc->DataSets.Count; ++i) {
            auto dataSet = qobject_cast<DcDataSet*>(ListOb(icc->DataSets, i));
            if (!dataSet)
                continue;
            auto copy = new DcDataSet(dataSet->GetFullName(), nullptr);
            for (int m = 0; m < dataSet->Elems.Count; ++m)
                copy->Elems.AddObject(dataSet->Elems.Strings(m), dataSet->Elems.Objects(m));
            ReserveList.AddObject(copy->name, copy);
        }
    }
}
