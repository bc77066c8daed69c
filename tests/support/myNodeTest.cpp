#include "support/myNode.h"
#include "support/UStringList.h"

#include <gtest/gtest.h>

namespace {

void* Obj(long n) {
    return reinterpret_cast<void*>(n);
}

// root { a { a1, A2 }, b, c { c1 } }
struct Tree {
    myNode* root = new myNode("root", Obj(100));
    myNode* a = root->AddChild("a", Obj(1));
    myNode* b = root->AddChild("b", Obj(2));
    myNode* c = root->AddChild("c", Obj(3));
    myNode* a1 = a->AddChild("a1", Obj(11));
    myNode* a2 = a->AddChild("A2", Obj(12));
    myNode* c1 = c->AddChild("c1", Obj(31));
    ~Tree() { root->DeleteSubTree(); }
};

std::string Texts(const StringList& list) {
    std::string out;
    for (int i = 0; i < list.Count; ++i)
        out += (i ? "," : "") + list.Strings(i);
    return out;
}

// Each sibling's links agree with its neighbours and its parent.
void ExpectChain(myNode* parent, const std::vector<myNode*>& children) {
    ASSERT_EQ(parent->FirstChild, children.empty() ? nullptr : children[0]);
    ASSERT_EQ(parent->GetChildCount(), static_cast<int>(children.size()));
    for (size_t i = 0; i < children.size(); ++i) {
        EXPECT_EQ(children[i]->Parent, parent) << i;
        EXPECT_EQ(children[i]->Prev, i ? children[i - 1] : nullptr) << i;
        EXPECT_EQ(children[i]->Next, i + 1 < children.size() ? children[i + 1] : nullptr) << i;
    }
}

} // namespace

TEST(myNode, InsertionFullNameToListSearchAndRemoval) {
    Tree t;
    ExpectChain(t.a, {t.a1, t.a2});
    EXPECT_EQ(t.root->GetChildById(1), t.b);
    EXPECT_EQ(t.root->GetChildById(3), nullptr);
    EXPECT_TRUE(t.root->GetChildRow(t.b) == 1 && t.root->GetChildRow(t.a1) == -1 &&
                t.root->GetChildRow(nullptr) == -1);
    EXPECT_EQ(t.a->GetLastSibling(), t.c);
    EXPECT_TRUE(t.b->AddChild(nullptr) == 1 && !t.b->FirstChild);

    myNode* first = new myNode("first", Obj(50));
    EXPECT_TRUE(t.root->AddChildAsFirst(first) == 0 && t.root->AddChildAsFirst(nullptr) == 1);
    myNode* mid = t.a->AddAsSibling("mid", Obj(51));
    myNode* last = t.c->AddAsSibling("last", nullptr);
    ExpectChain(t.root, {first, t.a, mid, t.b, t.c, last});
    // AddUniqueChild reuses the child carrying the object.
    EXPECT_EQ(t.a->AddUniqueChild("other name", Obj(12)), t.a2);

    // AddSibling refuses linked nodes, else appends and takes the chain's Parent.
    myNode* loose = new myNode("x");
    loose->Parent = t.root;
    EXPECT_EQ(t.a->AddSibling(loose), 1);
    loose->Parent = nullptr;
    loose->Prev = t.b;
    EXPECT_EQ(t.a->AddSibling(loose), 1);
    loose->Prev = nullptr;
    EXPECT_EQ(t.a->AddSibling(nullptr), 1);
    EXPECT_EQ(t.a->AddSibling(loose), 0);
    EXPECT_EQ(t.b->AddSibling("y", Obj(9)), 0);
    ExpectChain(t.root, {first, t.a, mid, t.b, t.c, last, loose, loose->Next});
    EXPECT_EQ(loose->Next->name, "y");
    myNode* other = new myNode("other");
    EXPECT_TRUE(t.root->AddSibling(other) == 0 && !other->Parent);
    Tree u;
    // The parent is taken from the first sibling of the chain.
    u.a2->Parent = nullptr;
    EXPECT_EQ(u.a2->GetFullName(), "root$a$A2");
    u.a2->Parent = u.a;
    StringList list;
    u.root->ToList("pre", &list);
    EXPECT_EQ(Texts(list), "pre$root,pre$root$a,pre$root$a$a1,pre$root$a$A2,pre$root$b,pre$root$c,"
                           "pre$root$c$c1");
    // Objects: this node and following siblings, never children.
    EXPECT_EQ(u.a->FindNodeByObject(Obj(3)), u.c);
    myNode* found = nullptr;
    EXPECT_TRUE(u.a1->FindNodeByNameL("A2", found) && found == u.a2);
    EXPECT_EQ(u.root->FindNodeByLongName("ROOT$A$a2", "$"), u.a2);
    Tree t2;
    myNode* middle = t2.a->AddAsSibling("middle", nullptr);
    middle->AddChild("m1", nullptr);
    middle->AddChild("m2", nullptr);
    // Returns Prev, else Next, else Parent; the children are freed.
    EXPECT_TRUE(t2.c1->DeleteNode() == t2.c && !t2.c->FirstChild);
    delete t2.c1;
    const std::pair<myNode*, myNode*> steps[] = {{middle, t2.a}, {t2.a, t2.b}, {t2.c, t2.b}};
    for (const auto& step : steps) {
        EXPECT_EQ(step.first->DeleteNode(), step.second) << step.first->name;
        EXPECT_EQ(step.first->FirstChild, nullptr);
        delete step.first;
    }
    ExpectChain(t2.root, {t2.b});

    Tree u2;
    u2.a->DeleteChidren();
    EXPECT_EQ(u2.a->FirstChild, nullptr);
    // DeleteSubTree takes the following siblings along.
    u2.b->DeleteSubTree();
    EXPECT_TRUE(!u2.a->Next && u2.root->GetChildCount() == 1);
    u2.a->DeleteSubTree();
    EXPECT_EQ(u2.root->FirstChild, nullptr);

    myNode* bigRoot = new myNode("bigRoot");
    for (int i = 0; i < 200000; ++i)
        bigRoot->AddAsSibling("n", nullptr);
    EXPECT_EQ(bigRoot->FindNodeByName("missing", 0), nullptr);
    bigRoot->DeleteSubTree();
}
