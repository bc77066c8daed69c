// Hand-linked tree of names with object pointers, behind the tree views.
#pragma once

#include <string>

class StringList;

// The payload of a node: a name and the object it stands for (not owned).
class myNodeValue {
public:
    myNodeValue() = default;
    explicit myNodeValue(const std::string& name, void* object = nullptr)
        : name(name), object(object) {}

    std::string name;
    void* object = nullptr;
};

// A node linked to its parent, first child and two siblings. A node owns its
// subtree and its following siblings through DeleteSubTree; the destructor
// frees nothing else.
class myNode : public myNodeValue {
public:
    myNode() = default;
    explicit myNode(const std::string& name, void* object = nullptr) : myNodeValue(name, object) {}

    myNode* Parent = nullptr;
    myNode* FirstChild = nullptr;
    myNode* Prev = nullptr;
    myNode* Next = nullptr;
    // A child link kept by DeleteChidren (then dangling) or by the tree fill.
    myNode* Saved = nullptr;

    // First child (0), or appended after the last sibling of the first child
    // (result of AddSibling).
    int AddChild(myNode* node);
    // Makes a node and adds it as a child; null if it can't be added.
    myNode* AddChild(const std::string& name, void* object);
    // Puts node before the first child; 0 (1 for a null node).
    int AddChildAsFirst(myNode* node);
    // Links node after the last sibling, taking its Parent; 1 if node is null
    // or already has Prev or Parent set, else 0.
    int AddSibling(myNode* node);
    // Makes a node and adds it as a sibling; on refusal the node is freed.
    int AddSibling(const std::string& name, void* object);
    // Inserts a new node right after this one.
    myNode* AddAsSibling(const std::string& name, void* object);
    // The child carrying object, or a new child.
    myNode* AddUniqueChild(const std::string& name, void* object);

    // End of the Next chain (this node if it has no Next).
    myNode* GetLastSibling();
    int GetChildCount() const;
    // Child i of the chain; null for i < 0 or past the end.
    myNode* GetChildById(int i) const;
    // Place of node among the children, or -1.
    int GetChildRow(const myNode* node) const;

    // This node or a following sibling carrying object (children not seen).
    myNode* FindNodeByObject(void* object);
    // Depth first: this node (name equal exactly or lower-cased), its subtree,
    // then the following siblings. depth has no effect.
    myNode* FindNodeByName(const std::string& name, int depth);
    // Exact match along the Next chain from this node; false and null result
    // at the end of the chain.
    bool FindNodeByNameL(const std::string& name, myNode*& result);
    // Path of names split at delimiter, each level matched without regard to
    // case along a sibling chain, starting with this node's chain.
    myNode* FindNodeByLongName(const std::string& path, const std::string& delimiter);
    // Ancestors' names and this node's name joined with "$".
    std::string GetFullName();
    // Adds prefix + "$" + name with object to list, then the subtree with
    // that text as prefix and the following siblings with prefix.
    void ToList(const std::string& prefix, StringList* list);

    // Frees this node, its following siblings and all their descendants.
    void DeleteSubTree();
    // Unlinks this node and frees its children; the node itself is left to
    // the caller. Returns Prev, else Next, else Parent.
    myNode* DeleteNode();
    // Keeps FirstChild in Saved, frees the children, FirstChild null.
    void DeleteChidren();
};
