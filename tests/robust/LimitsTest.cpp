// Unit limits, names and byte counts near the bounds of their integers.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "form/CfgIecArven.h"
#include "host/HostTable.h"
#include "views/SomeModelsIED.h"

#include <QAction>
#include <QInputDialog>
#include <climits>

using LimitsNearBounds = FormTest;

TEST_F(LimitsNearBounds, UnitLimitsAboveTenThousandCountAsUnreadable) {
    MakeFirstUnitBare();
    // maxICC, maxDS; the ICCs and the data sets of ICC_1 made.
    const int rows[][4] = {{-1, 2, 1, 2}, {0, 2, 1, 2}, {1000000000, 2, 1, 2}, {10001, 2, 1, 2},
                           {3, -1, 3, 1}, {3, 0, 3, 1}, {3, 1000000000, 3, 1}, {3, INT_MAX, 3, 1}};
    for (const auto& row : rows) {
        p.unit->set("maxICC", row[0]);
        p.unit->set("maxDS", row[1]);
        OpenForm(p.unit, [&](CfgArvenSR*) {
            EXPECT_EQ(pVCC->ICCs.Count, row[2]) << row[0];
            EXPECT_EQ(ICC(1)->DataSets.Count, row[3]) << row[1];
        });
    }
}

TEST_F(LimitsNearBounds, LongNamesAndByteCountsPastTheText) {
    const QByteArray longName(10000, 'N'), number = p.tagReal->get("number").toByteArray();
    // Parameter, its text, the length the host reports (0: its own), a text
    // that "$DATARUN" must hold.
    const struct {
        const char* name;
        QByteArray text;
        int length;
        QByteArray expected;
    } rows[] = {{"tag_name", longName, 0, longName + "_" + number},
                {"caption", longName, 0, "desc = \"" + longName + "\""},
                {"tag_name", "Freq", -1, "Real_" + number},
                {"tag_name", "Freq", INT_MAX, "Freq_" + number},
                {"caption", "Частота", INT_MAX, "Частота"}};
    for (const auto& row : rows) {
        p.tagReal->set(row.name, row.text);
        CfgHostMisreportLength(row.length ? row.name : "", row.length);
        OpenForm(p.unit);
        EXPECT_TRUE(Datarun(p.unit).contains(row.expected)) << row.name << " " << row.length;
    }
    CfgHostMisreportLength("");
    // The VCC renamed to a long name reaches the unit's "ied_name" whole.
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        DialogScript<QInputDialog> name({[&](QInputDialog* d) {
            d->setTextValue(longName);
            d->accept();
        }});
        f->tVIed->setCurrentIndex(RowOf(*f->pTreeIedModel, pVCC));
        f->actRename->trigger();
    });
    EXPECT_EQ(p.unit->get("ied_name").toByteArray(), longName);
}
