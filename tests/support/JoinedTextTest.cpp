// Lines joined piece by piece give the bytes of the whole text joined at once.
#include "support/JoinedText.h"
#include "support/StrUtils.h"

#include <gtest/gtest.h>
#include <random>

TEST(JoinedText, PiecesMatchWholeText) {
    const QString letters[] = {
        "a", "\r", "\n", "|", QString::fromUtf8("Ж"), QString::fromUtf8("😀")};
    const int sizes[][2] = {{0, 0}, {1, 1}, {3, 2}, {8, 5}, {40, 12}};
    for (const auto& size : sizes)
        for (unsigned seed = 1; seed <= 50; ++seed) {
            std::mt19937 random(seed);
            JoinedText joined(true), whole;
            QString all;
            for (int p = 0; p < size[0]; ++p) {
                QString piece;
                for (int n = random() % (size[1] + 1); n > 0; --n)
                    piece += letters[random() % 6];
                joined += piece;
                whole += piece;
                all += piece;
            }
            EXPECT_EQ(whole.Text(), all) << seed;
            EXPECT_EQ(joined.Utf8(), SplitLines(all).join('\n').toUtf8()) << seed;
        }
}
