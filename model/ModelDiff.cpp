#include "model/ModelDiff.h"

#include "model/ICCPTypes_Nat.h"
#include "model/ModelFile.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

using Names = std::vector<std::string>;

// Objects by name; the first of a repeated name stands.
template <class T> using ByName = std::unordered_map<std::string, T*>;

// The objects of one domain.
struct Domain {
    ByName<DcICCPBase> vars;
    ByName<DcDataSet> dataSets;
    ByName<DcTransSet> transSets;
};

template <class T> void Collect(StringList& list, ByName<T>& objects) {
    for (int i = 0; i < list.Count; ++i)
        if (T* object = qobject_cast<T*>(ListOb(list, i)))
            objects.emplace(object->name, object);
}

// The domains of a model: "" for the VCC, the ICCs by name.
std::map<std::string, Domain> Domains(DcVCC* vcc) {
    std::map<std::string, Domain> domains;
    Collect(vcc->Vars, domains[std::string()].vars);
    Collect(vcc->DataSets, domains[std::string()].dataSets);
    for (int i = 0; i < vcc->ICCs.Count; ++i) {
        auto* icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, i));
        if (!icc || domains.count(icc->name))
            continue;
        Domain& domain = domains[icc->name];
        Collect(icc->Vars, domain.vars);
        Collect(icc->DataSets, domain.dataSets);
        Collect(icc->TransSets, domain.transSets);
    }
    return domains;
}

// The names of both, each once, in order.
template <class Map> Names Union(const Map& a, const Map& b) {
    Names names;
    names.reserve(a.size() + b.size());
    for (const auto& entry : a)
        names.push_back(entry.first);
    for (const auto& entry : b)
        if (!a.count(entry.first))
            names.push_back(entry.first);
    std::sort(names.begin(), names.end());
    return names;
}

template <class T> T* Find(const ByName<T>& objects, const std::string& name) {
    const auto found = objects.find(name);
    return found == objects.end() ? nullptr : found->second;
}

// The written values of a transfer set's attributes by member path
// ("Interval", "DataSetName$Name"), in member order.
void Attributes(const ModelFile& model, StringList& members, const QString& prefix,
                QList<QPair<QString, QString>>& out) {
    for (int i = 0; i < members.Count; ++i) {
        DcICCPBase* member = ListOb(members, i);
        const QString path = prefix + LocalToQ(members.Strings(i));
        if (auto* variable = qobject_cast<DcDA*>(member))
            out << qMakePair(path, LocalToQ(model.ValueOf(variable)));
        else if (auto* structure = qobject_cast<DcDO*>(member))
            Attributes(model, structure->Members, path + "$", out);
    }
}

class Differ {
public:
    Differ(const ModelFile& before, const ModelFile& after) : before(before), after(after) {}

    QStringList Run() {
        const std::map<std::string, Domain> old = Domains(before.vcc);
        const std::map<std::string, Domain> now = Domains(after.vcc);
        for (const std::string& name : Union(old, now)) {
            const QString icc = LocalToQ(name);
            if (!now.count(name))
                lines << "- " + icc + ": ICC";
            else if (!old.count(name))
                lines << "+ " + icc + ": ICC";
            else
                Compare(old.at(name), now.at(name), name.empty() ? QString() : icc + "/");
        }
        return lines;
    }

private:
    void Compare(const Domain& old, const Domain& now, const QString& prefix) {
        for (const std::string& name : Union(old.vars, now.vars)) {
            DcICCPBase* a = Find(old.vars, name);
            DcICCPBase* b = Find(now.vars, name);
            const auto path = [&] { return prefix + LocalToQ(name); };
            if (!b)
                lines << "- " + path() + ": переменная " + LocalToQ(VariableType(a));
            else if (!a)
                lines << "+ " + path() + ": переменная " + LocalToQ(VariableType(b));
            else if (VariableType(a) != VariableType(b))
                lines << "~ " + path() + ": тип " + LocalToQ(VariableType(a)) + " -> " +
                             LocalToQ(VariableType(b));
        }
        for (const std::string& name : Union(old.dataSets, now.dataSets)) {
            DcDataSet* a = Find(old.dataSets, name);
            DcDataSet* b = Find(now.dataSets, name);
            const QString path = prefix + LocalToQ(name);
            if (!b)
                lines << QString("- %1: набор данных, элементов %2")
                             .arg(path)
                             .arg(MemberEntries(a).size());
            else if (!a)
                lines << QString("+ %1: набор данных, элементов %2")
                             .arg(path)
                             .arg(MemberEntries(b).size());
            else
                Members(path, MemberEntries(a), MemberEntries(b));
        }
        for (const std::string& name : Union(old.transSets, now.transSets)) {
            DcTransSet* a = Find(old.transSets, name);
            DcTransSet* b = Find(now.transSets, name);
            const QString path = prefix + LocalToQ(name);
            if (!b)
                lines << "- " + path + ": набор передачи";
            else if (!a)
                lines << "+ " + path + ": набор передачи";
            else
                Attributes(path, a, b);
        }
    }

    void Members(const QString& path, const Names& old, const Names& now) {
        const std::unordered_set<std::string> a(old.cbegin(), old.cend());
        const std::unordered_set<std::string> b(now.cbegin(), now.cend());
        std::map<std::string, char> changed;
        for (const std::string& entry : old)
            if (!b.count(entry))
                changed.emplace(entry, '-');
        for (const std::string& entry : now)
            if (!a.count(entry))
                changed.emplace(entry, '+');
        for (const auto& entry : changed)
            lines
                << QString("%1 %2: элемент %3").arg(entry.second).arg(path, LocalToQ(entry.first));
    }

    void Attributes(const QString& path, DcTransSet* old, DcTransSet* now) {
        QList<QPair<QString, QString>> a, b;
        ::Attributes(before, old->Members, QString(), a);
        ::Attributes(after, now->Members, QString(), b);
        QMap<QString, QString> values;
        for (const auto& attribute : a)
            values.insert(attribute.first, attribute.second);
        QSet<QString> seen;
        for (const auto& attribute : b) {
            seen.insert(attribute.first);
            if (!values.contains(attribute.first))
                lines << "+ " + path + ": " + attribute.first + " " + attribute.second;
            else if (values[attribute.first] != attribute.second)
                lines << "~ " + path + ": " + attribute.first + " " + values[attribute.first] +
                             " -> " + attribute.second;
        }
        for (const auto& attribute : a)
            if (!seen.contains(attribute.first))
                lines << "- " + path + ": " + attribute.first + " " + attribute.second;
    }

    const ModelFile& before;
    const ModelFile& after;
    QStringList lines;
};

} // namespace

QStringList DiffModels(const ModelFile& before, const ModelFile& after) {
    if (!before.vcc || !after.vcc)
        return QStringList();
    return Differ(before, after).Run();
}
