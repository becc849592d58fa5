// Cost of one late-bound call by member name, as the form's manager makes on every mouse
// press, key, resize and activation. The anchor is Qt's own call by name,
// QMetaObject::invokeMethod, on the same object and member. The object is a Txt: a control
// with many members, as the calls in a running program meet them.
#include "QtBench.h"

#include <QApplication>

#include "foundation/LateBinding.h"
#include "textentry/Txt.h"

namespace {

// Anchor: Qt's call by name of a member without arguments.
void BM_InvokeMethodAnchor(benchmark::State& state) {
    vorelle::Txt txt;
    txt.startNew();
    for (auto _ : state) {
        benchmark::DoNotOptimize(QMetaObject::invokeMethod(&txt, "OLEDrag"));
    }
}

// The same member through LateCall.
void BM_LateCallMethod(benchmark::State& state) {
    vorelle::Txt txt;
    txt.startNew();
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorelle::LateCall(&txt, "OLEDrag"));
    }
}

// A member with four arguments that the object does not have (the usual case of a mouse
// event sent to a control that does not take it).
void BM_LateCallMissing(benchmark::State& state) {
    vorelle::Txt txt;
    txt.startNew();
    const QVariantList args{1, 0, 10.0F, 20.0F};
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorelle::LateCall(&txt, "MouseMove", args));
    }
}

// A member with three arguments, each converted to its parameter type.
void BM_LateCallWithArguments(benchmark::State& state) {
    vorelle::Txt txt;
    txt.startNew();
    const QVariantList args{1, 10.0F, 20.0F};
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorelle::LateCall(&txt, "MouseClick", args));
    }
}

BENCHMARK(BM_InvokeMethodAnchor);
BENCHMARK(BM_LateCallMethod);
BENCHMARK(BM_LateCallMissing);
BENCHMARK(BM_LateCallWithArguments);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv);
}
