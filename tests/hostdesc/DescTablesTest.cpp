// The description tables of host parameters and their choice by kind.
#include "plugin/HostDescTables.h"

#include <QString>
#include <gtest/gtest.h>
#include <vector>

namespace {

struct Row {
    const char* key;
    const char* caption;
    const char* group;
    int editable;
    int visible;
};

void ExpectTable(const AddDescNode* table, int count, const std::vector<Row>& rows) {
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(count, int(rows.size()));
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        EXPECT_STREQ(table[i].key, rows[size_t(i)].key);
        EXPECT_EQ(QString::fromUtf8(table[i].caption), QString::fromUtf8(rows[size_t(i)].caption));
        EXPECT_EQ(QString::fromUtf8(table[i].group), QString::fromUtf8(rows[size_t(i)].group));
        EXPECT_EQ(table[i].editable, rows[size_t(i)].editable);
        EXPECT_EQ(table[i].visible, rows[size_t(i)].visible);
    }
}

} // namespace

TEST(DescTables, RowsOfEveryTable) {
    ExpectTable(TagBaseDesc, TagBaseDescCount,
                {{"number", "Номер в конфигурации", "Base", 0, 1},
                 {"using", "Использование", "Base", 1, 1},
                 {"procType", "Тип обработки", "Treat", 1, 1}});
    ExpectTable(FolgerBaseDesc, FolgerBaseDescCount,
                {{"type", "Тип", "Base", 1, 1},
                 {"caption", "Наименование", "Base", 1, 1},
                 {"using", "Использование", "Base", 1, 1}});
    ExpectTable(DeviceBaseDesc, DeviceBaseDescCount,
                {{"number", "Номер в конфигурации", "Base", 0, 1},
                 {"protocol", "Протокол", "Base", 0, 1},
                 {"caption", "Наименование", "Base", 1, 1},
                 {"$CHECKED", "Использование", "Base", 1, 1},
                 {"template", "Файл шаблона", "Base", 1, 1}});
    ExpectTable(LineBaseDesc, LineBaseDescCount,
                {{"number", "Номер в конфигурации", "Base", 0, 1},
                 {"caption", "Наименование", "Base", 1, 1},
                 {"using", "Использование", "Base", 1, 1},
                 {"priority", "Приоритет", "Base", 1, 1},
                 {"driver", "Драйвер", "Base", 1, 1},
                 {"IPaddress", "IP-адрес", "Base", 1, 1},
                 {"port", "TCP-порт", "Base", 1, 1},
                 {"startDelay", "Задержка старта(ms)", "Base", 1, 1}});
    ExpectTable(DirectAddDesc, DirectAddDescCount,
                {{"number", "Номер в конфигурации", "Base", 0, 1},
                 {"caption", "Наименование", "Base", 1, 1},
                 {"using", "Использование", "Base", 1, 1},
                 {"redundancy", "Резервирование сервера", "Base", 1, 1},
                 {"t8", "Выбор основной линии(ms)", "Self", 1, 1},
                 {"t9", "Тест состояния линии", "Self", 1, 1}});
    // The third field names the processing type for which a row applies.
    ExpectTable(AprocTypeDepFlds, AprocTypeDepFldsCount,
                {{"", "", "Нет", 1, 1},
                 {"procMul", "Множитель", "Аналоговая", 1, 1},
                 {"procAdd", "Смещение", "Аналоговая", 1, 1},
                 {"procAperture", "Апертура", "Аналоговая", 1, 1},
                 {"procClear", "Обнуление", "Аналоговая", 1, 1},
                 {"procInvert", "Инверсия", "Дискретная", 1, 1}});
}

TEST(DescTables, TagPropertyRecords) {
    ASSERT_EQ(SomeTagPropertiesOrmelsrvCount, 3);
    const tTagPropDesc* r = SomeTagPropertiesOrmelsrv;
    EXPECT_EQ(QString::fromUtf8(r[0].caption), "Некоторые свойства тега");
    EXPECT_STREQ(r[0].key, "");
    EXPECT_EQ(QString::fromUtf8(r[1].caption), "Ключ привязки");
    EXPECT_STREQ(r[1].key, "tag_id");
    EXPECT_EQ(QString::fromUtf8(r[2].caption), "Наименование");
    EXPECT_STREQ(r[2].key, "caption");
    const int expected[3][3] = {{0, 0, 0}, {4, 0, 1}, {4, 1, 2}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(r[i].type, expected[i][0]) << i;
        EXPECT_EQ(r[i].position, expected[i][1]) << i;
        EXPECT_EQ(r[i].level, expected[i][2]) << i;
    }
}

TEST(DescTables, TableByKind) {
    const AddDescNode* byKind[12] = {
        TagBaseDesc,   TagBaseDesc, TagBaseDesc,    TagBaseDesc,    DeviceBaseDesc, LineBaseDesc,
        DirectAddDesc, nullptr,     FolgerBaseDesc, FolgerBaseDesc, FolgerBaseDesc, FolgerBaseDesc};
    const int counts[12] = {3, 3, 3, 3, 5, 8, 6, 0, 3, 3, 3, 3};
    for (int kind = 0; kind < 12; ++kind) {
        int count = -7;
        EXPECT_EQ(GetAddDescByCIONode(TCfgObjectType(kind), count), byKind[kind]) << kind;
        EXPECT_EQ(count, counts[kind]) << kind;
    }
    for (int kind : {-1, 12, 100}) {
        int count = -7;
        EXPECT_EQ(GetAddDescByCIONode(TCfgObjectType(kind), count), nullptr) << kind;
        EXPECT_EQ(count, 0) << kind;
    }
}
