// Renaming an ICC whose data sets hold many members, each with a bound tag:
// the data set keys, the tag list and every tag's "tag_id" are rewritten.
// The form is opened through the plug-in's entry on the stand-in host, and
// the ICC is renamed back and forth while it is shown.
#include "BenchUnit.h"
#include "WidgetBenchRun.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "plugin/CfgIecArvenlib.h"
#include "support/myNode.h"
#include "views/SomeModelsIED.h"

#include <QApplication>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

void BM_RenameICC(benchmark::State& state) {
    const int count = int(state.range(0));
    BenchUnit bench(1, 1);
    HostProject& host = bench.host;
    HostObject* folder = host.create(bench.unit, cotFolderSource, 0, "Arven");
    for (int i = 0; i < count; ++i) {
        HostObject* tag = host.create(folder, cotSource, i + 1, "IecArven");
        tag->set("tag_name", QByteArray("V"));
        tag->set("tag_type", 4);
        tag->set("domain", 1);
        tag->set("isinDataSet", 1);
        tag->set("tag_id", "ICC_1/V_" + QByteArray::number(i + 1));
    }
    // Runs inside the form's modal loop once it is shown.
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        CfgArvenSR* form = FCfgArvenSR;
        if (!form || !form->isVisible())
            return;
        poll.stop();
        auto icc = qobject_cast<DcLD*>(ListOb(pVCC->ICCs, 0));
        const QModelIndex row = form->pTreeIedModel->match(
            form->pTreeIedModel->index(0, 0), Qt::UserRole,
            QVariant::fromValue(static_cast<void*>(icc)), 1, Qt::MatchRecursive)[0];
        const std::string names[] = {"ICC_1", "North"};
        int turn = 0;
        for (auto _ : state) {
            const std::string old = icc->name;
            icc->name = names[++turn % 2];
            form->RenameLD(old, row, icc);
        }
        state.counters["members"] =
            double(qobject_cast<DcDataSet*>(ListOb(icc->DataSets, 0))->Elems.Count);
        form->close();
    });
    poll.start(0);
    CfgFormGet(HostProject::table(), bench.line, bench.unit, nullptr);
}

BENCHMARK(BM_RenameICC)
    ->ArgNames({"tags"})
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(4);

} // namespace

int main(int argc, char** argv) {
    return RunWidgetBenchmarks(argc, argv);
}
