#include "views/CpropNode.h"

#include "plugin/HostDescTables.h"
#include "plugin/HostTitles.h"
#include "plugin/HostWall.h"
#include "plugin/cfgCalls.h"

CpropNode::~CpropNode() {
    qDeleteAll(children);
}

namespace {

// The other side of the first item of list whose `from` side is text.
QString OtherSide(const QStringList& list, const QString& text, bool fromKey) {
    if (list.isEmpty())
        return QString();
    for (const QString& item : list) {
        const int at = item.indexOf('=');
        if (at < 0)
            continue;
        const QString left = item.left(at).trimmed();
        const QString right = item.mid(at + 1).trimmed();
        if ((fromKey ? left : right) == text)
            return fromKey ? right : left;
    }
    return text;
}

} // namespace

QString CpropNode::GetValByKey(QString key) const {
    return OtherSide(enumList, key, true);
}

QString CpropNode::GetKeyByVal(QString value) const {
    return OtherSide(enumList, value, false);
}

int CpropNode::getTypeDelegate() const {
    if (type == cptUndef)
        return 0;
    if (type == cptBool)
        return 1;
    return info.enumSize < 1 ? 2 : 3;
}

void CpropNode::InspectDepend() {
    if (key != "procType" && caption != "Тип обработки")
        return;
    hasDepend = 1;
    depend = AprocTypeDepFlds;
    dependCount = AprocTypeDepFldsCount;
}

void CpropNode::CreateDependFields(void* ob, CpropNode* node, int* seen, QString value) {
    if (!node)
        return;
    qDeleteAll(node->children);
    node->children.clear();
    const int count = cfgPropCount(ob);
    for (int i = 0; i < node->dependCount; ++i) {
        const AddDescNode& record = node->depend[i];
        if (record.key[0]) {
            const int index = cfgPropIndex(ob, record.key);
            if (index < 0)
                continue;
            if (seen && index < count)
                seen[index] = 1;
        }
        if (QString::fromUtf8(record.group) != value)
            continue;
        if (CpropNode* child = MakeDependRow(ob, node, record))
            node->children.append(child);
    }
}

CpropNode* MakeDependRow(void* ob, CpropNode* parent, const AddDescNode& record) {
    if (cfgObType(ob) != cotProject) {
        cfgParamInfo info = {};
        if (!cfgPropInfo(ob, record.key, &info) || !info.visible)
            return nullptr;
    }
    auto child = new CpropNode;
    child->parent = parent;
    child->key = QString::fromUtf8(record.key);
    if (FillCpropNode1(child, record.key, ob, &record))
        return child;
    delete child;
    return nullptr;
}

namespace {

// The two ways of reaching a parameter: by its name or by its index.
struct ParamRef {
    const char* name;
    int index;

    bool value(void* ob, cfgParamValue* out) const {
        return name ? cfgPropGet(ob, name, out) : cfgPropGetAt(ob, index, out);
    }
    bool info(void* ob, cfgParamInfo* out) const {
        return name ? cfgPropInfo(ob, name, out) : cfgPropInfoAt(ob, index, out);
    }
};

// Reads the value into the row; false when the read fails.
bool ReadValue(CpropNode* node, const ParamRef& ref, void* ob, const QByteArray& key) {
    cfgParamValue value = {};
    if (!ref.value(ob, &value))
        return false;
    node->value = cfgParamValueToQString(value);
    qstrncpy(node->keyText, key.constData(), sizeof(node->keyText));
    return true;
}

void TakeDesc(CpropNode* node, const AddDescNode* desc) {
    node->caption = QString::fromUtf8(desc->caption);
    node->editable = desc->editable;
    node->visible = desc->visible;
}

uint8_t FillCpropNode(CpropNode* node, const ParamRef& ref, void* ob, const AddDescNode* desc) {
    if (!node)
        return 0;
    const QByteArray key = ref.name ? QByteArray(ref.name) : node->key.toUtf8();
    const int kind = cfgObType(ob);
    if (kind == cotDirect || kind == cotProject) {
        if (desc) {
            node->caption = QString::fromUtf8(desc->caption);
            node->visible = desc->visible;
        } else {
            node->caption = QString::fromUtf8(key);
        }
        if (ref.info(ob, &node->info)) {
            node->type = TCfgPropType(node->info.type);
            ReadValue(node, ref, ob, key);
        }
        if (kind == cotDirect) {
            node->editable = node->info.editable;
            return node->visible;
        }
    }
    if (node->fromHost != 1) {
        if (desc)
            TakeDesc(node, desc);
        return node->visible;
    }
    ReadValue(node, ref, ob, key);
    if (ref.info(ob, &node->info)) {
        node->hasInfo = 1;
        if (desc) {
            TakeDesc(node, desc);
            node->type = cptText;
        } else {
            node->caption = QString::fromUtf8(node->info.caption);
            node->editable = node->info.editable;
            node->type = TCfgPropType(node->info.type);
        }
        node->bold = node->info.fixedList;
        if (node->info.enumSize >= 1 && node->info.enumSize <= 1099) {
            EnumQRT2StringList(QString::fromUtf8(node->info.enumText), node->enumList);
            node->value = node->GetValByKey(node->value);
        }
    } else if (desc) {
        TakeDesc(node, desc);
        node->type = cptText;
    }
    return node->visible;
}

} // namespace

uint8_t FillCpropNode1(CpropNode* node, const char* key, void* ob, const AddDescNode* desc) {
    return FillCpropNode(node, ParamRef{key, -1}, ob, desc);
}

uint8_t FillCpropNode2Idx(CpropNode* node, int index, void* ob, const AddDescNode* desc) {
    return FillCpropNode(node, ParamRef{nullptr, index}, ob, desc);
}

bool SetPropFromQString(void* ob, const char* key, CpropNode* node, TCfgPropType type) {
    if (!node)
        return false;
    QString text = node->value.trimmed();
    if (!node->enumList.isEmpty())
        text = node->GetKeyByVal(text);
    cfgParamValue value = {};
    QByteArray bytes;
    switch (type) {
    case cptBool:
        value.type = cptBool;
        value.boolValue = text == "true";
        break;
    case cptInt:
        value.type = cptInt;
        value.intValue = text.toInt(nullptr, 10);
        break;
    case cptDouble:
        value.type = cptDouble;
        value.doubleValue = text.toDouble();
        break;
    case cptText:
        bytes = text.toUtf8();
        value.type = cptText;
        value.length = bytes.size();
        value.text = bytes.data();
        break;
    default:
        break;
    }
    cfgPropSet(ob, key, &value);
    return !cfgObCheck(ob);
}
