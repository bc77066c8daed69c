// The form opened and closed many times through the host's road: memory levels off.
#include "common/FormFixture.h"

#include <QCoreApplication>
#include <fstream>

static long ResidentKiB() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long kib = 0;
    while (status >> word && !(word == "VmRSS:" && status >> kib)) {
    }
    return kib;
}

TEST_F(FormTest, ResidentMemoryLevelsOffOverManyOpenings) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "freed memory stays in AddressSanitizer's quarantine";
#endif
    const int count = qMax(qEnvironmentVariableIntValue("ICCP_LONGRUN_COUNT"), 60);
    long tenth = 0;
    for (int i = 1; i <= count; ++i) {
        OpenForm(p.unit);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as the host's loop
        tenth = i == 10 ? ResidentKiB() : tenth;
    }
    printf("VmRSS after closing 10: %ld KiB, %d: %ld KiB\n", tenth, count, ResidentKiB());
    EXPECT_LE(ResidentKiB(), tenth * 11 / 10);
}
