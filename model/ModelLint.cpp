#include "model/ModelLint.h"

#include "model/ICCPTypes_Nat.h"
#include "model/ModelFile.h"
#include "support/StrUtils.h"

#include <QSet>
#include <cctype>
#include <unordered_set>

namespace {

// The variables of the template's VCC that a peer reads, with their types.
const char* const MandatoryVars[][2] = {{"TASE2_Version", "TASE2Version"},
                                        {"Supported_Features", "BitString12"},
                                        {"Bilateral_Table_ID", "VISIBLE_STRING32"}};
// Names of objects of the standard and of the members of a transfer set.
const char* const ReservedNames[] = {"Next_DSTransfer_Set",
                                     "DSConditions_Detected",
                                     "Event_Code_Detected",
                                     "Transfer_Set_Time_Stamp",
                                     "Transfer_Set_Name",
                                     "DataSetName",
                                     "StartTime",
                                     "Interval",
                                     "TLE",
                                     "BufferTime",
                                     "IntegrityCheck",
                                     "DSConditionsRequested",
                                     "BlockData",
                                     "Critical",
                                     "RBE",
                                     "Status",
                                     "EventCodeRequested"};
// Positions in DSConditionsRequested.
constexpr int IntervalTimeOut = 0;
constexpr int IntegrityTimeOut = 1;

bool StartsWith(const std::string& text, const char* head) {
    return text.compare(0, std::char_traits<char>::length(head), head) == 0;
}

// Why name can't be an MMS identifier, or nothing. The names of the
// standard types and fields stand as the standard gives them.
QString IdentifierFault(const std::string& name) {
    if (StartsWith(name, "Data_") || StartsWith(name, "Transfer_Set_"))
        return QString();
    if (name.empty())
        return "пустое имя";
    if (name.size() > 32)
        return QString("имя длиннее 32 символов (%1)").arg(name.size());
    for (char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 127 || !(std::isalnum(byte) || c == '_'))
            return "допустимы только латинские буквы, цифры и «_»";
    }
    if (std::isdigit(static_cast<unsigned char>(name[0])))
        return "имя начинается с цифры";
    return QString();
}

class Linter {
public:
    Linter(const ModelFile& model, int pduBytes) : model(model), pdu(pduBytes) {}

    LintReport Run() {
        DcVCC* vcc = model.vcc;
        if (model.types)
            for (int i = 0; i < model.types->Types.Count; ++i)
                Identifier("DcTemplate/" + model.types->Types.Strings(i),
                           model.types->Types.Strings(i));
        std::unordered_set<std::string> vccNames;
        Variables(vcc->Vars, vccNames, true);
        DataSets(vcc->DataSets);
        std::unordered_set<std::string> iccNames;
        int spare = 0;
        for (int i = 0; i < vcc->ICCs.Count; ++i) {
            auto* icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, i));
            if (!icc)
                continue;
            Identifier(icc->name, icc->name);
            Unique(iccNames, icc->name, icc->name, "ICC с таким именем уже есть в модели");
            std::unordered_set<std::string> names;
            if (icc->NextSet)
                names.insert(icc->NextSet->name);
            Variables(icc->Vars, names, false);
            for (int t = 0; t < icc->TransSets.Count; ++t)
                if (auto* set = qobject_cast<DcTransSet*>(ListOb(icc->TransSets, t))) {
                    Identifier(set->GetFullName(), set->name);
                    Unique(names, set->GetFullName(), set->name, InDomain(icc->name));
                    TransferSet(set);
                }
            DataSets(icc->DataSets);
            spare += Unreported(icc->DataSets, FreeTransferSets(icc));
        }
        Unreported(vcc->DataSets, spare);
        return report;
    }

private:
    void Add(bool error, const std::string& path, const char* rule, const QString& message) {
        report.lines << QString("%1: %2: %3: %4")
                            .arg(error ? "error" : "warning", LocalToQ(path), rule, message);
        report.errors += error ? 1 : 0;
    }

    static QString InDomain(const std::string& domain) {
        return "имя уже занято в домене " + (domain.empty() ? QString("VCC") : LocalToQ(domain));
    }

    void Identifier(const std::string& path, const std::string& name) {
        const QString fault = IdentifierFault(name);
        if (!fault.isEmpty())
            Add(true, path, "mms-name", fault);
    }

    void Unique(std::unordered_set<std::string>& names, const std::string& path,
                const std::string& name, const QString& message) {
        if (names.count(name))
            Add(true, path, "duplicate", message);
        names.insert(name);
    }

    void Variables(StringList& vars, std::unordered_set<std::string>& names, bool inVcc) {
        for (int i = 0; i < vars.Count; ++i) {
            DcICCPBase* var = ListOb(vars, i);
            if (!var)
                continue;
            const std::string path = var->GetFullName();
            Identifier(path, var->name);
            auto* icc = qobject_cast<DcLD*>(var->Owner);
            Unique(names, path, var->name, InDomain(icc ? icc->name : std::string()));
            Reserved(var, path, inVcc);
        }
    }

    void Reserved(DcICCPBase* var, const std::string& path, bool inVcc) {
        for (const auto& mandatory : MandatoryVars) {
            if (var->name != mandatory[0])
                continue;
            if (!inVcc)
                Add(true, path, "reserved",
                    "имя обязательной переменной VCC зарезервировано TASE.2");
            else if (VariableType(var) != mandatory[1])
                Add(true, path, "reserved",
                    QString("обязательная переменная TASE.2 должна иметь тип %1, а не %2")
                        .arg(mandatory[1], LocalToQ(VariableType(var))));
        }
        for (const char* reserved : ReservedNames)
            if (var->name == reserved)
                Add(true, path, "reserved", "имя зарезервировано TASE.2");
    }

    void DataSets(StringList& sets) {
        std::unordered_set<std::string> names;
        for (int i = 0; i < sets.Count; ++i) {
            auto* set = qobject_cast<DcDataSet*>(ListOb(sets, i));
            if (!set)
                continue;
            const std::string path = set->GetFullName();
            Identifier(path, set->name);
            if (names.count(set->name))
                Add(true, path, "duplicate", "набор данных с таким именем уже есть в домене");
            names.insert(set->name);
            int bytes = 0;
            for (int e = 0; e < set->Elems.Count; ++e) {
                DcICCPBase* object = ListOb(set->Elems, e);
                if (object)
                    bytes += EncodedSize(object);
                else
                    Add(false, path, "dangling",
                        "элемент " + LocalToQ(set->Elems.Strings(e)) + " не называет переменную");
            }
            if (bytes > pdu)
                Add(true, path, "pdu-size",
                    QString("размер набора данных %1 байт больше PDU в %2 байт")
                        .arg(bytes)
                        .arg(pdu));
        }
    }

    std::string Value(DcTransSet* set, const std::string& path) const {
        return model.ValueOf(qobject_cast<DcDA*>(GetDAFromList(path, &set->Members)));
    }

    void TransferSet(DcTransSet* set) {
        const std::string path = set->GetFullName();
        const int interval = Str2Int(Value(set, "Interval"));
        const int buffer = Str2Int(Value(set, "BufferTime"));
        const int integrity = Str2Int(Value(set, "IntegrityCheck"));
        const std::string conditions = Value(set, "DSConditionsRequested");
        auto requested = [&](int bit) {
            return int(conditions.size()) > bit && conditions[size_t(bit)] != '0';
        };
        if (interval > 0 && buffer >= interval)
            Add(false, path, "ts-buffer",
                QString("буферное время %1 не меньше интервала %2").arg(buffer).arg(interval));
        if ((integrity > 0 || requested(IntegrityTimeOut)) && !Str2Bool(Value(set, "RBE")))
            Add(false, path, "ts-integrity",
                "проверка целостности задана без передачи по исключению (RBE)");
        if (requested(IntervalTimeOut) && interval <= 0)
            Add(false, path, "ts-period",
                "условие IntervalTimeOut запрошено при нулевом интервале");
        if (requested(IntegrityTimeOut) && integrity <= 0)
            Add(false, path, "ts-period",
                "условие IntegrityTimeOut запрошено при нулевой проверке целостности");
    }

    // Transfer sets of the ICC that report none of the model's data sets:
    // the peer may take them for any set.
    int FreeTransferSets(DcLD* icc) {
        int free = 0;
        for (int t = 0; t < icc->TransSets.Count; ++t)
            if (auto* set = qobject_cast<DcTransSet*>(ListOb(icc->TransSets, t)))
                free += Reported(set).isEmpty() ? 1 : 0;
        return free;
    }

    // "ICC/DS" or "DS" of the data set that the transfer set names, empty
    // when there is no such set.
    QString Reported(DcTransSet* set) {
        const std::string domain = Value(set, "DataSetName$DomainName");
        const std::string name = Value(set, "DataSetName$Name");
        auto* icc = qobject_cast<DcLD*>(ListOb(model.vcc->ICCs, model.vcc->ICCs.IndexOf(domain)));
        StringList& sets = icc ? icc->DataSets : model.vcc->DataSets;
        if (name.empty() || sets.IndexOf(name) < 0)
            return QString();
        return LocalToQ(icc ? domain + "/" + name : name);
    }

    // Reports the data sets with members that no transfer set names, beyond
    // those the free transfer sets can take; gives the free ones left.
    int Unreported(StringList& sets, int free) {
        QSet<QString> named;
        for (int i = 0; i < model.vcc->ICCs.Count; ++i)
            if (auto* icc = qobject_cast<DcLD*>(ListOb(model.vcc->ICCs, i)))
                for (int t = 0; t < icc->TransSets.Count; ++t)
                    if (auto* set = qobject_cast<DcTransSet*>(ListOb(icc->TransSets, t)))
                        named.insert(Reported(set));
        for (int i = 0; i < sets.Count; ++i) {
            auto* set = qobject_cast<DcDataSet*>(ListOb(sets, i));
            if (!set || MemberEntries(set).empty() || named.contains(LocalToQ(set->GetFullName())))
                continue;
            if (free > 0) {
                --free;
                continue;
            }
            Add(false, set->GetFullName(), "unreported",
                "набор данных не назван ни в одном наборе передачи, а свободных наборов "
                "передачи не осталось");
        }
        return free;
    }

    const ModelFile& model;
    const int pdu;
    LintReport report;
};

} // namespace

LintReport LintModel(const ModelFile& model, int pduBytes) {
    if (!model.vcc)
        return LintReport();
    return Linter(model, pduBytes).Run();
}

int EncodedSize(DcICCPBase* object) {
    if (auto* variable = qobject_cast<DcDA*>(object))
        return 2 + (variable->Template ? qMax(variable->Template->size, 0) : 0);
    auto* structure = qobject_cast<DcDO*>(object);
    int bytes = 2;
    for (int i = 0; structure && i < structure->Members.Count; ++i)
        bytes += EncodedSize(ListOb(structure->Members, i));
    return bytes;
}
