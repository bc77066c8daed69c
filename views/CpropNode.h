// One row of the generic property tree of a host object: a group row or a
// parameter row with its value, its description and, for an enumeration,
// its "key=value" items.
#pragma once

#include "plugin/cfgInterface.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>

struct AddDescNode;
struct keyFldmeta;

class CpropNode {
public:
    CpropNode() = default;
    CpropNode(const CpropNode&) = delete;
    CpropNode& operator=(const CpropNode&) = delete;
    ~CpropNode();

    // The value of an enumeration key, or the key of a value: the first item
    // whose left or right side matches gives the other side. The argument
    // comes back without a match, and an empty text without items.
    QString GetValByKey(QString key) const;
    QString GetKeyByVal(QString value) const;

    CpropNode* parent = nullptr;
    QList<CpropNode*> children;
    QString caption;
    QString key;
    QString value;
    uint8_t editable = 0;
    uint8_t visible = 0;
    int fromHost = 0;
    uint8_t hasInfo = 0;
    uint8_t hasDepend = 0;
    AddDescNode* depend = nullptr;
    int dependCount = 0;
    cfgParamInfo info = {};
    TCfgPropType type = cptUndef;
    QStringList enumList;
    char keyText[255] = {};
    keyFldmeta* meta = nullptr;
    int bold = 0;
};
