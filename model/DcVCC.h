// The Virtual Control Center, root of one server's model.
#pragma once

#include "model/DcICCPBase.h"

class DcVCC : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcVCC(QObject* parent = nullptr);
    ~DcVCC() override;

    StringList Vars;
    StringList DataSets;
    StringList ICCs;
    StringList Extra;
    StringList ServiceVars;
    myNode* RootNode;
    myNode* VarsNode;
    myNode* DataSetsNode;
    myNode* ICCNode;
    int32_t Detail;
    // Row offsets of GetObj: [1] Extra, [2] variables, [3] = [1] + [0],
    // [4] = [3] + [2].
    int32_t RowBase[5];

    QString ClassName() override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    int GetChildCount() override;
    DcICCPBase* GetChildById(int i) override;
    int GetChildRow(DcICCPBase* object) override;
    QString ToXML(int indent) override;
    void WriteXML(int indent, JoinedText& out) override;
    QString ToCSV(int indent) override;
    void FillmyNode(myNode* root) override;

    bool IsExistNext();
    DcICCPBase* FindObject(const std::string& name);
    StringList* FindInd(const std::string& name, int& index);
    DcICCPBase* GetObj(int i);
    bool IsDO(const std::string& path);
    DcICCPBase* GetDAbyLongName(const std::string& path);
    void SetRefDS();
    void BornDO();
    void SetReletion();
    void CorrectDSTS(StringList* list);
    void InitVar4DS();

signals:
    // ICC (null in VCC scope), full name and bound tag of a deleted structure.
    void RemoveObFromDS(void* icc, std::string fullName, void* tag);
};

// The variable under path in list; a path through a DcDA stops at it.
DcICCPBase* GetDAFromList(const std::string& path, StringList* list);
// Reads the DcVCC elements under node into pVCC.
void RakeNode1(TiXmlNode* node);
// The lines of one data set in the CSV export.
QString DataSetToCSV(DcICCPBase* dataSet);
// Puts the variables that the standard fields of a data set report into
// vars, unless present, also into serviceVars when given; scopeType is the
// type of the member "Scope" of "Transfer_Set_Name".
void MakeServiceVars(DcICCPBase* owner, StringList& vars, const std::string& scopeType,
                     StringList* serviceVars);
