// A structured variable: named DcDA and DcDO members shaped by a DcDOType.
#pragma once

#include "model/DcICCPBase.h"

class DcDOType;

// A row of a table of member descriptions.
struct DescDA {
    int32_t id;
    char name[32];
    char desc[1000];
};

class DcDO : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcDO(QObject* parent = nullptr);
    DcDO(const std::string& name, DcDOType* templ, QObject* parent);
    ~DcDO() override;

    std::string type;
    bool Top;
    DcDOType* Template;
    StringList Members;

    QString ClassName() override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    void SetUseInTest(bool use) override;
    QString ToXML(int indent) override;
    QString ToCSV(int indent) override;
    std::string GetFullName() override;
    void FillmyNode(myNode* node) override;
    // Name of the enclosing DcVCC, "|", then GetFullName().
    virtual std::string GetFullName2();

    int GetVar(const std::string& path, std::string& out);
    int PutVar(const std::string& path, const std::string& text);
    bool IsValidFName(const std::string& path);
    bool GetValid();
    void BornContext();
    int CreateDcDA(const std::string& typeName, const std::string& memberName,
                   const std::string& value);
    int CreateDcDA(const std::string& typeName, const std::string& memberName,
                   const std::string& value, StringList* list);
    int CreateDcDO(const std::string& typeName, const std::string& memberName);
    void SetDescList(const DescDA* table, int count);
};

// Gives every empty structure under dobject its members from the template.
void FindDOwZero(DcDO* dobject);
// Recomputes the bType of every DcDA of list, through DcDO members.
void SetbTypeList(StringList* list);
// Sets the run-time bits of the ICC data sets named in object's refDSRT.
void SetBitDatSet(DcICCPBase* object);
// Adds one child of node per variable of list that is not null and not
// Service; structures (by class name, or by cast when byCast) get their
// members below, and the child keeps its first child in Saved.
void AddVarNodes(StringList& list, myNode* node, bool byCast);
// GetVar and PutVar over a list of variables: a path of member names
// joined with "$".
int GetVarInList(StringList& list, const std::string& path, std::string& out);
int PutVarInList(StringList& list, const std::string& path, const std::string& text);
// Reads a "DcDO" or "DcDA" element into a new variable of owner; a DcDA
// takes its value from svalue, or from its template's default.
DcICCPBase* ReadVariable(DcICCPBase* owner, TiXmlNode* node, const std::string& elementName);
