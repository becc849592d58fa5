#include <benchmark/benchmark.h>

#include "foundation/Zentral.h"

static void BM_PslItemWalk(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    QStringList items;
    for (int i = 0; i < n; ++i) {
        items << QStringLiteral("item%1").arg(i);
    }
    const QString list = items.join(u'|');
    for (auto _ : state) {
        for (int i = 1; i <= n; ++i) {
            benchmark::DoNotOptimize(vorelle::PslItem(list, i));
        }
    }
    state.SetComplexityN(n);
}
BENCHMARK(BM_PslItemWalk)->Arg(100)->Arg(1000)->Arg(10000)->Complexity();

BENCHMARK_MAIN();
