#include "TagTree.h"

#include "common/TestApp.h"

namespace {
HostObject* Folder(HostProject& host, HostObject* parent, int mode, const char* caption) {
    HostObject* folder = host.create(parent, mode + 8, 0, "IecOrmelcli");
    folder->set("caption", QString(caption));
    return folder;
}

HostObject* Tag(HostProject& host, HostObject* parent, int mode, const char* caption) {
    HostObject* tag = host.create(parent, mode, 0, "IecArven");
    tag->set("caption", QString(caption));
    return tag;
}
} // namespace

TagTree::TagTree(HostProject& host, HostObject* unit, int mode) {
    base = Folder(host, unit, mode, "База");
    s1 = Folder(host, base, mode, "Ячейка 1");
    s2 = Folder(host, base, mode, "Ячейка 2");
    s11 = Folder(host, s1, mode, "Отсек");
    t1 = Tag(host, base, mode, "t1");
    t2 = Tag(host, base, mode, "t2");
    t3 = Tag(host, base, mode, "t3");
    a1 = Tag(host, s1, mode, "a1");
    a2 = Tag(host, s1, mode, "a2");
    b1 = Tag(host, s2, mode, "b1");
    c1 = Tag(host, s11, mode, "c1");
}

void TagModelTest::SetUp() {
    EnsureApp();
    pGlobcfgInterface = HostProject::table();
    model.mode = 0;
    model.setRootNode(tree.base);
}

void TagModelTest::TearDown() {
    pGlobcfgInterface = nullptr;
}
