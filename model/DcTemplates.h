// The type templates: a basic type (DcDAType), a structured type (DcDOType)
// and the template set that holds them (DcDTTP).
#pragma once

#include <QList>

#include "model/DcICCPBase.h"

class DcDAType : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcDAType(QObject* parent = nullptr);
    ~DcDAType() override;

    std::string type;
    std::string defname;
    std::string senum;
    std::string value;
    // The template's own description; the base's desc stays empty.
    std::string desc;
    int32_t idfrm;
    int32_t intType;
    int32_t size;
    int32_t unused;
    bool enums;
    bool editable;

    QString ClassName() override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    QString ToXML(int indent) override;
};

class DcDOType : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcDOType(QObject* parent = nullptr);
    ~DcDOType() override;

    std::string type;
    std::string defname;
    int32_t idfrm;
    // Member prototypes (DcDA, DcDO), keyed by member name, in file order.
    StringList Members;
    uint16_t Valid;

    QString ClassName() override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    int GetChildCount() override;
    DcICCPBase* GetChildById(int i) override;
    QString ToXML(int indent) override;

    bool GetValid();
    void GetFullContDesc(myNode* node);
};

class DcDTTP : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcDTTP(QObject* parent = nullptr);
    ~DcDTTP() override;

    // Templates keyed by their type text, in order of reading.
    StringList Types;
    // The same templates, the list that sortByidtype orders.
    QList<DcICCPBase*> TypeList;
    int32_t DupDAType;
    int32_t DupDOType;

    QString ClassName() override;
    int DecodeElement(TiXmlNode* node, const std::string& elementName) override;
    int GetChildCount() override;
    DcICCPBase* GetChildById(int i) override;
    int GetChildRow(DcICCPBase* object) override;
    QString ToXML(int indent) override;

    bool ValidVar();
    void sortByidtype();
    // The template of that type text, or null.
    DcICCPBase* FindType(const std::string& typeName);
};

bool lessThen(DcICCPBase* a, DcICCPBase* b);
// The DcDAType of that type text in pDcDTTP, or null.
DcDAType* GetDcDAType(const std::string& typeName);
// The template of that type text in pDcDTTP, or null (no pDcDTTP either).
DcICCPBase* FindTemplate(const std::string& typeName);
// Reads the first DcTemplate element under node into *out, unless *out is set.
bool FindAndRakeDTTPFromStr(TiXmlNode* node, DcDTTP** out);
