// The store's write and read against QSettings' INI files, the usual way of a Qt program
// to keep a few settings: a fresh QSettings object per call, setValue + sync for a write,
// value for a read. Both hold the same 100 values of one form. BM_RegGet reads them over and
// over (the store keeps what it read while nobody writes); BM_RegGetFirstRead reads values
// that it has not read before, as a form does at its start.
#include <benchmark/benchmark.h>

#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"

namespace {

constexpr int kNames = 100;

QTemporaryDir& folder() {
    static QTemporaryDir dir;
    return dir;
}

const QStringList& names() {
    static const QStringList list = [] {
        QStringList n;
        for (int i = 0; i < kNames; ++i) {
            n << QStringLiteral("txt%1.Text_de").arg(i);
        }
        return n;
    }();
    return list;
}

QString valueOf(int i) {
    return QStringLiteral("Kunde %1, Hauptstraße 7, 12345 Musterstadt").arg(i);
}

const QString kProgram = QStringLiteral("Bench");
const QString kForm = QStringLiteral("frmKunden");

// A store file of its own per benchmark, filled with the values.
class Store {
public:
    explicit Store(const char* name)
        : registry_(folder().filePath(QString::fromLatin1(name))), scope_(registry_) {
        for (int i = 0; i < kNames; ++i) {
            vorelle::RegSet(kProgram, kForm, names().at(i), valueOf(i));
        }
    }

private:
    vorelle::SqliteRegistry registry_;
    vorelle::ScopedService<vorelle::RegistryBackend> scope_;
};

QString iniFile(const char* name) {
    const QString file = folder().filePath(QString::fromLatin1(name));
    QSettings settings(file, QSettings::IniFormat);
    for (int i = 0; i < kNames; ++i) {
        settings.setValue(kForm + u'/' + names().at(i), valueOf(i));
    }
    settings.sync();
    return file;
}

void BM_RegSet(benchmark::State& state) {
    Store store("regset.db");
    int i = 0;
    for (auto _ : state) {
        vorelle::RegSet(kProgram, kForm, names().at(i % kNames), valueOf(i));
        ++i;
    }
}

void BM_RegGet(benchmark::State& state) {
    Store store("regget.db");
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            vorelle::RegGet(kProgram, kForm, names().at(i % kNames), QString()));
        ++i;
    }
}

// Every read the first of its value, as when forms start: 500 forms of 40 values each, read
// form by form, more of them than the process keeps, so that each value read before is gone
// when it comes round again.
void BM_RegGetFirstRead(benchmark::State& state) {
    constexpr int kForms = 500;
    constexpr int kPerForm = 40;
    static const QStringList forms = [] {
        QStringList n;
        for (int i = 0; i < kForms; ++i) {
            n << QStringLiteral("frmForm%1").arg(i);
        }
        return n;
    }();
    static const QStringList fields = [] {
        QStringList n;
        for (int i = 0; i < kPerForm; ++i) {
            n << QStringLiteral("txt%1.Text_de").arg(i);
        }
        return n;
    }();
    vorelle::SqliteRegistry registry(folder().filePath(QStringLiteral("firstread.db")));
    vorelle::ScopedService<vorelle::RegistryBackend> scope(registry);
    registry.begin(true);
    for (int f = 0; f < kForms; ++f) {
        for (int i = 0; i < kPerForm; ++i) {
            vorelle::RegSet(kProgram, forms.at(f), fields.at(i), valueOf(i));
        }
    }
    registry.end();
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vorelle::RegGet(kProgram, forms.at((i / kPerForm) % kForms),
                                                 fields.at(i % kPerForm), QString()));
        ++i;
    }
}

void BM_QSettingsWrite(benchmark::State& state) {
    const QString file = iniFile("write.ini");
    int i = 0;
    for (auto _ : state) {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue(kForm + u'/' + names().at(i % kNames), valueOf(i));
        settings.sync();
        ++i;
    }
}

void BM_QSettingsRead(benchmark::State& state) {
    const QString file = iniFile("read.ini");
    int i = 0;
    for (auto _ : state) {
        QSettings settings(file, QSettings::IniFormat);
        benchmark::DoNotOptimize(settings.value(kForm + u'/' + names().at(i % kNames)));
        ++i;
    }
}

constexpr int kRepetitions = 9;

BENCHMARK(BM_RegSet)->Repetitions(kRepetitions)->ReportAggregatesOnly(true)->UseRealTime();
BENCHMARK(BM_QSettingsWrite)->Repetitions(kRepetitions)->ReportAggregatesOnly(true)->UseRealTime();
BENCHMARK(BM_RegGet)->Repetitions(kRepetitions)->ReportAggregatesOnly(true)->UseRealTime();
BENCHMARK(BM_RegGetFirstRead)->Repetitions(kRepetitions)->ReportAggregatesOnly(true)->UseRealTime();
BENCHMARK(BM_QSettingsRead)->Repetitions(kRepetitions)->ReportAggregatesOnly(true)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
