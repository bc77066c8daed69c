#include "host/HostTable.h"

#include "host/HostClasses.h"
#include "host/HostProject.h"

#include <QVector>

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

struct Injection {
    bool armed = false; // counting, from CfgHostInjectFault to the end of a walk
    long calls = 0;
    long failAt = 0;
    THostFault fault = hfRefuse;
    bool now = false; // the call under way gives the fault
    bool given = false;
    QVector<int> calledSlots;
};

Injection& Faults() {
    static Injection injection;
    return injection;
}

// The text parameter whose reads report `length` as their byte count.
struct Misreport {
    QByteArray name;
    int length = 0;
};

Misreport& Misreported() {
    static Misreport misreport;
    return misreport;
}

// Whether the call under way gives `fault`.
bool Gives(THostFault fault) {
    return Faults().now && Faults().fault == fault;
}

// The top of the object's tree, an object of another kind than the one
// asked for.
HostObject* Top(HostObject* ob) {
    while (ob && ob->owner())
        ob = ob->owner();
    return ob;
}

// The text handed out by the last read; valid until the next call of the
// table, when it is freed.
QByteArray& ReturnedText() {
    static QByteArray text;
    return text;
}

// The object of a live handle, its call counted, unless the slot is made to
// fail.
HostObject* Checked(int slot, void* handle) {
    HostObject* ob = HostObject::fromHandle(handle);
    if (!ob)
        return nullptr;
    HostProject* project = ob->project();
    project->countCall(slot);
    return project->slotFails(slot) ? nullptr : ob;
}

// Every slot starts here: the previous text is released, the call counted
// and checked for an injected fault, and the object returned unless the
// handle is foreign or the slot is made to fail.
HostObject* Enter(int slot, void* handle) {
    ReturnedText() = QByteArray();
    Injection& faults = Faults();
    if (!faults.armed)
        return Checked(slot, handle);
    faults.calledSlots.append(slot);
    faults.now = ++faults.calls == faults.failAt && (CfgHostSlotFaults(slot) & (1 << faults.fault));
    faults.given = faults.given || faults.now;
    if (faults.now && faults.fault == hfRefuse)
        return nullptr;
    return Checked(slot, handle);
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
    if (Gives(hfWrongKind))
        info->type = cptText + 5;
    if (Gives(hfCountTooLarge))
        info->enumSize = 1099;
    if (Gives(hfNegativeCount))
        info->enumSize = -1;
    if (Gives(hfNullArray)) {
        info->caption = info->enumText = info->rangeText = nullptr;
        info->enumSize = 5;
    }
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
    if (Gives(hfWrongKind)) {
        const bool text = value->type == cptText;
        memset(value, 0, sizeof(*value));
        value->type = text ? cptInt : cptText;
        value->intValue = 7;
        if (!text) {
            ReturnedText() = "7";
            value->length = 1;
            value->text = ReturnedText().data();
        }
    }
    // The text stays zero-terminated: a reader that stops at the zero is safe.
    if (value->type == cptText && !Misreported().name.isEmpty() && p->name == Misreported().name)
        value->length = Misreported().length;
    if (Gives(hfCountTooLarge) && value->type == cptText)
        value->length = INT_MAX;
    if (Gives(hfNegativeCount) && value->type == cptText)
        value->length = -1;
    if (Gives(hfCountTooLarge) && value->type == cptInt)
        value->intValue = INT_MAX;
    if (Gives(hfNegativeCount) && value->type == cptInt)
        value->intValue = INT_MIN;
    if (Gives(hfNullArray)) {
        value->type = cptText;
        value->length = 8;
        value->text = nullptr;
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
    if (!o)
        return -1;
    return Gives(hfWrongKind) ? int(o->kind()) ^ 8 : int(o->kind());
}

void* hostObOwner(void* ob) {
    HostObject* o = Enter(slotObOwner, ob);
    if (!o || Gives(hfNullHandle))
        return nullptr;
    return Gives(hfWrongKind) ? Top(o) : o->owner();
}

int hostObChildCount(void* ob, int kind) {
    HostObject* o = Enter(slotObChildCount, ob);
    if (!o)
        return 0;
    return Gives(hfNegativeCount) ? -1
                                  : o->children(kind).size() + (Gives(hfCountTooLarge) ? 5 : 0);
}

void* hostObChild(void* ob, int kind, int index) {
    HostObject* o = Enter(slotObChild, ob);
    if (!o || Gives(hfNullHandle))
        return nullptr;
    if (Gives(hfWrongKind))
        return Top(o);
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
    if (Gives(hfWrongKind))
        list[0] = Top(o);
    if (Gives(hfNegativeCount))
        return -1;
    return Gives(hfCountTooLarge) ? capacity + 5 : stored;
}

int hostObFreeNumber(void* parent, int kind) {
    HostObject* o = Enter(slotObFreeNumber, parent);
    if (!o)
        return -1;
    return Gives(hfCountTooLarge) ? INT_MAX : o->project()->freeNumber(o, kind);
}

const char* hostObClassText(void* ob, const char* key) {
    HostObject* o = Enter(slotObClassText, ob);
    return o && !Gives(hfNullHandle) ? ClassText(o->kind(), key) : nullptr;
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
    if (!o)
        return 0;
    return Gives(hfNegativeCount) ? -1 : o->params().size() + (Gives(hfCountTooLarge) ? 5 : 0);
}

const char* hostPropName(void* ob, int index) {
    HostObject* o = Enter(slotPropName, ob);
    HostParam* p = o && !Gives(hfNullHandle) ? o->paramAt(index) : nullptr;
    return p ? p->name.constData() : nullptr;
}

int hostPropIndex(void* ob, const char* name) {
    HostObject* o = Enter(slotPropIndex, ob);
    if (o && Gives(hfCountTooLarge))
        return o->params().size() + 5;
    return IndexOf(o, name);
}

void* hostObCreate(void* parent, int kind, int number, const char* moduleKey) {
    HostObject* o = Enter(slotObCreate, parent);
    if (!o || Gives(hfNullHandle))
        return nullptr;
    if (Gives(hfWrongKind))
        return Top(o);
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
    if (!o)
        return 0;
    return Gives(hfNegativeCount) ? -1 : o->children().size() + (Gives(hfCountTooLarge) ? 5 : 0);
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

int CfgHostSlotFaults(int slot) {
    const int refuse = 1 << hfRefuse, null = 1 << hfNullHandle, kind = 1 << hfWrongKind,
              count = 1 << hfCountTooLarge | 1 << hfNegativeCount, array = 1 << hfNullArray;
    switch (slot) {
    case slotObType:
        return refuse | kind;
    case slotObOwner:
    case slotObChild:
    case slotObCreate:
        return null | kind;
    case slotObChildList:
        return refuse | kind | count;
    case slotObChildCount:
    case slotPropCount:
    case slotObAllCount:
        return refuse | count;
    case slotObFreeNumber:
    case slotPropIndex:
        return refuse | 1 << hfCountTooLarge;
    case slotObClassText:
    case slotPropName:
        return null;
    case slotPropInfo:
    case slotPropInfoAt:
    case slotPropGet:
    case slotPropGetAt:
        return refuse | kind | count | array;
    case slotObDelete:
    case slotPropSet:
    case slotPropSetAt:
    case slotObCheck:
        return refuse;
    default:
        return 0;
    }
}

void CfgHostInjectFault(long nth, THostFault fault) {
    Faults() = Injection();
    Faults().armed = true;
    Faults().failAt = nth;
    Faults().fault = fault;
}

void CfgHostMisreportLength(const QByteArray& name, int length) {
    Misreported() = {name, length};
}

long CfgHostCalls() {
    return Faults().calls;
}

long CfgHostWalkFaults(const std::function<long()>& road) {
    CfgHostInjectFault();
    const long first = std::max(road(), 1L);
    const QVector<int> called = Faults().calledSlots;
    long given = 0;
    for (long n = first; n <= called.size(); ++n)
        for (int fault = 0; fault < hfFaultKinds; ++fault)
            if (CfgHostSlotFaults(called[int(n - 1)]) & (1 << fault)) {
                CfgHostInjectFault(n, THostFault(fault));
                road();
                given += Faults().given;
            }
    Faults() = Injection();
    return given;
}
