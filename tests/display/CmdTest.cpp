#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include "display/Cmd.h"
#include "display/CmdIcons.h"
#include "display/PictureBox_p.h"
#include "errors/ScopedLanguage.h"
#include "formwizard/AccessKeys.h"
#include "formwizard/DialogStyle.h"
#include "formwizard/FormWizard.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"
#include "host/frame/OleColor.h"
#include "host/platform/Sleeper.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

class RecordingHints : public HintWindows {
public:
    QList<CaptionExpansion> expansions;
    void toolTipShow(const QString&, Form*, const QString&, const QString&) override {}
    void toolTipHide() override {}
    void captionExpandShow(const CaptionExpansion& e) override { expansions << e; }
    void captionExpandHide() override {}
};

// A managed form whose tick the test drives: the cursor, the buttons and the window
// rectangles are doubles.
class CmdTest : public ::testing::Test {
protected:
    void SetUp() override {
        MouseTrackerReset();
        MouseEventLocked() = false;
        CurrentDialogStyle() = QStringLiteral("Cool and hot");
        form.setName(QStringLiteral("frmKnopf"));
        form.resize(400, 300);
        wizard = new FormWizard(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
        wizard->startNew();
        geometry.rects[form.hWnd()] = QRect(-10, -30, 420, 340);
        geometry.rects[wizard->hwnd()] = QRect(0, 270, 400, 30);
    }
    void TearDown() override { CurrentDialogStyle().clear(); }

    // A started button at a pixel rectangle (in form and screen coordinates alike).
    Cmd* button(const char* name, const QRect& rect, PropertyBag bag = {}) {
        auto* b = new Cmd(&form);
        b->setObjectName(QString::fromLatin1(name));
        b->startFrom(bag);
        b->move(rect.topLeft());
        b->resizeNow(rect.size());
        geometry.rects[b->hwnd()] = rect;
        return b;
    }
    // One tick with the cursor at a pixel and the left button held or not.
    void at(int x, int y, int held = 0) {
        cursor.position = QPoint(x, y);
        buttons.physical = held;
        MouseTracker(20, &form);
    }

    test::ScopedMemoryStore store;
    test::Installed<test::FakeMessageBox, MessageBox> boxes;
    test::Installed<test::FakeCursor, CursorState> cursor;
    test::Installed<test::FakeMouseButtons, MouseButtons> buttons;
    test::Installed<test::FakeWindowGeometry, WindowGeometry> geometry;
    RecordingHints hints;
    ScopedService<HintWindows> scopedHints{hints};
    Form form;
    FormWizard* wizard = nullptr;
};

TEST_F(CmdTest, TickDrivesIdleHoverPressedAndOneClickPerClick) {
    Cmd* b = button("cmdOK", QRect(10, 10, 80, 26));
    QSignalSpy clicks(b, &Cmd::Click);
    at(20, 20);
    EXPECT_TRUE(b->isHovered());
    EXPECT_FALSE(b->isPressed());
    at(20, 20, 1);
    EXPECT_TRUE(b->isPressed());
    EXPECT_EQ(b->innerPicture()->ForeColor(), "d0d0d0");
    EXPECT_EQ(clicks.count(), 0) << "a plain button clicks on release";
    at(21, 20, 1);
    at(21, 20, 0);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_FALSE(b->isPressed()) << "back to hover";
    EXPECT_TRUE(b->isHovered());

    // Pressed, out and back: the press is forgotten by MouseOut, so the release gives nothing.
    at(20, 20, 1);
    at(200, 200, 1);
    EXPECT_FALSE(b->isHovered());
    EXPECT_FALSE(b->isPressed());
    EXPECT_EQ(b->innerPicture()->ForeColor(), "000000") << "the caption colour comes back";
    at(20, 20, 1);
    at(20, 20, 0);
    EXPECT_EQ(clicks.count(), 1);

    // The right button does nothing.
    at(20, 20, 2);
    at(20, 20, 0);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(CmdTest, DisabledButtonGetsNoClickByMouseOrKey) {
    Cmd* b = button("cmdAus", QRect(10, 10, 80, 26));
    b->setEnabledProperty(false);
    QSignalSpy clicks(b, &Cmd::Click);
    at(20, 20);
    at(20, 20, 1);
    at(20, 20, 0);
    EXPECT_FALSE(b->isHovered());
    b->MouseOver(1);
    b->MouseDown(1, 0, 0);
    b->MouseUp(1, 0, 0);
    b->MouseClick(1, 0, 0);
    b->click();
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(b, key);
    }
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_FALSE(b->isPressed());

    // Disabled in the middle of a press: the release gives nothing either.
    b->setEnabledProperty(true);
    at(30, 20, 1);
    b->setEnabledProperty(false);
    at(30, 20, 0);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(CmdTest, MenuButtonClicksAtThePressOnly) {
    PropertyBag bag;
    bag.insert(QStringLiteral("IsMenuButton"), true);
    Cmd* menu = button("cmdMenu", QRect(10, 10, 26, 26), bag);
    QSignalSpy clicks(menu, &Cmd::Click);
    at(20, 20);
    at(20, 20, 1);
    EXPECT_EQ(clicks.count(), 1) << "the menu drops on the press";
    EXPECT_FALSE(menu->isPressed());
    at(20, 20, 0);
    EXPECT_EQ(clicks.count(), 1) << "and the release adds nothing";

    QTest::keyPress(menu, Qt::Key_Down);
    EXPECT_EQ(clicks.count(), 2) << "Down opens a menu button";
    QTest::keyRelease(menu, Qt::Key_Down);
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(CmdTest, ReturnAndSpaceClickOnceAtTheRelease) {
    Cmd* b = button("cmdTaste", QRect(10, 10, 80, 26));
    QSignalSpy clicks(b, &Cmd::Click);
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        clicks.clear();
        QTest::keyPress(b, key);
        EXPECT_TRUE(b->isPressed());
        EXPECT_EQ(clicks.count(), 0);
        QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(b, &repeat);  // held: repeats do nothing
        QTest::keyRelease(b, key);
        EXPECT_EQ(clicks.count(), 1) << key;
        EXPECT_FALSE(b->isPressed());
        EXPECT_EQ(b->innerPicture()->ForeColor(), "000000");
    }
    // The release of another key does not end the press; Down is no key of a plain button.
    clicks.clear();
    QTest::keyPress(b, Qt::Key_Space);
    QTest::keyRelease(b, Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 0);
    QTest::keyRelease(b, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
    QTest::keyClick(b, Qt::Key_Down);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(CmdTest, FocusedButtonOnAShownManagedFormClicksByReturn) {
    Cmd* first = button("cmdEins", QRect(10, 10, 80, 26));
    Cmd* second = button("cmdZwei", QRect(10, 50, 80, 26));
    second->setEnabledProperty(false);
    QSignalSpy clicks(first, &Cmd::Click);
    form.show();
    QApplication::setActiveWindow(&form);
    first->setFocus();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::focusWidget(), first);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 1) << "the form passes Return to the focused button";
    second->setFocus();
    QCoreApplication::processEvents();
    EXPECT_NE(QApplication::focusWidget(), second) << "a disabled button passes the focus on";
    form.hide();
}

// A key that the tick finds down stays down for one wait, as a short press of the hand.
class ReleasingSleeper : public Sleeper {
public:
    test::FakeKeyState* keys = nullptr;
    void sleep(int) override { keys->down.clear(); }
};

TEST_F(CmdTest, AccessKeysHandedOutByTheManagerClickOnceAndADisabledButtonOnlyBeeps) {
    test::Installed<test::FakeKeyState, KeyState> keys;
    test::Installed<ReleasingSleeper, Sleeper> sleeper;
    sleeper.keys = &keys;
    Cmd* save = button("cmdSave", QRect(10, 10, 80, 26));
    save->setButtonType(QStringLiteral("Speichern"));
    Cmd* send = button("cmdSend", QRect(10, 50, 80, 26));
    send->setCaption_de(QStringLiteral("Senden"));
    send->setCaption_en(QStringLiteral("Senden"));
    PropertyBag menuBag;
    menuBag.insert(QStringLiteral("IsMenuButton"), true);
    menuBag.insert(QStringLiteral("ButtonType"), QStringLiteral("Hilfe"));
    menuBag.insert(QStringLiteral("ToolTipText_en"), QStringLiteral("Help"));
    Cmd* menu = button("cmdMenu", QRect(100, 1, 26, 25), menuBag);
    AccessKeysDistribute(&form);
    EXPECT_EQ(save->AccessKey_en(), "Alt+S");
    EXPECT_EQ(send->AccessKey_en(), "Alt+E");
    EXPECT_EQ(menu->AccessKey_en(), "Alt+1");
    EXPECT_EQ(Cmd::accessLetterIndex(send->Caption(), send->AccessKey_en()), 1)
        << "the letter underlined is the one handed out";

    QSignalSpy saved(save, &Cmd::Click), sent(send, &Cmd::Click), menus(menu, &Cmd::Click);
    const QList<AccessKeyRow> table = AccessKeyTableBuild(&form);
    keys.down = {18, 'E'};
    KeyboardPoll(&form, table);
    keys.down = {18, '1'};
    KeyboardPoll(&form, table);
    EXPECT_EQ(saved.count(), 0);
    EXPECT_EQ(sent.count(), 1);
    EXPECT_EQ(menus.count(), 1) << "a menu button clicks once, at the press";

    send->setEnabledProperty(false);
    keys.down = {18, 'E'};
    KeyboardPoll(&form, table);
    EXPECT_EQ(sent.count(), 1);
    EXPECT_EQ(boxes.beeps, 1);
}

TEST(CmdDemoForm, CarriesTheKeysTheManagerHandsOut) {
    test::ScopedMemoryStore store;
    std::unique_ptr<Form> form =
        FormLoader::load(QStringLiteral(VORELLE_SOURCE_DIR "/apps/demo/forms/frmKnoepfe.ui"));
    QStringList written;
    for (const Cmd* b : form->findChildren<Cmd*>()) {
        written << b->objectName() + u' ' + b->AccessKey_de() + u'/' + b->AccessKey_en();
    }
    AccessKeysDistribute(form.get());
    QStringList handedOut;
    for (const Cmd* b : form->findChildren<Cmd*>()) {
        handedOut << b->objectName() + u' ' + b->AccessKey_de() + u'/' + b->AccessKey_en();
    }
    EXPECT_EQ(written, handedOut);
    EXPECT_EQ(written.size(), 38);
}

TEST_F(CmdTest, ButtonTypeSetsTheCaptionPairOfAFormButtonOnly) {
    Cmd* b = button("cmdTyp", QRect(10, 10, 80, 26));
    const struct {
        const char* type;
        const char* de;
        const char* en;
    } rows[] = {{"OK", "OK", "OK"},
                {"Übernehmen", "Übernehmen", "Apply"},
                {"Test", "Testen", "Test"},
                {"Auto", "Ermitteln", "Determine"},
                {"Links", "Übertragen", "Transfer"},
                {"HTML", "Seite anzeigen", "Show page"}};
    for (const auto& row : rows) {
        b->setButtonType(QString::fromUtf8(row.type));
        EXPECT_EQ(b->Caption_de(), QString::fromUtf8(row.de));
        EXPECT_EQ(b->Caption_en(), QString::fromUtf8(row.en));
    }
    EXPECT_TRUE(boxes.shown.isEmpty());
    b->setButtonType(QStringLiteral("Kaffee"));
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].text, "ButtonType 'Kaffee' nicht definiert!");
    EXPECT_EQ(b->Caption_de(), "Kaffee");
    EXPECT_EQ(b->Caption_en(), "Kaffee");

    b->setCaption_de(QStringLiteral("Mein"));
    b->setIsToolButton(true);
    b->setButtonType(QStringLiteral("Mail"));
    EXPECT_EQ(b->Caption_de(), "Mein") << "tool types set no caption";
    b->setIsToolButton(false);
    b->setIsMenuButton(true);
    b->setButtonType(QStringLiteral("Personen"));
    EXPECT_EQ(b->Caption_de(), "Mein") << "menu types neither";
    EXPECT_EQ(boxes.shown.size(), 1);

    // Every type of the three lists has an icon.
    QStringList all = Cmd::formButtonTypes() + Cmd::menuButtonTypes() + Cmd::toolButtonTypes();
    for (const QString& type : all) {
        EXPECT_TRUE(CmdIconKnown(type)) << type.toStdString();
    }
    EXPECT_EQ(Cmd::formButtonTypes().size(), 21);
}

// The pixels of the inner picture that differ from the face of a button without an icon.
QRect drawnPart(const QImage& with, const QImage& without) {
    QRect box;
    for (int y = 3; y < with.height() - 3; ++y) {
        for (int x = 3; x < with.width() - 3; ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

TEST_F(CmdTest, EmptyCaptionShowsTheIconAloneAndNeverExpands) {
    PropertyBag tool;
    tool.insert(QStringLiteral("IsToolButton"), true);
    tool.insert(QStringLiteral("ButtonType"), QStringLiteral("Home"));
    Cmd* icon = button("cmdHome", QRect(10, 10, 40, 30), tool);
    Cmd* plain = button("cmdLeer", QRect(60, 10, 40, 30));
    const QRect drawn =
        drawnPart(icon->innerPicture()->picture(), plain->innerPicture()->picture());
    ASSERT_FALSE(drawn.isEmpty()) << "the icon is drawn";
    EXPECT_LE(drawn.width(), 17);
    EXPECT_LE(drawn.height(), 17);
    EXPECT_NEAR(drawn.center().x(), 20, 1.5) << "alone, in the middle";
    EXPECT_NEAR(drawn.center().y(), 15, 1.5);

    icon->setPictureVisible(false);
    EXPECT_TRUE(
        drawnPart(icon->innerPicture()->picture(), plain->innerPicture()->picture()).isEmpty());

    // A very narrow button with a type and no caption still gets no expansion.
    icon->setWidth(150);
    icon->setToolTipText_en(QStringLiteral("Home"));
    geometry.rects[icon->hwnd()] = QRect(10, 10, 10, 30);
    at(15, 20);
    EXPECT_TRUE(hints.expansions.isEmpty());
}

TEST_F(CmdTest, CaptionWiderThanTheFaceExpandsWithRoomKeptForTheIcon) {
    const QString longText(60, u'W');
    Cmd* wide = button("cmdLang", QRect(10, 10, 80, 26));
    wide->setCaption_en(longText);
    at(20, 20);
    ASSERT_EQ(hints.expansions.size(), 1);
    EXPECT_EQ(hints.expansions[0].text, longText);
    EXPECT_EQ(hints.expansions[0].room, 80 * 15);
    EXPECT_EQ(hints.expansions[0].alignment, 2);

    // With a type, 390 twips stay for the icon, and a caption that fits those bounds does
    // not expand, one that only fits the whole width does.
    Cmd* typed = button("cmdTyp", QRect(10, 100, 120, 26));
    typed->setButtonType(QStringLiteral("Speichern"));
    ASSERT_EQ(typed->Caption(), "Save");
    const int textWidth = QFontMetrics(typed->font()).horizontalAdvance(QStringLiteral("Save"));
    typed->setWidth(PixelsToTwips(textWidth) + 390 - 15);
    geometry.rects[typed->hwnd()] = QRect(10, 100, typed->width(), 26);
    at(20, 110);
    ASSERT_EQ(hints.expansions.size(), 2);
    EXPECT_EQ(hints.expansions[1].room, typed->Width() - 390);
    EXPECT_EQ(hints.expansions[1].alignment, 0);
}

TEST_F(CmdTest, PropertiesSurviveASaveAndALoad) {
    Cmd* b = button("cmdAlles", QRect(10, 10, 80, 26));
    EXPECT_FALSE(b->save().contains(QStringLiteral("Enabled"))) << "defaults are not stored";
    EXPECT_FALSE(b->save().contains(QStringLiteral("Picture")));
    EXPECT_TRUE(b->Enabled());
    EXPECT_TRUE(b->PictureVisible());
    EXPECT_TRUE(b->TabStop());

    b->setEnabledProperty(false);
    b->setIsMenuButton(true);
    b->setButtonType(QStringLiteral("Sprache"));
    b->setCaption_de(QStringLiteral("Sprache"));
    b->setCaption_en(QStringLiteral("Language"));
    b->setAccessKey_de(QStringLiteral("Alt+1"));
    b->setAccessKey_en(QStringLiteral("Alt+1"));
    b->setToolTipText_de(QStringLiteral("Sprache wechseln"));
    b->setToolTipText_en(QStringLiteral("Change language"));
    b->setForeColor(OleRgb(1, 2, 3));
    b->setBackColor(OleRgb(40, 50, 60));
    QImage picture(16, 16, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    b->setPicture(picture);
    b->setPictureAlignHor(2);
    b->setPictureAlignVert(1);
    b->setPictureVisible(false);
    b->setResizingMoveHor(0.5);
    b->setFontBold(true);
    const PropertyBag bag = b->save();

    Cmd* copy = button("cmdKopie", QRect(10, 50, 80, 26), bag);
    for (const char* name : {"Enabled", "IsMenuButton", "IsToolButton", "ButtonType", "Caption_de",
                             "Caption_en", "AccessKey_de", "AccessKey_en", "ToolTipText_de",
                             "ToolTipText_en", "ForeColor", "BackColor", "PictureAlignHor",
                             "PictureAlignVert", "PictureVisible", "ResizingMoveHor", "FontBold"}) {
        EXPECT_EQ(copy->property(name), b->property(name)) << name;
    }
    EXPECT_EQ(copy->Picture().pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(copy->save().entries().size(), bag.entries().size());

    // Bad alignments count as 0; the read-only hints name the key.
    copy->setPictureAlignHor(7);
    EXPECT_EQ(copy->PictureAlignHor(), 0);
    EXPECT_EQ(copy->Status2_de(), "Sprache (Alt+1)");
    EXPECT_EQ(copy->Status2_en(), "Language (Alt+1)");
    copy->setCaption_en(QString());
    EXPECT_EQ(copy->Status2_en(), "Change language (Alt+1)");
}

TEST_F(CmdTest, CaptionFollowsTheLanguage) {
    Cmd* b = button("cmdSprache", QRect(10, 10, 80, 26));
    b->setButtonType(QStringLiteral("Abbrechen"));
    EXPECT_EQ(b->Caption(), "Cancel");
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        EXPECT_EQ(b->Caption(), "Abbrechen");
        b->setCaption(QStringLiteral("Zurück"));
        EXPECT_EQ(b->Caption_de(), "Zurück");
        EXPECT_EQ(b->Caption_en(), "Cancel");
    }
}

TEST(CmdAccessLetter, PlainKeysIgnoreCaseAndShiftedKeysWantTheCapital) {
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("Speichern"), QStringLiteral("Alt+S")), 0);
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("Senden"), QStringLiteral("Alt+E")), 1);
    EXPECT_EQ(
        Cmd::accessLetterIndex(QStringLiteral("Das Speichern"), QStringLiteral("Alt+Umschalt+S")),
        4);
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("Das Speichern"), QStringLiteral("Alt+S")), 2);
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("save"), QStringLiteral("Alt+Shift+S")), -1);
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("Hilfe"), QStringLiteral("Strg+F1")), -1);
    EXPECT_EQ(Cmd::accessLetterIndex(QString(), QStringLiteral("Alt+S")), -1);
    EXPECT_EQ(Cmd::accessLetterIndex(QStringLiteral("Tab 1"), QStringLiteral("Alt+1")), 4);
}

TEST_F(CmdTest, AssistiveToolsSeeAButtonTheyCanPress) {
    Cmd* b = button("cmdZugang", QRect(10, 10, 80, 26));
    b->setButtonType(QStringLiteral("Speichern"));
    b->setAccessKey_en(QStringLiteral("Alt+S"));
    QSignalSpy clicks(b, &Cmd::Click);

    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(b);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::Button);
    EXPECT_EQ(face->text(QAccessible::Name), "Save");
    EXPECT_EQ(face->text(QAccessible::Accelerator), "Alt+S");
    EXPECT_FALSE(face->state().disabled);
    QAccessibleActionInterface* actions = face->actionInterface();
    ASSERT_NE(actions, nullptr);
    EXPECT_EQ(actions->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);

    b->MouseOver(1);
    b->MouseDown(1, 0, 0);
    EXPECT_TRUE(face->state().pressed);
    b->MouseOut(1);

    b->setCaption_en(QString());
    b->setToolTipText_en(QStringLiteral("Store the record"));
    EXPECT_EQ(face->text(QAccessible::Name), "Store the record") << "the tooltip stands in";
    b->setEnabledProperty(false);
    EXPECT_TRUE(face->state().disabled);
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(CmdTest, FacesFollowTheStyleAndTheState) {
    PropertyBag bag;
    bag.insert(QStringLiteral("BackColor"), OleRgb(0x20, 0x40, 0x80));
    Cmd* b = button("cmdFarbe", QRect(10, 10, 80, 26), bag);
    auto near = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) < 8 && std::abs(a.green() - b.green()) < 8 &&
               std::abs(a.blue() - b.blue()) < 8;
    };
    auto pixel = [&](int x, int y) { return b->innerPicture()->picture().pixelColor(x, y); };
    EXPECT_EQ(pixel(0, 0), QColor(0x50, 0x50, 0x50)) << "the outer line at rest";
    EXPECT_TRUE(near(pixel(2, 2), QColor(0x20, 0x40, 0x80))) << "the gradient starts at BackColor";
    EXPECT_TRUE(near(pixel(77, 23), QColor(0x70, 0x90, 0xd0))) << "and ends 80 lighter";
    b->MouseOver(0);
    EXPECT_EQ(pixel(0, 0), QColor(0xff, 0xff, 0x00)) << "hovered";
    b->MouseDown(1, 0, 0);
    EXPECT_TRUE(near(pixel(2, 2), QColor(0x70, 0x90, 0xd0))) << "a press turns the gradient round";
    b->MouseOut(0);
    b->setEnabledProperty(false);
    EXPECT_EQ(pixel(0, 0), QColor(0x80, 0x80, 0x80)) << "disabled lines";
    EXPECT_TRUE(near(pixel(2, 2), QColor(0, 0, 0))) << "a disabled face is dark";

    CurrentDialogStyle() = QStringLiteral("Quick and simple");
    b->setEnabledProperty(true);
    EXPECT_EQ(pixel(10, 10), QColor(0x20, 0x40, 0x80)) << "no gradient: BackColor itself";
}

}  // namespace
}  // namespace vorelle
