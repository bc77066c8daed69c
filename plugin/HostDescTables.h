// The form's own descriptions of well-known host parameters: Russian
// captions, groups and edit rights by parameter name, one table per kind of
// host object. The property tree and the tag property model read them; a
// parameter that no table names is shown from the host's own description.
#pragma once

#include "plugin/cfgInterface.h"

#include <QMap>
#include <QString>
#include <cstdint>

// One row of a description table.
struct AddDescNode {
    char key[255];     // parameter name in the host
    char caption[255]; // text of column 0, UTF-8
    char group[32];    // group row of the parameter ("Base", "Self", "Treat")
    uint8_t editable;  // 1: the user may edit it
    uint8_t visible;   // 1: the row is shown
};

// One row of the tag property model: a head and the rows under it.
struct tTagPropDesc {
    char caption[128];
    char key[128];
    int32_t type;     // TCfgPropType of the value
    int32_t position; // row under its head
    int32_t level;    // 0 for the head
};
static_assert(sizeof(tTagPropDesc) == 268, "tTagPropDesc is 268 bytes");

// Further data on one parameter key, looked up by the property tree.
struct keyFldmeta {
    QString caption;
    QString group;
    double defValue = 0;
    QString format;
    int32_t low = 0;
    int32_t high = 0;
    uint8_t editable = 0;
    uint8_t visible = 0;
    QString enumText;
    QString rangeText;
};
using keyFldmetaMap = QMap<QString, keyFldmeta>;

extern AddDescNode TagBaseDesc[];
extern int TagBaseDescCount;
extern AddDescNode FolgerBaseDesc[];
extern int FolgerBaseDescCount;
extern AddDescNode DeviceBaseDesc[];
extern int DeviceBaseDescCount;
extern AddDescNode LineBaseDesc[];
extern int LineBaseDescCount;
extern AddDescNode DirectAddDesc[];
extern int DirectAddDescCount;
// Fields shown by the processing type of a tag: the group field holds the
// value of "procType" for which a row applies.
extern AddDescNode AprocTypeDepFlds[];
extern int AprocTypeDepFldsCount;
// The rows of SomeTagPropModel; the first is the head of the others.
extern tTagPropDesc SomeTagPropertiesOrmelsrv[];
extern int SomeTagPropertiesOrmelsrvCount;

// The table of a kind with its row count; null and 0 for kinds without one.
AddDescNode* GetAddDescByCIONode(TCfgObjectType kind, int& count);
