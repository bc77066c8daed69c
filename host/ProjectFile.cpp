#include "host/ProjectFile.h"

#include "host/HostClasses.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextCodec>
#include <QVector>
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

// The text as QString::fromUtf8 gives it; false when the bytes are not
// UTF-8. One decoding serves both, since most texts are.
bool DecodeUtf8(const QByteArray& bytes, QString& text) {
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    text = utf8->toUnicode(bytes.constData(), bytes.size(), &state);
    // A sequence cut short at the end waits in the state; fromUtf8 would
    // have replaced it.
    if (state.remainingChars)
        text = QString::fromUtf8(bytes);
    return state.invalidChars == 0;
}

// A parameter of the kind's set with a value JSON holds as it is, plainly;
// everything else in the long form that names its type.
QJsonValue ParamToJson(const HostParam& p, bool ofTheKind) {
    QJsonValue plain;
    bool binary = false;
    switch (p.type) {
    case cptBool:
        plain = p.value.toBool();
        break;
    case cptInt:
        plain = p.value.toInt();
        break;
    case cptDouble:
        plain = p.value.toDouble();
        break;
    default: {
        QString text;
        binary = !DecodeUtf8(p.value.toByteArray(), text) && p.type == cptText;
        plain = text;
    }
    }
    if (ofTheKind && !binary)
        return plain;
    QJsonObject o;
    o["type"] = QString(TypeName(p.type));
    if (binary)
        o["base64"] = QString::fromLatin1(p.value.toByteArray().toBase64());
    else
        o["value"] = plain;
    if (!ofTheKind)
        o["caption"] = QString::fromUtf8(p.caption);
    return o;
}

QJsonObject ObjectToJson(const HostObject* ob) {
    QJsonObject o;
    o["kind"] = QString(KindName(ob->kind()));
    o["module"] = QString::fromUtf8(ob->moduleKey());
    const QList<HostParam> defaults = DefaultParams(ob->kind());
    const QList<HostParam>& own = ob->params();
    QJsonObject params;
    for (int i = 0; i < own.size(); ++i) {
        const HostParam& p = own[i];
        // An object's own parameters start with its kind's, in their order.
        const bool ofTheKind = (i < defaults.size() && defaults[i].name == p.name) ||
                               std::any_of(defaults.begin(), defaults.end(),
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

    // Reads the object at objects[index] of the file or, below a parent, at
    // children[index] of the parent's.
    bool readObject(HostObject* parent, const QJsonValue& value, int index) {
        m_path.append(index);
        const bool ok = readObject(parent, value);
        m_path.removeLast();
        return ok;
    }

private:
    bool readObject(HostObject* parent, const QJsonValue& value) {
        if (!value.isObject())
            return fail(where(), "not an object");
        const QJsonObject o = value.toObject();
        const int kind = KindFromName(o["kind"].toVariant().toString().toUtf8());
        if (kind < 0)
            return fail(where(), "unknown kind");
        const QJsonObject params = o["params"].toObject();
        const int number = params["number"].toInt();
        HostObject* ob =
            m_project.create(parent, kind, number, o["module"].toString("cfghost").toUtf8());
        if (!ob)
            return fail(where(), QString("a %1 can't stand here").arg(QString(KindName(kind))));
        for (auto it = params.begin(); it != params.end(); ++it)
            if (!readParam(ob, it.key(), it.value()))
                return false;
        const QJsonArray children = o["children"].toArray();
        for (int i = 0; i < children.size(); ++i)
            if (!readObject(ob, children[i], i))
                return false;
        return true;
    }

    bool readParam(HostObject* ob, const QString& name, const QJsonValue& v) {
        const auto at = [&] { return where() + ".params." + name; };
        const QByteArray key = name.toUtf8();
        QVariant value;
        if (v.isObject()) {
            const QJsonObject o = v.toObject();
            const TCfgPropType type = TypeFromName(o["type"].toString());
            if (type == cptUndef)
                return fail(at(), "unknown type");
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
            return fail(at(), "the value doesn't fit the parameter's type");
        return true;
    }

    // "objects[i].children[j]..." of the object being read; made only for an
    // error, since a large project has tens of thousands of objects.
    QString where() const {
        QString text;
        for (int i = 0; i < m_path.size(); ++i)
            text += QString(i ? ".children[%1]" : "objects[%1]").arg(m_path[i]);
        return text;
    }

    bool fail(const QString& where, const QString& what) {
        error = where + ": " + what;
        return false;
    }

    HostProject& m_project;
    QVector<int> m_path;
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
            ok = reader.readObject(nullptr, objects[i], i);
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
