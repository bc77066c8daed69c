// "Корректность тегов" on a large unit, the list answered "Удалить": one
// tag in ten has no key, so its title and its variable are listed and the
// variable is deleted, the tree rebuilt. The form is opened anew for each
// run, outside the measured time; the check and the delete are measured.
#include "BenchUnit.h"
#include "WidgetBenchRun.h"
#include "dialogs/Log4Tree.h"
#include "form/CfgIecArven.h"
#include "plugin/CfgIecArvenlib.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextCodec>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>

namespace {

// A unit of maxICC 4 and maxDS 10 holding `count` tags of the three
// examined kinds, in folders of 200 under one top folder per kind. Every
// fourth tag is a structure, whose key names its member "Value"; one in
// fifty lies in the VCC.
struct Unit : BenchUnit {
    explicit Unit(int count) : BenchUnit(4, 10) {
        HostObject* tops[3];
        for (int kind = 0; kind < 3; ++kind)
            tops[kind] = host.create(unit, kind + 8, 0, "Arven");
        HostObject* folders[3] = {};
        int inFolder[3] = {};
        for (int n = 1; n <= count; ++n) {
            const int kind = n % 3;
            if (!folders[kind] || inFolder[kind] == 200) {
                folders[kind] = host.create(tops[kind], kind + 8, 0, "IecOrmelcli");
                inFolder[kind] = 0;
            }
            ++inFolder[kind];
            HostObject* folder = folders[kind];
            const bool structure = n % 4 == 0;
            const int domain = n % 50 == 7 ? 0 : 1 + n % 4;
            HostObject* tag = host.create(folder, kind, n, "IecArven");
            tag->set("tag_name", QByteArray("V"));
            tag->set("tag_type", structure ? 28 : 4);
            tag->set("domain", domain);
            tag->set("isinDataSet", 1 + n % 10);
            tag->set("caption", QString("Сигнал %1").arg(n));
            if (n % 10 == 3)
                continue;
            QByteArray key = "V_" + QByteArray::number(n);
            if (domain)
                key = "ICC_" + QByteArray::number(domain) + "/" + key;
            tag->set("tag_id", structure ? key + "$Value" : key);
        }
    }
};

Unit& UnitOf(int count) {
    static std::map<int, std::unique_ptr<Unit>> units;
    auto& unit = units[count];
    if (!unit)
        unit.reset(new Unit(count));
    return *unit;
}

void BM_CheckAndDelete(benchmark::State& state) {
    Unit& u = UnitOf(int(state.range(0)));
    int listed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // Two timers: a timer's slot is not run again while it runs, and the
        // check runs inside one.
        QTimer open, answer;
        open.setInterval(0);
        answer.setInterval(0);
        bool checked = false;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            if (FLog4Tree && QApplication::activeModalWidget() == FLog4Tree) {
                listed = FLog4Tree->listWidget->count();
                FLog4Tree->buttonBox->button(QDialogButtonBox::Yes)->click();
            }
        });
        QObject::connect(&open, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (checked || !modal || modal != FCfgArvenSR || !modal->isVisible())
                return;
            checked = true;
            state.ResumeTiming();
            FCfgArvenSR->OnValTagTree();
            state.PauseTiming();
            modal->close();
        });
        open.start();
        answer.start();
        CfgFormGet(HostProject::table(), u.line, u.unit, nullptr);
        state.ResumeTiming();
    }
    state.counters["tags"] = double(state.range(0));
    state.counters["listed"] = listed;
}

BENCHMARK(BM_CheckAndDelete)
    ->ArgNames({"tags"})
    ->Arg(25000)
    ->Arg(50000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);

} // namespace

int main(int argc, char** argv) {
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return RunWidgetBenchmarks(argc, argv);
}
