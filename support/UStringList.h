// Hand-grown containers of the model: a list of texts with object pointers
// (insertion order plus a sorted permutation), a list of bare pointers, and a
// small registry of named objects.
#pragma once

#include <QList>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <string>
#include <utility>
#include <vector>

// One entry of a StringList: the text and the object it names. The list owns
// the entry, never the object.
struct StringListEntry {
    std::string String;
    void* Object = nullptr;
};

// Entries in insertion order (`Array`) plus `Ref`, a permutation of
// 0..Count-1 listing `Array` in ascending text order (std::string::compare),
// for binary search. Duplicates are allowed unless `SortedFlag` is set.
// Every index of a public operation is an index into `Array`.
class StringList {
public:
    StringList();
    explicit StringList(int capacity);
    ~StringList();
    // Entries are owned: a copy would free them twice.
    StringList(const StringList&) = delete;
    StringList& operator=(const StringList&) = delete;

    int Capacity;            // slots allocated in Array and Ref
    int Count;               // entries in use
    StringListEntry** Array; // entries in insertion order
    int* Ref;                // sorted permutation of the indices of Array
    bool SortedFlag;         // Array itself kept in order, Ref the identity
    int DupMode;             // sorted mode: duplicate gives -1 (0), -2 (1), or is let in
    void* NullObject;        // what Objects() yields past the end
    std::string NullString;  // stays empty

    // Text of entry i; empty for i < 0 or i >= Count.
    std::string Strings(int i) const;
    // Object of entry i; NullObject for i >= Count.
    void* Objects(int i) const;

    // Appends an entry; with bSort the entry takes its place in Ref at once,
    // without it Ref stays unsorted until it is restored. Returns the index in
    // Array, or a negative Indexing result in sorted mode (entry not stored).
    int AddObject(const std::string& text, void* object, bool bSort = true);
    // AddObject(text, null, true).
    int AddString(const std::string& text);
    // Replaces the object of entry i; i, or -1 if i is out of range.
    int AddObjToString(void* object, int i);
    // Inserts before entry i and returns i + 1; an empty list or i >= Count
    // appends (result of AddObject).
    int InsertObject(int i, const std::string& text, void* object);
    // InsertObject(i, text, null).
    int Insert(int i, const std::string& text);
    // InsertObject(0, text, object) for each entry of `added` in turn, in one
    // pass: the last one added stands first.
    void InsertFront(const std::vector<std::pair<std::string, void*>>& added);
    // AddObject(text, object, true) for each entry of `added` in turn, in
    // one pass.
    void AddObjects(const std::vector<std::pair<std::string, void*>>& added);
    // Index in Array of an entry with this text, or -1. Among duplicates one
    // of them is found.
    int IndexOf(const std::string& text) const;
    // Frees entry i (the object stays); nothing for an empty list or a bad i.
    void Delete(int i);
    // Frees all entries and shrinks both arrays back to 50 slots.
    void Clear();
    // Replaces the text of entry i in place; i, or -1 if i >= Count.
    int ChString(int i, const std::string& text);
    // First index from pos whose text equals text (linear scan), or -1.
    int IndexOfAfterPos(int pos, const std::string& text) const;

    // Place where text belongs among the first n places of Ref; in sorted
    // mode a duplicate gives -1 or -2 as DupMode tells.
    int Indexing(const std::string& text, int n) const;
    // Grows both arrays by 50 slots.
    void resize();

private:
    // Allocates both arrays zero-filled with `capacity` slots.
    void Init(int capacity);
    // Grows when full, before an entry is added.
    void GrowIfFull();
    // Full re-sort of Ref by qsort under m_mutex.
    void SortRef();
    // Puts the new indices `fresh` (in order of adding) into Ref after the
    // old values, which are raised by `shift` first; Count grows by them.
    void MergeIntoRef(std::vector<int>& fresh, int shift);
    // Removes the place holding index i from Ref and puts it back at the
    // place its present text belongs to.
    void ReplaceInRef(int i);

    // Set when entries were added without bSort: Ref is out of order.
    bool RefUnsorted = false;
};

// Bare pointers in insertion order plus a permutation ordered by pointer value.
class List {
public:
    List();
    ~List();
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    int Capacity;
    int Count;
    void** Array;
    int* Ref;
    bool SortedFlag;

    // Appends the pointer; index of the new item (its place in sorted mode).
    int Add(void* pointer);
    // Item i; null out of range.
    void* Items(int i) const;
    // Place where pointer belongs among the first n places of Ref.
    int Indexing(void* pointer, int n) const;
    // qsort of Array with compOb, then Ref the identity and SortedFlag set.
    void Sort();
    // Fresh 50-slot arrays; the items themselves are not freed.
    void Clear();
    // Removes item i; nothing for an empty list, i >= Count or i == -1.
    void Delete(int i);
    // Index of the pointer, or -1.
    int IndexOf(void* pointer) const;
    // True and the index when the pointer is present.
    bool Find(void* pointer, int& index) const;
    // Delete(IndexOf(pointer)).
    void Remove(void* pointer);

private:
    void Init(int capacity);
};

// Registry of named objects, names and objects in two parallel lists.
class MyStringList : public QObject {
public:
    // With owner set, the destructor deletes the objects, which must then be
    // QObjects.
    explicit MyStringList(bool owner);
    ~MyStringList() override;

    // Appends name and object; -1 when a non-null object is already
    // registered under the name, otherwise the new size.
    int AddObj(const QString& name, void* object);
    // Object beside the first equal name, or null.
    void* FindActByName(const QString& name) const;

    QList<void*> Objects;
    bool Owner;
    QStringList Names;
};

// The list that compStrRef sorts, set under m_mutex for one qsort. The name
// hides the class of the same name: write `class MyStringList` for the class
// where this header is seen.
extern StringList* MyStringList;
// Guards MyStringList during a qsort.
extern QMutex m_mutex;
// Counts insertions into Ref.
extern int stat_tmp;

// qsort comparators. compStr: two StringListEntry* by text. compStrRef: two
// Ref values by the texts of the entries of MyStringList. compOb: the two
// addresses handed to it (not what they point to).
int compStr(const void* a, const void* b);
int compStrRef(const void* a, const void* b);
int compOb(const void* a, const void* b);

// Creates the list if list is null, then AddObject(text, object, true).
int Add2StringList(StringList*& list, const std::string& text, void* object);
// First index whose object is `object`; -1 for null arguments, an empty list
// or no match.
int FindIdObjByPtr(void* object, StringList* list);
// First index of `pointer` in the list, -1 as above.
int FindPtrInList(void* pointer, List* list);
