// An ICC (a domain) of the model: its variables, data sets and transfer sets.
#pragma once

#include "model/DcICCPBase.h"

class DcNextTransferSet;

class DcLD : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcLD(QObject* parent = nullptr);
    ~DcLD() override;

    StringList Vars;
    StringList DataSets;
    StringList NextSets;
    StringList TransSets;
    DcNextTransferSet* NextSet;
    // Row offsets of GetObj: [0] transfer sets, [1] next sets, [2] variables,
    // [3] = [0] + [1], [4] = [3] + [2].
    int32_t RowBase[5];

    QString ClassName() override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    QString ToXML(int indent) override;
    void WriteXML(int indent, JoinedText& out) override;
    QString ToCSV(int indent) override;
    void FillmyNode(myNode* node) override;

    bool IsExistNext();
    DcICCPBase* FindObject(const std::string& name);
    StringList* FindInd(const std::string& name, int& index);
    DcICCPBase* GetObj(int i);
    int GetVar(const std::string& path, std::string& out);
    int PutVar(const std::string& path, const std::string& text);
    void InitVar4DS();
    void SetRowBase();
};
