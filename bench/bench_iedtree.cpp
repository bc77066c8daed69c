// The ICCP tree view with one large folder of variables opened: the time to
// lay out and paint the opened folder, to page through it, and the model's
// own cost of reaching every row and its parent. Rows are nodes of a linked
// list, so a row reached by position is where the cost shows.
#include "WidgetBenchRun.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QApplication>
#include <QScrollBar>
#include <QTreeView>
#include <benchmark/benchmark.h>

namespace {

// A VCC row holding a folder "Переменные" of `count` variable rows.
IEDTreeModel* MakeModel(int count) {
    auto model = new IEDTreeModel(nullptr);
    auto vcc = new myNode("VCC", nullptr);
    myNode* folder = vcc->AddChild("Переменные", nullptr);
    for (int i = 0; i < count; ++i)
        folder->AddChild("Var_" + std::to_string(i + 1), nullptr);
    model->setRootNode(vcc);
    return model;
}

QModelIndex FolderIndex(IEDTreeModel& model) {
    return model.index(0, 0, model.index(0, 0));
}

void BM_OpenFolder(benchmark::State& state) {
    IEDTreeModel* model = MakeModel(int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        QTreeView view;
        view.resize(400, 600);
        view.setModel(model);
        view.show();
        QApplication::processEvents();
        state.ResumeTiming();

        view.expand(model->index(0, 0));
        view.expand(FolderIndex(*model));
        view.scrollToBottom();
        view.viewport()->repaint();

        state.PauseTiming();
        view.setModel(nullptr);
        state.ResumeTiming();
    }
    state.counters["rows"] = double(state.range(0));
    delete model;
}

void BM_ScrollFolder(benchmark::State& state) {
    IEDTreeModel* model = MakeModel(int(state.range(0)));
    QTreeView view;
    view.resize(400, 600);
    view.setModel(model);
    view.expand(model->index(0, 0));
    view.expand(FolderIndex(*model));
    view.show();
    QApplication::processEvents();
    QScrollBar* bar = view.verticalScrollBar();
    int pages = 0;
    for (auto _ : state) {
        pages = 0;
        for (int value = 0;; value += bar->pageStep()) {
            bar->setValue(value);
            view.viewport()->repaint();
            ++pages;
            if (value >= bar->maximum())
                break;
        }
        state.PauseTiming();
        bar->setValue(0);
        view.viewport()->repaint();
        state.ResumeTiming();
    }
    state.counters["pages"] = pages;
    state.counters["rows"] = double(state.range(0));
    view.setModel(nullptr);
    delete model;
}

// An index, its text and its parent for every row, in order.
void BM_IndexEveryRow(benchmark::State& state) {
    IEDTreeModel* model = MakeModel(int(state.range(0)));
    const QModelIndex folder = FolderIndex(*model);
    for (auto _ : state) {
        const int rows = model->rowCount(folder);
        for (int r = 0; r < rows; ++r) {
            const QModelIndex row = model->index(r, 0, folder);
            benchmark::DoNotOptimize(row.data());
            benchmark::DoNotOptimize(model->parent(row));
        }
    }
    state.counters["rows"] = double(state.range(0));
    delete model;
}

void Sizes(benchmark::internal::Benchmark* b) {
    b->ArgNames({"rows"});
    for (int rows : {1000, 5000, 20000})
        b->Args({rows});
    b->Unit(benchmark::kMillisecond)->Iterations(3);
}

BENCHMARK(BM_OpenFolder)->Apply(Sizes);
BENCHMARK(BM_ScrollFolder)->Apply(Sizes);
BENCHMARK(BM_IndexEveryRow)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    return RunWidgetBenchmarks(argc, argv);
}
