#include "host/DemoProject.h"

#include <initializer_list>

namespace {

// Type indexes of the tag_type enumeration.
enum DemoType {
    DiscreteQTimeTag = 0,
    RealQTimeTag = 1,
    Real = 4,
    Discrete = 5,
    State = 19,
    DiscreteSetPoint = 21,
    RealSetPoint = 22,
    ControlCommand = 23,
    StateQ = 26,
    RealQ = 28,
    DiscreteQ = 29,
    StateQTimeTag = 31,
    RealExtended = 33
};

struct DemoTag {
    const char* caption;
    const char* name; // empty: the type's default name is taken on first read
    int type;
    int domain;
    int dataSet;
    int sbo;
    const char* key; // binding key, or empty
};

class Builder {
public:
    explicit Builder(HostProject& project) : m_project(project) {}

    HostObject* make(HostObject* parent, TCfgObjectType kind, const char* caption,
                     const char* module) {
        HostObject* ob = m_project.create(parent, kind, 0, module);
        ob->set("caption", QByteArray(caption));
        return ob;
    }

    HostObject* folder(HostObject* parent, TCfgObjectType kind, const char* caption) {
        const bool base = parent->kind() == cotUnit;
        return make(parent, kind, caption, base ? "Arven" : "IecOrmelcli");
    }

    void tags(HostObject* parent, TCfgObjectType kind, std::initializer_list<DemoTag> list) {
        for (const DemoTag& t : list) {
            HostObject* tag = make(parent, kind, t.caption, "IecArven");
            tag->set("tag_name", QByteArray(t.name));
            tag->set("tag_type", t.type);
            tag->set("domain", t.domain);
            tag->set("isinDataSet", t.dataSet);
            tag->set("presentSBO", t.sbo);
            tag->set("tag_id", QByteArray(t.key));
            if (t.type == Real || t.type == RealQ || t.type == RealQTimeTag) {
                tag->set("procType", 1);
                tag->set("procAperture", 0.5);
            }
        }
    }

private:
    HostProject& m_project;
};

void MainUnitTags(Builder& b, HostObject* unit) {
    HostObject* source = b.folder(unit, cotFolderSource, "Принимаемые значения");
    b.tags(source, cotSource,
           {{"Частота сети", "Freq", Real, 0, 0, 0, "Freq_1"},
            {"Время последней синхронизации", "", Discrete, 0, 0, 0, ""}});
    HostObject* north = b.folder(source, cotFolderSource, "ПС 110 кВ Северная");
    b.tags(north, cotSource,
           {{"Напряжение СШ-1 110 кВ", "U_SSh1", RealQTimeTag, 1, 1, 0, ""},
            {"Напряжение СШ-2 110 кВ", "U_SSh2", RealQTimeTag, 1, 1, 0, ""},
            {"Положение выключателя В-110 Т-1", "Q_T1", State, 1, 2, 1, "ICC_1/Q_T1_5"},
            {"Положение разъединителя РШ-1", "QS_1", StateQ, 1, 2, 0, ""}});
    HostObject* bayT1 = b.folder(north, cotFolderSource, "Ячейка Т-1");
    b.tags(bayT1, cotSource,
           {{"Ток фазы A, Т-1", "Ia_T1", RealQ, 1, 1, 0, ""},
            {"Ток фазы B, Т-1", "Ib_T1", RealQ, 1, 1, 0, ""},
            {"Ток фазы C, Т-1", "Ic_T1", RealQ, 1, 1, 0, ""},
            {"Активная мощность Т-1", "P_T1", RealQTimeTag, 1, 3, 0, ""},
            {"Реактивная мощность Т-1", "Q_T1_mvar", RealQTimeTag, 1, 3, 0, ""},
            {"Положение РПН Т-1", "RPN_T1", DiscreteQ, 1, 0, 0, ""}});
    HostObject* south = b.folder(source, cotFolderSource, "ПС 220 кВ Южная");
    b.tags(south, cotSource,
           {{"Напряжение СШ 220 кВ", "U_220", RealQTimeTag, 2, 1, 0, ""},
            {"Перетоки по ВЛ 220 кВ Южная — Северная", "P_VL1", RealExtended, 2, 1, 0, ""},
            {"Состояние АПВ ВЛ-1", "APV_VL1", StateQTimeTag, 2, 2, 0, ""},
            {"Счётчик переключений В-220", "", DiscreteQTimeTag, 2, 0, 0, ""},
            {"Аварийная сигнализация", "Alarm", State, 2, 2, 1, ""}});

    HostObject* pass = b.folder(unit, cotFolderPass, "Передаваемые значения");
    b.tags(pass, cotPass,
           {{"Плановая мощность станции", "P_plan", Real, 0, 0, 0, ""},
            {"Готовность ДЦ", "Ready", State, 0, 0, 1, ""}});
    HostObject* dc = b.folder(pass, cotFolderPass, "Телеизмерения ДЦ");
    b.tags(dc, cotPass,
           {{"Суммарная генерация", "P_gen", RealQ, 1, 1, 0, ""},
            {"Суммарное потребление", "P_load", RealQ, 1, 1, 0, ""},
            {"Сальдо перетоков", "P_saldo", RealQTimeTag, 1, 1, 0, "ICC_1/P_saldo_22"},
            {"Частота в энергосистеме", "F_sys", Real, 2, 1, 0, ""},
            {"Резерв мощности", "P_res", RealQ, 2, 0, 0, "Empty"}});
    HostObject* dcSignals = b.folder(dc, cotFolderPass, "Телесигналы ДЦ");
    b.tags(dcSignals, cotPass,
           {{"Режим работы энергосистемы", "Mode", StateQ, 1, 2, 0, ""},
            {"Ограничение потребления введено", "Limit", StateQ, 1, 2, 0, ""},
            {"Признак аварийного режима", "Emerg", State, 2, 3, 0, ""}});

    HostObject* ctrlSource = b.folder(unit, cotFolderControlSource, "Принимаемое управление");
    HostObject* commands = b.folder(ctrlSource, cotFolderControlSource, "Команды ТУ");
    b.tags(commands, cotControlSource,
           {{"ТУ выключатель В-110 Т-1", "TU_Q_T1", ControlCommand, 1, 0, 1, ""},
            {"ТУ выключатель В-220 ВЛ-1", "TU_Q_VL1", ControlCommand, 2, 0, 1, ""},
            {"ТУ сброс сигнализации", "TU_Reset", ControlCommand, 1, 0, 0, ""}});
    HostObject* setPoints = b.folder(ctrlSource, cotFolderControlSource, "Уставки");
    b.tags(setPoints, cotControlSource,
           {{"Уставка активной мощности", "SP_P", RealSetPoint, 1, 0, 0, ""},
            {"Уставка напряжения", "SP_U", RealSetPoint, 1, 0, 0, ""},
            {"Ступень РПН Т-1", "SP_RPN", DiscreteSetPoint, 1, 0, 1, ""}});

    HostObject* ctrlPass = b.folder(unit, cotFolderControlPass, "Передаваемое управление");
    b.tags(ctrlPass, cotControlPass,
           {{"Команда пуска резерва", "Cmd_Res", ControlCommand, 1, 0, 0, ""},
            {"Задание мощности станции", "Cmd_P", RealSetPoint, 1, 0, 0, ""}});
    HostObject* pa = b.folder(ctrlPass, cotFolderControlPass, "Противоаварийная автоматика");
    b.tags(pa, cotControlPass,
           {{"Команда отключения нагрузки, очередь 1", "OLoad1", ControlCommand, 2, 0, 0, ""},
            {"Команда отключения нагрузки, очередь 2", "OLoad2", ControlCommand, 2, 0, 0, ""},
            {"Ступень разгрузки", "Step", DiscreteSetPoint, 2, 0, 0, "Noname1"}});
}

void ReserveUnitTags(Builder& b, HostObject* unit) {
    HostObject* source = b.folder(unit, cotFolderSource, "Принимаемые значения");
    b.tags(source, cotSource,
           {{"Частота сети", "Freq", Real, 0, 0, 0, ""},
            {"Напряжение СШ 110 кВ", "U_110", RealQTimeTag, 1, 1, 0, ""},
            {"Положение выключателя В-110", "Q_110", State, 1, 1, 0, ""}});
    HostObject* pass = b.folder(unit, cotFolderPass, "Передаваемые значения");
    b.tags(pass, cotPass, {{"Плановая мощность станции", "P_plan", Real, 1, 1, 0, ""}});
}

} // namespace

void BuildDemoProject(HostProject& project) {
    project.clear();
    Builder b(project);
    HostObject* root = b.make(nullptr, cotProject, "Демонстрационный проект ICCP", "cfghost");
    HostObject* direct = b.make(root, cotDirect, "Направление ДЦ — РДУ", "cfghost");
    direct->set("t8", 3000);
    direct->set("t9", 1000);

    HostObject* line = b.make(direct, cotLine, "Канал ICCP ДЦ — РДУ", "cfghost");
    line->set("IPaddress", QByteArray("10.20.1.15"));
    line->set("priority", 1);
    line->set("startDelay", 2000);

    HostObject* main = b.make(direct, cotUnit, "Сервер ICCP основной", "IecArven");
    main->set("maxICC", 2);
    main->set("maxDS", 3);
    main->set("ied_name", QByteArray("DC_North"));
    main->set("ied_addr", QByteArray("10.20.1.10"));
    MainUnitTags(b, main);

    HostObject* reserve = b.make(direct, cotUnit, "Сервер ICCP резервный", "IecArven");
    reserve->set("maxICC", 1);
    reserve->set("maxDS", 1);
    reserve->set("ied_name", QByteArray("DC_North_R"));
    reserve->set("ied_addr", QByteArray("10.20.1.11"));
    ReserveUnitTags(b, reserve);
}
