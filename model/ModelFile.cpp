#include "model/ModelFile.h"

#include "model/ICCPTypes_Nat.h"
#include "model/XmlText.h"
#include "support/MyBuf.h"

#include <tinyxml.h>

namespace {

// The type tables are sorted once per process before any model is read,
// as the form's constructor does for the form.
void PrepareTypeTables() {
    static bool done = false;
    if (done)
        return;
    done = true;
    FillCompareType();
    SortDATypes();
    SecTypesAToUp();
    SortSecondaryTypes();
}

// The last element of that name under node, the one the reader keeps.
TiXmlElement* LastElement(TiXmlNode* node, const char* name) {
    TiXmlElement* found = nullptr;
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling()) {
        TiXmlElement* element = child->ToElement();
        if (element && child->ValueStr() == name)
            found = element;
        if (TiXmlElement* deeper = LastElement(child, name))
            found = deeper;
    }
    return found;
}

// The svalue texts of the DcDA elements under element, by the members of
// the same names in members, nested structures included.
void TakeWrittenValues(TiXmlElement* element, StringList& members,
                       QHash<const DcDA*, std::string>& written) {
    for (TiXmlElement* child = element->FirstChildElement(); child;
         child = child->NextSiblingElement()) {
        const char* name = child->Attribute("name");
        DcICCPBase* member = name ? ListOb(members, members.IndexOf(Utf8ToLocal(name))) : nullptr;
        if (auto* variable = qobject_cast<DcDA*>(member)) {
            if (const char* value = child->Attribute("svalue"))
                written.insert(variable, value);
        } else if (auto* structure = qobject_cast<DcDO*>(member)) {
            TakeWrittenValues(child, structure->Members, written);
        }
    }
}

// TinyXML's account of a text that doesn't parse.
QString ParseError(const TiXmlDocument& document) {
    return QString("ошибка разбора XML: %1 (строка %2, столбец %3)")
        .arg(document.ErrorDesc())
        .arg(document.ErrorRow())
        .arg(document.ErrorCol());
}

} // namespace

ModelFile::~ModelFile() {
    Clear();
}

void ModelFile::Clear() {
    const bool emits = needemit;
    needemit = false;
    delete vcc;
    delete types;
    needemit = emits;
    vcc = nullptr;
    types = nullptr;
    written.clear();
}

bool ModelFile::ReadText(const QByteArray& text, QString& error) {
    TiXmlDocument document;
    ParseXmlText(document, text.constData(), TIXML_ENCODING_UTF8);
    if (document.Error()) {
        error = ParseError(document);
        return false;
    }
    return Read(document, error);
}

bool ModelFile::ReadFile(const QString& path, QString& error) {
    TiXmlDocument document;
    const bool loaded = LoadXmlFile(document, path);
    if (loaded && Read(document, error))
        return true;
    if (!loaded)
        error = document.Error() ? ParseError(document) : QString("Ошибка чтения файла");
    error = path + ": " + error;
    return false;
}

bool ModelFile::Read(TiXmlDocument& document, QString& error) {
    Clear();
    PrepareTypeTables();
    DcVCC* const formVcc = pVCC;
    DcDTTP* const formTypes = pDcDTTP;
    pVCC = nullptr;
    pDcDTTP = nullptr;
    FindAndRakeDTTPFromStr(&document, &pDcDTTP);
    RakeNode1(&document);
    if (pVCC) {
        if (pDcDTTP)
            pDcDTTP->ValidVar();
        pVCC->BornDO();
        pVCC->SetReletion();
    }
    vcc = pVCC;
    types = pDcDTTP;
    pVCC = formVcc;
    pDcDTTP = formTypes;
    if (!vcc) {
        error = "в тексте нет модели (элемента DcVCC)";
        return false;
    }
    // The reader keeps ICCs and transfer sets in the order of their elements.
    TiXmlElement* root = LastElement(&document, "DcVCC");
    int icc = 0;
    for (TiXmlElement* ld = root->FirstChildElement("DcLD"); ld;
         ld = ld->NextSiblingElement("DcLD"), ++icc) {
        auto* owner = qobject_cast<DcLD*>(ListOb(vcc->ICCs, icc));
        int set = 0;
        for (TiXmlElement* ts = ld->FirstChildElement("DcTransSet"); owner && ts;
             ts = ts->NextSiblingElement("DcTransSet"), ++set)
            if (auto* transfer = qobject_cast<DcTransSet*>(ListOb(owner->TransSets, set)))
                TakeWrittenValues(ts, transfer->Members, written);
    }
    return true;
}

std::string ModelFile::ValueOf(DcDA* variable) const {
    if (!variable)
        return std::string();
    const auto found = written.constFind(variable);
    if (found != written.constEnd())
        return *found;
    if (variable->Value && variable->Value->Buf && variable->Value->Len > 0)
        return variable->Value->Tostring();
    return variable->svalue;
}

std::vector<std::string> MemberEntries(DcDataSet* set) {
    std::vector<std::string> entries;
    for (int i = 0; set && i < set->Elems.Count; ++i) {
        DcICCPBase* object = ListOb(set->Elems, i);
        if (!object || object->Owner != set)
            entries.push_back(set->Elems.Strings(i));
    }
    return entries;
}

std::string VariableType(DcICCPBase* object) {
    if (auto* variable = qobject_cast<DcDA*>(object))
        return variable->type;
    if (auto* structure = qobject_cast<DcDO*>(object))
        return structure->type;
    return std::string();
}
