// The tags view over one folder of many tags, read straight from the host:
// the time to put the model on the view and show it, the time to page
// through every row, and the model's own cost of reaching every row. The
// second argument picks the host: 0 the stand-in as it is, which filters an
// object's children by kind on every call, 1 the same with the folder's tags
// kept by kind, as a host with indexed children would answer.
#include "WidgetBenchRun.h"
#include "host/HostProject.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/UnitTagsModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>
#include <benchmark/benchmark.h>
#include <cstring>
#include <map>
#include <memory>

namespace {

// A unit whose base folder of received values holds `count` tags.
struct Folder {
    HostProject host;
    HostObject* base = nullptr;

    explicit Folder(int count) {
        HostObject* project = host.create(nullptr, cotProject);
        HostObject* direct = host.create(project, cotDirect);
        HostObject* unit = host.create(direct, cotUnit, 0, "IecArven");
        base = host.create(unit, cotFolderSource, 0, "Arven");
        base->set("caption", QString("Принимаемые"));
        for (int i = 0; i < count; ++i) {
            HostObject* tag = host.create(base, cotSource, i + 1, "IecArven");
            tag->set("caption", QString("Параметр %1").arg(i + 1));
            tag->set("tag_name", QByteArray("Var"));
        }
    }
};

// Calls of every slot of the table made on the folder's project since the
// last reset.
double HostCalls(HostProject& host) {
    int calls = 0;
    for (int slot = 0; slot < cfgSlotCount; ++slot)
        calls += host.calls(slot);
    host.resetCalls();
    return calls;
}

Folder& FolderOf(int count) {
    static std::map<int, std::unique_ptr<Folder>> folders;
    auto& folder = folders[count];
    if (!folder)
        folder.reset(new Folder(count));
    return *folder;
}

// The folder whose tags and subfolders the indexed table answers from lists
// of its own.
HostObject* indexedFolder = nullptr;
QList<HostObject*> indexedChildren[2]; // tags, folders

int IndexedChildCount(void* ob, int kind) {
    if (ob != indexedFolder || (kind != cotSource && kind != cotFolderSource))
        return reinterpret_cast<TcfgObChildCount>(HostProject::table()[slotObChildCount])(ob, kind);
    indexedFolder->project()->countCall(slotObChildCount);
    return indexedChildren[kind == cotFolderSource].size();
}

void* IndexedChild(void* ob, int kind, int index) {
    if (ob != indexedFolder || (kind != cotSource && kind != cotFolderSource))
        return reinterpret_cast<TcfgObChild>(HostProject::table()[slotObChild])(ob, kind, index);
    indexedFolder->project()->countCall(slotObChild);
    const QList<HostObject*>& list = indexedChildren[kind == cotFolderSource];
    return index >= 0 && index < list.size() ? list[index] : nullptr;
}

// The folder of the benchmark's first argument, with the table of its
// second made the plug-in's.
Folder& Prepare(benchmark::State& state) {
    Folder& folder = FolderOf(int(state.range(0)));
    static TCfgSlotFn indexed[cfgSlotCount];
    if (state.range(1) == 0) {
        pGlobcfgInterface = HostProject::table();
        return folder;
    }
    memcpy(indexed, HostProject::table(), sizeof indexed);
    indexed[slotObChildCount] = reinterpret_cast<TCfgSlotFn>(&IndexedChildCount);
    indexed[slotObChild] = reinterpret_cast<TCfgSlotFn>(&IndexedChild);
    indexedFolder = folder.base;
    indexedChildren[0] = folder.base->children(cotSource);
    indexedChildren[1] = folder.base->children(cotFolderSource);
    pGlobcfgInterface = indexed;
    return folder;
}

// The tags view as the form sets it up.
void SetUpView(QTreeView& view) {
    view.resize(400, 600);
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setSortingEnabled(true);
    view.header()->setStyleSheet("QHeaderView::section{background-color: lightgrey;}");
}

// The model goes on the view as the form does it on a change of unit, and
// the view is laid out and painted once.
void Show(QTreeView& view, UnitTagsModel& model, HostObject* folder) {
    view.setModel(nullptr);
    model.mode = cotSource;
    model.setRootNode(folder);
    view.setModel(&model);
    view.show();
    QApplication::processEvents();
    view.viewport()->repaint();
}

void BM_ShowFolder(benchmark::State& state) {
    Folder& folder = Prepare(state);
    double calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        QTreeView view;
        SetUpView(view);
        UnitTagsModel model;
        folder.host.resetCalls();
        state.ResumeTiming();

        Show(view, model, folder.base);

        state.PauseTiming();
        calls = HostCalls(folder.host);
        benchmark::DoNotOptimize(view.verticalScrollBar()->maximum());
        view.setModel(nullptr);
        state.ResumeTiming();
    }
    state.counters["rows"] = double(state.range(0));
    state.counters["host_calls"] = calls;
}

// From the top of a shown folder to its end, a page at a time, each page
// painted.
void BM_ScrollThrough(benchmark::State& state) {
    Folder& folder = Prepare(state);
    QTreeView view;
    SetUpView(view);
    UnitTagsModel model;
    Show(view, model, folder.base);
    QScrollBar* bar = view.verticalScrollBar();
    int pages = 0;
    double calls = 0;
    for (auto _ : state) {
        folder.host.resetCalls();
        pages = 0;
        for (int value = 0;; value += bar->pageStep()) {
            bar->setValue(value);
            view.viewport()->repaint();
            ++pages;
            if (value >= bar->maximum())
                break;
        }
        state.PauseTiming();
        calls = HostCalls(folder.host);
        bar->setValue(0);
        view.viewport()->repaint();
        state.ResumeTiming();
    }
    state.counters["pages"] = pages;
    state.counters["rows"] = double(state.range(0));
    state.counters["host_calls"] = calls;
    view.setModel(nullptr);
}

// The model alone: an index and a text for every row.
void BM_IndexEveryRow(benchmark::State& state) {
    Folder& folder = Prepare(state);
    UnitTagsModel model;
    model.mode = cotSource;
    model.setRootNode(folder.base);
    double calls = 0;
    for (auto _ : state) {
        folder.host.resetCalls();
        const int rows = model.rowCount();
        for (int r = 0; r < rows; ++r)
            benchmark::DoNotOptimize(model.index(r, 0).data());
        calls = HostCalls(folder.host);
    }
    state.counters["rows"] = double(state.range(0));
    state.counters["host_calls"] = calls;
}

void Sizes(benchmark::internal::Benchmark* b) {
    b->ArgNames({"tags", "indexed"});
    for (int indexed : {0, 1})
        for (int tags : {1000, 10000})
            b->Args({tags, indexed});
    b->Unit(benchmark::kMillisecond)->Iterations(3);
}

BENCHMARK(BM_ShowFolder)->Apply(Sizes);
BENCHMARK(BM_ScrollThrough)->Apply(Sizes);
BENCHMARK(BM_IndexEveryRow)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    return RunWidgetBenchmarks(argc, argv);
}
