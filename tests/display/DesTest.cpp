// The description (des): texts and their languages, persistence, the shape that picks one
// or several lines, leaders, alignment, what it draws on a coloured form, links and what
// assistive tools read of it.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include "display/PictureBox_p.h"
#include "display/des.h"
#include "errors/ScopedLanguage.h"
#include "formwizard/DialogStyle.h"
#include "formwizard/FormWizard.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/OleColor.h"
#include "host/platform/UrlOpener.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

class RecordingOpener : public UrlOpener {
public:
    QStringList opened;
    void open(const QString& url, QWidget*) override { opened << url; }
};

const QColor kFormColour(0x20, 0x80, 0x40);

bool isGrey(const QColor& c) {
    return c.red() == 0x80 && c.green() == 0x80 && c.blue() == 0x80;
}

class DesTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    RecordingOpener opener;
    ScopedService<UrlOpener> openerScope{opener};
    Form form;

    void SetUp() override {
        form.setName(QStringLiteral("frmBeschreibung"));
        form.resize(400, 300);
        form.setBackColor(OleRgb(kFormColour.red(), kFormColour.green(), kFormColour.blue()));
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("en"));
        LanguageLoad();
    }

    des* make(const PropertyBag& bag = {}, QSize pixels = QSize(200, 22)) {
        auto* control = new des(&form);
        control->setObjectName(QStringLiteral("des1"));
        control->startFrom(bag);
        control->resizeNow(pixels);
        control->move(10, 10);
        control->show();
        control->host().clearDirty();
        return control;
    }

    // The control as the form shows it, form pixels behind the see-through parts.
    QImage shown(des* control) { return form.grab(control->geometry()).toImage(); }

    static int count(const QImage& image, const QRect& area, bool (*test)(const QColor&)) {
        int n = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                n += test(image.pixelColor(x, y)) ? 1 : 0;
            }
        }
        return n;
    }
};

// --- Texts, languages and persistence ---------------------------------------------------------

TEST_F(DesTest, ANewControlInTheDesignerIsSeeThroughAndShowsItsLanguagesDefaultText) {
    form.setUserMode(false);
    auto* control = new des(&form);
    control->setObjectName(QStringLiteral("des1"));
    control->startNew();
    EXPECT_EQ(control->BackColor(), 0xFF00FF);
    EXPECT_TRUE(control->isSeeThrough());
    EXPECT_FALSE(control->label()->autoFillBackground());
    EXPECT_EQ(control->Caption_de(), QStringLiteral("Beschriftung_nicht_gesetzt"));
    EXPECT_EQ(control->Caption_en(), QStringLiteral("caption_not_set"));
    EXPECT_EQ(control->Text(), QStringLiteral("caption_not_set"));
    EXPECT_EQ(control->aboutText().section(QStringLiteral("\r\n"), 0, 0),
              QStringLiteral("ctrlDescription V 1.08"));

    // Dropped on a form of the designer's default size, it comes too wide and is halved.
    form.resize(300, 200);
    control->resizeNow(QSize(form.width() + 8, 30));
    EXPECT_EQ(control->Width(), (form.Width() + 120) / 2 - 150);
}

TEST_F(DesTest, TheCaptionPairFollowsTheLanguageAndRaisesChangeOnlyForANewText) {
    des* control = make();
    QSignalSpy change(control, &des::Change);
    control->setCaption_de(QStringLiteral("Name"));
    EXPECT_EQ(control->Text(), QStringLiteral("caption_not_set"));  // English shows
    EXPECT_EQ(change.count(), 0);
    control->setCaption_en(QStringLiteral("Name:"));
    EXPECT_EQ(control->Text(), QStringLiteral("Name:"));
    EXPECT_EQ(change.count(), 1);
    control->setCaption_en(QStringLiteral("Name:"));
    EXPECT_EQ(change.count(), 1);
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        control->Refresh();
        EXPECT_EQ(control->Text(), QStringLiteral("Name"));
        control->host().clearDirty();
        control->setText(QStringLiteral("Vorname"));
        EXPECT_EQ(control->Caption_de(), QStringLiteral("Vorname"));
        EXPECT_EQ(control->Caption_en(), QStringLiteral("Name:"));
        EXPECT_EQ(control->host().changedProperties(), QStringList{"Caption_de"});
        EXPECT_EQ(control->property("Caption").toString(), QStringLiteral("Vorname"));
    }
}

TEST_F(DesTest, EveryPropertySurvivesSaveAndLoadAndDefaultsAreNotWritten) {
    des* plain = make();
    EXPECT_FALSE(plain->save().contains(QStringLiteral("Caption_de")));
    EXPECT_FALSE(plain->save().contains(QStringLiteral("BackColor")));

    des* control = make();
    control->setCaption_de(QStringLiteral("Inhalt"));
    control->setCaption_en(QStringLiteral("Contents"));
    control->setToolTipText_de(QStringLiteral("Tipp"));
    control->setToolTipText_en(QStringLiteral("Tip"));
    control->setLinkURL_en(QStringLiteral("https://example.org/en"));
    control->setLinkURL_de(QStringLiteral("https://example.org/de"));
    control->setBackColor(0xFFFFFF);
    control->setAlignment(2);
    control->setFillWithPoints(true);
    control->setWordWrap(false);
    control->setRightToLeft(true);
    control->setMousePointer(2);
    control->setOLEDropMode(1);
    control->setFontBold(true);
    control->setResizingResizeHor(0.5);
    const PropertyBag bag = control->save();

    des* copy = make(bag);
    for (const char* name :
         {"Caption_de", "Caption_en", "ToolTipText_de", "ToolTipText_en", "LinkURL_de",
          "LinkURL_en", "BackColor", "ForeColor", "Alignment", "FillWithPoints", "RightToLeft",
          "MousePointer", "OLEDropMode", "FontBold", "FontUnderline", "ResizingResizeHor"}) {
        EXPECT_EQ(copy->property(name), control->property(name)) << name;
    }
    EXPECT_EQ(copy->ForeColor(), des::kLinkColor);
    EXPECT_TRUE(copy->FontUnderline());
    EXPECT_EQ(copy->ToolTipText(), QStringLiteral("Tip"));
    EXPECT_EQ(copy->cursor().shape(), Qt::CrossCursor);

    // A value of the wrong type is refused with an error, and nothing crashes.
    PropertyBag bad;
    bad.insert(QStringLiteral("Alignment"), QStringLiteral("mittig"));
    auto* refused = new des(&form);
    EXPECT_ANY_THROW(refused->startFrom(bad));
}

// --- Shape, lines and alignment ---------------------------------------------------------------

TEST_F(DesTest, TheShapeSwitchesBetweenOneLineAndSeveral) {
    des* control = make();
    control->setFillWithPoints(true);
    control->host().clearDirty();
    control->resizeNow(QSize(60, 90));  // taller than wide
    EXPECT_TRUE(control->Multiline());
    EXPECT_FALSE(control->FillWithPoints());
    EXPECT_TRUE(control->host().changedProperties().contains(QStringLiteral("MultiLine")));
    EXPECT_TRUE(control->host().changedProperties().contains(QStringLiteral("FillWithPoints")));
    EXPECT_EQ(control->label()->geometry(), control->rect());
    EXPECT_TRUE(control->label()->wordWrap());
    EXPECT_EQ(control->Height(), 1350);  // several lines keep their height

    control->resizeNow(QSize(300, 12));  // lower than 195 twips
    EXPECT_FALSE(control->Multiline());
    EXPECT_FALSE(control->label()->wordWrap());

    // Switching it on by hand clears the leaders too.
    control->setFillWithPoints(true);
    control->setMultiline(true);
    EXPECT_FALSE(control->FillWithPoints());
}

TEST_F(DesTest, OneLineTakesItsHeightFromTheFontAndTheTitleColours) {
    des* control = make();
    control->setFontSize(8);
    EXPECT_EQ(control->Height(), PixelsToTwips(control->label()->height()) + 105);
    EXPECT_EQ(control->label()->y(), 4);
    control->setFontSize(10);
    EXPECT_EQ(control->Height(), 330);
    // White on the frame's title blue sits higher in a lower control.
    control->setBackColor(HexColor(QStringLiteral("0000c0")));
    control->setForeColor(0xFFFFFF);
    control->resizeNow(QSize(200, 30));
    EXPECT_EQ(control->Height(), 270);
    EXPECT_EQ(control->label()->y(), 3);
}

TEST_F(DesTest, AlignmentPlacesTheLineAndRoundsTheMiddleAsTheHostDoes) {
    des* control = make();
    control->setCaption_en(QStringLiteral("Total"));
    const int text = control->label()->width();
    control->resizeNow(QSize(text + 41, 22));  // an odd room: the middle falls on a half
    control->setAlignment(2);
    EXPECT_EQ(control->label()->x(), 21);
    control->setAlignment(1);
    EXPECT_EQ(control->label()->x(), 41);
    control->setAlignment(0);
    EXPECT_EQ(control->label()->x(), 0);
    control->setAlignment(7);
    EXPECT_EQ(control->Alignment(), 0);
}

// --- What it draws ----------------------------------------------------------------------------

TEST_F(DesTest, SeeThroughShowsTheFormAroundTheTextAndOpaqueFillsWithBackColor) {
    form.show();
    des* control = make();
    control->setCaption_en(QStringLiteral("MMMM"));
    const QRect text = control->label()->geometry();
    const QRect beside(text.right() + 4, 0, control->width() - text.right() - 5, control->height());
    QImage image = shown(control);
    auto formColour = [](const QColor& c) { return c == kFormColour; };
    auto dark = [](const QColor& c) { return qGray(c.rgb()) < 60; };
    EXPECT_EQ(count(image, beside, formColour), beside.width() * beside.height());
    EXPECT_GT(count(image, text, dark), 10);
    // The mask holds the text's shape in black on white.
    const QImage& mask = control->maskPicture()->picture();
    EXPECT_GT(count(mask, text, dark), 10);
    EXPECT_EQ(mask.pixelColor(beside.center()), QColor(Qt::white));

    control->setBackColor(OleRgb(0xFF, 0xFF, 0xC0));
    image = shown(control);
    auto back = [](const QColor& c) { return c == QColor(0xFF, 0xFF, 0xC0); };
    EXPECT_EQ(count(image, beside, back), beside.width() * beside.height());
    EXPECT_TRUE(control->label()->autoFillBackground());

    // Disabled text is grey, on the label as in what is shown.
    control->setEnabledProperty(false);
    EXPECT_EQ(control->textColor(), QColor(0x80, 0x80, 0x80));
    EXPECT_GT(count(shown(control), text, isGrey), 0);
}

TEST_F(DesTest, LeadersDotTheRoomBesideTheTextInGreyAndBlackOnTheMask) {
    form.show();
    des* control = make();
    control->setBackColor(0xFFFFFF);
    control->setCaption_en(QStringLiteral("Kapitel"));
    control->setAlignment(2);
    const QRect text = control->label()->geometry();
    EXPECT_EQ(count(shown(control), QRect(0, 0, text.left(), control->height()), isGrey), 0);
    control->setFillWithPoints(true);
    const QImage image = shown(control);
    const QRect left(0, 0, text.left() - 1, control->height());
    const QRect right(text.right() + 2, 0, control->width() - text.right() - 2, control->height());
    EXPECT_GT(count(image, left, isGrey), left.width() / 5);
    EXPECT_GT(count(image, right, isGrey), right.width() / 5);
    auto black = [](const QColor& c) { return c == QColor(Qt::black); };
    EXPECT_GT(count(control->maskPicture()->picture(), left, black), left.width() / 5);
    // A line that nearly fills the control leaves no room for leaders.
    control->setAlignment(0);
    control->resizeNow(QSize(text.width() + 5, 22));
    const QRect rest(text.width(), 0, 5, control->height());
    EXPECT_EQ(count(shown(control), rest, isGrey), 0);
}

// --- Links ------------------------------------------------------------------------------------

TEST_F(DesTest, TheCurrentLanguagesUrlMakesALinkBlueAndUnderlined) {
    des* control = make();
    control->setForeColor(OleRgb(0x40, 0, 0));
    control->setLinkURL_de(QStringLiteral("https://example.org/de"));  // not the language
    EXPECT_EQ(control->ForeColor(), 0);
    EXPECT_FALSE(control->FontUnderline());
    control->setLinkURL(QStringLiteral("https://example.org/en"));
    EXPECT_EQ(control->LinkURL_en(), QStringLiteral("https://example.org/en"));
    EXPECT_EQ(control->ForeColor(), des::kLinkColor);
    EXPECT_TRUE(control->FontUnderline());
    EXPECT_TRUE(control->host().changedProperties().contains(QStringLiteral("LinkURL_en")));
    control->setLinkURL_de(QString());  // the other language keeps the colour
    EXPECT_EQ(control->ForeColor(), des::kLinkColor);

    // On a disabled control a link is black and plain.
    des* disabled = make();
    disabled->setEnabledProperty(false);
    disabled->setLinkURL_en(QStringLiteral("https://example.org"));
    EXPECT_EQ(disabled->ForeColor(), 0);
    EXPECT_FALSE(disabled->FontUnderline());
}

TEST_F(DesTest, TheMouseCallsGiveALinkItsCursorColoursAndOpenTheLanguagesUrl) {
    form.show();
    des* control = make();
    control->MouseOver(0);
    control->MouseClick(1, 0, 0);
    EXPECT_TRUE(opener.opened.isEmpty());  // no URL, no link
    EXPECT_FALSE(form.testAttribute(Qt::WA_SetCursor));

    control->setLinkURL_en(QStringLiteral("https://example.org/en"));
    control->setLinkURL_de(QStringLiteral("https://example.org/de"));
    control->MouseOver(0);
    EXPECT_EQ(form.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(control->textColor(), OleToQColor(0xB00000));
    control->MouseDown(2, 0, 0);
    EXPECT_EQ(control->textColor(), OleToQColor(0xB00000));
    control->MouseDown(1, 0, 0);
    EXPECT_EQ(control->textColor(), QColor(Qt::red));
    control->MouseClick(2, 0, 0);
    EXPECT_TRUE(opener.opened.isEmpty());
    control->MouseClick(1, 0, 0);
    EXPECT_EQ(opener.opened, QStringList{"https://example.org/en"});
    control->MouseOut(0);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(control->textColor(), OleToQColor(des::kLinkColor));
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        control->MouseClick(1, 0, 0);
    }
    EXPECT_EQ(opener.opened.last(), QStringLiteral("https://example.org/de"));

    // Clicks of the real mouse raise the events, on the label as on the surface.
    QSignalSpy click(control, &des::Click);
    QSignalSpy dbl(control, &des::DblClick);
    QTest::mouseClick(control, Qt::LeftButton, {}, control->label()->geometry().center());
    QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(control->width() - 2, 2));
    QTest::mouseDClick(control, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_GE(click.count(), 2);
    EXPECT_EQ(dbl.count(), 1);
}

TEST_F(DesTest, AssistiveToolsReadStaticTextOrALinkNamedInTheCurrentLanguage) {
    des* control = make();
    control->setCaption_de(QStringLiteral("Hilfe im Netz"));
    control->setCaption_en(QStringLiteral("Help online"));
    QAccessibleInterface* item = QAccessible::queryAccessibleInterface(control);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->role(), QAccessible::StaticText);
    EXPECT_EQ(item->text(QAccessible::Name), QStringLiteral("Help online"));
    EXPECT_TRUE(item->actionInterface()->actionNames().isEmpty());
    EXPECT_FALSE(item->state().focusable);

    control->setLinkURL_en(QStringLiteral("https://example.org/help"));
    EXPECT_EQ(item->role(), QAccessible::Link);
    EXPECT_TRUE(item->state().linked);
    item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(opener.opened, QStringList{"https://example.org/help"});
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        EXPECT_EQ(item->text(QAccessible::Name), QStringLiteral("Hilfe im Netz"));
        EXPECT_EQ(item->role(), QAccessible::StaticText);  // no German URL
    }
}

// --- On a managed form, driven by the form's tick -------------------------------------------

class RecordingExpansions : public HintWindows {
public:
    QList<CaptionExpansion> expansions;
    void toolTipShow(const QString&, Form*, const QString&, const QString&) override {}
    void toolTipHide() override {}
    void captionExpandShow(const CaptionExpansion& e) override { expansions << e; }
    void captionExpandHide() override {}
};

class DesTrackedTest : public DesTest {
protected:
    void SetUp() override {
        DesTest::SetUp();
        MouseTrackerReset();
        MouseEventLocked() = false;
        wizard = new FormWizard(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
        wizard->startNew();
        geometry.rects[form.hWnd()] = QRect(-10, -30, 420, 340);
        geometry.rects[wizard->hwnd()] = QRect(0, 270, 400, 30);
    }
    void TearDown() override { CurrentDialogStyle().clear(); }

    des* placed(const char* name, const QRect& rect) {
        auto* control = new des(&form);
        control->setObjectName(QString::fromLatin1(name));
        control->startFrom({});
        control->move(rect.topLeft());
        control->resizeNow(rect.size());
        geometry.rects[control->hwnd()] = control->geometry();
        return control;
    }
    void at(int x, int y, int held = 0) {
        cursor.position = QPoint(x, y);
        buttons.physical = held;
        MouseTracker(20, &form);
    }

    test::Installed<test::FakeMessageBox, MessageBox> boxes;
    test::Installed<test::FakeCursor, CursorState> cursor;
    test::Installed<test::FakeMouseButtons, MouseButtons> buttons;
    test::Installed<test::FakeWindowGeometry, WindowGeometry> geometry;
    RecordingExpansions hints;
    ScopedService<HintWindows> scopedHints{hints};
    FormWizard* wizard = nullptr;
};

TEST_F(DesTrackedTest, TheTickHoversPressesAndOpensALink) {
    des* link = placed("desLink", QRect(10, 10, 150, 22));
    link->setCaption_en(QStringLiteral("Home page"));
    link->setLinkURL_en(QStringLiteral("https://example.org"));
    at(20, 20);
    EXPECT_EQ(form.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(link->textColor(), OleToQColor(0xB00000));
    at(20, 20, 1);
    EXPECT_EQ(link->textColor(), QColor(Qt::red));
    at(20, 20, 0);
    EXPECT_EQ(opener.opened, QStringList{"https://example.org"});
    at(300, 200);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(link->textColor(), OleToQColor(des::kLinkColor));
}

TEST_F(DesTrackedTest, ALongLineExpandsUnderTheCursorButSeveralLinesGiveItRoom) {
    const QString text = QStringLiteral("A text much longer than its narrow control");
    des* line = placed("desZeile", QRect(10, 10, 80, 22));
    line->setCaption_en(text);
    at(20, 20);
    ASSERT_EQ(hints.expansions.size(), 1);
    EXPECT_EQ(hints.expansions[0].text, text);

    des* lines = placed("desZeilen", QRect(10, 60, 80, 200));  // taller than wide
    lines->setCaption_en(text);
    ASSERT_TRUE(lines->Multiline());
    at(20, 100);
    EXPECT_EQ(hints.expansions.size(), 1);
}

}  // namespace
}  // namespace vorelle
