// The one-pass additions give what the one-by-one ones give: the same
// entries in the same places, the same Ref, even among equal texts.
#include "support/StrUtils.h"
#include "support/UStringList.h"

#include <QRegularExpression>
#include <gtest/gtest.h>
#include <random>

namespace {

using Batch = std::vector<std::pair<std::string, void*>>;

// A short text over few letters, so that equal texts are frequent.
std::string Text(std::mt19937& random) {
    std::string text;
    for (int n = random() % 3; n > 0; --n)
        text += "ab|\r\n"[random() % (n == 1 ? 5 : 2)];
    return text;
}

void Fill(StringList& list, std::mt19937& random, int count) {
    for (int i = 0; i < count; ++i)
        list.AddObject(Text(random), reinterpret_cast<void*>(intptr_t(i + 1)));
    for (int i = random() % 3; i > 0 && list.Count > 0; --i)
        list.Delete(random() % list.Count);
}

void ExpectSame(const StringList& plain, const StringList& bulk, unsigned seed) {
    ASSERT_EQ(plain.Count, bulk.Count) << seed;
    EXPECT_EQ(plain.Capacity, bulk.Capacity) << seed;
    for (int i = 0; i < plain.Count; ++i) {
        EXPECT_EQ(plain.Strings(i), bulk.Strings(i)) << seed;
        EXPECT_EQ(plain.Objects(i), bulk.Objects(i)) << seed;
        EXPECT_EQ(plain.Ref[i], bulk.Ref[i]) << seed;
    }
}

} // namespace

TEST(BulkAdd, MatchesOneByOne) {
    const int sizes[][2] = {{0, 1}, {0, 7}, {1, 1}, {3, 5}, {12, 9}, {48, 4}, {20, 60}};
    for (const auto& size : sizes)
        for (unsigned seed = 1; seed <= 40; ++seed) {
            std::mt19937 random(seed);
            StringList plainFront, bulkFront, plainEnd, bulkEnd;
            const unsigned start = random();
            for (StringList* list : {&plainFront, &bulkFront, &plainEnd, &bulkEnd}) {
                std::mt19937 same(start);
                Fill(*list, same, size[0]);
            }
            Batch batch;
            for (int i = 0; i < size[1]; ++i)
                batch.emplace_back(Text(random), reinterpret_cast<void*>(intptr_t(100 + i)));
            for (const auto& entry : batch) {
                plainFront.InsertObject(0, entry.first, entry.second);
                plainEnd.AddObject(entry.first, entry.second, true);
            }
            bulkFront.InsertFront(batch);
            bulkEnd.AddObjects(batch);
            ExpectSame(plainFront, bulkFront, seed);
            ExpectSame(plainEnd, bulkEnd, seed);

            // The batch's texts joined cut as the character class cuts.
            QString joined;
            for (const auto& entry : batch)
                joined += QString::fromStdString(entry.first);
            const QStringList lines =
                joined.split(QRegularExpression("[\r\n|\r|\n]"), Qt::SkipEmptyParts);
            EXPECT_EQ(SplitLines(joined), lines) << seed;
        }
}
