#include "plugin/HostWall.h"

#include "plugin/cfgCalls.h"

#include <cstdlib>
#include <cstring>

namespace {

// The bytes of a text value: at most `length` of them, cut at the first zero.
QByteArray TextBytes(const cfgParamValue& value) {
    if (!value.text || value.length <= 0)
        return QByteArray();
    return QByteArray(value.text, int(qstrnlen(value.text, uint(value.length))));
}

QString BoolText(const cfgParamValue& value) {
    return value.boolValue ? "true" : "false";
}

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
    switch (value.type) {
    case cptBool:
        return BoolText(value);
    case cptInt:
        return QString::number(value.intValue);
    case cptDouble:
        return QString::number(value.doubleValue, 'g', 6);
    case cptText:
        return QString::fromLocal8Bit(TextBytes(value));
    default:
        return "Unknow Type";
    }
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
    switch (value.type) {
    case cptUndef:
        return "Undef";
    case cptBool:
        return BoolText(value);
    case cptInt:
        return QString::number(value.intValue);
    case cptDouble:
        return QString::number(value.doubleValue, 'g', 6);
    case cptText:
        return QString::fromLatin1(TextBytes(value));
    default:
        return QString();
    }
}

QString cfgParamValueToQString(const cfgParamValue& value) {
    switch (value.type) {
    case cptBool:
        return BoolText(value);
    case cptInt:
        return QString::number(value.intValue);
    case cptDouble:
        return QString::number(value.doubleValue, 'g', 5);
    case cptText:
        return QString::fromUtf8(TextBytes(value));
    default:
        return "Unknow";
    }
}

QString GetTagListInfo(void* ob) {
    cfgObAllCount(ob, cotSource);
    return "  ";
}
