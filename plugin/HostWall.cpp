#include "plugin/HostWall.h"

#include "plugin/cfgCalls.h"

#include <cstdlib>
#include <cstring>

namespace {

// How one renderer writes each type: the digits of a double, the decoding
// of a text, and the texts for no type and for an unknown one.
struct Rendering {
    int precision;
    QString (*decode)(const QByteArray&);
    const char* undefined;
    const char* unknown;
};

QString Render(const cfgParamValue& value, const Rendering& r) {
    switch (value.type) {
    case cptUndef:
        return r.undefined;
    case cptBool:
        return value.boolValue ? "true" : "false";
    case cptInt:
        return QString::number(value.intValue);
    case cptDouble:
        return QString::number(value.doubleValue, 'g', r.precision);
    case cptText:
        // At most `length` bytes, cut at the first zero.
        if (!value.text || value.length <= 0)
            return QString();
        return r.decode(QByteArray(value.text, int(qstrnlen(value.text, uint(value.length)))));
    default:
        return r.unknown;
    }
}

const Rendering diagnostic = {6, QString::fromLatin1, "Undef", ""};
const Rendering display = {5, QString::fromUtf8, "Unknow", "Unknow"};
const Rendering property = {6, QString::fromLocal8Bit, "Unknow Type", "Unknow Type"};

// A zeroed copy of the bytes with room for a terminating zero, handed to
// `send` as a text value with that zero counted in the length.
template <typename Send> bool SendText(const QByteArray& bytes, Send send) {
    auto copy = static_cast<char*>(calloc(size_t(bytes.size()) + 1, 1));
    if (!copy)
        return false;
    memcpy(copy, bytes.constData(), size_t(bytes.size()));
    cfgParamValue value = {};
    value.type = cptText;
    value.length = bytes.size() + 1;
    value.text = copy;
    const bool ok = send(&value);
    free(copy);
    return ok;
}

} // namespace

int GetTypeObject(void* ob) {
    return cfgObType(ob);
}

bool IsTag(void* ob) {
    return GetTypeObject(ob) < 4;
}

bool IsFlg(void* ob) {
    return GetTypeObject(ob) > 7;
}

bool GetIntProp(void* ob, const char* name, int& out) {
    cfgParamValue value = {};
    if (!cfgPropGet(ob, name, &value) || value.type != cptInt)
        return false;
    out = value.intValue;
    return true;
}

bool SetIntProp(void* ob, const char* name, int value) {
    cfgParamValue record = {};
    record.type = cptInt;
    record.intValue = value;
    return cfgPropSet(ob, name, &record);
}

bool GetTextProp(void* ob, const char* name, std::string& out) {
    cfgParamValue value = {};
    if (!cfgPropGet(ob, name, &value) || value.type != cptText)
        return false;
    if (value.text && value.length > 0)
        out.assign(value.text, strnlen(value.text, size_t(value.length)));
    else
        out.clear();
    return true;
}

bool SetTextProp(void* ob, const char* name, const QByteArray& bytes) {
    cfgParamValue value = {};
    value.type = cptText;
    value.length = bytes.size();
    value.text = const_cast<char*>(bytes.constData());
    return cfgPropSet(ob, name, &value);
}

QString GetStrType(TCfgObjectType kind) {
    switch (kind) {
    case cotSource:
        return "source";
    case cotPass:
        return "pass";
    case cotControlSource:
        return "controlsource";
    case cotControlPass:
        return "controlpass";
    case cotFolderSource:
        return "f_source";
    case cotFolderPass:
        return "f_pass";
    case cotFolderControlSource:
        return "f_controlsource";
    case cotFolderControlPass:
        return "f_controlpass";
    default:
        return QString();
    }
}

QString GetDefCaption(TCfgObjectType kind) {
    switch (kind) {
    case cotSource:
        return "tagSource";
    case cotPass:
        return "tagPass";
    case cotControlSource:
        return "tagContrSource";
    case cotControlPass:
        return "tagContrPass";
    default:
        return QString();
    }
}

QString GetPropStrVal(void* ob, const QString& name) {
    cfgParamValue value = {};
    if (!cfgPropGet(ob, name.toUtf8().constData(), &value))
        return " ";
    return Render(value, property);
}

bool GetPropBool(void* ob, const QString& name, bool& out) {
    cfgParamValue value = {};
    if (!cfgPropGet(ob, name.toUtf8().constData(), &value))
        return false;
    if (value.type != cptBool)
        return false;
    out = value.boolValue != 0;
    return true;
}

bool SetStr2PropOb(void* ob, const char* name, const QString& text) {
    const int index = cfgPropIndex(ob, name);
    return SendText(text.toUtf8(),
                    [&](const cfgParamValue* value) { return cfgPropSetAt(ob, index, value); });
}

int GetQByteArrfromObProb(void* ob, const char* name, QByteArray& out) {
    if (cfgPropIndex(ob, name) < 0)
        return blobNoParam;
    cfgParamValue value = {};
    if (!cfgPropGet(ob, name, &value))
        return blobFailed;
    if (value.type != cptText)
        return blobNotText;
    if (value.length <= 0)
        return blobEmpty;
    out = QByteArray::fromRawData(value.text, value.text ? value.length : 0);
    return blobOk;
}

int SetQByteArrToObProb(void* ob, const char* name, const QByteArray& in) {
    if (cfgPropIndex(ob, name) < 0)
        return blobNoParam;
    const bool ok =
        SendText(in, [&](const cfgParamValue* value) { return cfgPropSet(ob, name, value); });
    return ok ? blobOk : blobFailed;
}

QString GetParamValAsStr(const cfgParamValue& value) {
    return Render(value, diagnostic);
}

QString cfgParamValueToQString(const cfgParamValue& value) {
    return Render(value, display);
}

QString GetTagListInfo(void* ob) {
    cfgObAllCount(ob, cotSource);
    return "  ";
}
