// Cost of one keystroke into a numeric field, from the key event to the Change
// notification with the text written anew with thousands separators: a Num with two
// decimals against a plain QDoubleSpinBox that shows group separators and receives the
// same key events. Both type the same 12 digits on a German locale and are then set
// back to 0 with the whole text selected.
#include "QtBench.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "foundation/Locale.h"
#include "host/input/EntryField.h"
#include "numberdate/Num.h"

namespace {

constexpr int kBatch = 12;
const char* const kKeys = "123456789012";

using vorelle::bench::press;

const QLocale kGerman(QLocale::German, QLocale::Germany);

void BM_PlainDoubleSpinBox(benchmark::State& state) {
    QDoubleSpinBox spin;
    spin.setLocale(kGerman);
    spin.setRange(0, 1e12);
    spin.setDecimals(2);
    spin.setGroupSeparatorShown(true);
    spin.resize(200, 24);
    qint64 changes = 0;
    QObject::connect(&spin, &QDoubleSpinBox::valueChanged, [&changes] { ++changes; });
    QLineEdit* edit = spin.findChild<QLineEdit*>();
    for (auto _ : state) {
        spin.setValue(0);
        spin.selectAll();
        for (int i = 0; i < kBatch; ++i) {
            press(edit, kKeys[i]);
        }
    }
    if (spin.value() != 123456789012.0) {
        state.SkipWithError(qPrintable(QStringLiteral("typed %1").arg(spin.text())));
    }
    benchmark::DoNotOptimize(changes);
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_Num(benchmark::State& state) {
    vorelle::SystemLocale german(kGerman);
    vorelle::Locale* previous = vorelle::Locale::setInstance(&german);
    {
        vorelle::Num num;
        num.startNew();
        num.setWidth(3000);
        num.setNachkommastellen(2);
        qint64 changes = 0;
        QObject::connect(&num, &vorelle::Num::Change, [&changes] { ++changes; });
        vorelle::EntryField* field = num.field();
        for (auto _ : state) {
            num.setZahl(0);
            field->selectAll();
            for (int i = 0; i < kBatch; ++i) {
                press(field, kKeys[i]);
            }
        }
        if (field->text() != QStringLiteral("123.456.789.012,00") || changes == 0) {
            state.SkipWithError(qPrintable(QStringLiteral("typed %1").arg(field->text())));
        }
        state.SetItemsProcessed(state.iterations() * kBatch);
    }
    vorelle::Locale::setInstance(previous);
}

BENCHMARK(BM_PlainDoubleSpinBox);
BENCHMARK(BM_Num);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv);
}
