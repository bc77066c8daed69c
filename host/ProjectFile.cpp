#include "host/ProjectFile.h"

#include "host/HostClasses.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextCodec>
#include <algorithm>

namespace {

const char* const formatName = "cfghost-project";
constexpr int formatVersion = 1;

const char* const typeNames[] = {"undef", "bool", "int", "double", "text"};

QByteArray TypeName(TCfgPropType type) {
    return type >= cptUndef && type <= cptText ? typeNames[type] : "undef";
}

TCfgPropType TypeFromName(const QString& name) {
    for (int t = cptBool; t <= cptText; ++t)
        if (name == typeNames[t])
            return TCfgPropType(t);
    return cptUndef;
}

bool IsUtf8(const QByteArray& bytes) {
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0;
}

QJsonValue PlainValue(const HostParam& p) {
    switch (p.type) {
    case cptBool:
        return p.value.toBool();
    case cptInt:
        return p.value.toInt();
    case cptDouble:
        return p.value.toDouble();
    default:
        return QString::fromUtf8(p.value.toByteArray());
    }
}

// A parameter of the kind's set with a value JSON holds as it is, plainly;
// everything else in the long form that names its type.
QJsonValue ParamToJson(const HostParam& p, bool ofTheKind) {
    const bool binary = p.type == cptText && !IsUtf8(p.value.toByteArray());
    if (ofTheKind && !binary)
        return PlainValue(p);
    QJsonObject o;
    o["type"] = QString(TypeName(p.type));
    if (binary)
        o["base64"] = QString::fromLatin1(p.value.toByteArray().toBase64());
    else
        o["value"] = PlainValue(p);
    if (!ofTheKind)
        o["caption"] = QString::fromUtf8(p.caption);
    return o;
}

QJsonObject ObjectToJson(const HostObject* ob) {
    QJsonObject o;
    o["kind"] = QString(KindName(ob->kind()));
    o["module"] = QString::fromUtf8(ob->moduleKey());
    const QList<HostParam> defaults = DefaultParams(ob->kind());
    QJsonObject params;
    for (const HostParam& p : ob->params()) {
        const bool ofTheKind = std::any_of(defaults.begin(), defaults.end(),
                                           [&](const HostParam& d) { return d.name == p.name; });
        params[QString::fromUtf8(p.name)] = ParamToJson(p, ofTheKind);
    }
    o["params"] = params;
    QJsonArray children;
    for (const HostObject* child : ob->children())
        children.append(ObjectToJson(child));
    if (!children.isEmpty())
        o["children"] = children;
    return o;
}

QVariant PlainToVariant(const QJsonValue& v) {
    if (v.isBool())
        return v.toBool();
    if (v.isDouble()) {
        const double d = v.toDouble();
        if (d == double(qint64(d)))
            return qint64(d);
        return d;
    }
    if (v.isString())
        return v.toString().toUtf8();
    return QVariant();
}

class Reader {
public:
    explicit Reader(HostProject& project) : m_project(project) {}
    QString error;

    bool readObject(HostObject* parent, const QJsonValue& value, const QString& where) {
        if (!value.isObject())
            return fail(where, "not an object");
        const QJsonObject o = value.toObject();
        const int kind = KindFromName(o["kind"].toVariant().toString().toUtf8());
        if (kind < 0)
            return fail(where, "unknown kind");
        const QJsonObject params = o["params"].toObject();
        const int number = params["number"].toInt();
        HostObject* ob =
            m_project.create(parent, kind, number, o["module"].toString("cfghost").toUtf8());
        if (!ob)
            return fail(where, QString("a %1 can't stand here").arg(QString(KindName(kind))));
        for (auto it = params.begin(); it != params.end(); ++it)
            if (!readParam(ob, it.key(), it.value(), where))
                return false;
        const QJsonArray children = o["children"].toArray();
        for (int i = 0; i < children.size(); ++i)
            if (!readObject(ob, children[i], QString("%1.children[%2]").arg(where).arg(i)))
                return false;
        return true;
    }

private:
    bool readParam(HostObject* ob, const QString& name, const QJsonValue& v, const QString& where) {
        const QString at = where + ".params." + name;
        const QByteArray key = name.toUtf8();
        QVariant value;
        if (v.isObject()) {
            const QJsonObject o = v.toObject();
            const TCfgPropType type = TypeFromName(o["type"].toString());
            if (type == cptUndef)
                return fail(at, "unknown type");
            value = o.contains("base64")
                        ? QVariant(QByteArray::fromBase64(o["base64"].toString().toLatin1()))
                        : PlainToVariant(o["value"]);
            if (!ob->param(key)) {
                HostParam p;
                p.name = key;
                p.type = type;
                p.caption = o.contains("caption") ? o["caption"].toString().toUtf8() : key;
                ob->addParam(p);
            }
        } else {
            value = PlainToVariant(v);
            if (!ob->param(key)) {
                HostParam p;
                p.name = key;
                p.type = v.isBool() ? cptBool
                         : v.isDouble()
                             ? (value.userType() == QMetaType::Double ? cptDouble : cptInt)
                             : cptText;
                p.caption = key;
                ob->addParam(p);
            }
        }
        if (!ob->set(key, value))
            return fail(at, "the value doesn't fit the parameter's type");
        return true;
    }

    bool fail(const QString& where, const QString& what) {
        error = where + ": " + what;
        return false;
    }

    HostProject& m_project;
};

} // namespace

QByteArray ProjectToJson(const HostProject& project) {
    QJsonArray objects;
    for (const HostObject* root : project.roots())
        objects.append(ObjectToJson(root));
    QJsonObject top;
    top["format"] = formatName;
    top["version"] = formatVersion;
    top["objects"] = objects;
    return QJsonDocument(top).toJson(QJsonDocument::Indented);
}

bool ProjectFromJson(HostProject& project, const QByteArray& json, QString* error) {
    project.clear();
    QJsonParseError parseError;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &parseError);
    Reader reader(project);
    bool ok = false;
    if (doc.isNull()) {
        reader.error =
            QString("offset %1: %2").arg(parseError.offset).arg(parseError.errorString());
    } else if (doc.object()["format"].toString() != formatName) {
        reader.error = QString("not a %1 file").arg(formatName);
    } else if (doc.object()["version"].toInt() != formatVersion) {
        reader.error = QString("version %1 is not known").arg(doc.object()["version"].toInt());
    } else {
        const QJsonArray objects = doc.object()["objects"].toArray();
        ok = true;
        for (int i = 0; ok && i < objects.size(); ++i)
            ok = reader.readObject(nullptr, objects[i], QString("objects[%1]").arg(i));
    }
    if (!ok) {
        project.clear();
        if (error)
            *error = reader.error;
    }
    return ok;
}

bool LoadProject(HostProject& project, const QString& path, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        project.clear();
        if (error)
            *error = path + ": " + file.errorString();
        return false;
    }
    QString why;
    if (ProjectFromJson(project, file.readAll(), &why))
        return true;
    if (error)
        *error = path + ": " + why;
    return false;
}

bool SaveProject(const HostProject& project, const QString& path, QString* error) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        const QByteArray json = ProjectToJson(project);
        if (file.write(json) == json.size() && file.commit())
            return true;
    }
    if (error)
        *error = path + ": " + file.errorString();
    return false;
}
