#include "support/myNode.h"

#include "support/StrUtils.h"
#include "support/UStringList.h"

int myNode::AddChild(myNode* node) {
    if (!FirstChild) {
        if (!node)
            return 1;
        FirstChild = node;
        node->Parent = this;
        return 0;
    }
    return FirstChild->AddSibling(node);
}

myNode* myNode::AddChild(const std::string& name, void* object) {
    myNode* node = new myNode(name, object);
    if (AddChild(node) != 0) {
        delete node;
        return nullptr;
    }
    return node;
}

int myNode::AddChildAsFirst(myNode* node) {
    if (!node)
        return 1;
    node->Parent = this;
    node->Prev = nullptr;
    node->Next = FirstChild;
    if (FirstChild)
        FirstChild->Prev = node;
    FirstChild = node;
    return 0;
}

int myNode::AddSibling(myNode* node) {
    if (!node || node->Prev || node->Parent)
        return 1;
    myNode* last = GetLastSibling();
    last->Next = node;
    node->Prev = last;
    node->Parent = last->Parent;
    return 0;
}

int myNode::AddSibling(const std::string& name, void* object) {
    myNode* node = new myNode(name, object);
    int result = AddSibling(node);
    if (result != 0)
        delete node;
    return result;
}

myNode* myNode::AddAsSibling(const std::string& name, void* object) {
    myNode* node = new myNode(name, object);
    node->Parent = Parent;
    node->Prev = this;
    node->Next = Next;
    if (Next)
        Next->Prev = node;
    Next = node;
    return node;
}

myNode* myNode::AddUniqueChild(const std::string& name, void* object) {
    if (FirstChild)
        if (myNode* found = FirstChild->FindNodeByObject(object))
            return found;
    return AddChild(name, object);
}

myNode* myNode::GetLastSibling() {
    myNode* node = this;
    while (node->Next)
        node = node->Next;
    return node;
}

int myNode::GetChildCount() const {
    int count = 0;
    for (const myNode* c = FirstChild; c; c = c->Next)
        ++count;
    return count;
}

myNode* myNode::GetChildById(int i) const {
    if (i < 0)
        return nullptr;
    myNode* c = FirstChild;
    while (c && i-- > 0)
        c = c->Next;
    return c;
}

int myNode::GetChildRow(const myNode* node) const {
    int row = 0;
    for (const myNode* c = FirstChild; c; c = c->Next, ++row)
        if (c == node)
            return row;
    return -1;
}

myNode* myNode::FindNodeByObject(void* object) {
    for (myNode* n = this; n; n = n->Next)
        if (n->object == object)
            return n;
    return nullptr;
}

myNode* myNode::FindNodeByName(const std::string& name, int depth) {
    const std::string lower = Str2LowerP(name);
    for (myNode* n = this; n; n = n->Next) {
        if (n->name == name || Str2LowerP(n->name) == lower)
            return n;
        if (n->FirstChild)
            if (myNode* found = n->FirstChild->FindNodeByName(name, depth))
                return found;
    }
    return nullptr;
}

bool myNode::FindNodeByNameL(const std::string& name, myNode*& result) {
    for (result = this; result; result = result->Next)
        if (result->name == name)
            return true;
    return false;
}

myNode* myNode::FindNodeByLongName(const std::string& path, const std::string& delimiter) {
    size_t cut = delimiter.empty() ? std::string::npos : path.find(delimiter);
    const std::string head = Str2LowerP(path.substr(0, cut));
    myNode* match = nullptr;
    for (myNode* n = this; n && !match; n = n->Next)
        if (Str2LowerP(n->name) == head)
            match = n;
    if (!match || cut == std::string::npos)
        return match;
    if (!match->FirstChild)
        return nullptr;
    return match->FirstChild->FindNodeByLongName(path.substr(cut + delimiter.size()), delimiter);
}

std::string myNode::GetFullName() {
    // The parent is read from the first node of the sibling chain.
    myNode* first = this;
    while (first->Prev)
        first = first->Prev;
    if (!first->Parent)
        return name;
    return first->Parent->GetFullName() + "$" + name;
}

void myNode::ToList(const std::string& prefix, StringList* list) {
    if (!list)
        return;
    for (myNode* n = this; n; n = n->Next) {
        const std::string text = prefix + "$" + n->name;
        list->AddObject(text, n->object, true);
        if (n->FirstChild)
            n->FirstChild->ToList(text, list);
    }
}

void myNode::DeleteSubTree() {
    if (Parent && Parent->FirstChild == this)
        Parent->FirstChild = nullptr;
    if (Prev)
        Prev->Next = nullptr;
    // The sibling chain is walked in a loop, so only the depth of the tree
    // costs stack.
    myNode* n = this;
    while (n) {
        myNode* next = n->Next;
        if (n->FirstChild)
            n->FirstChild->DeleteSubTree();
        delete n;
        n = next;
    }
}

myNode* myNode::DeleteNode() {
    if (Prev) {
        Prev->Next = Next;
        if (Next)
            Next->Prev = Prev;
    } else {
        if (Parent)
            Parent->FirstChild = Next;
        if (Next)
            Next->Prev = nullptr;
    }
    if (FirstChild)
        FirstChild->DeleteSubTree();
    if (Prev)
        return Prev;
    if (Next)
        return Next;
    return Parent;
}

void myNode::DeleteChidren() {
    Saved = FirstChild;
    if (FirstChild)
        FirstChild->DeleteSubTree();
    FirstChild = nullptr;
}
