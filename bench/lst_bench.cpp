// Filling a list with 10,000 entries and showing it, as a program that loads a long list
// into a form does:
//   BM_QListWidget         Qt's own list widget, QListWidget::addItems with the texts, shown
//   BM_QListWidgetUniform  the same with uniform row heights, as the list box lays its rows out
//   BM_Lst                 the list box, List_en set to the same texts as one pipe-separated
//                          list, then shown
// Each iteration builds the widget on a window, fills it, shows it and paints it once, on
// the platform of QT_QPA_PLATFORM (offscreen by default). The target: Lst within twice the
// time of QListWidget.
#include "QtBench.h"

#include <QApplication>
#include <QListWidget>

#include "choice/Lst.h"
#include "host/form/Form.h"

namespace {

constexpr int kEntries = 10000;

QStringList texts() {
    QStringList all;
    all.reserve(kEntries);
    for (int i = 0; i < kEntries; ++i) {
        all << QStringLiteral("Eintrag %1 der Liste").arg(i, 5, 10, QLatin1Char('0'));
    }
    return all;
}

void fillQListWidget(benchmark::State& state, bool uniform) {
    const QStringList all = texts();
    for (auto _ : state) {
        QWidget window;
        auto* list = new QListWidget(&window);
        list->setUniformItemSizes(uniform);
        list->setGeometry(10, 10, 200, 300);
        list->addItems(all);
        window.show();
        list->repaint();
        benchmark::DoNotOptimize(list->count());
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}

void BM_QListWidget(benchmark::State& state) {
    fillQListWidget(state, false);
}

void BM_QListWidgetUniform(benchmark::State& state) {
    fillQListWidget(state, true);
}

void BM_Lst(benchmark::State& state) {
    const QString joined = texts().join(u'|');
    for (auto _ : state) {
        vorelle::Form form;
        form.setName(QStringLiteral("frmBench"));
        auto* list = new vorelle::Lst(&form);
        list->setObjectName(QStringLiteral("lstBench"));
        list->startNew();
        list->setGeometry(10, 10, 200, 300);
        list->setList_en(joined);
        form.show();
        list->repaint();
        if (list->ListCount() != kEntries) {
            state.SkipWithError("the list box does not show every entry");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}

BENCHMARK(BM_QListWidget)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QListWidgetUniform)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Lst)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv, vorelle::bench::Store::InMemory);
}
