// An ICCP data set: an ordered list of references to variables, ending in
// the four standard fields that every transfer report carries.
#pragma once

#include <QMap>
#include <unordered_map>
#include <vector>

#include "model/DcICCPBase.h"
#include "support/MyBuf.h"

class DcDA;

// A row of varRefDS: one standard field of a data set, or a member of the
// structured one ("Transfer_Set_Name").
struct tvarRefDS {
    char name[32];
    char type[32];
    char desc[64];
    char value[32];
};
// Rows 0 to 2 are the DcDA fields, rows 3 to 5 the members of
// "Transfer_Set_Name".
extern tvarRefDS varRefDS[];
extern const int varRefDSCount;

// The own variables of a data set.
extern ICCPObDesc TabObDataSet[];
extern const int TabObDataSetCount;

// Copies name, type, Template, the value, svalue and desc of source onto
// target.
void AssignDA(DcDA* target, DcDA* source);

class DcDataSet : public ObICCP {
    Q_OBJECT
public:
    // With a parent the set takes its scope from it and makes its standard
    // fields; without one it stays empty.
    DcDataSet(const std::string& name, QObject* parent);
    // Frees the lists; the objects they point at are not deleted here.
    ~DcDataSet() override;

    // Entry texts ("Var", "ICC_1/Var", or a standard name) with the objects.
    StringList Elems;
    int32_t Count0;
    int32_t Count1;
    // 0 in VCC scope, 1 when the owner is a DcLD.
    int32_t Scope;
    qolBitSet Bits;
    uint16_t Event_Code_Detected;
    std::string Notes;
    // Name of the owning ICC, empty in VCC scope.
    std::string Domain;
    // The standard fields again, by name.
    StringList SelfList;
    std::string FullName;
    // One bit per entry, made by BindObDs.
    qolBitSet* RtBits;
    QMap<QString, void*> AuxMap;

    QString ClassName() override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    QString ToXML(int indent) override;
    void WriteXML(int indent, JoinedText& out) override;
    // name, or ICC name + "/" + name for a set of an ICC.
    std::string GetFullName() override;

    // Adds a variable at the front, or renews the object of its entry.
    // While a batch is open the new entries wait (the result is then 0).
    int AddObRef(DcICCPBase* object);
    // A batch of AddObRef over many sets: the entries that wait go to the
    // front of Elems when the batch closes or FlushRefs runs, in the order
    // that adding them one by one gives.
    static void OpenRefBatch();
    static void CloseRefBatch();
    void FlushRefs();
    void RemoveRef(DcICCPBase* object);
    // Index of the entry; -1, and name cut at its first "$", when absent.
    int IdxObbyName(std::string& name);
    // "DS;" or "ICC/DS;": the item of this set in a variable's refDS.
    QString GetRefNameDS();
    // The owner's Vars, null for an owner that is neither VCC nor ICC.
    StringList* GetOwnVarList();
    // Takes the standard names away from list, then makes the fields.
    void InitVar(StringList* list);
    void CreateStFld();
    void SelfListFill();
    // Removes every entry that is not a standard field.
    void ClearRealVar();
    // Rewrites entry texts from the objects after a rename.
    void UpdRefObs();
    // Binds entry texts to the variables of the enclosing VCC.
    void SetCorrespond();
    // Appends this set's run-time item to each member's refDSRT.
    void BindObDs();
    // Takes a new ICC name.
    void OnChangeNameOwn(const std::string& newName);
    // Copies the values of the standard DcDA fields of source.
    void AssignSelf(DcDataSet* source);
    // A new node with the set's name and the set as object.
    myNode* CreatemyNode();

private:
    // The owner key of object: Domain + "/" + name, or the bare name.
    std::string RefKey(DcICCPBase* object) const;

    // Entries waiting for the front of Elems, in order of adding, and the
    // place of each key among them.
    std::vector<std::pair<std::string, void*>> Waiting;
    std::unordered_map<std::string, size_t> WaitingAt;
};
