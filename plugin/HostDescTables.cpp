#include "plugin/HostDescTables.h"

AddDescNode TagBaseDesc[] = {
    {"number", "Номер в конфигурации", "Base", 0, 1},
    {"using", "Использование", "Base", 1, 1},
    {"procType", "Тип обработки", "Treat", 1, 1},
};
int TagBaseDescCount = int(sizeof(TagBaseDesc) / sizeof(TagBaseDesc[0]));

AddDescNode FolgerBaseDesc[] = {
    {"type", "Тип", "Base", 1, 1},
    {"caption", "Наименование", "Base", 1, 1},
    {"using", "Использование", "Base", 1, 1},
};
int FolgerBaseDescCount = int(sizeof(FolgerBaseDesc) / sizeof(FolgerBaseDesc[0]));

AddDescNode DeviceBaseDesc[] = {
    {"number", "Номер в конфигурации", "Base", 0, 1}, {"protocol", "Протокол", "Base", 0, 1},
    {"caption", "Наименование", "Base", 1, 1},        {"$CHECKED", "Использование", "Base", 1, 1},
    {"template", "Файл шаблона", "Base", 1, 1},
};
int DeviceBaseDescCount = int(sizeof(DeviceBaseDesc) / sizeof(DeviceBaseDesc[0]));

AddDescNode LineBaseDesc[] = {
    {"number", "Номер в конфигурации", "Base", 0, 1},
    {"caption", "Наименование", "Base", 1, 1},
    {"using", "Использование", "Base", 1, 1},
    {"priority", "Приоритет", "Base", 1, 1},
    {"driver", "Драйвер", "Base", 1, 1},
    {"IPaddress", "IP-адрес", "Base", 1, 1},
    {"port", "TCP-порт", "Base", 1, 1},
    {"startDelay", "Задержка старта(ms)", "Base", 1, 1},
};
int LineBaseDescCount = int(sizeof(LineBaseDesc) / sizeof(LineBaseDesc[0]));

AddDescNode DirectAddDesc[] = {
    {"number", "Номер в конфигурации", "Base", 0, 1},
    {"caption", "Наименование", "Base", 1, 1},
    {"using", "Использование", "Base", 1, 1},
    {"redundancy", "Резервирование сервера", "Base", 1, 1},
    {"t8", "Выбор основной линии(ms)", "Self", 1, 1},
    {"t9", "Тест состояния линии", "Self", 1, 1},
};
int DirectAddDescCount = int(sizeof(DirectAddDesc) / sizeof(DirectAddDesc[0]));

AddDescNode AprocTypeDepFlds[] = {
    {"", "", "Нет", 1, 1},
    {"procMul", "Множитель", "Аналоговая", 1, 1},
    {"procAdd", "Смещение", "Аналоговая", 1, 1},
    {"procAperture", "Апертура", "Аналоговая", 1, 1},
    {"procClear", "Обнуление", "Аналоговая", 1, 1},
    {"procInvert", "Инверсия", "Дискретная", 1, 1},
};
int AprocTypeDepFldsCount = int(sizeof(AprocTypeDepFlds) / sizeof(AprocTypeDepFlds[0]));

tTagPropDesc SomeTagPropertiesOrmelsrv[] = {
    {"Некоторые свойства тега", "", cptUndef, 0, 0},
    {"Ключ привязки", "tag_id", cptText, 0, 1},
    {"Наименование", "caption", cptText, 1, 2},
};
int SomeTagPropertiesOrmelsrvCount =
    int(sizeof(SomeTagPropertiesOrmelsrv) / sizeof(SomeTagPropertiesOrmelsrv[0]));

AddDescNode* GetAddDescByCIONode(TCfgObjectType kind, int& count) {
    switch (kind) {
    case cotSource:
    case cotPass:
    case cotControlSource:
    case cotControlPass:
        count = TagBaseDescCount;
        return TagBaseDesc;
    case cotUnit:
        count = DeviceBaseDescCount;
        return DeviceBaseDesc;
    case cotLine:
        count = LineBaseDescCount;
        return LineBaseDesc;
    case cotDirect:
        count = DirectAddDescCount;
        return DirectAddDesc;
    case cotFolderSource:
    case cotFolderPass:
    case cotFolderControlSource:
    case cotFolderControlPass:
        count = FolgerBaseDescCount;
        return FolgerBaseDesc;
    default:
        count = 0;
        return nullptr;
    }
}
