// An ICCP data set transfer set: when and how a data set is reported. Its
// attributes are member variables; the set mirrors them in fields of its own.
#pragma once

#include "model/DcDO.h"
#include "support/MyBuf.h"

class DcDataSet;

// Descriptions of the members of a transfer set, by member name.
extern DescDA ListDescTrans[];
extern const int ListDescTransCount;

// The own variables of a transfer set, by name and size. Nothing reads it: a
// transfer set keeps such values as member variables.
extern ICCPObDesc TabObTransSet[];
extern const int TabObTransSetCount;

class DcTransSet : public DcDO {
    Q_OBJECT
public:
    // With bare and an empty name only an unowned DataSetName is made;
    // otherwise the members of InitVar with their descriptions.
    DcTransSet(const std::string& name, bool bare, QObject* parent);
    ~DcTransSet() override;

    std::string DSName;
    std::string DSDomain;
    int16_t DSScope;
    int32_t Limit0;
    int32_t Limit1;
    int32_t Limit2;
    std::string Notes;
    int32_t StartTime;
    int16_t Interval;
    int16_t TLE;
    int16_t BufferTime;
    int16_t IntegrityCheck;
    bool BlockData;
    bool Critical;
    bool RBE;
    bool Status;
    DcDataSet* RefDS;
    int32_t EventCodeRequested;
    // IntervalTimeOut, IntegrityTimeOut, ObjectChange, OperatorRequest,
    // OtherExternalEvent, from the top bit down.
    qolBitSet DSConditions;
    std::string DSConditionText;
    StringList Reserved;
    bool Used;
    // The member "DataSetName": Scope, DomainName and Name of the data set.
    DcDO* DataSetName;

    QString ClassName() override;
    // The attribute form of a transfer set; false where a member can't be
    // made.
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    QString ToXML(int indent) override;

    // Makes the members; stops at the first type absent from the templates.
    void InitVar();
    // Copies the member values of source, by index.
    void AssignSelf(DcTransSet* source);
    // Empties the three members of DataSetName.
    void ResetDataSetName();
    // Writes "1", "H", "H" to the three members of DataSetName.
    void SetVar();
    // Refreshes the fields from the members.
    void GetVarFromDA();
    // Finds the data set named by DataSetName$Name in the owner.
    bool SetRefDS();
    // Recomputes the value types of the members, DataSetName's included.
    void SetbTypeList();

private:
    // DataSetName, made, named and added to Members if missing.
    DcDO* EnsureDataSetName(QObject* parent);
    // Moves Members entry i into DataSetName's members.
    void MoveToDataSetName(int i);
};

// True when the data set named by object's DataSetName exists where the
// object lies, XOR-ed with mode against the object's Status.
bool CheckValidTrset(DcDO* object, int mode);
// The default transfer set as a document: the text of TSbase.
std::string DefaultTransSetText();
// Reads the first DcTransSet element under node into pTrans.
void RakeTrans(TiXmlNode* node);
