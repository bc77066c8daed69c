#include "host/HostObject.h"

#include <QSet>
#include <cmath>
#include <cstring>
#include <limits>

namespace {
// Every live object, so that a stale or foreign handle is told apart. Never
// freed, so that objects that outlive static destruction still find it.
QSet<const void*>& Registry() {
    static auto registry = new QSet<const void*>;
    return *registry;
}

// The object found last, live: the plug-in asks for several parameters of
// one object in a row, and the registry's table is large.
const void* LastFound = nullptr;

bool IsIntegral(int type) {
    return type == QMetaType::Int || type == QMetaType::UInt || type == QMetaType::LongLong ||
           type == QMetaType::ULongLong;
}

// The first parameter of that name; -1 when there is none. The sizes are
// compared first, since most names differ in length.
int IndexIn(const QList<HostParam>& params, const char* name, int size) {
    for (int i = 0; i < params.size(); ++i) {
        const QByteArray& own = params.at(i).name;
        if (own.size() == size && (size == 0 || memcmp(own.constData(), name, size) == 0))
            return i;
    }
    return -1;
}

} // namespace

int HostParam::enumSize() const {
    int count = 0;
    for (const QByteArray& item : enumText.split(';'))
        if (!item.trimmed().isEmpty())
            ++count;
    return count;
}

bool HostParam::range(double& low, double& high) const {
    const int eq = rangeText.indexOf('=');
    if (eq < 0)
        return false;
    bool okLow = false, okHigh = false;
    low = rangeText.left(eq).trimmed().toDouble(&okLow);
    high = rangeText.mid(eq + 1).trimmed().toDouble(&okHigh);
    return okLow && okHigh;
}

bool HostParam::fitsDeclared(const QVariant& v) const {
    if (type != cptInt && type != cptDouble)
        return true;
    const double d = v.toDouble();
    double low = 0, high = 0;
    if (range(low, high) && (d < low || d > high))
        return false;
    if (enumText.isEmpty() || enumOpen)
        return true;
    for (const QByteArray& item : enumText.split(';')) {
        bool ok = false;
        const double key = item.left(item.indexOf('=')).trimmed().toDouble(&ok);
        if (ok && key == d)
            return true;
    }
    return false;
}

bool ConvertToParamType(TCfgPropType type, const QVariant& in, QVariant& out) {
    const int from = in.userType();
    const bool isText = from == QMetaType::QByteArray || from == QMetaType::QString;
    const QByteArray raw = from == QMetaType::QString ? in.toString().toUtf8() : in.toByteArray();
    const QByteArray text = raw.trimmed();
    bool ok = false;
    switch (type) {
    case cptBool:
        if (from == QMetaType::Bool || IsIntegral(from)) {
            out = in.toLongLong() != 0;
            return true;
        }
        if (isText && (text == "true" || text == "1" || text == "false" || text == "0")) {
            out = text == "true" || text == "1";
            return true;
        }
        return false;
    case cptInt: {
        qlonglong v = 0;
        if (from == QMetaType::Bool || IsIntegral(from)) {
            v = in.toLongLong();
        } else if (from == QMetaType::Double) {
            const double d = in.toDouble();
            if (d != std::floor(d) || std::fabs(d) > 2147483647.0)
                return false;
            v = qlonglong(d);
        } else if (isText) {
            v = text.toLongLong(&ok);
            if (!ok)
                return false;
        } else {
            return false;
        }
        if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max())
            return false;
        out = int(v);
        return true;
    }
    case cptDouble:
        if (from == QMetaType::Bool || IsIntegral(from) || from == QMetaType::Double) {
            out = in.toDouble();
            return true;
        }
        if (isText) {
            const double d = text.toDouble(&ok);
            if (ok)
                out = d;
            return ok;
        }
        return false;
    case cptText:
        if (from == QMetaType::Bool)
            out = QByteArray(in.toBool() ? "true" : "false");
        else if (IsIntegral(from))
            out = QByteArray::number(in.toLongLong());
        else if (from == QMetaType::Double)
            out = QByteArray::number(in.toDouble(), 'g', 17);
        else if (isText)
            out = raw;
        else
            return false;
        return true;
    default:
        return false;
    }
}

HostObject::HostObject(HostProject* project, HostObject* owner, TCfgObjectType kind,
                       const QByteArray& moduleKey)
    : m_project(project), m_owner(owner), m_kind(kind), m_moduleKey(moduleKey) {
    Registry().insert(this);
}

HostObject::~HostObject() {
    Registry().remove(this);
    if (LastFound == this)
        LastFound = nullptr;
    qDeleteAll(m_children);
}

HostObject* HostObject::fromHandle(const void* handle) {
    if (!handle)
        return nullptr;
    if (handle != LastFound) {
        if (!Registry().contains(handle))
            return nullptr;
        LastFound = handle;
    }
    return static_cast<HostObject*>(const_cast<void*>(handle));
}

const QList<HostObject*>& HostObject::children(int kind) const {
    auto found = m_byKind.find(kind);
    if (found == m_byKind.end()) {
        QList<HostObject*> result;
        for (HostObject* child : m_children)
            if (child->m_kind == kind)
                result.append(child);
        found = m_byKind.insert(kind, result);
    }
    return found.value();
}

void HostObject::attachChild(HostObject* child) {
    m_children.append(child);
    m_byKind.clear();
}

void HostObject::detachChild(HostObject* child) {
    m_children.removeOne(child);
    m_byKind.clear();
}

int HostObject::paramIndex(const QByteArray& name) const {
    return IndexIn(m_params, name.constData(), name.size());
}

int HostObject::paramIndex(const char* name) const {
    return IndexIn(m_params, name, name ? int(strlen(name)) : 0);
}

HostParam* HostObject::param(const QByteArray& name) {
    return paramAt(paramIndex(name));
}

HostParam* HostObject::paramAt(int index) {
    if (index < 0 || index >= m_params.size())
        return nullptr;
    return &m_params[index];
}

QVariant HostObject::get(const QByteArray& name) const {
    const int index = paramIndex(name);
    return index < 0 ? QVariant() : m_params[index].value;
}

bool HostObject::set(const QByteArray& name, const QVariant& value) {
    HostParam* p = param(name);
    return p && ConvertToParamType(p->type, value, p->value);
}

void HostObject::addParam(const HostParam& param) {
    const int index = paramIndex(param.name);
    if (index < 0)
        m_params.append(param);
    else
        m_params[index] = param;
}
