#include "host/HostClasses.h"

#include <QVector>
#include <cstring>

namespace {

const char* const kindNames[] = {"source",   "pass",   "controlsource",   "controlpass",
                                 "unit",     "line",   "direct",          "project",
                                 "f_source", "f_pass", "f_controlsource", "f_controlpass"};
constexpr int kindCount = int(sizeof(kindNames) / sizeof(kindNames[0]));

// The value types that a tag may take, in the order of the unit's model
// template.
const char* const tagTypes[] = {"Data_DiscreteQTimeTag",
                                "Data_RealQTimeTag",
                                "Data_DiscreteQTimeTagExtended",
                                "Data_RealQTimeTagExtended",
                                "Data_Real",
                                "Data_Discrete",
                                "VISIBLE_STRING32",
                                "UINT8",
                                "INT8",
                                "Data_Flags",
                                "GMTBasedS",
                                "TimeIntervalL16",
                                "BitString",
                                "FLOAT32",
                                "INT32",
                                "BitString12",
                                "BitString5",
                                "INT16",
                                "BOOL",
                                "Data_State",
                                "Data_StateSupplemental",
                                "DiscreteSetPoint",
                                "RealSetPoint",
                                "ControlCommand",
                                "Data_TimeStamp",
                                "COV_Counter",
                                "Data_StateQ",
                                "Data_TimeStampExtended",
                                "Data_RealQ",
                                "Data_DiscreteQ",
                                "Data_StateSupplementalQ",
                                "Data_StateQTimeTag",
                                "Data_ StateSupplementalQTimeTag",
                                "Data_RealExtended",
                                "Data_StateExtended",
                                "Data_DiscreteExtended",
                                "Data_StateSupplementalExtended",
                                "Data_StateQTimeTagExtended",
                                "Data_State_SupplementalQTimeTagExtended",
                                "TASE2Version"};

enum Flags { ReadOnly = 1, Hidden = 2, FixedList = 4, OpenList = 8 };

HostParam Param(const char* name, TCfgPropType type, const char* caption, const QVariant& value,
                int flags = 0, const QByteArray& enumText = QByteArray(),
                const char* range = nullptr) {
    HostParam p;
    p.name = name;
    p.type = type;
    p.caption = caption;
    p.value = value;
    p.editable = !(flags & ReadOnly);
    p.visible = !(flags & Hidden);
    p.fixedList = flags & FixedList;
    p.enumOpen = flags & OpenList;
    p.enumText = enumText;
    p.rangeText = range;
    return p;
}

// "0=first;1=second..." over `count` items named by `item`.
template <typename Item> QByteArray Enumeration(int count, Item item) {
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        if (i)
            text += ';';
        text += QByteArray::number(i) + '=' + item(i);
    }
    return text;
}

QList<HostParam> TagParams() {
    const QByteArray types = Enumeration(int(sizeof(tagTypes) / sizeof(tagTypes[0])),
                                         [](int i) { return QByteArray(tagTypes[i]); });
    const QByteArray domains = Enumeration(hostMaxICC + 1, [](int i) {
        return i ? "ICC_" + QByteArray::number(i) : QByteArray("VCC");
    });
    const QByteArray dataSets = Enumeration(hostMaxDS + 1, [](int i) {
        return i ? "DataSet_" + QByteArray::number(i) : QByteArray("Нет");
    });
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("caption", cptText, "Описание", QByteArray()),
        Param("using", cptBool, "Использование", true),
        Param("tag_id", cptText, "Ключ привязки", QByteArray()),
        Param("tag_name", cptText, "Имя переменной", QByteArray()),
        // Indexes into the unit's type list and its ICCs and data sets, which
        // the template and the unit's limits may make longer or shorter than
        // the names here; the form reads a number past them as its fallback.
        Param("tag_type", cptInt, "Тип переменной", 0, FixedList | OpenList, types),
        Param("domain", cptInt, "Область (ICC)", 0, FixedList | OpenList, domains),
        Param("isinDataSet", cptInt, "Набор данных", 0, FixedList | OpenList, dataSets),
        Param("presentSBO", cptInt, "Выбор перед управлением (SBO)", 0, 0, QByteArray(), "0=1"),
        Param("procType", cptInt, "Тип обработки", 0, FixedList, "0=Нет;1=Аналоговая;2=Дискретная"),
        Param("procMul", cptDouble, "Множитель", 1.0),
        Param("procAdd", cptDouble, "Смещение", 0.0),
        Param("procAperture", cptDouble, "Апертура", 0.0, 0, QByteArray(), "0=100"),
        Param("procClear", cptDouble, "Порог обнуления", 0.0),
        Param("procInvert", cptBool, "Инверсия", false),
        Param("procRate", cptInt, "Период обработки, мс", 0, 0, QByteArray(), "0=3600000"),
        Param("procCount", cptInt, "Число отсчётов", 0),
    };
}

QList<HostParam> FolderParams(TCfgObjectType kind) {
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("type", cptText, "Тип", KindName(kind), ReadOnly),
        Param("caption", cptText, "Наименование", QByteArray()),
        Param("using", cptBool, "Использование", true),
    };
}

QList<HostParam> UnitParams() {
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("protocol", cptText, "Протокол", QByteArray("ICCP (TASE.2), сервер"), ReadOnly),
        Param("caption", cptText, "Наименование", QByteArray()),
        Param("$CHECKED", cptBool, "Использование", true),
        Param("template", cptText, "Файл шаблона", QByteArray()),
        Param("maxICC", cptInt, "Число ICC", 1, 0, QByteArray(),
              QByteArray("0=" + QByteArray::number(hostMaxICC))),
        Param("maxDS", cptInt, "Число наборов данных в ICC", 1, 0, QByteArray(),
              QByteArray("0=" + QByteArray::number(hostMaxDS))),
        Param("ied_name", cptText, "Имя VCC", QByteArray("VCC")),
        Param("ied_addr", cptText, "IP-адрес сервера", QByteArray()),
        Param("ied_port", cptInt, "TCP-порт сервера", 102, 0, QByteArray(), "1=65535"),
        Param("assocTimeout", cptDouble, "Тайм-аут ассоциации, с", 30.0),
        Param("ied_icd", cptText, "Файл описания", QByteArray()),
        Param("sclcomplete", cptBool, "Модель сформирована", false, ReadOnly),
        Param("$DATARUN", cptText, "Модель ICCP", QByteArray(), ReadOnly | Hidden),
    };
}

QList<HostParam> LineParams() {
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("caption", cptText, "Наименование", QByteArray()),
        Param("using", cptBool, "Использование", true),
        Param("priority", cptInt, "Приоритет", 1, 0, QByteArray(), "0=15"),
        Param("driver", cptText, "Драйвер", QByteArray("iccp")),
        Param("IPaddress", cptText, "IP-адрес", QByteArray()),
        Param("port", cptInt, "TCP-порт", 102, 0, QByteArray(), "1=65535"),
        Param("startDelay", cptInt, "Задержка старта, мс", 0, 0, QByteArray(), "0=600000"),
    };
}

QList<HostParam> DirectParams() {
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("caption", cptText, "Наименование", QByteArray()),
        Param("using", cptBool, "Использование", true),
        Param("redundancy", cptBool, "Резервирование сервера", false),
        Param("t8", cptInt, "Выбор основной линии, мс", 5000, 0, QByteArray(), "0=600000"),
        Param("t9", cptInt, "Тест состояния линии, мс", 1000, 0, QByteArray(), "0=600000"),
    };
}

QList<HostParam> ProjectParams() {
    return {
        Param("number", cptInt, "Номер", 0, ReadOnly),
        Param("caption", cptText, "Наименование", QByteArray()),
    };
}

} // namespace

QByteArray KindName(int kind) {
    return IsKnownKind(kind) ? QByteArray(kindNames[kind]) : QByteArray();
}

int KindFromName(const QByteArray& name) {
    for (int kind = 0; kind < kindCount; ++kind)
        if (name == kindNames[kind])
            return kind;
    bool ok = false;
    const int kind = name.toInt(&ok);
    return ok && IsKnownKind(kind) ? kind : -1;
}

bool IsKnownKind(int kind) {
    return kind >= 0 && kind < kindCount;
}

namespace {
QList<HostParam> MakeParams(TCfgObjectType kind) {
    switch (kind) {
    case cotSource:
    case cotPass:
    case cotControlSource:
    case cotControlPass:
        return TagParams();
    case cotUnit:
        return UnitParams();
    case cotLine:
        return LineParams();
    case cotDirect:
        return DirectParams();
    case cotProject:
        return ProjectParams();
    case cotFolderSource:
    case cotFolderPass:
    case cotFolderControlSource:
    case cotFolderControlPass:
        return FolderParams(kind);
    }
    return {};
}
} // namespace

QList<HostParam> DefaultParams(TCfgObjectType kind) {
    // Made once per kind and shared: a tag's enumeration texts alone run to
    // kilobytes, and a project may hold tens of thousands of tags.
    static const QVector<QList<HostParam>> byKind = [] {
        QVector<QList<HostParam>> lists;
        for (int k = 0; k < kindCount; ++k)
            lists.append(MakeParams(TCfgObjectType(k)));
        return lists;
    }();
    return IsKnownKind(kind) ? byKind[kind] : QList<HostParam>();
}

const char* ClassText(int kind, const char* key) {
    if (!key || !IsKnownKind(kind))
        return nullptr;
    const bool numbered = kind == cotUnit || kind == cotLine;
    if (!strcmp(key, "title"))
        return numbered ? "caption,number" : "caption";
    if (!strcmp(key, "format"))
        return numbered ? "%s (№ %s)" : "%s";
    return nullptr;
}
