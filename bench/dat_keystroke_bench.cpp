// Cost of one keystroke into a date field, from the key event to the Change notification,
// typing the date 24.12.2010 field by field: a Dat (day, month and year boxes, each
// completed field checked and shown anew) against a plain QDateEdit, shown and focused,
// that receives the same key events. Both start from 01.01.2000 on a German locale, and
// each field (section) is selected before its digits are typed.
#include "QtBench.h"

#include <QApplication>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>

#include "foundation/Locale.h"
#include "host/input/EntryField.h"
#include "numberdate/Dat.h"

namespace {

constexpr int kBatch = 8;
const char* const kKeys = "24122010";

using vorelle::bench::press;

const QLocale kGerman(QLocale::German, QLocale::Germany);

void BM_PlainDateEdit(benchmark::State& state) {
    QDateEdit edit;
    edit.setLocale(kGerman);
    edit.setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    edit.resize(120, 24);
    edit.show();
    edit.setFocus();
    qint64 changes = 0;
    QObject::connect(&edit, &QDateEdit::dateChanged, [&changes] { ++changes; });
    QLineEdit* line = edit.findChild<QLineEdit*>();
    for (auto _ : state) {
        edit.setDate(QDate(2000, 1, 1));
        edit.setSelectedSection(QDateTimeEdit::DaySection);
        for (int i = 0; i < kBatch; ++i) {
            if (i == 2) {
                edit.setSelectedSection(QDateTimeEdit::MonthSection);
            } else if (i == 4) {
                edit.setSelectedSection(QDateTimeEdit::YearSection);
            }
            press(&edit, kKeys[i]);
        }
    }
    if (edit.date() != QDate(2010, 12, 24)) {
        state.SkipWithError(qPrintable(QStringLiteral("typed %1").arg(line->text())));
    }
    benchmark::DoNotOptimize(changes);
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_Dat(benchmark::State& state) {
    vorelle::SystemLocale german(kGerman);
    vorelle::Locale* previous = vorelle::Locale::setInstance(&german);
    {
        vorelle::Dat dat;
        dat.startNew();
        qint64 changes = 0;
        QObject::connect(&dat, &vorelle::Dat::Change, [&changes] { ++changes; });
        const vorelle::DatePart parts[] = {vorelle::DatePart::Day, vorelle::DatePart::Month,
                                           vorelle::DatePart::Year};
        for (auto _ : state) {
            dat.setDatum(QStringLiteral("01.01.2000"));
            int key = 0;
            for (const vorelle::DatePart part : parts) {
                vorelle::EntryField* field = dat.field(part);
                field->selectAll();
                const int width = part == vorelle::DatePart::Year ? 4 : 2;
                for (int i = 0; i < width; ++i) {
                    press(field, kKeys[key++]);
                }
            }
        }
        if (dat.Datum() != QStringLiteral("24.12.2010") || changes == 0) {
            state.SkipWithError(qPrintable(QStringLiteral("typed %1").arg(dat.Datum())));
        }
        state.SetItemsProcessed(state.iterations() * kBatch);
    }
    vorelle::Locale::setInstance(previous);
}

BENCHMARK(BM_PlainDateEdit);
BENCHMARK(BM_Dat);

}  // namespace

int main(int argc, char** argv) {
    return vorelle::bench::runBenchmarks(argc, argv);
}
