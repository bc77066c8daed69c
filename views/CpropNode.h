// One row of the generic property tree of a host object: a group row or a
// parameter row with its value, its description and, for an enumeration,
// its "key=value" items; and the fill of a row from the host.
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

    // The editor of the row: 0 none (no type), 1 check box, 2 line edit,
    // 3 combo box of the enumeration.
    int getTypeDelegate() const;
    // The processing type row ("procType", or captioned "Тип обработки")
    // takes the table of its dependent fields.
    void InspectDepend();
    // Replaces node's children by the rows of its dependent fields that
    // apply to value. Every dependent that the host has is marked in seen
    // (indexes of ob's parameters), shown or not.
    void CreateDependFields(void* ob, CpropNode* node, int* seen, QString value);

    CpropNode* parent = nullptr;
    QList<CpropNode*> children;
    QString caption;
    QString key;
    QString value;
    uint8_t editable = 1;
    uint8_t visible = 1;
    int fromHost = 1; // 0 for a group row
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

// Fill a row from the host by parameter name or by index, with the
// description record desc when there is one. A described row is edited as
// text. Result: the row's visible byte.
uint8_t FillCpropNode1(CpropNode* node, const char* key, void* ob, const AddDescNode* desc);
uint8_t FillCpropNode2Idx(CpropNode* node, int index, void* ob, const AddDescNode* desc);
// The row of the dependent field of record, under parent; null when the
// host has no visible description of it (asked for all kinds but 7) or the
// fill gives nothing.
CpropNode* MakeDependRow(void* ob, CpropNode* parent, const AddDescNode& record);
// Writes the row's value (its key, for an enumeration) to the host as a
// value of type; false when the host then finds the object in error.
bool SetPropFromQString(void* ob, const char* key, CpropNode* node, TCfgPropType type);
