#include "support/UStringList.h"

#include <gtest/gtest.h>
#include <random>

namespace {

void* Obj(long n) {
    return reinterpret_cast<void*>(n);
}

// Ref must hold every index of 0..Count-1 once, in ascending text order.
::testing::AssertionResult RefIsSortedPermutation(const StringList& list) {
    std::vector<int> seen(list.Count, 0);
    for (int place = 0; place < list.Count; ++place) {
        const int index = list.Ref[place];
        if (index < 0 || index >= list.Count || seen[index]++ ||
            (place > 0 && list.Strings(list.Ref[place - 1]) > list.Strings(index)))
            return ::testing::AssertionFailure() << "Ref[" << place << "] = " << index;
    }
    return ::testing::AssertionSuccess();
}

// The texts in Array order, joined with ",", after adding those given.
std::string Texts(StringList& list, std::initializer_list<const char*> add = {}) {
    for (const char* t : add)
        list.AddObject(t, Obj(t[0]), true);
    std::string out;
    for (int i = 0; i < list.Count; ++i)
        out += (i ? "," : "") + list.Strings(i);
    return out;
}

} // namespace

TEST(StringList, LimitsSortedModeRandomSequencesFreeFunctionsListAndRegistry) {
    StringList list;
    list.AddString("a");
    EXPECT_EQ(list.Strings(-1), "");
    list.NullObject = Obj(99);
    EXPECT_EQ(list.Objects(list.Count), Obj(99));
    EXPECT_EQ(list.AddObjToString(Obj(6), -1), -1);
    EXPECT_EQ(list.AddObjToString(Obj(5), 0), 0);
    EXPECT_EQ(list.Objects(0), Obj(5));
    // A negative place inserts at the front.
    EXPECT_EQ(list.Insert(-2, "b"), 1);
    EXPECT_EQ(Texts(list), "b,a");

    // Growth in steps of 50; Clear shrinks, but not an empty list.
    for (int i = 0; i < 99; ++i)
        list.AddString("s" + std::to_string(i));
    EXPECT_EQ(list.Capacity, 150);
    list.Clear();
    EXPECT_TRUE(list.Capacity == 50 && list.Count == 0);
    StringList none(0);
    EXPECT_EQ(none.AddString("first"), 0);
    EXPECT_EQ(none.Capacity, 50);

    // Bytes compare unsigned: the Cyrillic letter sorts after ASCII.
    StringList bytes;
    Texts(bytes, {"\xd0\xb0", "z", ""});
    EXPECT_EQ(bytes.Ref[2], 0);
    StringList scan;
    Texts(scan, {"a", "b", "a", "c", "a"});
    const int after[][3] = {{0, 'a', 0}, {1, 'a', 2}, {3, 'b', -1}, {-1, 'a', -1}};
    for (const auto& a : after)
        EXPECT_EQ(scan.IndexOfAfterPos(a[0], std::string(1, char(a[1]))), a[2]) << a[0];

    StringList sorted;
    sorted.SortedFlag = true;
    for (const char* s : {"m", "c", "x"})
        sorted.AddString(s);
    sorted.AddObject("f", Obj(7), true);
    EXPECT_EQ(Texts(sorted), "c,f,m,x");
    // Duplicates: refused with -1, -2, or let in.
    EXPECT_EQ(sorted.AddString("x"), -1);
    sorted.DupMode = 1;
    EXPECT_EQ(sorted.AddString("c"), -2);
    sorted.DupMode = 2;
    const int p = sorted.AddString("f");
    EXPECT_TRUE(p == 1 || p == 2);
    // InsertObject appends in order as well.
    sorted.DupMode = 0;
    EXPECT_EQ(sorted.InsertObject(0, "z", nullptr), 5);
    EXPECT_EQ(sorted.InsertObject(0, "c", nullptr), -1);
    // Delete in sorted mode only lowers the count and blanks the first slot.
    sorted.Delete(0);
    EXPECT_EQ(Texts(sorted), ",f,f,m,x");
    // Random changes against a vector; Array, Ref and IndexOf checked after each.
    std::mt19937 rng(20240611);
    for (int round = 0; round < 40; ++round) {
        StringList rlist;
        std::vector<std::pair<std::string, void*>> model;
        bool refSorted = true;
        long next = 1;
        auto text = [&] { return "n" + std::to_string(rng() % 25); };
        for (int step = 0; step < 300; ++step) {
            const int count = static_cast<int>(model.size());
            const int op = rng() % 100;
            int i = static_cast<int>(rng() % (count + 3)) - 1;
            if (op < 35) {
                const bool sorted = op < 30;
                const std::string t = text();
                ASSERT_EQ(rlist.AddObject(t, Obj(next), sorted), count);
                model.emplace_back(t, Obj(next++));
                refSorted = refSorted && (sorted || count == 0);
            } else if (op < 55) {
                i = std::max(i, 0);
                const std::string t = text();
                ASSERT_EQ(rlist.InsertObject(i, t, Obj(next)), i >= count ? count : i + 1);
                model.insert(model.begin() + std::min(i, count), {t, Obj(next++)});
                refSorted = refSorted || i < count;
            } else if (op < 75) {
                rlist.Delete(i);
                if (i >= 0 && i < count)
                    model.erase(model.begin() + i);
            } else if (op < 95) {
                const std::string t = text();
                const bool inside = i >= 0 && i < count;
                ASSERT_EQ(rlist.ChString(i, t), inside ? i : -1);
                if (inside) {
                    model[i].first = t;
                    refSorted = true;
                }
            } else {
                rlist.Clear();
                model.clear();
                refSorted = true;
            }
            SCOPED_TRACE(std::to_string(round) + "/" + std::to_string(step));
            ASSERT_EQ(rlist.Count, static_cast<int>(model.size()));
            for (int e = 0; e < rlist.Count; ++e) {
                ASSERT_EQ(rlist.Strings(e), model[e].first) << e;
                ASSERT_EQ(rlist.Objects(e), model[e].second) << e;
            }
            ASSERT_TRUE(rlist.Capacity >= rlist.Count && rlist.Capacity % 50 == 0);
            if (!refSorted)
                continue;
            ASSERT_TRUE(RefIsSortedPermutation(rlist));
            for (const auto& entry : model)
                ASSERT_EQ(rlist.Strings(rlist.IndexOf(entry.first)), entry.first);
        }
    }
    // The free functions create the list and find the first object.
    StringList* made = nullptr;
    Add2StringList(made, "b", Obj(1));
    EXPECT_EQ(Add2StringList(made, "a", Obj(2)), 1);
    made->AddObject("c", Obj(2), true);
    EXPECT_EQ(FindIdObjByPtr(Obj(2), made), 1);
    EXPECT_EQ(FindIdObjByPtr(Obj(3), made), -1);
    EXPECT_EQ(FindIdObjByPtr(Obj(2), nullptr), -1);
    delete made;
    List ptrs;
    int items[60];
    for (int i = 0; i < 60; ++i)
        ptrs.Add(&items[(i * 37) % 60]);
    EXPECT_EQ(ptrs.IndexOf(&items[(59 * 37) % 60]), 59);
    EXPECT_EQ(FindPtrInList(&items[37], &ptrs), 1);
    ptrs.Remove(&items[37]);
    EXPECT_EQ(ptrs.IndexOf(&items[14]), 1);
    int outside = 0, index = 7;
    EXPECT_TRUE(!ptrs.Find(&outside, index) && index == -1);
    // Sort compares slots, not pointers; Delete in sorted mode only lowers the count.
    ptrs.Sort();
    ptrs.Delete(0);
    EXPECT_TRUE(ptrs.Count == 58 && !ptrs.Items(0) && ptrs.Items(1) == &items[14]);
    ptrs.Clear();
    EXPECT_EQ(ptrs.Capacity, 50);
    class MyStringList registry(true);
    registry.AddObj("a", new QObject);
    EXPECT_EQ(registry.AddObj("a", nullptr), -1);
}
