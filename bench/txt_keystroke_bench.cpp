// Cost of one keystroke from the key event to the Change notification: a Txt with
// ValidChars, CharReplace and TypingBehavior 3 against a plain QLineEdit that receives the
// same key events. Both type the same 16 characters and are then emptied.
#include "QtBench.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "host/input/EntryField.h"
#include "textentry/Txt.h"

namespace {

constexpr int kBatch = 16;
const char* const kKeys = "hans peter mulle";  // 16 characters, two blanks to replace

using vorelle::bench::press;

void BM_PlainLineEdit(benchmark::State& state) {
    QLineEdit edit;
    edit.resize(200, 20);
    qint64 changes = 0;
    QObject::connect(&edit, &QLineEdit::textChanged, [&changes] { ++changes; });
    for (auto _ : state) {
        for (int i = 0; i < kBatch; ++i) {
            press(&edit, kKeys[i]);
        }
        edit.clear();
    }
    benchmark::DoNotOptimize(changes);
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_TxtWithRules(benchmark::State& state) {
    vorelle::Txt txt;
    txt.startNew();
    txt.setValidChars(
        QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜß- "));
    txt.setCharReplace(QStringLiteral(" =-|_=-"));
    txt.setTypingBehavior(3);
    txt.setMaxLength(0);
    qint64 changes = 0;
    QObject::connect(&txt, &vorelle::Txt::Change, [&changes] { ++changes; });
    vorelle::EntryField* field = txt.field();
    for (auto _ : state) {
        for (int i = 0; i < kBatch; ++i) {
            press(field, kKeys[i]);
        }
        field->clear();
    }
    if (field->text().isEmpty() && changes == 0) {
        state.SkipWithError("no change was raised");
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}

BENCHMARK(BM_PlainLineEdit);
BENCHMARK(BM_TxtWithRules);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv);
}
