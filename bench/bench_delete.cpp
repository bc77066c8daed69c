// Deletes on the real form over a large unit of the stand-in host: a tag
// folder with its variables from the tag side, and a selection of variables
// with their tags from the model tree. The unit has `tags` tags of the
// transmitted kind in ten folders and four ICCs, a quarter structures, nine
// in ten in a data set; only the delete itself is timed. The form is opened
// once per run through the plug-in's entry, as the host opens it.
#include "BenchUnit.h"
#include "WidgetBenchRun.h"
#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/SomeModelsIED.h"
#include "views/UnitTagsModel.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <ctime>
#include <functional>
#include <memory>

namespace {

const int kFolders = 10;

// A unit whose base folder of transmitted values holds ten folders of
// tags / 10 tags each, and ten tags of its own, which keep the ten folders
// in view.
struct Project : BenchUnit {
    HostObject* folders[kFolders] = {};

    explicit Project(int tags) : BenchUnit(4, 10) {
        HostObject* base = host.create(unit, cotFolderPass, 1, "Arven");
        base->set("caption", QString("Передаваемые"));
        for (int f = 0; f < kFolders; ++f) {
            folders[f] = host.create(base, cotFolderPass, f + 2, "IecOrmelcli");
            folders[f]->set("caption", QString("Ячейка %1").arg(f + 1));
        }
        // Numbers are given: the host's free number is a walk of the unit.
        for (int i = 0; i < tags + kFolders; ++i) {
            HostObject* parent = i < kFolders ? base : folders[(i - kFolders) * kFolders / tags];
            HostObject* tag = host.create(parent, cotPass, i + 1, "IecArven");
            tag->set("tag_name", QByteArray("S"));
            tag->set("tag_type", i % 4 == 0 ? 28 : 4);
            // The base's own tags are out of view: their variables go to the VCC,
            // which gives them no rows.
            tag->set("domain", i < kFolders ? 0 : 1 + i % 4);
            tag->set("isinDataSet", i % 10 == 3 ? 0 : 1 + i / 4 % 10);
            tag->set("caption", QString("Сигнал %1").arg(i));
        }
    }
};

// Opens the form on the project's unit, runs `step` once it is up, closes it.
void InForm(Project& project, const std::function<void(CfgArvenSR*)>& step) {
    QTimer poll;
    bool done = false;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (done || !FCfgArvenSR || QApplication::activeModalWidget() != FCfgArvenSR)
            return;
        done = true;
        step(FCfgArvenSR);
        FCfgArvenSR->close();
    });
    poll.start(5);
    CfgFormGet(HostProject::table(), project.line, project.unit, nullptr);
}

// CPU time of this thread: the machine may be busy with other work.
double ThreadSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + t.tv_nsec / 1e9;
}

// Times one delete per iteration on a fresh project.
void Run(benchmark::State& state, const std::function<void(CfgArvenSR*, Project&)>& work) {
    double calls = 0;
    for (auto _ : state) {
        Project project(int(state.range(0)));
        double seconds = 0;
        InForm(project, [&](CfgArvenSR* form) {
            project.host.resetCalls();
            const double start = ThreadSeconds();
            work(form, project);
            seconds = ThreadSeconds() - start;
            for (int slot = 0; slot < cfgSlotCount; ++slot)
                calls += project.host.calls(slot);
        });
        state.SetIterationTime(seconds);
    }
    state.counters["tags"] = double(state.range(0));
    state.counters["host_calls"] = calls / double(state.iterations());
}

// The first folder, tags / 10 tags, deleted as the tag view's delete command
// does it once the question is answered.
void BM_DeleteTagFolder(benchmark::State& state) {
    Run(state, [&state](CfgArvenSR* form, Project& project) {
        const QModelIndex row = form->pTagsModel->index(0, 0);
        void* folder = row.data(Qt::UserRole).value<void*>();
        if (folder != project.folders[0]->handle())
            state.SkipWithError("the folder isn't the first row");
        form->DeleteTagOrFolder(folder);
        form->pTagsModel->DeleteNode(row, folder);
        if (HostObject::fromHandle(folder))
            state.SkipWithError("the folder is still there");
    });
}

// The first `selected` variables of ICC_1 selected in the tree and deleted
// with the tree's Delete key.
void BM_DeleteTreeSelection(benchmark::State& state) {
    const int selected = int(state.range(1));
    Run(state, [&](CfgArvenSR* form, Project&) {
        IEDTreeModel* model = form->pTreeIedModel;
        const QModelIndex icc = model->index(0, 0, model->index(2, 0, model->index(0, 0)));
        const QModelIndex vars = model->index(model->rowCount(icc) - 1, 0, icc);
        // The engineer opens the folder to select its rows.
        form->tVIed->expand(model->index(0, 0));
        form->tVIed->expand(model->parent(icc));
        form->tVIed->expand(icc);
        form->tVIed->expand(vars);
        QApplication::processEvents();
        const int before = model->rowCount(vars);
        QItemSelection rows(model->index(0, 0, vars), model->index(selected - 1, 1, vars));
        form->tVIed->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
        form->DeleteFromiedTree();
        if (model->rowCount(vars) != before - selected)
            state.SkipWithError("not every selected row went");
    });
    state.counters["selected"] = double(selected);
}

BENCHMARK(BM_DeleteTagFolder)
    ->ArgNames({"tags"})
    ->Args({25000})
    ->Args({50000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);
BENCHMARK(BM_DeleteTreeSelection)
    ->ArgNames({"tags", "selected"})
    ->Args({25000, 1000})
    ->Args({50000, 500})
    ->Args({50000, 1000})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

} // namespace

int main(int argc, char** argv) {
    // The form keeps its window settings in the current directory.
    QTemporaryDir dir;
    QDir::setCurrent(dir.path());
    return RunWidgetBenchmarks(argc, argv);
}
