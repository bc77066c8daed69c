// The description tables of host parameters and their choice by kind.
#include "plugin/HostDescTables.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

// A table's column as one text, rows joined by "|"; flags as editable and
// visible digits.
QString Column(const AddDescNode* table, int count, int field) {
    QStringList column;
    for (int i = 0; i < count; ++i) {
        const AddDescNode& row = table[i];
        const char* texts[] = {row.key, row.caption, row.group};
        column << (field < 3 ? QString::fromUtf8(texts[field])
                             : QString("%1%2").arg(row.editable).arg(row.visible));
    }
    return column.join('|');
}

void ExpectTable(const AddDescNode* table, int count, const char* keys, const char* captions,
                 const char* groups, const char* flags) {
    EXPECT_EQ(Column(table, count, 0), QString::fromUtf8(keys));
    EXPECT_EQ(Column(table, count, 1), QString::fromUtf8(captions));
    EXPECT_EQ(Column(table, count, 2), QString::fromUtf8(groups));
    EXPECT_EQ(Column(table, count, 3), QString::fromUtf8(flags));
}

} // namespace

TEST(DescTables, RowsOfEveryTable) {
    ExpectTable(TagBaseDesc, TagBaseDescCount, "number|using|procType",
                "Номер в конфигурации|Использование|Тип обработки", "Base|Base|Treat", "01|11|11");
    ExpectTable(FolgerBaseDesc, FolgerBaseDescCount, "type|caption|using",
                "Тип|Наименование|Использование", "Base|Base|Base", "11|11|11");
    ExpectTable(DeviceBaseDesc, DeviceBaseDescCount, "number|protocol|caption|$CHECKED|template",
                "Номер в конфигурации|Протокол|Наименование|Использование|Файл шаблона",
                "Base|Base|Base|Base|Base", "01|01|11|11|11");
    ExpectTable(LineBaseDesc, LineBaseDescCount,
                "number|caption|using|priority|driver|IPaddress|port|startDelay",
                "Номер в конфигурации|Наименование|Использование|Приоритет|Драйвер|IP-адрес|"
                "TCP-порт|Задержка старта(ms)",
                "Base|Base|Base|Base|Base|Base|Base|Base", "01|11|11|11|11|11|11|11");
    ExpectTable(DirectAddDesc, DirectAddDescCount, "number|caption|using|redundancy|t8|t9",
                "Номер в конфигурации|Наименование|Использование|Резервирование сервера|"
                "Выбор основной линии(ms)|Тест состояния линии",
                "Base|Base|Base|Base|Self|Self", "01|11|11|11|11|11");
    // The third field names the processing type for which a row applies.
    ExpectTable(AprocTypeDepFlds, AprocTypeDepFldsCount,
                "|procMul|procAdd|procAperture|procClear|procInvert",
                "|Множитель|Смещение|Апертура|Обнуление|Инверсия",
                "Нет|Аналоговая|Аналоговая|Аналоговая|Аналоговая|Дискретная", "11|11|11|11|11|11");

    ASSERT_EQ(SomeTagPropertiesOrmelsrvCount, 3);
    const tTagPropDesc* r = SomeTagPropertiesOrmelsrv;
    EXPECT_EQ(QString::fromUtf8(r[0].caption), "Некоторые свойства тега");
    EXPECT_EQ(QString::fromUtf8(r[1].caption), "Ключ привязки");
    EXPECT_EQ(QString::fromUtf8(r[2].caption), "Наименование");
    EXPECT_EQ(QString(r[0].key) + "|" + r[1].key + "|" + r[2].key, "|tag_id|caption");
    // Type, position and level of each record.
    EXPECT_EQ(QString("%1%2%3 %4%5%6 %7%8%9")
                  .arg(r[0].type)
                  .arg(r[0].position)
                  .arg(r[0].level)
                  .arg(r[1].type)
                  .arg(r[1].position)
                  .arg(r[1].level)
                  .arg(r[2].type)
                  .arg(r[2].position)
                  .arg(r[2].level),
              "000 401 412");
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
