#include "model/ModelDiff.h"

#include "model/ICCPTypes_Nat.h"
#include "model/ModelFile.h"

#include <QMap>
#include <QSet>

namespace {

// The objects of one domain by name; the first of a repeated name stands.
struct Domain {
    QMap<QString, DcICCPBase*> vars;
    QMap<QString, DcDataSet*> dataSets;
    QMap<QString, DcTransSet*> transSets;
};

template <class T> void Collect(StringList& list, QMap<QString, T*>& objects) {
    for (int i = 0; i < list.Count; ++i)
        if (T* object = qobject_cast<T*>(ListOb(list, i)))
            if (!objects.contains(LocalToQ(object->name)))
                objects.insert(LocalToQ(object->name), object);
}

// The domains of a model: "" for the VCC, the ICCs by name.
QMap<QString, Domain> Domains(DcVCC* vcc) {
    QMap<QString, Domain> domains;
    Collect(vcc->Vars, domains[QString()].vars);
    Collect(vcc->DataSets, domains[QString()].dataSets);
    for (int i = 0; i < vcc->ICCs.Count; ++i) {
        auto* icc = qobject_cast<DcLD*>(ListOb(vcc->ICCs, i));
        if (!icc || domains.contains(LocalToQ(icc->name)))
            continue;
        Domain& domain = domains[LocalToQ(icc->name)];
        Collect(icc->Vars, domain.vars);
        Collect(icc->DataSets, domain.dataSets);
        Collect(icc->TransSets, domain.transSets);
    }
    return domains;
}

QString TypeOf(DcICCPBase* object) {
    if (auto* variable = qobject_cast<DcDA*>(object))
        return LocalToQ(variable->type);
    if (auto* structure = qobject_cast<DcDO*>(object))
        return LocalToQ(structure->type);
    return QString();
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
        const QMap<QString, Domain> old = Domains(before.vcc);
        const QMap<QString, Domain> now = Domains(after.vcc);
        for (const QString& name : Union(old, now)) {
            const QString prefix = name.isEmpty() ? QString() : name + "/";
            if (!name.isEmpty() && !now.contains(name))
                lines << "- " + name + ": ICC";
            else if (!name.isEmpty() && !old.contains(name))
                lines << "+ " + name + ": ICC";
            else
                Compare(old[name], now[name], prefix);
        }
        return lines;
    }

private:
    template <class T>
    static QList<QString> Union(const QMap<QString, T>& a, const QMap<QString, T>& b) {
        QMap<QString, bool> names;
        for (auto i = a.cbegin(); i != a.cend(); ++i)
            names.insert(i.key(), true);
        for (auto i = b.cbegin(); i != b.cend(); ++i)
            names.insert(i.key(), true);
        return names.keys();
    }

    void Compare(const Domain& old, const Domain& now, const QString& prefix) {
        for (const QString& name : Union(old.vars, now.vars)) {
            DcICCPBase* a = old.vars.value(name);
            DcICCPBase* b = now.vars.value(name);
            if (!b)
                lines << "- " + prefix + name + ": переменная " + TypeOf(a);
            else if (!a)
                lines << "+ " + prefix + name + ": переменная " + TypeOf(b);
            else if (TypeOf(a) != TypeOf(b))
                lines << "~ " + prefix + name + ": тип " + TypeOf(a) + " -> " + TypeOf(b);
        }
        for (const QString& name : Union(old.dataSets, now.dataSets)) {
            const QStringList a = MemberEntries(old.dataSets.value(name));
            const QStringList b = MemberEntries(now.dataSets.value(name));
            if (!now.dataSets.contains(name))
                lines << QString("- %1%2: набор данных, элементов %3")
                             .arg(prefix, name)
                             .arg(a.size());
            else if (!old.dataSets.contains(name))
                lines << QString("+ %1%2: набор данных, элементов %3")
                             .arg(prefix, name)
                             .arg(b.size());
            else
                Members(prefix + name, a, b);
        }
        for (const QString& name : Union(old.transSets, now.transSets)) {
            if (!now.transSets.contains(name))
                lines << "- " + prefix + name + ": набор передачи";
            else if (!old.transSets.contains(name))
                lines << "+ " + prefix + name + ": набор передачи";
            else
                Attributes(prefix + name, old.transSets[name], now.transSets[name]);
        }
    }

    void Members(const QString& path, const QStringList& old, const QStringList& now) {
        const QSet<QString> a(old.cbegin(), old.cend());
        const QSet<QString> b(now.cbegin(), now.cend());
        QMap<QString, QChar> changed;
        for (const QString& entry : old)
            if (!b.contains(entry))
                changed.insert(entry, '-');
        for (const QString& entry : now)
            if (!a.contains(entry))
                changed.insert(entry, '+');
        for (auto i = changed.cbegin(); i != changed.cend(); ++i)
            lines << QString("%1 %2: элемент %3").arg(i.value()).arg(path, i.key());
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
