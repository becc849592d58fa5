// Updating a progress display 1,000 times with a new value, each followed by a repaint of
// the widget, as a program that reports progress from a loop does:
//   BM_QProgressBar  Qt's own progress bar, 200 by 22 pixels, values 0 to 1,000
//   BM_prb           the progress bar, 3000 by 330 twips (200 by 22 pixels), with a caption
//   BM_prc           the progress clock, 1200 twips (80 pixels) square
// Each widget stands shown on its own window, on the platform of QT_QPA_PLATFORM
// (offscreen by default). The target: prb and prc within twice the time of QProgressBar.
#include "QtBench.h"

#include <QApplication>
#include <QProgressBar>

#include "display/prb.h"
#include "display/prc.h"
#include "host/form/Form.h"

namespace {

constexpr int kUpdates = 1000;

void BM_QProgressBar(benchmark::State& state) {
    QWidget window;
    auto* bar = new QProgressBar(&window);
    bar->setGeometry(10, 10, 200, 22);
    bar->setRange(0, kUpdates);
    window.show();
    QApplication::processEvents();
    for (auto _ : state) {
        for (int i = 0; i < kUpdates; ++i) {
            bar->setValue(i);
            bar->repaint();
        }
    }
    state.SetItemsProcessed(state.iterations() * kUpdates);
}

void BM_prb(benchmark::State& state) {
    vorelle::Form form;
    form.setName(QStringLiteral("frmBench"));
    auto* bar = new vorelle::prb(&form);
    bar->setObjectName(QStringLiteral("prbBench"));
    bar->startNew();
    bar->move(10, 10);
    bar->setCaption_en(QStringLiteral("Copying"));
    form.show();
    QApplication::processEvents();
    for (auto _ : state) {
        for (int i = 0; i < kUpdates; ++i) {
            bar->setPercent(static_cast<double>(i) / kUpdates);
            bar->repaint();
        }
    }
    state.SetItemsProcessed(state.iterations() * kUpdates);
}

void BM_prc(benchmark::State& state) {
    vorelle::Form form;
    form.setName(QStringLiteral("frmBench"));
    auto* clock = new vorelle::prc(&form);
    clock->setObjectName(QStringLiteral("prcBench"));
    clock->startNew();
    clock->move(10, 10);
    clock->setWidth(1200);
    form.show();
    QApplication::processEvents();
    for (auto _ : state) {
        for (int i = 0; i < kUpdates; ++i) {
            clock->setPercent(static_cast<double>(i) / kUpdates);
            clock->repaint();
        }
    }
    state.SetItemsProcessed(state.iterations() * kUpdates);
}

BENCHMARK(BM_QProgressBar)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_prb)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_prc)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv, vorelle::bench::Store::InMemory);
}
