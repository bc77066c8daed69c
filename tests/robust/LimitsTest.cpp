// Unit limits, names and byte counts near the bounds of their integers.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "host/HostTable.h"

#include <climits>

using LimitsNearBounds = FormTest;

TEST_F(LimitsNearBounds, LimitsNamesAndTextLengths) {
    // maxICC, maxDS: the ICCs made, the data sets of ICC_1. Above 10000 a limit is 1.
    const int limits[][4] = {{-1, 2, 1, 2},         {0, 2, 1, 2},      {1000000000, 2, 1, 2},
                             {10001, 2, 1, 2},      {3, -1, 3, 1},     {3, 0, 3, 1},
                             {3, 1000000000, 3, 1}, {3, INT_MAX, 3, 1}};
    for (const auto& row : limits) {
        p.unit->set("maxICC", row[0]), p.unit->set("maxDS", row[1]);
        OpenForm(p.unit, [&](CfgArvenSR*) {
            EXPECT_EQ(pVCC->ICCs.Count, row[2]) << row[0];
            EXPECT_EQ(ICC(1)->DataSets.Count, row[3]) << row[1];
        });
    }
    // A text of Freq's tag, the byte count the host reports for it (0: its
    // own), what "$DATARUN" holds: a negative count reads as an empty text.
    const QByteArray n(10000, 'N'), number = p.tagReal->get("number").toByteArray();
    const struct {
        const char* name;
        QByteArray text;
        int length;
        QByteArray expected;
    } texts[] = {{"tag_name", n, 0, n + "_" + number},
                 {"caption", n, 0, "desc = \"" + n + "\""},
                 {"tag_name", "F", -1, "Real_" + number},
                 {"caption", "Частота", INT_MAX, "Частота"}};
    for (const auto& row : texts) {
        p.tagReal->set(row.name, row.text);
        CfgHostMisreportLength(row.length ? row.name : "", row.length);
        OpenForm(p.unit);
        EXPECT_TRUE(Datarun(p.unit).contains(row.expected)) << row.name << " " << row.length;
    }
    CfgHostMisreportLength("");
}
