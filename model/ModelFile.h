// A model read from its XML text by the model's own readers, held apart
// from the form's model: pVCC and pDcDTTP are the same after a read as
// before it. The tools that check and compare models work on it.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <string>
#include <vector>

class DcDA;
class DcICCPBase;
class DcDataSet;
class DcDTTP;
class DcVCC;
class TiXmlDocument;

class ModelFile {
public:
    ModelFile() = default;
    ~ModelFile();
    ModelFile(const ModelFile&) = delete;
    ModelFile& operator=(const ModelFile&) = delete;

    // A "$DATARUN" text, parsed as the form parses the blob. False, with
    // error set, when it doesn't parse or holds no DcVCC.
    bool ReadText(const QByteArray& text, QString& error);
    // A ".blt", ".xml" or saved "$DATARUN" file, read as the form's file
    // command reads it.
    bool ReadFile(const QString& path, QString& error);

    // The value of a member of a transfer set as the text that was read
    // gives it; the reader itself keeps the "flagAbility" of a written
    // element in its svalue. Any other variable: as the writer would write it.
    std::string ValueOf(DcDA* variable) const;

    DcVCC* vcc = nullptr;
    DcDTTP* types = nullptr;

private:
    bool Read(TiXmlDocument& document, QString& error);
    void Clear();

    QHash<const DcDA*, std::string> written;
};

// The entry texts of a data set in order, but for its standard fields, which
// are the set's own objects.
std::vector<std::string> MemberEntries(DcDataSet* set);
// The type of a DcDA or DcDO; empty for any other object.
std::string VariableType(DcICCPBase* object);
