#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <sstream>

#include "PlaceDoubles.h"
#include "errors/ScopedLanguage.h"
#include "formwizard/WindowPosition.h"
#include "foundation/MemoryRegistry.h"
#include "host/platform/Screen.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

QT_BEGIN_NAMESPACE
inline void PrintTo(const QRect& r, std::ostream* os) {
    *os << r.x() << ',' << r.y() << ' ' << r.width() << 'x' << r.height();
}
QT_END_NAMESPACE

namespace vorelle {
namespace {

std::string text(const QRect& r) {
    std::ostringstream out;
    PrintTo(r, &out);
    return out.str();
}

using test::Box;
using test::placeOfForm;
using test::placeOfKey;
using test::placeValue;
using test::setPlaceValue;

class WindowPositionTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    test::FakeMessageBox boxes;
    ScopedService<MessageBoxService> boxScope{boxes};
    test::FakeProcessExit exits;
    ScopedService<ProcessExit> exitScope{exits};
    test::ScopedLogFolder logs;
};

TEST_F(WindowPositionTest, FirstRunKeepsThePlaceAndTheFormReappearsWhereItWasLeft) {
    auto form = test::managedForm(QStringLiteral("frmKunden"));
    form->show();
    const QString design = placeOfForm(*form);
    EXPECT_EQ(placeOfKey(QStringLiteral("frmKunden_init")), design) << "the design sizes";
    EXPECT_EQ(placeValue(QStringLiteral("frmKunden"), QStringLiteral("Width")), "<none>")
        << "no size of the current layout before the first unload";

    form->setLeft(1500);
    form->setTop(1200);
    form->setWidth(6750);
    form->setHeight(5250);
    const QString left = placeOfForm(*form);
    ASSERT_EQ(left, "1500|1200|6750|5250|0");
    form->close();
    EXPECT_EQ(placeOfKey(QStringLiteral("frmKunden")), left);

    auto again = test::managedForm(QStringLiteral("frmKunden"));
    again->show();
    EXPECT_EQ(placeOfForm(*again), left);
    EXPECT_EQ(placeOfKey(QStringLiteral("frmKunden_init")), design)
        << "the design sizes are recorded before the last place is applied";

    // A fixed dialog moves but keeps its design size.
    auto fixed = test::managedForm(QStringLiteral("frmKunden"));
    fixed->setBorderStyle(3);
    fixed->show();
    EXPECT_EQ(fixed->Left(), 1500);
    EXPECT_EQ(fixed->Top(), 1200);
    EXPECT_EQ(QStringLiteral("%1|%2").arg(fixed->Width()).arg(fixed->Height()),
              design.section(u'|', 2, 3));

    // Without doPosLoadSave nothing is read or written.
    auto off = test::managedForm(QStringLiteral("frmAus"),
                                 [](FormWizard* w) { w->setDoPosLoadSave(false); });
    off->show();
    off->close();
    EXPECT_EQ(placeOfKey(QStringLiteral("frmAus")).section(u'|', 2), "<none>|<none>|<none>")
        << "the window procedure keeps Left and Top of each move on its own";
    EXPECT_EQ(placeOfKey(QStringLiteral("frmAus_init")), "<none>|<none>|<none>|<none>|<none>");
}

TEST_F(WindowPositionTest, MaximisedSavesItsNormalSizeAndMinimisedIsNotRestored) {
    auto form = test::managedForm(QStringLiteral("frmGross"));
    form->show();
    form->setLeft(1200);
    form->setTop(900);
    form->setWidth(form->Width() + 150);  // the normal place is taken at each Resize
    const QString normal = placeOfForm(*form);
    form->showMaximized();
    QCoreApplication::processEvents();
    ASSERT_EQ(form->WindowState(), 2);
    form->close();
    EXPECT_EQ(placeOfKey(QStringLiteral("frmGross")), normal.section(u'|', 0, 3) + "|2");

    auto again = test::managedForm(QStringLiteral("frmGross"));
    again->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(again->WindowState(), 2);
    again->showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOfForm(*again), normal);

    setPlaceValue(QStringLiteral("frmKlein"), QStringLiteral("WindowState"), QStringLiteral("1"));
    auto minimised = test::managedForm(QStringLiteral("frmKlein"));
    minimised->show();
    EXPECT_EQ(minimised->WindowState(), 0);
}

TEST_F(WindowPositionTest, AnEmptyOrZeroDimensionTextKeepsTheOlderSize) {
    Form form;
    form.setName(QStringLiteral("frmLeer"));
    auto* stand = new test::DimensionsStandIn(&form);
    stand->setObjectName(QStringLiteral("FormWizard1"));
    setPlaceValue(QStringLiteral("frmLeer"), QStringLiteral("Width"), QStringLiteral("4500"));
    for (const char* text : {"", "0|0|0|0"}) {
        stand->dimensions = QString::fromLatin1(text);
        WindowPosSave(&form, false, false);
        EXPECT_EQ(placeOfKey(QStringLiteral("frmLeer")), "<none>|<none>|4500|<none>|0") << text;
    }
    stand->dimensions = QStringLiteral("15|30|4800|3600");
    WindowPosSave(QStringLiteral("FRMLEER"), false, true);
    EXPECT_EQ(placeOfKey(QStringLiteral("frmLeer_init")), "15|30|4800|3600|0");
}

TEST_F(WindowPositionTest, ControlsAndGridColumnsComeBackAndSkippedTypesAreLeftAlone) {
    auto form = test::managedForm(QStringLiteral("frmListe"),
                                  [](FormWizard* w) { w->setDoLoadSaveWithControls(true); });
    Box* box = test::addBox(form.get(), QStringLiteral("txtName"), QRect(10, 20, 100, 22));
    auto* panel = new QWidget(form.get());  // a plain widget of the host
    panel->setObjectName(QStringLiteral("pnlRest"));
    panel->setGeometry(5, 60, 200, 100);
    auto* timer = new test::TimerStandIn(form.get());
    timer->setObjectName(QStringLiteral("tmrAuto"));
    auto* grid = new test::FakeGrid(3, form.get());
    grid->setObjectName(QStringLiteral("grdPosten"));
    auto* list = new test::FakeListView(2, form.get());
    list->setObjectName(QStringLiteral("lvwDateien"));
    list->cols->items[0]->key = QStringLiteral("Name");
    form->show();

    // The design places, without the grid's column widths.
    EXPECT_EQ(placeOfKey(QStringLiteral("frmListe_init\\txtName")), "150|300|1500|330|<none>");
    EXPECT_EQ(placeValue(QStringLiteral("frmListe_init\\pnlRest"), QStringLiteral("Top")), "900");
    EXPECT_EQ(placeValue(QStringLiteral("frmListe_init\\tmrAuto"), QStringLiteral("Left")),
              "<none>");
    EXPECT_EQ(
        placeValue(QStringLiteral("frmListe_init\\grdPosten"), QStringLiteral("Columns.Count")),
        "3");
    EXPECT_EQ(placeValue(QStringLiteral("frmListe_init\\grdPosten\\Headers\\Col1"),
                         QStringLiteral("Width")),
              "<none>");

    box->setGeometry(30, 40, 120, 22);
    panel->move(7, 70);
    timer->move(99, 99);
    grid->rowHeight = 300;
    grid->cols->items[1]->width = 2400;
    list->cols->items[0]->width = 3000;
    list->cols->items[1]->position = 1;
    form->close();
    EXPECT_EQ(
        placeValue(QStringLiteral("frmListe\\grdPosten\\Headers\\Col2"), QStringLiteral("Width")),
        "2400");
    EXPECT_EQ(
        placeValue(QStringLiteral("frmListe\\lvwDateien\\Headers\\Name"), QStringLiteral("Width")),
        "3000");
    EXPECT_EQ(placeValue(QStringLiteral("frmListe\\lvwDateien\\Headers\\Col2"),
                         QStringLiteral("Position")),
              "1");

    // The next run: more stored columns than the grid has are added, widths without a value
    // become 1800; a value that holds no number changes nothing.
    setPlaceValue(QStringLiteral("frmListe\\grdPosten"), QStringLiteral("Columns.Count"),
                  QStringLiteral("5"));
    setPlaceValue(QStringLiteral("frmListe\\txtName"), QStringLiteral("Height"),
                  QStringLiteral("hoch"));
    auto again = test::managedForm(QStringLiteral("frmListe"),
                                   [](FormWizard* w) { w->setDoLoadSaveWithControls(true); });
    Box* box2 = test::addBox(again.get(), QStringLiteral("txtName"), QRect(10, 20, 100, 22));
    auto* panel2 = new QWidget(again.get());
    panel2->setObjectName(QStringLiteral("pnlRest"));
    panel2->setGeometry(5, 60, 200, 100);
    auto* timer2 = new test::TimerStandIn(again.get());
    timer2->setObjectName(QStringLiteral("tmrAuto"));
    auto* grid2 = new test::FakeGrid(2, again.get());
    grid2->setObjectName(QStringLiteral("grdPosten"));
    auto* list2 = new test::FakeListView(2, again.get());
    list2->setObjectName(QStringLiteral("lvwDateien"));
    list2->cols->items[0]->key = QStringLiteral("Name");
    auto* spare = test::addBox(again.get(), QStringLiteral("txtNeu"), QRect(1, 2, 3, 4));
    again->show();
    EXPECT_EQ(box2->geometry(), QRect(30, 40, 120, 22));
    EXPECT_EQ(panel2->pos(), QPoint(7, 70));
    EXPECT_EQ(spare->geometry(), QRect(1, 2, 3, 4)) << "a control the store does not know";
    EXPECT_EQ(grid2->rowHeight, 300);
    ASSERT_EQ(grid2->cols->Count(), 5);
    QList<double> widths;
    for (const test::Column* c : grid2->cols->items) {
        widths << c->width;
    }
    EXPECT_EQ(widths, (QList<double>{1800, 2400, 1800, 1800, 1800}))
        << "the first run gave every column without a stored width 1800";
    EXPECT_EQ(list2->cols->items[0]->width, 3000);
    EXPECT_EQ(list2->cols->items[1]->position, 1);
    QFile ini(logs.path() + QStringLiteral("/Vorelle.ini"));
    ASSERT_TRUE(ini.open(QIODevice::ReadOnly));
    EXPECT_TRUE(ini.readAll().contains("defaultKey=defaultValue"));

    // A grid with more columns than stored keeps its extra ones.
    setPlaceValue(QStringLiteral("frmListe\\grdPosten"), QStringLiteral("Columns.Count"),
                  QStringLiteral("1"));
    PosLoadWindowControls(again.get(), grid2, false);
    EXPECT_EQ(grid2->cols->Count(), 5);
}

// Counts the outermost groups of calls that change the store.
class CountingStore : public MemoryRegistry {
public:
    int writeGroups = 0;
    void begin(bool write) override {
        if (depth_++ == 0 && write) {
            ++writeGroups;
        }
        MemoryRegistry::begin(write);
    }
    long end() override {
        --depth_;
        return MemoryRegistry::end();
    }

private:
    int depth_ = 0;
};

TEST_F(WindowPositionTest, ASaveIsOneWriteToTheStore) {
    auto form = test::managedForm(QStringLiteral("frmGanz"),
                                  [](FormWizard* w) { w->setDoLoadSaveWithControls(true); });
    test::addBox(form.get(), QStringLiteral("txtEins"), QRect(1, 2, 30, 20));
    test::addBox(form.get(), QStringLiteral("txtZwei"), QRect(5, 6, 30, 20));
    form->show();
    CountingStore counting;
    ScopedService<RegistryBackend> scope(counting);
    WindowPosSave(form.get(), true, false);
    EXPECT_EQ(counting.writeGroups, 1) << "a program that ends on the way keeps a whole place";
    EXPECT_EQ(placeValue(QStringLiteral("frmGanz\\txtZwei"), QStringLiteral("Top")), "90");
}

TEST_F(WindowPositionTest, PosResetGoesBackToTheDesignSizes) {
    setPlaceValue(QStringLiteral("frmReset"), QStringLiteral("Left"), QStringLiteral("2250"));
    setPlaceValue(QStringLiteral("frmReset"), QStringLiteral("Width"), QStringLiteral("9000"));
    auto form = test::managedForm(QStringLiteral("frmReset"),
                                  [](FormWizard* w) { w->setDoLoadSaveWithControls(true); });
    Box* box = test::addBox(form.get(), QStringLiteral("cmdOk"), QRect(10, 20, 100, 22));
    form->show();
    const QString design = placeOfKey(QStringLiteral("frmReset_init"));
    ASSERT_EQ(form->Left(), 2250);
    box->move(50, 50);
    form->showMaximized();
    QCoreApplication::processEvents();

    auto* wizard = qobject_cast<FormWizard*>(form->Controls(QStringLiteral("FormWizard1")));
    wizard->FensterPosReset();
    QCoreApplication::processEvents();
    EXPECT_EQ(placeOfForm(*form), design);
    EXPECT_EQ(box->pos(), QPoint(10, 20));
}

TEST_F(WindowPositionTest, ANonFormOrAnUnknownNameIsReportedAndChangesNothing) {
    test::ScopedLanguage german(QStringLiteral("de"));
    QWidget notAForm;
    WindowPosSave(&notAForm, true, false);
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_TRUE(boxes.shown[0].text.contains("WindowPosSave")) << boxes.shown[0].text.toStdString();
    EXPECT_TRUE(boxes.shown[0].text.contains("Übergebenes Objekt ist keine Form-Objekt!"));
    EXPECT_EQ(exits.codes.size(), 1) << "Buttons 48 ends the program";

    PosLoadWindow(QStringLiteral("frmNirgends"), false, false);
    ASSERT_GE(boxes.shown.size(), 2);
    EXPECT_TRUE(boxes.shown[1].text.contains("SearchObjectForm"))
        << boxes.shown[1].text.toStdString();
    EXPECT_TRUE(boxes.shown[1].text.contains(
        "Das Form-Objekt 'frmNirgends' konnte nicht gefunden werden!"));
    EXPECT_TRUE(boxes.shown.last().text.contains("PosLoadWindow"));
    EXPECT_EQ(Screen::MousePointer(), Screen::vbDefault);
}

TEST(PlaceOnScreens, AFrameWhoseTopStripLiesOnNoScreenIsCentredOnTheNearest) {
    const QRect left(0, 0, 1920, 1040);
    const QRect right(1920, 0, 1280, 984);
    const QList<QRect> two{left, right};
    // On a screen, across two, or with just enough of the top strip to grab: stays.
    for (const QRect& frame : {QRect(100, 100, 800, 600), QRect(1800, 50, 400, 300),
                               QRect(-736, 1030, 800, 600), QRect(3136, -9, 500, 400)}) {
        EXPECT_EQ(PlaceOnScreens(frame, two), frame) << text(frame);
    }
    // The screen on the right went away: the nearest is the left one.
    EXPECT_EQ(PlaceOnScreens(QRect(2500, 100, 800, 600), {left}), QRect(560, 220, 800, 600));
    // Too little of the top strip on a screen, the title bar above it, or far off.
    EXPECT_EQ(PlaceOnScreens(QRect(-740, 500, 800, 600), two), QRect(560, 220, 800, 600));
    EXPECT_EQ(PlaceOnScreens(QRect(2000, -15, 400, 300), two), QRect(2360, 342, 400, 300));
    EXPECT_EQ(PlaceOnScreens(QRect(9000, 9000, 400, 300), two), QRect(2360, 342, 400, 300));
    // A frame larger than the area is made smaller; one across both screens may stay, one
    // larger than both together may not.
    EXPECT_EQ(PlaceOnScreens(QRect(4000, 0, 1500, 1200), two), QRect(1920, 0, 1280, 984));
    EXPECT_EQ(PlaceOnScreens(QRect(0, 0, 3200, 900), two), QRect(0, 0, 3200, 900));
    EXPECT_EQ(PlaceOnScreens(QRect(0, 0, 3201, 900), two), QRect(0, 70, 1920, 900));
    EXPECT_EQ(PlaceOnScreens(QRect(100, 100, 800, 1041), two), QRect(560, 0, 800, 1040));
    // A narrow frame needs its whole width on a screen; without screens nothing changes.
    EXPECT_EQ(PlaceOnScreens(QRect(1900, 10, 40, 30), {left}), QRect(940, 505, 40, 30));
    EXPECT_EQ(PlaceOnScreens(QRect(1880, 10, 40, 30), {left}), QRect(1880, 10, 40, 30));
    EXPECT_EQ(PlaceOnScreens(QRect(9000, 9000, 40, 30), {}), QRect(9000, 9000, 40, 30));
}

TEST_F(WindowPositionTest, AStoredPlaceOnAScreenThatWentAwayComesBackOntoOne) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    struct Stored {
        const char *left, *top, *width, *height;
    };
    // Beyond the screen; absurd numbers; no numbers at all (the design place stays).
    for (const Stored& s :
         {Stored{"45000", "1500", "6000", "4500"}, Stored{"-1e300", "1e12", "9e99", "4500"},
          Stored{"nan", "inf", "-inf", "nan"}}) {
        setPlaceValue(QStringLiteral("frmWeg"), QStringLiteral("Left"),
                      QString::fromLatin1(s.left));
        setPlaceValue(QStringLiteral("frmWeg"), QStringLiteral("Top"), QString::fromLatin1(s.top));
        setPlaceValue(QStringLiteral("frmWeg"), QStringLiteral("Width"),
                      QString::fromLatin1(s.width));
        setPlaceValue(QStringLiteral("frmWeg"), QStringLiteral("Height"),
                      QString::fromLatin1(s.height));
        auto form = test::managedForm(QStringLiteral("frmWeg"));
        form->show();
        const QRect frame = form->frameGeometry();
        EXPECT_TRUE(area.contains(frame)) << s.left << ": " << text(frame) << " in " << text(area);
        if (QByteArray(s.left) != "nan") {
            EXPECT_LE(std::abs(frame.center().x() - area.center().x()), 1) << s.left;
        }
    }
}

}  // namespace
}  // namespace vorelle
