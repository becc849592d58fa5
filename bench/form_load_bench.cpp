// A form of 100 controls loaded to its first paint: our FormLoader with the library's
// controls (Txt, brd, a FormWizard) against Qt's QUiLoader with the same layout built of
// plain Qt widgets (a QLineEdit for each Txt, a QFrame for each brd, a plain QWidget for
// the FormWizard). Both files come from one layout table, so the geometry is the same.
// Each load reads the file, builds the widgets, shows the form and processes events
// until its first paint is done; closing and deleting the form is not timed.
//
// At the end a summary line gives the median time per load of both and their ratio.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QTemporaryDir>
#include <QUiLoader>
#include <QWidget>
#include <QXmlStreamWriter>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"

namespace {

enum class Kind { Txt, Brd, Wizard, Label, LineEdit, PushButton, CheckBox, GroupBox };

struct Item {
    Kind kind;
    QString name;
    QRect rect;
    int parent = -1;  // index of the holding group box, -1 for the form
    QString text;
};

constexpr QSize kFormSize(800, 730);

// 100 controls: 30 labelled Txt fields in 10 brd frames (two columns of five), four group
// boxes holding 9 line edits and 7 check boxes, 3 more line edits, 6 buttons and the
// FormWizard along the bottom.
std::vector<Item> layoutTable() {
    std::vector<Item> items;
    for (int column = 0; column < 2; ++column) {
        const int x = 10 + column * 395;
        for (int group = 0; group < 5; ++group) {
            const int y = 10 + group * 100;
            const int frame = column * 5 + group + 1;
            items.push_back({Kind::Brd,
                             QStringLiteral("brdGruppe%1").arg(frame),
                             QRect(x, y, 380, 94),
                             -1,
                             {}});
            for (int row = 0; row < 3; ++row) {
                const int field = (frame - 1) * 3 + row + 1;
                const int top = y + 8 + row * 27;
                items.push_back({Kind::Label, QStringLiteral("lblFeld%1").arg(field),
                                 QRect(x + 10, top + 2, 110, 20), -1,
                                 QStringLiteral("Feld %1").arg(field)});
                items.push_back({Kind::Txt, QStringLiteral("txtFeld%1").arg(field),
                                 QRect(x + 126, top, 240, 22), -1,
                                 QStringLiteral("Wert %1").arg(field)});
            }
        }
    }
    int edits = 0;
    int checks = 0;
    for (int box = 0; box < 4; ++box) {
        const int boxIndex = static_cast<int>(items.size());
        items.push_back({Kind::GroupBox, QStringLiteral("grpGruppe%1").arg(box + 1),
                         QRect(10 + box * 196, 515, 190, 150), -1,
                         QStringLiteral("Gruppe %1").arg(box + 1)});
        const int editCount = box == 0 ? 3 : 2;
        const int checkCount = box == 0 ? 1 : 2;
        int top = 24;
        for (int i = 0; i < editCount; ++i, top += 28) {
            ++edits;
            items.push_back({Kind::LineEdit, QStringLiteral("edtEingabe%1").arg(edits),
                             QRect(10, top, 170, 22), boxIndex,
                             QStringLiteral("Eingabe %1").arg(edits)});
        }
        for (int i = 0; i < checkCount; ++i, top += 24) {
            ++checks;
            items.push_back({Kind::CheckBox, QStringLiteral("chkOption%1").arg(checks),
                             QRect(10, top, 170, 20), boxIndex,
                             QStringLiteral("Option %1").arg(checks)});
        }
    }
    // Below the boxes: three more line edits and six buttons in two rows.
    for (int i = 0; i < 3; ++i) {
        ++edits;
        items.push_back({Kind::LineEdit, QStringLiteral("edtEingabe%1").arg(edits),
                         QRect(10 + i * 130, 672, 120, 22), -1,
                         QStringLiteral("Eingabe %1").arg(edits)});
    }
    for (int i = 0; i < 6; ++i) {
        const QPoint at = i < 3 ? QPoint(400 + i * 130, 671) : QPoint(10 + (i - 3) * 130, 702);
        items.push_back({Kind::PushButton, QStringLiteral("cmdAktion%1").arg(i + 1),
                         QRect(at, QSize(120, 24)), -1, QStringLiteral("Aktion %1").arg(i + 1)});
    }
    items.push_back(
        {Kind::Wizard, QStringLiteral("FormWizard1"), QRect(400, 704, 390, 22), -1, {}});
    return items;
}

// Our file names the library's controls; the plain file puts a Qt widget in their place.
QString className(Kind kind, bool ours) {
    switch (kind) {
        case Kind::Txt:
            return ours ? QStringLiteral("vorelle::Txt") : QStringLiteral("QLineEdit");
        case Kind::Brd:
            return ours ? QStringLiteral("vorelle::brd") : QStringLiteral("QFrame");
        case Kind::Wizard:
            return ours ? QStringLiteral("vorelle::FormWizard") : QStringLiteral("QWidget");
        case Kind::Label:
            return QStringLiteral("QLabel");
        case Kind::LineEdit:
            return QStringLiteral("QLineEdit");
        case Kind::PushButton:
            return QStringLiteral("QPushButton");
        case Kind::CheckBox:
            return QStringLiteral("QCheckBox");
        case Kind::GroupBox:
            return QStringLiteral("QGroupBox");
    }
    return {};
}

void writeRect(QXmlStreamWriter& xml, const QRect& r) {
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("geometry"));
    xml.writeStartElement(QStringLiteral("rect"));
    xml.writeTextElement(QStringLiteral("x"), QString::number(r.x()));
    xml.writeTextElement(QStringLiteral("y"), QString::number(r.y()));
    xml.writeTextElement(QStringLiteral("width"), QString::number(r.width()));
    xml.writeTextElement(QStringLiteral("height"), QString::number(r.height()));
    xml.writeEndElement();
    xml.writeEndElement();
}

void writeString(QXmlStreamWriter& xml, const QString& name, const QString& value, bool dynamic) {
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), name);
    if (dynamic) {
        xml.writeAttribute(QStringLiteral("stdset"), QStringLiteral("0"));
    }
    xml.writeTextElement(QStringLiteral("string"), value);
    xml.writeEndElement();
}

void writeItems(QXmlStreamWriter& xml, const std::vector<Item>& items, int parent, bool ours) {
    for (int i = 0; i < static_cast<int>(items.size()); ++i) {
        const Item& item = items[i];
        if (item.parent != parent) {
            continue;
        }
        xml.writeStartElement(QStringLiteral("widget"));
        xml.writeAttribute(QStringLiteral("class"), className(item.kind, ours));
        xml.writeAttribute(QStringLiteral("name"), item.name);
        writeRect(xml, item.rect);
        switch (item.kind) {
            case Kind::Txt:
                if (ours) {
                    writeString(xml, QStringLiteral("Text_de"), item.text, true);
                    writeString(xml, QStringLiteral("Text_en"), item.text, true);
                } else {
                    writeString(xml, QStringLiteral("text"), item.text, false);
                }
                break;
            case Kind::Brd:
                if (!ours) {
                    writeString(xml, QStringLiteral("frameShape"), QStringLiteral("QFrame::Box"),
                                false);
                }
                break;
            case Kind::GroupBox:
                writeString(xml, QStringLiteral("title"), item.text, false);
                writeItems(xml, items, i, ours);
                break;
            case Kind::Wizard:
                break;
            default:
                writeString(xml, QStringLiteral("text"), item.text, false);
                break;
        }
        xml.writeEndElement();
    }
}

QByteArray uiFile(const std::vector<Item>& items, bool ours) {
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("ui"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("4.0"));
    xml.writeTextElement(QStringLiteral("class"), QStringLiteral("frmLast"));
    xml.writeStartElement(QStringLiteral("widget"));
    xml.writeAttribute(QStringLiteral("class"), QStringLiteral("QWidget"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("frmLast"));
    writeRect(xml, QRect(QPoint(0, 0), kFormSize));
    writeString(xml, QStringLiteral("windowTitle"), QStringLiteral("Lasttest"), false);
    writeItems(xml, items, -1, ours);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndDocument();
    return out;
}

// The names of the table's widgets, to check that a load built all of them.
const QStringList& tableNames() {
    static const QStringList names = [] {
        QStringList n;
        for (const Item& item : layoutTable()) {
            n << item.name;
        }
        return n;
    }();
    return names;
}

// Empty when the widget holds every widget of the table, else what is missing.
QString missingWidgets(const QWidget& top) {
    QStringList missing;
    for (const QString& name : tableNames()) {
        if (!top.findChild<QWidget*>(name)) {
            missing << name;
        }
    }
    return missing.join(u' ');
}

struct Files {
    QTemporaryDir dir;
    QString ours;
    QString plain;
};

const Files& files() {
    static const Files* made = [] {
        auto* f = new Files;
        const std::vector<Item> items = layoutTable();
        f->ours = f->dir.filePath(QStringLiteral("frmLast.ui"));
        f->plain = f->dir.filePath(QStringLiteral("frmLastQt.ui"));
        for (const auto& [path, ours] : {std::pair{f->ours, true}, std::pair{f->plain, false}}) {
            QFile out(path);
            if (!out.open(QIODevice::WriteOnly) || out.write(uiFile(items, ours)) < 0) {
                std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
                std::exit(1);
            }
        }
        return f;
    }();
    return *made;
}

// Counts the paint events of a top-level widget.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
        }
        return false;
    }
};

// Shows the widget and processes events until its first paint is done; false when it
// never paints.
bool showToFirstPaint(QWidget& widget) {
    PaintCounter painted(&widget);
    widget.show();
    for (int round = 0; round < 10000 && painted.count == 0; ++round) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
    // The paint event has been delivered; let the rest of its round (the flush) finish.
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    return painted.count > 0;
}

void dispose(QWidget* widget) {
    widget->close();
    delete widget;
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void BM_FormLoader(benchmark::State& state) {
    vorelle::MemoryRegistry registry;
    vorelle::ScopedService<vorelle::RegistryBackend> scope(registry);
    const QString path = files().ours;
    for (auto _ : state) {
        std::unique_ptr<vorelle::Form> form;
        try {
            form = vorelle::FormLoader::load(path);
        } catch (const std::exception& e) {
            state.SkipWithError(e.what());
            break;
        }
        if (!showToFirstPaint(*form)) {
            state.SkipWithError("the form was never painted");
            break;
        }
        state.PauseTiming();
        const QString missing = missingWidgets(*form);
        dispose(form.release());
        if (!missing.isEmpty()) {
            state.SkipWithError(qPrintable(QStringLiteral("not built: ") + missing));
            break;
        }
        state.ResumeTiming();
    }
}

void BM_QUiLoader(benchmark::State& state) {
    const QString path = files().plain;
    for (auto _ : state) {
        QUiLoader loader;
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QWidget* widget = loader.load(&file);
        if (!widget) {
            state.SkipWithError(qPrintable(loader.errorString()));
            break;
        }
        if (!showToFirstPaint(*widget)) {
            state.SkipWithError("the form was never painted");
            break;
        }
        state.PauseTiming();
        const QString missing = missingWidgets(*widget);
        dispose(widget);
        if (!missing.isEmpty()) {
            state.SkipWithError(qPrintable(QStringLiteral("not built: ") + missing));
            break;
        }
        state.ResumeTiming();
    }
}

constexpr int kRepetitions = 9;

BENCHMARK(BM_FormLoader)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QUiLoader)
    ->Repetitions(kRepetitions)
    ->ReportAggregatesOnly(true)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

// The console report, keeping the medians for the summary line.
class SummaryReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& reports) override {
        for (const Run& run : reports) {
            if (run.aggregate_name == "median") {
                medians[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(reports);
    }

    std::map<std::string, double> medians;  // milliseconds
};

}  // namespace

int main(int argc, char** argv) {
    // The offscreen platform's screen is 800 by 600 pixels: the form would not fit, and its
    // manager would move and shrink it onto the screen at each load. A full HD screen.
    QTemporaryDir screens;
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen" && screens.isValid()) {
        const QString config = screens.filePath(QStringLiteral("screens.json"));
        QFile file(config);
        if (file.open(QIODevice::WriteOnly) &&
            file.write(R"({"screens": [{"name": "bench", "x": 0, "y": 0, "width": 1920, )"
                       R"("height": 1080, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})") >
                0) {
            file.close();
            qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.toLocal8Bit());
        }
    }
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto ours = reporter.medians.find("BM_FormLoader");
    const auto qt = reporter.medians.find("BM_QUiLoader");
    if (ours != reporter.medians.end() && qt != reporter.medians.end() && qt->second > 0) {
        std::printf(
            "form load to first paint (100 controls, median): FormLoader %.3f ms, "
            "QUiLoader %.3f ms, ratio %.2f (goal at most 1.50)\n",
            ours->second, qt->second, ours->second / qt->second);
    }
    benchmark::Shutdown();
    return 0;
}
