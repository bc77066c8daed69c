// Root of the ICCP object model: the base class, the class table, the
// object with a table of own variables and the globals of the one model.
#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <cstdint>
#include <string>

#include "support/StrUtils.h"
#include "support/UStringList.h"

class JoinedText;
class TiXmlNode;
class myNode;
class DcVCC;
class DcDTTP;
class DcTransSet;

// One row of the class table: a class name and its type code.
struct tTabDcOb {
    char name[32];
    int32_t code;
};
extern tTabDcOb TabDcOb[];
extern const int TabDcObCount;
// Code of a class in TabDcOb, -1 for an unknown name.
int32_t TabDcObCode(const char* className);

class DcICCPBase : public QObject {
    Q_OBJECT
public:
    explicit DcICCPBase(QObject* parent = nullptr);
    ~DcICCPBase() override;

    QObject* Owner;
    int32_t ObType;
    int32_t ErrCount;
    int32_t idtype;
    std::string name;
    bool CanA;
    bool CanB;
    bool CanC;
    QString refDS;
    QString refDSRT;
    bool UseInTest;
    bool Service;
    uint16_t Mark;
    bool flChange;
    bool IsTagV;
    void* BoundTag;
    std::string desc;

    virtual QString ClassName();
    virtual QString Parent();
    virtual int DecodeXML(TiXmlNode* node);
    virtual QString EncodeXML();
    virtual int DecodeElement(TiXmlNode* node, const std::string& elementName);
    virtual bool SetAttFromStr(const std::string& attribute, const std::string& value);
    virtual void SetUseInTest(bool use);
    virtual int GetChildCount();
    virtual DcICCPBase* GetChildById(int i);
    virtual int GetChildRow(DcICCPBase* object);
    virtual QString ToXML(int indent);
    // ToXML's text written to out; objects holding many others write theirs
    // one by one instead of building one text.
    virtual void WriteXML(int indent, JoinedText& out);
    virtual QString ToCSV(int indent);
    virtual std::string GetFullName();
    virtual void FillmyNode(myNode* node);

    // ToXML through WriteXML, for the objects that write their own.
    QString WrittenXML(int indent);
    // First object from this one up the Owner chain whose class is className.
    DcICCPBase* IsHostObType(const QString& className);
    // True for a DcDO and everything derived from it.
    bool IsStruct();
    void setFlChange(bool change);
    // Sets the run-time bits of the data sets named in a refDSRT text.
    void ParseRefRT(const std::string& text);

    // The Owner as a model object, null when it is none (or is being destroyed).
    DcICCPBase* OwnerOb() const;

signals:
    void Put2SLog(QString text);
};

// One row of a table of own variables of an ObICCP.
struct ICCPObDesc {
    char name[32];
    int32_t size;
    int32_t kind;
    int32_t subkind;
    int32_t offset;
    int32_t flag;
};

// An object with a table of own variables, found by name through OwnVars.
class ObICCP : public DcICCPBase {
    Q_OBJECT
public:
    explicit ObICCP(QObject* parent = nullptr);
    ~ObICCP() override;

    ICCPObDesc* TabDesc;
    int32_t TabCount;
    StringList OwnVars;

    QString ClassName() override;
    void SetTabICCPObDesc(ICCPObDesc* table, int count);
    int GetSelfVarIdx(const std::string& name);
};

// The one model of the process.
extern DcVCC* pVCC;
extern DcDTTP* pDcDTTP;
extern DcDTTP* pDcDTTPnew;
extern DcTransSet* pTrans;
extern std::string TSbase;
// True while deleting a variable is an editing act, false during teardown.
extern bool needemit;
extern QMap<QString, int> CompareTypeTase;

void FillCompareType();
int GetType(const QString& typeName);

// The model object of entry i of list; null for a negative i or past the end.
DcICCPBase* ListOb(const StringList& list, int i);
// Deletes the objects of list from the last to the first, then clears it.
void DeleteListObjects(StringList& list);

// Text conversions of the readers and writers.
std::string Utf8ToLocal(const char* text);
QString Utf8ToQ(const std::string& text);
