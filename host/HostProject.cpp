#include "host/HostProject.h"

#include "host/HostClasses.h"
#include "host/HostTable.h"

#include <algorithm>

namespace {
bool IsTagKind(int kind) {
    return kind >= cotSource && kind <= cotControlPass;
}

bool IsFolderKind(int kind) {
    return kind >= cotFolderSource && kind <= cotFolderControlPass;
}

void Collect(const QList<HostObject*>& objects, int kind, QList<HostObject*>& out) {
    for (HostObject* ob : objects) {
        if (ob->kind() == kind)
            out.append(ob);
        Collect(ob->children(), kind, out);
    }
}

// Highest "number" below `ob` among objects whose kind passes `counts`.
template <typename Pred> int HighestNumber(const HostObject* ob, Pred counts) {
    int highest = 0;
    for (const HostObject* child : ob->children()) {
        if (counts(child->kind()))
            highest = std::max(highest, child->get("number").toInt());
        highest = std::max(highest, HighestNumber(child, counts));
    }
    return highest;
}
} // namespace

HostProject::~HostProject() {
    clear();
}

HostObject* HostProject::create(HostObject* parent, int kind, int number,
                                const QByteArray& moduleKey) {
    if (parent && parent->project() != this)
        return nullptr;
    if (!canHold(parent, kind))
        return nullptr;
    if (number <= 0)
        number = freeNumber(parent, kind);
    auto ob = new HostObject(this, parent, TCfgObjectType(kind), moduleKey);
    ob->m_params = DefaultParams(TCfgObjectType(kind));
    ob->set("number", number);
    if (parent)
        parent->attachChild(ob);
    else
        m_roots.append(ob);
    return ob;
}

void HostProject::remove(HostObject* ob) {
    if (!ob || ob->project() != this)
        return;
    if (ob->owner())
        ob->owner()->detachChild(ob);
    else
        m_roots.removeOne(ob);
    delete ob;
}

void HostProject::clear() {
    qDeleteAll(m_roots);
    m_roots.clear();
}

QList<HostObject*> HostProject::findAll(int kind) const {
    QList<HostObject*> result;
    Collect(m_roots, kind, result);
    return result;
}

HostObject* HostProject::findFirst(int kind) const {
    const QList<HostObject*> all = findAll(kind);
    return all.isEmpty() ? nullptr : all.first();
}

bool HostProject::canHold(const HostObject* parent, int kind) {
    if (!IsKnownKind(kind))
        return false;
    if (!parent)
        return kind == cotProject || kind == cotDirect;
    const int p = parent->kind();
    if (IsTagKind(kind) || IsFolderKind(kind)) {
        const int folderKind = IsTagKind(kind) ? kind + 8 : kind;
        return p == cotUnit || p == folderKind;
    }
    if (kind == cotUnit || kind == cotLine)
        return p == cotDirect;
    if (kind == cotDirect)
        return p == cotProject;
    return false;
}

int HostProject::freeNumber(const HostObject* parent, int kind) const {
    if (!IsKnownKind(kind))
        return -1;
    if (!parent) {
        int highest = 0;
        for (const HostObject* root : m_roots)
            if (root->kind() == kind)
                highest = std::max(highest, root->get("number").toInt());
        return highest + 1;
    }
    if (IsTagKind(kind) || IsFolderKind(kind)) {
        const HostObject* scope = parent;
        while (scope->kind() != cotUnit && scope->owner())
            scope = scope->owner();
        if (scope->kind() != cotUnit)
            scope = parent;
        const bool tags = IsTagKind(kind);
        return HighestNumber(scope,
                             [tags](int k) { return tags ? IsTagKind(k) : IsFolderKind(k); }) +
               1;
    }
    int highest = 0;
    for (const HostObject* child : parent->children(kind))
        highest = std::max(highest, child->get("number").toInt());
    return highest + 1;
}

bool HostProject::inError(const HostObject* ob) {
    for (const HostParam& p : ob->params()) {
        if ((p.type != cptInt && p.type != cptDouble) || p.rangeText.isEmpty())
            continue;
        double low = 0, high = 0;
        if (!p.range(low, high))
            continue;
        const double v = p.value.toDouble();
        if (v < low || v > high)
            return true;
    }
    return false;
}

TCfgSlotFn* HostProject::table() {
    return CfgHostTable();
}

void HostProject::failSlot(int slot, bool fail) {
    if (fail)
        m_failSlots.insert(slot);
    else
        m_failSlots.remove(slot);
}

void HostProject::failParam(const QByteArray& name, int ops) {
    if (ops)
        m_failParams[name] = ops;
    else
        m_failParams.remove(name);
}

void HostProject::clearFaults() {
    m_failSlots.clear();
    m_failParams.clear();
    m_mixedLists = false;
}
