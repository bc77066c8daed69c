#include "host/HostTable.h"

#include "host/HostClasses.h"
#include "host/HostProject.h"

#include <cstring>

namespace {

// The text handed out by the last read; valid until the next call of the
// table, when it is freed.
QByteArray& ReturnedText() {
    static QByteArray text;
    return text;
}

// Every slot starts here: the previous text is released, the call counted,
// and the object returned unless the handle is foreign or the slot is made
// to fail.
HostObject* Enter(int slot, void* handle) {
    ReturnedText() = QByteArray();
    HostObject* ob = HostObject::fromHandle(handle);
    if (!ob)
        return nullptr;
    HostProject* project = ob->project();
    project->countCall(slot);
    return project->slotFails(slot) ? nullptr : ob;
}

// The parameter that a call by name or index reaches, unless it is made to
// fail for `op`.
HostParam* Reach(HostObject* ob, int index, HostProject::FaultOp op) {
    HostParam* p = ob ? ob->paramAt(index) : nullptr;
    if (!p || ob->project()->paramFails(p->name, op))
        return nullptr;
    return p;
}

int IndexOf(HostObject* ob, const char* name) {
    return ob && name ? ob->paramIndex(name) : -1;
}

bool Describe(HostParam* p, cfgParamInfo* info) {
    if (!p || !info)
        return false;
    memset(info, 0, sizeof(*info));
    info->caption = p->caption.constData();
    info->type = p->type;
    info->editable = p->editable;
    info->visible = p->visible;
    info->fixedList = p->fixedList;
    info->enumSize = p->enumSize();
    info->enumText = p->enumText.isEmpty() ? nullptr : p->enumText.constData();
    info->rangeText = p->rangeText.isEmpty() ? nullptr : p->rangeText.constData();
    return true;
}

bool Read(HostParam* p, cfgParamValue* value) {
    if (!p || !value)
        return false;
    memset(value, 0, sizeof(*value));
    value->type = p->type;
    switch (p->type) {
    case cptBool:
        value->boolValue = p->value.toBool() ? 1 : 0;
        break;
    case cptInt:
        value->intValue = p->value.toInt();
        break;
    case cptDouble:
        value->doubleValue = p->value.toDouble();
        break;
    case cptText: {
        // A copy of its own, so that a reader who keeps the pointer past the
        // next call reads freed memory and is caught.
        const QByteArray bytes = p->value.toByteArray();
        ReturnedText() = QByteArray(bytes.constData(), bytes.size());
        value->length = bytes.size();
        value->text = ReturnedText().data();
        break;
    }
    default:
        break;
    }
    return true;
}

// Texts come with either length convention: the count of bytes, or the
// count plus a terminating zero, which is dropped.
bool Write(HostParam* p, const cfgParamValue* value) {
    if (!p || !value)
        return false;
    QVariant in;
    switch (value->type) {
    case cptBool:
        in = value->boolValue != 0;
        break;
    case cptInt:
        in = int(value->intValue);
        break;
    case cptDouble:
        in = double(value->doubleValue);
        break;
    case cptText: {
        if (value->length < 0 || (value->length > 0 && !value->text))
            return false;
        QByteArray bytes(value->text, value->length);
        if (bytes.endsWith('\0'))
            bytes.chop(1);
        in = bytes;
        break;
    }
    default:
        return false;
    }
    return ConvertToParamType(p->type, in, p->value);
}

extern "C" {

int hostObType(void* ob) {
    HostObject* o = Enter(slotObType, ob);
    return o ? int(o->kind()) : -1;
}

void* hostObOwner(void* ob) {
    HostObject* o = Enter(slotObOwner, ob);
    return o ? o->owner() : nullptr;
}

int hostObChildCount(void* ob, int kind) {
    HostObject* o = Enter(slotObChildCount, ob);
    return o ? o->children(kind).size() : 0;
}

void* hostObChild(void* ob, int kind, int index) {
    HostObject* o = Enter(slotObChild, ob);
    if (!o)
        return nullptr;
    const QList<HostObject*> children = o->children(kind);
    return index >= 0 && index < children.size() ? children[index] : nullptr;
}

int hostObChildList(void* ob, int kind, void** list, int capacity) {
    HostObject* o = Enter(slotObChildList, ob);
    if (!o || !list || capacity <= 0)
        return 0;
    int stored = 0;
    const bool mixed = o->project()->mixedChildLists();
    for (HostObject* child : mixed ? o->children() : o->children(kind)) {
        if (stored == capacity)
            break;
        list[stored++] = child;
    }
    return stored;
}

int hostObFreeNumber(void* parent, int kind) {
    HostObject* o = Enter(slotObFreeNumber, parent);
    return o ? o->project()->freeNumber(o, kind) : -1;
}

const char* hostObClassText(void* ob, const char* key) {
    HostObject* o = Enter(slotObClassText, ob);
    return o ? ClassText(o->kind(), key) : nullptr;
}

bool hostPropInfo(void* ob, const char* name, cfgParamInfo* info) {
    HostObject* o = Enter(slotPropInfo, ob);
    return Describe(Reach(o, IndexOf(o, name), HostProject::FailInfo), info);
}

bool hostPropInfoAt(void* ob, int index, cfgParamInfo* info) {
    HostObject* o = Enter(slotPropInfoAt, ob);
    return Describe(Reach(o, index, HostProject::FailInfo), info);
}

int hostPropCount(void* ob) {
    HostObject* o = Enter(slotPropCount, ob);
    return o ? o->params().size() : 0;
}

const char* hostPropName(void* ob, int index) {
    HostObject* o = Enter(slotPropName, ob);
    HostParam* p = o ? o->paramAt(index) : nullptr;
    return p ? p->name.constData() : nullptr;
}

int hostPropIndex(void* ob, const char* name) {
    return IndexOf(Enter(slotPropIndex, ob), name);
}

void* hostObCreate(void* parent, int kind, int number, const char* moduleKey) {
    HostObject* o = Enter(slotObCreate, parent);
    if (!o)
        return nullptr;
    return o->project()->create(o, kind, number, moduleKey ? QByteArray(moduleKey) : QByteArray());
}

void hostObDelete(void* ob) {
    if (HostObject* o = Enter(slotObDelete, ob))
        o->project()->remove(o);
}

bool hostPropGet(void* ob, const char* name, cfgParamValue* value) {
    HostObject* o = Enter(slotPropGet, ob);
    return Read(Reach(o, IndexOf(o, name), HostProject::FailRead), value);
}

bool hostPropGetAt(void* ob, int index, cfgParamValue* value) {
    HostObject* o = Enter(slotPropGetAt, ob);
    return Read(Reach(o, index, HostProject::FailRead), value);
}

bool hostPropSet(void* ob, const char* name, const cfgParamValue* value) {
    HostObject* o = Enter(slotPropSet, ob);
    return Write(Reach(o, IndexOf(o, name), HostProject::FailWrite), value);
}

bool hostPropSetAt(void* ob, int index, const cfgParamValue* value) {
    HostObject* o = Enter(slotPropSetAt, ob);
    return Write(Reach(o, index, HostProject::FailWrite), value);
}

// True means in error, and so is the answer for a handle that can't be
// checked.
bool hostObCheck(void* ob) {
    HostObject* o = Enter(slotObCheck, ob);
    return !o || HostProject::inError(o);
}

int hostObAllCount(void* ob, int) {
    HostObject* o = Enter(slotObAllCount, ob);
    return o ? o->children().size() : 0;
}

// Slots that this host leaves empty answer zero.
long hostUnused() {
    ReturnedText() = QByteArray();
    return 0;
}
}

template <typename F> TCfgSlotFn Entry(F f) {
    return reinterpret_cast<TCfgSlotFn>(f);
}

} // namespace

TCfgSlotFn* CfgHostTable() {
    static TCfgSlotFn table[cfgSlotCount] = {
        Entry(hostObType),     Entry(hostObOwner),     Entry(hostObChildCount),
        Entry(hostObChild),    Entry(hostObChildList), Entry(hostObFreeNumber),
        Entry(hostUnused),     Entry(hostObClassText), Entry(hostPropInfo),
        Entry(hostPropInfoAt), Entry(hostPropCount),   Entry(hostPropName),
        Entry(hostPropIndex),  Entry(hostUnused),      Entry(hostObCreate),
        Entry(hostObDelete),   Entry(hostPropGet),     Entry(hostPropGetAt),
        Entry(hostPropSet),    Entry(hostPropSetAt),   Entry(hostObCheck),
        Entry(hostUnused),     Entry(hostUnused),      Entry(hostUnused),
        Entry(hostUnused),     Entry(hostUnused),      Entry(hostUnused),
        Entry(hostObAllCount)};
    return table;
}
