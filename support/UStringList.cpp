#include "support/UStringList.h"

#include <QMutexLocker>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>

StringList* MyStringList = nullptr;
QMutex m_mutex;
int stat_tmp = 0;

namespace {

const int kStep = 50;

// An allocation failure in the lists ends the process.
[[noreturn]] void Fatal(const char* text) {
    std::printf("%s\n", text);
    std::exit(1);
}

template <class T> T* AllocSlots(int count, const char* errText) {
    T* p = static_cast<T*>(std::calloc(count > 0 ? count : 1, sizeof(T)));
    if (!p)
        Fatal(errText);
    return p;
}

// Reallocates to `count` slots; the slots from `oldCount` on are zeroed.
template <class T> T* ReallocSlots(T* old, int oldCount, int count, const char* errText) {
    T* p = static_cast<T*>(std::realloc(old, sizeof(T) * (count > 0 ? count : 1)));
    if (!p)
        Fatal(errText);
    if (count > oldCount)
        std::memset(static_cast<void*>(p + oldCount), 0, sizeof(T) * (count - oldCount));
    return p;
}

int Sign(int c) {
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

// Where a key belongs among the first n places of a sorted Ref: after the
// entries it is not below. cmpAt(place) compares the key with the entry at
// that place. An append in order, the common case, costs one comparison.
template <class CmpAt> int PlaceInRef(int n, CmpAt cmpAt) {
    if (n <= 0 || cmpAt(n - 1) >= 0)
        return n;
    int lo = 0, hi = n - 1; // key below the entry at hi
    while (lo < hi) {
        int mid = (lo + hi) >> 1;
        if (cmpAt(mid) >= 0)
            lo = mid + 1;
        else
            hi = mid;
    }
    return lo;
}

// Binary search of a key through Ref; the last place is tried first since an
// appended maximum is the frequent search. Returns the index in Array or -1.
template <class CmpAt> int FindInRef(const int* ref, int count, CmpAt cmpAt) {
    if (count <= 0)
        return -1;
    if (cmpAt(count - 1) == 0)
        return ref[count - 1];
    int lo = 0, hi = count - 1;
    while (hi - lo > 1) {
        int mid = (lo + hi) >> 1;
        int c = cmpAt(mid);
        if (c == 0)
            return ref[mid];
        if (c < 0)
            hi = mid;
        else
            lo = mid;
    }
    if (cmpAt(hi) == 0)
        return ref[hi];
    if (cmpAt(lo) == 0)
        return ref[lo];
    return -1;
}

// Puts `index` at place p of Ref holding n values.
void InsertAtPlace(int* ref, int n, int p, int index) {
    std::memmove(ref + p + 1, ref + p, sizeof(int) * (n - p));
    ref[p] = index;
    ++stat_tmp;
}

// After index i left Array (entries above it moved down by one): closes Ref
// up over the place that held i and lowers the values above i. The loops
// are kept free of branches on the data, which vary at random.
void RemoveIndexFromRef(int* ref, int count, int i) {
    int* place = std::find(ref, ref + count, i);
    if (place != ref + count)
        std::memmove(place, place + 1, sizeof(int) * (ref + count - place - 1));
    for (int k = 0; k < count - 1; ++k)
        ref[k] -= ref[k] > i;
}

} // namespace

// ---------------------------------------------------------------- StringList

StringList::StringList() {
    Init(kStep);
}

StringList::StringList(int capacity) {
    Init(capacity < 0 ? 0 : capacity);
}

void StringList::Init(int capacity) {
    Capacity = capacity;
    Count = 0;
    Array = AllocSlots<StringListEntry*>(capacity, "Error calloc Array");
    Ref = AllocSlots<int>(capacity, "Error calloc Ref");
    SortedFlag = false;
    DupMode = 0;
    NullObject = nullptr;
}

StringList::~StringList() {
    for (int i = 0; i < Count; ++i)
        delete Array[i];
    std::free(Array);
    std::free(Ref);
}

std::string StringList::Strings(int i) const {
    if (i < 0 || i >= Count || !Array[i])
        return NullString;
    return Array[i]->String;
}

void* StringList::Objects(int i) const {
    if (i < 0 || i >= Count || !Array[i])
        return NullObject;
    return Array[i]->Object;
}

void StringList::resize() {
    Array = ReallocSlots(Array, Capacity, Capacity + kStep, "Error realloc Array");
    Ref = ReallocSlots(Ref, Capacity, Capacity + kStep, "Error realloc Ref");
    Capacity += kStep;
}

void StringList::GrowIfFull() {
    if (Count >= Capacity)
        resize();
}

int StringList::Indexing(const std::string& text, int n) const {
    // A slot emptied by a delete in sorted mode reads as the empty text.
    auto textAt = [this](int place) -> const std::string& {
        const StringListEntry* e = Array[Ref[place]];
        return e ? e->String : NullString;
    };
    int p = PlaceInRef(n, [&](int place) { return text.compare(textAt(place)); });
    if (SortedFlag) {
        bool dup = (p < n && textAt(p) == text) || (p > 0 && textAt(p - 1) == text);
        if (dup && DupMode == 0)
            return -1;
        if (dup && DupMode == 1)
            return -2;
    }
    return p;
}

int StringList::AddObject(const std::string& text, void* object, bool bSort) {
    GrowIfFull();
    if (Count == 0) {
        Array[0] = new StringListEntry{text, object};
        Ref[0] = 0;
        Count = 1;
        return 0;
    }
    if (SortedFlag) {
        int p = Indexing(text, Count);
        if (p < 0)
            return p;
        std::memmove(Array + p + 1, Array + p, sizeof(StringListEntry*) * (Count - p));
        Array[p] = new StringListEntry{text, object};
        Ref[Count] = Count;
        ++Count;
        return p;
    }
    int index = Count;
    Array[index] = new StringListEntry{text, object};
    if (bSort) {
        InsertAtPlace(Ref, Count, Indexing(text, Count), index);
    } else {
        Ref[Count] = index;
        RefUnsorted = true;
    }
    ++Count;
    return index;
}

int StringList::AddString(const std::string& text) {
    return AddObject(text, nullptr, true);
}

int StringList::AddObjToString(void* object, int i) {
    if (i < 0 || i >= Count || !Array[i])
        return -1;
    Array[i]->Object = object;
    return i;
}

int StringList::InsertObject(int i, const std::string& text, void* object) {
    if (Count == 0 || i >= Count)
        return AddObject(text, object, true);
    GrowIfFull();
    if (SortedFlag)
        return AddObject(text, object, true);
    if (i < 0)
        i = 0;
    std::memmove(Array + i + 1, Array + i, sizeof(StringListEntry*) * (Count - i));
    Array[i] = new StringListEntry{text, object};
    if (RefUnsorted) {
        Ref[Count] = Count;
        ++Count;
        SortRef();
        return i + 1;
    }
    // Ref is sorted: renumber the shifted entries, then put the new one at
    // its place; the same order a full re-sort gives, in linear time.
    int* ref = Ref; // a local copy lets the loop vectorize
    for (int k = 0, n = Count; k < n; ++k)
        ref[k] += ref[k] >= i;
    InsertAtPlace(Ref, Count, Indexing(text, Count), i);
    ++Count;
    return i + 1;
}

void StringList::InsertFront(const std::vector<std::pair<std::string, void*>>& added) {
    const int k = int(added.size());
    // A list out of order or kept sorted takes them one by one, as the
    // single insertion would.
    if (RefUnsorted || SortedFlag || Count == 0) {
        for (const auto& entry : added)
            InsertObject(0, entry.first, entry.second);
        return;
    }
    while (Count + k > Capacity)
        resize();
    std::memmove(Array + k, Array, sizeof(StringListEntry*) * Count);
    std::vector<int> fresh(k);
    for (int j = 0; j < k; ++j) {
        Array[k - 1 - j] = new StringListEntry{added[j].first, added[j].second};
        fresh[j] = k - 1 - j;
    }
    MergeIntoRef(fresh, k);
}

void StringList::AddObjects(const std::vector<std::pair<std::string, void*>>& added) {
    if (RefUnsorted || SortedFlag) {
        for (const auto& entry : added)
            AddObject(entry.first, entry.second, true);
        return;
    }
    const int k = int(added.size());
    while (Count + k > Capacity)
        resize();
    std::vector<int> fresh(k);
    for (int j = 0; j < k; ++j) {
        Array[Count + j] = new StringListEntry{added[j].first, added[j].second};
        fresh[j] = Count + j;
    }
    MergeIntoRef(fresh, 0);
}

void StringList::MergeIntoRef(std::vector<int>& fresh, int shift) {
    // The new entries, given in order of adding, stably sorted by text: of
    // equal texts the later one stands after the earlier.
    auto less = [this](int a, int b) {
        const StringListEntry* x = Array[a];
        const StringListEntry* y = Array[b];
        return (x ? x->String : NullString) < (y ? y->String : NullString);
    };
    std::stable_sort(fresh.begin(), fresh.end(), less);
    // Merged after the old ones, which go first among equal texts.
    std::vector<int> old(Ref, Ref + Count);
    for (int& index : old)
        index += shift;
    std::merge(old.begin(), old.end(), fresh.begin(), fresh.end(), Ref, less);
    Count += int(fresh.size());
    stat_tmp += int(fresh.size());
}

int StringList::Insert(int i, const std::string& text) {
    return InsertObject(i, text, nullptr);
}

int StringList::IndexOf(const std::string& text) const {
    return FindInRef(Ref, Count, [&](int place) {
        const StringListEntry* e = Array[Ref[place]];
        return text.compare(e ? e->String : NullString);
    });
}

void StringList::Delete(int i) {
    if (Count == 0 || i < 0 || i >= Count)
        return;
    delete Array[i];
    if (SortedFlag) {
        // Sorted lists keep their count: only the count goes down. The entry
        // that falls off the end can no longer be reached and is freed too.
        Array[i] = nullptr;
        if (i != Count - 1) {
            delete Array[Count - 1];
            Array[Count - 1] = nullptr;
        }
        --Count;
        return;
    }
    std::memmove(Array + i, Array + i + 1, sizeof(StringListEntry*) * (Count - i - 1));
    RemoveIndexFromRef(Ref, Count, i);
    --Count;
}

void StringList::Clear() {
    if (Count == 0)
        return;
    for (int i = 0; i < Count; ++i)
        delete Array[i];
    Array = ReallocSlots(Array, 0, kStep, "Error realloc Array");
    Ref = ReallocSlots(Ref, 0, kStep, "Error realloc Ref");
    Capacity = kStep;
    Count = 0;
    RefUnsorted = false;
}

int StringList::ChString(int i, const std::string& text) {
    if (Count == 0 || i < 0 || i >= Count || !Array[i])
        return -1;
    Array[i]->String = text;
    if (!SortedFlag) {
        if (RefUnsorted)
            SortRef();
        else
            ReplaceInRef(i);
    }
    return i;
}

void StringList::ReplaceInRef(int i) {
    int place = 0;
    while (Ref[place] != i)
        ++place;
    std::memmove(Ref + place, Ref + place + 1, sizeof(int) * (Count - place - 1));
    InsertAtPlace(Ref, Count - 1, Indexing(Array[i]->String, Count - 1), i);
}

int StringList::IndexOfAfterPos(int pos, const std::string& text) const {
    if (pos < 0 || pos >= Count)
        return -1;
    for (int i = pos; i < Count; ++i)
        if (Array[i] && Array[i]->String == text)
            return i;
    return -1;
}

void StringList::SortRef() {
    QMutexLocker lock(&m_mutex);
    ::MyStringList = this;
    std::qsort(Ref, Count, sizeof(int), compStrRef);
    RefUnsorted = false;
}

// ---------------------------------------------------------------- List

List::List() {
    Init(kStep);
}

void List::Init(int capacity) {
    Capacity = capacity;
    Count = 0;
    Array = AllocSlots<void*>(capacity, "Error calloc Array");
    Ref = AllocSlots<int>(capacity, "Error calloc Ref");
    SortedFlag = false;
}

List::~List() {
    std::free(Array);
    std::free(Ref);
}

int List::Indexing(void* pointer, int n) const {
    std::less<void*> less;
    return PlaceInRef(n, [&](int place) {
        void* item = Array[Ref[place]];
        return less(pointer, item) ? -1 : (less(item, pointer) ? 1 : 0);
    });
}

int List::Add(void* pointer) {
    if (Count >= Capacity) {
        Array = ReallocSlots(Array, Capacity, Capacity + kStep, "Error realloc Array");
        Ref = ReallocSlots(Ref, Capacity, Capacity + kStep, "Error realloc Ref");
        Capacity += kStep;
    }
    if (Count == 0) {
        Array[0] = pointer;
        Ref[0] = 0;
        Count = 1;
        return 0;
    }
    if (SortedFlag) {
        int p = Indexing(pointer, Count);
        std::memmove(Array + p + 1, Array + p, sizeof(void*) * (Count - p));
        Array[p] = pointer;
        Ref[Count] = Count;
        ++Count;
        return p;
    }
    int index = Count;
    Array[index] = pointer;
    InsertAtPlace(Ref, Count, Indexing(pointer, Count), index);
    ++Count;
    return index;
}

void* List::Items(int i) const {
    return (i < 0 || i >= Count) ? nullptr : Array[i];
}

void List::Sort() {
    std::qsort(Array, Count, sizeof(void*), compOb);
    for (int i = 0; i < Count; ++i)
        Ref[i] = i;
    SortedFlag = true;
}

void List::Clear() {
    if (Count == 0)
        return;
    std::free(Array);
    std::free(Ref);
    Init(kStep);
}

void List::Delete(int i) {
    if (Count == 0 || i < 0 || i >= Count)
        return;
    Array[i] = nullptr;
    if (!SortedFlag) {
        std::memmove(Array + i, Array + i + 1, sizeof(void*) * (Count - i - 1));
        RemoveIndexFromRef(Ref, Count, i);
    }
    --Count;
}

int List::IndexOf(void* pointer) const {
    std::less<void*> less;
    return FindInRef(Ref, Count, [&](int place) {
        void* item = Array[Ref[place]];
        return less(pointer, item) ? -1 : (less(item, pointer) ? 1 : 0);
    });
}

bool List::Find(void* pointer, int& index) const {
    index = IndexOf(pointer);
    return index >= 0;
}

void List::Remove(void* pointer) {
    Delete(IndexOf(pointer));
}

// ---------------------------------------------------------------- MyStringList

MyStringList::MyStringList(bool owner) : Owner(owner) {}

MyStringList::~MyStringList() {
    if (Owner)
        for (void* p : Objects)
            delete static_cast<QObject*>(p);
}

int MyStringList::AddObj(const QString& name, void* object) {
    if (FindActByName(name))
        return -1;
    Objects.append(object);
    Names.append(name);
    return Names.size();
}

void* MyStringList::FindActByName(const QString& name) const {
    int i = Names.indexOf(name);
    return i < 0 ? nullptr : Objects.at(i);
}

// ---------------------------------------------------------------- free functions

int compStr(const void* a, const void* b) {
    const StringListEntry* ea = *static_cast<const StringListEntry* const*>(a);
    const StringListEntry* eb = *static_cast<const StringListEntry* const*>(b);
    static const std::string empty;
    return Sign((ea ? ea->String : empty).compare(eb ? eb->String : empty));
}

int compStrRef(const void* a, const void* b) {
    StringListEntry** array = ::MyStringList->Array;
    return compStr(&array[*static_cast<const int*>(a)], &array[*static_cast<const int*>(b)]);
}

int compOb(const void* a, const void* b) {
    if (a == b)
        return 0;
    return std::less<const void*>()(a, b) ? -1 : 1;
}

int Add2StringList(StringList*& list, const std::string& text, void* object) {
    if (!list)
        list = new StringList();
    return list->AddObject(text, object, true);
}

int FindIdObjByPtr(void* object, StringList* list) {
    if (!object || !list)
        return -1;
    for (int i = 0; i < list->Count; ++i)
        if (list->Array[i] && list->Array[i]->Object == object)
            return i;
    return -1;
}

int FindPtrInList(void* pointer, List* list) {
    if (!pointer || !list)
        return -1;
    for (int i = 0; i < list->Count; ++i)
        if (list->Array[i] == pointer)
            return i;
    return -1;
}
