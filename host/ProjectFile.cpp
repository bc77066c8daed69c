#include "host/ProjectFile.h"

#include "host/HostClasses.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStringList>
#include <QTemporaryFile>
#include <QTextCodec>
#include <QVector>
#include <algorithm>
#include <cstring>

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

// The bytes of a text as QString::fromUtf8 and back give them; `valid`
// false when the bytes are not UTF-8.
QByteArray Utf8Text(const QByteArray& bytes, bool* valid = nullptr) {
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    utf8->toUnicode(bytes.constData(), bytes.size(), &state);
    if (valid)
        *valid = state.invalidChars == 0;
    // fromUtf8 drops a leading byte-order mark and replaces bad or cut-short
    // sequences; any other text comes back as it is.
    if (state.invalidChars == 0 && state.remainingChars == 0 && !bytes.startsWith("\xEF\xBB\xBF"))
        return bytes;
    return QString::fromUtf8(bytes).toUtf8();
}

// Whether the value of `p` equals `other` taken as the same type.
bool SameValue(const HostParam& p, const QVariant& other) {
    switch (p.type) {
    case cptBool:
        return p.value.toBool() == other.toBool();
    case cptInt:
        return p.value.toInt() == other.toInt();
    case cptDouble:
        return p.value.toDouble() == other.toDouble();
    default:
        return p.value.toByteArray() == other.toByteArray();
    }
}

// Writes the project indented by four spaces a level, texts in UTF-8, each
// object as its kind, module, parameters and children. A parameter is
// written when the file named it or its value is not its kind's default, so
// that a hand-written file comes back about as short as it was. The text goes
// straight into one buffer: a large project holds tens of thousands of tags,
// and a QJsonObject per object costs many times the text.
class Writer {
public:
    // Without a sink the whole text stays in `out`; with one, `out` is passed
    // on a piece at a time, so that a large project isn't held twice.
    explicit Writer(QIODevice* sink = nullptr) : m_sink(sink) {
        if (m_sink)
            out.reserve(2 * pieceSize); // kept between pieces
    }

    QByteArray out;
    // False once the sink has refused a piece.
    bool written = true;

    void project(const HostProject& project) {
        out += "{\n";
        key(1, "format");
        string(formatName);
        out += ",\n";
        key(1, "version");
        out += QByteArray::number(formatVersion);
        out += ",\n";
        key(1, "objects");
        objects(project.roots(), 1);
        out += "\n}\n";
        pass();
    }

private:
    static constexpr int pieceSize = 1 << 20;

    void pass() {
        if (!m_sink || out.isEmpty())
            return;
        written = written && m_sink->write(out) == out.size();
        out.resize(0);
    }

    void indent(int level) { out.append(4 * level, ' '); }

    void key(int level, const QByteArray& name) {
        indent(level);
        string(name);
        out += ": ";
    }

    // A text already in UTF-8, with JSON's escapes.
    void string(const QByteArray& text) {
        out += '"';
        const char* run = text.constData();
        const char* const end = run + text.size();
        for (const char* c = run; c != end; ++c) {
            const uchar u = uchar(*c);
            if (u >= 0x20 && u != '"' && u != '\\')
                continue;
            out.append(run, int(c - run));
            run = c + 1;
            out += '\\';
            switch (u) {
            case '"':
            case '\\':
                out += char(u);
                break;
            case '\b':
                out += 'b';
                break;
            case '\f':
                out += 'f';
                break;
            case '\n':
                out += 'n';
                break;
            case '\r':
                out += 'r';
                break;
            case '\t':
                out += 't';
                break;
            default:
                out += "u00";
                out += "0123456789abcdef"[u >> 4];
                out += "0123456789abcdef"[u & 15];
            }
        }
        out.append(run, int(end - run));
        out += '"';
    }

    // A number as QJsonDocument writes it; worked out by Qt once per value,
    // since a project repeats a few values many times.
    void number(double d) {
        quint64 bits = 0;
        std::memcpy(&bits, &d, sizeof bits);
        auto found = m_numbers.constFind(bits);
        if (found == m_numbers.constEnd()) {
            const QByteArray array = QJsonDocument(QJsonArray{d}).toJson(QJsonDocument::Compact);
            found = m_numbers.insert(bits, array.mid(1, array.size() - 2));
        }
        out += found.value();
    }

    void objects(const QList<HostObject*>& list, int level) {
        out += "[\n";
        for (int i = 0; i < list.size(); ++i) {
            indent(level + 1);
            object(list[i], level + 1);
            out += i + 1 < list.size() ? ",\n" : "\n";
            if (out.size() >= pieceSize)
                pass();
        }
        indent(level);
        out += ']';
    }

    void object(const HostObject* ob, int level) {
        out += "{\n";
        key(level + 1, "kind");
        string(KindName(ob->kind()));
        out += ",\n";
        key(level + 1, "module");
        string(Utf8Text(ob->moduleKey()));
        params(ob, level + 1);
        if (!ob->children().isEmpty()) {
            out += ",\n";
            key(level + 1, "children");
            objects(ob->children(), level + 1);
        }
        out += '\n';
        indent(level);
        out += '}';
    }

    // The parameters worth writing, in the object's order, after a ",\n"
    // when there are any; of two whose names read the same, the later one
    // stands, as it would when read back.
    void params(const HostObject* ob, int level) {
        const QList<HostParam>& own = ob->params();
        const QList<HostParam> defaults = DefaultParams(ob->kind());
        QVector<QString> names;
        names.reserve(own.size());
        for (const HostParam& p : own)
            names.append(QString::fromUtf8(p.name.constData(), p.name.size()));
        bool first = true;
        for (int i = 0; i < own.size(); ++i) {
            const HostParam& p = own[i];
            if (std::find(names.begin() + i + 1, names.end(), names[i]) != names.end())
                continue;
            // An object's own parameters start with its kind's, in their order.
            const HostParam* byDefault =
                i < defaults.size() && defaults[i].name == p.name ? &defaults[i] : nullptr;
            for (int d = 0; !byDefault && d < defaults.size(); ++d)
                if (defaults[d].name == p.name)
                    byDefault = &defaults[d];
            if (byDefault && !p.fromFile && SameValue(p, byDefault->value))
                continue;
            out += ",\n";
            if (first) {
                key(level, "params");
                out += "{\n";
                first = false;
            }
            key(level + 1, names[i].toUtf8());
            param(p, byDefault != nullptr, level + 1);
        }
        if (!first) {
            out += '\n';
            indent(level);
            out += '}';
        }
    }

    // A parameter of the kind's set with a value JSON holds as it is,
    // plainly; everything else in the long form that names its type, with
    // its keys base64 or value, caption, type in their sorted order.
    void param(const HostParam& p, bool ofTheKind, int level) {
        bool valid = true;
        const QByteArray text = p.type == cptBool || p.type == cptInt || p.type == cptDouble
                                    ? QByteArray()
                                    : Utf8Text(p.value.toByteArray(), &valid);
        const bool binary = p.type == cptText && !valid;
        if (ofTheKind && !binary) {
            plain(p, text);
            return;
        }
        out += "{\n";
        if (binary) {
            key(level + 1, "base64");
            string(p.value.toByteArray().toBase64());
            out += ",\n";
        }
        if (!ofTheKind) {
            key(level + 1, "caption");
            string(Utf8Text(p.caption));
            out += ",\n";
        }
        key(level + 1, "type");
        string(TypeName(p.type));
        if (!binary) {
            out += ",\n";
            key(level + 1, "value");
            plain(p, text);
        }
        out += '\n';
        indent(level);
        out += '}';
    }

    void plain(const HostParam& p, const QByteArray& text) {
        switch (p.type) {
        case cptBool:
            out += p.value.toBool() ? "true" : "false";
            break;
        case cptInt:
            out += QByteArray::number(p.value.toInt());
            break;
        case cptDouble:
            number(p.value.toDouble());
            break;
        default:
            string(text);
        }
    }

    QIODevice* m_sink;
    QHash<quint64, QByteArray> m_numbers;
};

QVariant PlainToVariant(const QJsonValue& v) {
    if (v.isBool())
        return v.toBool();
    if (v.isDouble()) {
        const double d = v.toDouble();
        // Only a number within qint64's range may be converted to it.
        if (d >= -0x1p63 && d < 0x1p63 && d == double(qint64(d)))
            return qint64(d);
        return d;
    }
    if (v.isString())
        return v.toString().toUtf8();
    return QVariant();
}

// Why the value of `p` is refused by its range or its enumeration.
QString OutsideDeclared(const HostParam& p) {
    const QString value = p.value.toString();
    double low = 0, high = 0;
    if (p.range(low, high) && (p.value.toDouble() < low || p.value.toDouble() > high))
        return QString("the value %1 is outside the parameter's range %2 to %3")
            .arg(value)
            .arg(low)
            .arg(high);
    QStringList keys;
    for (const QByteArray& item : p.enumText.split(';'))
        keys << QString::fromUtf8(item.left(item.indexOf('=')).trimmed());
    return QString("the value %1 is not among the parameter's choices %2")
        .arg(value, keys.size() > 4 ? keys.first() + " to " + keys.last() : keys.join(", "));
}

// "line 3, column 14" of a byte offset into the text, the column counted
// in characters from 1.
QString TextPlace(const QByteArray& text, int offset) {
    offset = qBound(0, offset, text.size());
    const int lineStart = text.lastIndexOf('\n', offset - 1) + 1;
    return QString("line %1, column %2")
        .arg(text.left(offset).count('\n') + 1)
        .arg(QString::fromUtf8(text.mid(lineStart, offset - lineStart)).size() + 1);
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
        const QJsonValue module = o["module"];
        if (!module.isUndefined() && !module.isString())
            return fail(where() + ".module", "not a text");
        const QJsonValue params = o["params"];
        if (!params.isUndefined() && !params.isObject())
            return fail(where() + ".params", "not an object");
        const QJsonValue children = o["children"];
        if (!children.isUndefined() && !children.isArray())
            return fail(where() + ".children", "not a list");
        const QJsonObject values = params.toObject();
        const int number = values["number"].toInt();
        HostObject* ob =
            m_project.create(parent, kind, number, module.toString("cfghost").toUtf8());
        if (!ob)
            return fail(where(), QString("a %1 can't stand here").arg(QString(KindName(kind))));
        // A key loses one leading byte-order mark each time Qt reads it, and
        // QJsonObject orders its keys by their bytes with the mark: the names
        // are taken without any leading mark and in their own order, so that
        // a parameter keeps its name and place when written and read back.
        QVector<QPair<QString, QJsonValue>> named;
        for (auto it = values.begin(); it != values.end(); ++it) {
            QString name = it.key();
            while (name.startsWith(QChar(0xFEFF)))
                name.remove(0, 1);
            named.append({name, it.value()});
        }
        std::stable_sort(named.begin(), named.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        for (const auto& param : named)
            if (!readParam(ob, param.first, param.second))
                return false;
        const QJsonArray list = children.toArray();
        for (int i = 0; i < list.size(); ++i)
            if (!readObject(ob, list[i], i))
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
        const bool isBool = value.userType() == QMetaType::Bool;
        const bool isNumber =
            value.userType() == QMetaType::LongLong || value.userType() == QMetaType::Double;
        // An object given no number keeps the free one it was made with.
        if (key == "number" && isNumber && value.toDouble() <= 0)
            return true;
        HostParam* p = ob->param(key);
        // true and false are for flags only, and a flag takes no number but
        // 0 and 1.
        if ((isBool && p->type != cptBool) ||
            (isNumber && p->type == cptBool && value.toDouble() != 0 && value.toDouble() != 1) ||
            !ob->set(key, value))
            return fail(at(), "the value doesn't fit the parameter's type, " + TypeName(p->type));
        if (!p->fitsDeclared(p->value))
            return fail(at(), OutsideDeclared(*p));
        p->fromFile = true;
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
    Writer writer;
    writer.project(project);
    return writer.out;
}

bool ProjectFromJson(HostProject& project, const QByteArray& json, QString* error) {
    project.clear();
    QJsonParseError parseError;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &parseError);
    Reader reader(project);
    bool ok = false;
    if (doc.isNull()) {
        reader.error = QString("%1 (offset %2): %3")
                           .arg(TextPlace(json, parseError.offset))
                           .arg(parseError.offset)
                           .arg(parseError.errorString());
    } else if (!doc.isObject()) {
        reader.error = "the text is not a JSON object";
    } else if (doc.object()["format"].toString() != formatName) {
        reader.error = QString("not a %1 file").arg(formatName);
    } else if (doc.object()["version"].toInt() != formatVersion) {
        reader.error = QString("version %1 is not known").arg(doc.object()["version"].toInt());
    } else {
        const QJsonValue list = doc.object()["objects"];
        const QJsonArray objects = list.toArray();
        ok = list.isArray();
        if (!ok)
            reader.error = "objects: not a list";
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
        Writer writer(&file);
        writer.project(project);
        if (writer.written && file.commit())
            return true;
    }
    if (error)
        *error = path + ": " + file.errorString();
    return false;
}

bool CanSaveProject(const QString& path, QString* error) {
    QString why;
    QSaveFile file(path);
    // The save opens its temporary file unnamed where the system allows, and
    // names it only to rename it over the project: both are tried here, the
    // name given when it is asked for.
    QTemporaryFile named(path);
    if (QFileInfo(path).isDir())
        why = "a folder stands there";
    else if (!file.open(QIODevice::WriteOnly))
        why = file.errorString();
    else if (!named.open())
        why = named.errorString();
    else if (!QFileInfo::exists(named.fileName()))
        why = "no temporary file can be named beside it";
    // Neither is kept: an open QSaveFile that is not committed, and a
    // temporary file, are removed when they go.
    if (why.isEmpty())
        return true;
    if (error)
        *error = path + ": " + why;
    return false;
}
