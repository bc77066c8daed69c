// One object of the stand-in host's project: its kind, its owner, its
// ordered children and its typed parameters with their descriptions.
#pragma once

#include "plugin/cfgInterface.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QVariant>

class HostProject;

// A typed parameter and the host's description of it.
struct HostParam {
    QByteArray name;
    TCfgPropType type = cptUndef;
    QVariant value; // bool, int, double or QByteArray, after `type`
    QByteArray caption;
    bool editable = true;
    bool visible = true;
    bool fixedList = false;
    QByteArray enumText; // "key=value;key=value", empty for none
    // The enumeration names the values the host knows, and others are kept
    // too: the plug-in stores indexes of its own lists there.
    bool enumOpen = false;
    QByteArray rangeText; // "low=high", empty for none
    // Named by the project file it was read from, and so written back.
    bool fromFile = false;

    // Number of items of the enumeration.
    int enumSize() const;
    // The bounds of `rangeText`; false when it names no two numbers.
    bool range(double& low, double& high) const;
    // Whether `v` lies within the range and, for a closed enumeration, is
    // one of its keys. Values of other types always fit.
    bool fitsDeclared(const QVariant& v) const;
};

// Converts `in` to a value of `type`: numbers between each other when no
// precision is lost, texts parsed, anything rendered as text. False when the
// value doesn't fit.
bool ConvertToParamType(TCfgPropType type, const QVariant& in, QVariant& out);

class HostObject {
public:
    ~HostObject();
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;

    HostProject* project() const { return m_project; }
    HostObject* owner() const { return m_owner; }
    TCfgObjectType kind() const { return m_kind; }
    const QByteArray& moduleKey() const { return m_moduleKey; }
    const QList<HostObject*>& children() const { return m_children; }
    // Children of one kind, in order. Kept per kind between changes, since
    // the plug-in asks for counts and single children row by row.
    const QList<HostObject*>& children(int kind) const;

    const QList<HostParam>& params() const { return m_params; }
    int paramIndex(const QByteArray& name) const;
    // The same for a name that ends at its zero, without copying it.
    int paramIndex(const char* name) const;
    HostParam* param(const QByteArray& name);
    HostParam* paramAt(int index);
    // The value of a parameter; invalid when there is none.
    QVariant get(const QByteArray& name) const;
    // Stores a value converted to the parameter's type; false when there is
    // no such parameter or the value doesn't convert.
    bool set(const QByteArray& name, const QVariant& value);
    // Adds a parameter, or replaces the one of that name in its place.
    void addParam(const HostParam& param);

    void* handle() { return this; }
    // The object behind a handle, or null when the handle names no live
    // object.
    static HostObject* fromHandle(const void* handle);

private:
    friend class HostProject;
    HostObject(HostProject* project, HostObject* owner, TCfgObjectType kind,
               const QByteArray& moduleKey);

    HostProject* m_project;
    HostObject* m_owner;
    TCfgObjectType m_kind;
    QByteArray m_moduleKey;
    // Adds or removes a child and forgets the per-kind lists.
    void attachChild(HostObject* child);
    void detachChild(HostObject* child);

    QList<HostObject*> m_children; // owned
    mutable QHash<int, QList<HostObject*>> m_byKind;
    QList<HostParam> m_params;
};
