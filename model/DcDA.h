// A leaf variable: a typed value with a name.
#pragma once

#include <QStringList>

#include "model/DcICCPBase.h"

class DcDAType;
class MyBufValue;

class DcDA : public DcICCPBase {
    Q_OBJECT
public:
    explicit DcDA(QObject* parent = nullptr);
    DcDA(const std::string& name, DcDAType* templ, QObject* parent);
    ~DcDA() override;

    std::string type;
    std::string svalue;
    DcDAType* Template;
    MyBufValue* Value;
    bool Plain;
    int32_t ByteCount;
    QString BitNames;
    int32_t unused;
    uint8_t flagAbility;

    QString ClassName() override;
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    QString ToXML(int indent) override;
    QString ToCSV(int indent) override;
    std::string GetFullName() override;

    bool IsBitStr();
    QStringList GetEnumList();
    // With a Template: makes sure of Value, types it and sets it from text,
    // or from the template's default value when text is empty.
    void SetTypedValue(const std::string& text);
};

// Full name of a variable: owners' names with "$" up to an ICC, then the
// ICC's name with "/".
std::string MemberFullName(DcICCPBase* object);
// With needemit: a variable of an ICC or the VCC leaves its owner's Vars.
void RemoveFromOwnerVars(DcICCPBase* object);
