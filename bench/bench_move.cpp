// "Переместить объект(ы) " on every member of one large data set, through
// the real form on the stand-in host: the time of the command alone, from
// the dialog's answer to the last row taken off the content list. The
// second argument is the move: 1 another data set of the same ICC, 3
// another ICC and another data set, where every variable is made anew.
#include "BenchUnit.h"
#include "WidgetBenchRun.h"
#include "dialogs/Mode4MoveOb.h"
#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

// A unit with two ICCs of three data sets each and `count` tags, all in
// the first data set of ICC_1.
struct Project : BenchUnit {
    explicit Project(int count) : BenchUnit(2, 3) {
        HostObject* folder = host.create(unit, cotFolderSource, 0, "Arven");
        for (int i = 0; i < count; ++i) {
            HostObject* tag = host.create(folder, cotSource, i + 1, "IecArven");
            tag->set("tag_name", QByteArray("Var"));
            tag->set("tag_type", 4);
            tag->set("domain", 1);
            tag->set("isinDataSet", 1);
            tag->set("caption", QString("Сигнал %1").arg(i + 1));
        }
    }
};

// Opens the form, moves every member of ICC_1/DataSet_1 to the place the
// dialog is told, and closes it; the seconds of the move.
double MoveAll(Project& project, int domain, int dataSet, int& moved) {
    double seconds = 0;
    QTimer::singleShot(0, [&] {
        CfgArvenSR* form = FCfgArvenSR;
        form->lWInfo->setCurrentItem(
            form->lWInfo->findItems("ICC_1/DataSet_1", Qt::MatchExactly).value(0));
        form->lWInfo_2->selectAll();
        moved = form->lWInfo_2->selectedItems().size();
        QElapsedTimer clock;
        auto answer = new QTimer;
        QObject::connect(answer, &QTimer::timeout, [&, answer] {
            if (!FMode4MoveOb || !FMode4MoveOb->isVisible())
                return;
            answer->deleteLater();
            answer->stop();
            FMode4MoveOb->cBDomain->setCurrentIndex(domain);
            FMode4MoveOb->cBDataSet->setCurrentIndex(dataSet);
            clock.start();
            FMode4MoveOb->accept();
        });
        answer->start(1);
        form->actMoveOb->trigger();
        seconds = clock.nsecsElapsed() / 1e9;
        form->close();
    });
    CfgFormGet(HostProject::table(), project.line, project.unit, nullptr);
    return seconds;
}

void BM_MoveDataSetMembers(benchmark::State& state) {
    QTemporaryDir dir;
    const QString oldDir = QDir::currentPath();
    QDir::setCurrent(dir.path());
    const bool otherIcc = state.range(1) == 3;
    int moved = 0;
    for (auto _ : state) {
        // Each run starts from the tags as they were.
        Project project(int(state.range(0)));
        state.SetIterationTime(MoveAll(project, otherIcc ? 2 : 1, 2, moved));
    }
    state.counters["moved"] = moved;
    QDir::setCurrent(oldDir);
}

void Sizes(benchmark::internal::Benchmark* b) {
    b->ArgNames({"vars", "mode"});
    for (int mode : {1, 3})
        for (int vars : {5000, 20000})
            b->Args({vars, mode});
    b->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(2);
}

BENCHMARK(BM_MoveDataSetMembers)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    return RunWidgetBenchmarks(argc, argv);
}
