// The opening and the close of the form on a unit whose "$DATARUN" holds a
// large text: a model of many variables, or bytes that are no XML at all.
// The opening rebuilds the model from the template and the tags; the text is
// read once, as the value of the unit's property row, which renders it up to
// its first zero byte: time linear in that length. The text is put back
// before each run, outside the measured time, since the close writes the
// model over it.
// The stand-in host's project file carries the same text: its writing and
// reading back are measured as well.
#include "BenchUnit.h"
#include "WidgetBenchRun.h"
#include "form/CfgIecArven.h"
#include "host/ProjectFile.h"
#include "plugin/CfgIecArvenlib.h"

#include <QApplication>
#include <QTextCodec>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

// A text of about `bytes` bytes: a model of that many variables, or
// garbage from a fixed sequence.
QByteArray StoredText(int bytes, bool model) {
    QByteArray text;
    text.reserve(bytes + 256);
    if (!model) {
        quint32 x = 12345;
        while (text.size() < bytes) {
            x = x * 1103515245u + 12345u;
            text.append(char(x >> 24));
        }
        return text;
    }
    text = "<?xml version = \"1.0\" ?>\n<DcTree>\n<DcVCC name = \"VCC\" >\n";
    for (int n = 1; text.size() < bytes; ++n)
        text += "  <DcDA name = \"V_" + QByteArray::number(n) +
                "\" type = \"Data_Real\" svalue = \"0\" desc = \"\" />\n";
    return text + "</DcVCC>\n</DcTree>\n";
}

void BM_Open(benchmark::State& state, bool model) {
    const QByteArray text = StoredText(int(state.range(0)) << 20, model);
    BenchUnit u(2, 3);
    QTimer close;
    close.setInterval(0);
    QObject::connect(&close, &QTimer::timeout, [] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal == FCfgArvenSR && modal->isVisible())
            modal->close();
    });
    close.start();
    for (auto _ : state) {
        state.PauseTiming();
        u.unit->set("$DATARUN", text);
        state.ResumeTiming();
        CfgFormGet(HostProject::table(), u.line, u.unit, nullptr);
        // What the host's main loop does once the form has returned.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.SetComplexityN(text.size());
}

void BM_ProjectRoundTrip(benchmark::State& state, bool model) {
    BenchUnit u(2, 3);
    u.unit->set("$DATARUN", StoredText(int(state.range(0)) << 20, model));
    for (auto _ : state) {
        HostProject back;
        if (!ProjectFromJson(back, ProjectToJson(u.host)))
            state.SkipWithError("the project isn't read back");
    }
    state.SetComplexityN(u.unit->get("$DATARUN").toByteArray().size());
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgName("MB")->Arg(1)->Arg(5)->Arg(25)->Arg(50);
    bench->Unit(benchmark::kMillisecond)->Iterations(3)->Complexity(benchmark::oN);
}
BENCHMARK_CAPTURE(BM_Open, model, true)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_Open, garbage, false)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_ProjectRoundTrip, model, true)->Apply(Sizes);
BENCHMARK_CAPTURE(BM_ProjectRoundTrip, garbage, false)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return RunWidgetBenchmarks(argc, argv);
}
