#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "errors/ScopedLanguage.h"
#include "formwizard/DialogStyle.h"
#include "formwizard/FormWizard.h"
#include "formwizard/ModuleSwitches.h"
#include "foundation/LibraryInfo.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/OleColor.h"
#include "support/Doubles.h"
#include "support/FakePopupMenu.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

// A form with every optional routine: each call is recorded with what the form showed at
// that moment (title, Status1), so the order of the manager's work can be read off.
class ManagedForm : public Form {
    Q_OBJECT
public:
    QStringList calls;
    int cancelWith = 0;
    FormWizard* wizard = nullptr;

    QString seen() const {
        return wizard ? QStringLiteral(" [%1 | %2]").arg(Caption(), wizard->GetStatus1().toString())
                      : QString();
    }
    Q_INVOKABLE void Form_Load2() { calls << QStringLiteral("Load2") + seen(); }
    Q_INVOKABLE void Form_Activate2() { calls << QStringLiteral("Activate2"); }
    Q_INVOKABLE void Form_Deactivate2() { calls << QStringLiteral("Deactivate2"); }
    Q_INVOKABLE void Form_Resize2() { calls << QStringLiteral("Resize2"); }
    Q_INVOKABLE void Form_QueryUnload2(int& Cancel, int UnloadMode) {
        calls << QStringLiteral("QueryUnload2(%1,%2)").arg(Cancel).arg(UnloadMode) + seen();
        Cancel = cancelWith;
    }
    Q_INVOKABLE void Form_KeyDown2(int& KeyCode, int Shift) {
        calls << QStringLiteral("KeyDown2(%1,%2)").arg(KeyCode).arg(Shift);
    }
    Q_INVOKABLE void Form_MouseDown2(int Button, int Shift, float X, float Y) {
        calls << QStringLiteral("MouseDown2(%1,%2)").arg(Button).arg(Shift);
    }
};

// A control that keeps its value in the store when the form unloads.
class SavingControl : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool RegSave MEMBER regSave)
public:
    using QWidget::QWidget;
    bool regSave = true;
    int saved = 0;
    Q_INVOKABLE void RegSaving() { ++saved; }
};

FormWizard* addWizard(Form* form, const QString& name = QStringLiteral("FormWizard1"),
                      const std::function<void(FormWizard*)>& before = {}) {
    auto* wizard = new FormWizard(form);
    wizard->setObjectName(name);
    if (before) {
        before(wizard);
    }
    wizard->startNew();
    return wizard;
}

class FormWizardTest : public ::testing::Test {
protected:
    void SetUp() override {
        CurrentDialogStyle().clear();
        form.setName(QStringLiteral("frmKunden"));
        form.resize(400, 300);
    }
    void showActive(Form& f) {
        f.show();
        QApplication::setActiveWindow(&f);
        QCoreApplication::processEvents();
    }

    test::ScopedMemoryStore store;
    test::FakeMessageBox boxes;
    ScopedService<MessageBox> scopedBoxes{boxes};
    ManagedForm form;
};

TEST_F(FormWizardTest, TakesOverTheFormsRoutinesInItsOrderAndTheHostCallsNoneTwice) {
    form.wizard = addWizard(&form, QStringLiteral("FormWizard1"),
                            [](FormWizard* w) { w->setCaption_en(QStringLiteral("Customers")); });
    auto* saving = new SavingControl(&form);
    saving->setObjectName(QStringLiteral("txtName"));
    showActive(form);

    ASSERT_GE(form.calls.size(), 2);
    // The stored style is applied at Load and is seen as an activation.
    EXPECT_EQ(form.calls[0], "Activate2");
    EXPECT_TRUE(form.calls[1].startsWith("Load2 [Customers - VorelleTests V "))
        << form.calls[1].toStdString();
    EXPECT_TRUE(form.calls[1].endsWith(QString::fromUtf8(kMakerLine) + " | Dialog is loading...]"))
        << form.calls[1].toStdString();
    EXPECT_EQ(form.calls.count(QStringLiteral("Load2") + form.calls[1].mid(5)), 1);
    EXPECT_EQ(form.wizard->GetStatus1().toString(), "Dialog loaded.");
    EXPECT_EQ(form.wizard->GetStatus2().toString(), "Dialog is active.");
    EXPECT_EQ(form.calls.filter(QStringLiteral("Activate2")).size(), 2)
        << "style at Load, then the window's own activation: "
        << form.calls.join(", ").toStdString();

    form.calls.clear();
    form.resize(420, 320);
    QTest::keyClick(&form, Qt::Key_A);
    QTest::mouseClick(&form, Qt::LeftButton, Qt::ShiftModifier, QPoint(30, 30));
    form.cancelWith = 1;
    form.close();
    EXPECT_EQ(form.calls,
              (QStringList{"Resize2", "KeyDown2(65,0)", "MouseDown2(1,1)",
                           "QueryUnload2(0,0) [" + form.Caption() + " | Dialog is unloading...]"}));
    EXPECT_TRUE(form.isVisible()) << "the routine cancelled";
    EXPECT_EQ(saving->saved, 1);

    // The status bar lies along the bottom, one pixel out on the left and two at the bottom.
    EXPECT_EQ(form.wizard->Left(), -15);
    EXPECT_EQ(form.wizard->Height(), FormWizard::kStatusHeight);
    EXPECT_EQ(form.wizard->Top(), form.ScaleHeight() - FormWizard::kStatusHeight + 30);
    EXPECT_EQ(form.wizard->Width(), form.Width());
}

TEST_F(FormWizardTest, AFormWithoutRoutinesOrWithoutManagerStillWorks) {
    Form plain;
    plain.setName(QStringLiteral("frmPlain"));
    auto* wizard = addWizard(&plain);
    showActive(plain);
    EXPECT_EQ(wizard->GetStatus1().toString(), "Dialog loaded.");
    plain.close();

    ManagedForm unmanaged;
    showActive(unmanaged);
    EXPECT_EQ(unmanaged.calls.count(QStringLiteral("Load2")), 1) << "the host calls it itself";
}

TEST_F(FormWizardTest, TitleFromTheCaptionOfTheLanguageOrWithoutIt) {
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        form.wizard = addWizard(&form, QStringLiteral("FormWizard1"), [](FormWizard* w) {
            w->setCaption_de(QStringLiteral("Kunden"));
            w->setCaption_en(QStringLiteral("Customers"));
        });
        showActive(form);
        EXPECT_TRUE(form.Caption().startsWith("Kunden - VorelleTests V "))
            << form.Caption().toStdString();
        EXPECT_EQ(form.wizard->GetStatus1().toString(), "Dialog geladen.");
        form.wizard->setCaption_de(QString());
        EXPECT_TRUE(form.Caption().startsWith("VorelleTests V ")) << "no \" - \" without a caption";
    }
    form.wizard->Refresh();
    EXPECT_TRUE(form.Caption().startsWith("Customers - ")) << "Refresh takes the new language";

    ManagedForm fixed;
    fixed.setCaption(QStringLiteral("Designed"));
    addWizard(&fixed, QStringLiteral("FormWizard1"), [](FormWizard* w) {
        w->setDoChangeTitle(false);
        w->setCaption_en(QStringLiteral("Ignored"));
    })->Refresh();
    showActive(fixed);
    EXPECT_EQ(fixed.Caption(), "Designed");
}

TEST_F(FormWizardTest, DisableControlsThenReEnableRestoresExactlyWhatWasEnabled) {
    form.wizard = addWizard(&form);
    auto field = [&](const char* name, bool enabled) {
        auto* e = new QLineEdit(&form);
        e->setObjectName(QString::fromLatin1(name));
        e->setEnabled(enabled);
        return e;
    };
    QLineEdit* a = field("txtA", true);
    QLineEdit* b = field("txtB", false);
    QLineEdit* keep = field("cmdCancel", true);

    form.wizard->DisableControls(QStringLiteral("cmdCancel"));
    EXPECT_FALSE(a->isEnabled());
    EXPECT_FALSE(b->isEnabled());
    EXPECT_TRUE(keep->isEnabled());
    a->setEnabled(true);
    form.wizard->DisableControls();  // the first list is kept
    EXPECT_TRUE(a->isEnabled()) << "a second call does nothing while a list is kept";
    EXPECT_TRUE(keep->isEnabled());

    form.wizard->ReEnableControls();
    EXPECT_TRUE(a->isEnabled());
    EXPECT_FALSE(b->isEnabled()) << "a control that was disabled before stays so";
    form.wizard->ReEnableControls();  // nothing saved: only pumps
    form.wizard->DisableControls();
    EXPECT_FALSE(keep->isEnabled()) << "a new list after the re-enable";
}

TEST_F(FormWizardTest, EachDialogStyleSetsItsColoursAndAnUnknownOneIsToldButKept) {
    form.wizard = addWizard(&form);
    form.setBackColor(0x123456);
    showActive(form);
    struct Row {
        const char* style;
        qint32 back;
        bool fading;
    } rows[] = {{"Winter", 0xFFFFFF, false},
                {"Business", HexColor(QStringLiteral("D3D3D3")), false},
                {"Quick and simple", HexColor(QStringLiteral("D4D4D4")), false},
                {"Cool and hot", HexColor(QStringLiteral("D4D4D4")), true}};
    for (const Row& row : rows) {
        form.calls.clear();
        form.wizard->SetDialogStyle(QString::fromLatin1(row.style));
        EXPECT_EQ(form.BackColor(), row.back) << row.style;
        EXPECT_EQ(form.wizard->isFadingActive(), row.fading) << row.style;
        EXPECT_EQ(CurrentDialogStyle(), row.style);
        EXPECT_EQ(form.calls, QStringList{"Activate2"}) << "a style change is an activation";
    }
    EXPECT_TRUE(boxes.shown.isEmpty());
    form.wizard->SetDialogStyle(QStringLiteral("Sommer"));
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].text, "Dialog style Sommer is unknown and cannot be set.");
    EXPECT_EQ(boxes.shown[0].title, "Vorelle V 6.71");
    EXPECT_EQ(boxes.shown[0].style, 48);
    EXPECT_EQ(CurrentDialogStyle(), "Sommer");

    // "winter" sets the Winter colour, but paints as no style of that exact name.
    form.wizard->SetDialogStyle(QStringLiteral("winter"));
    EXPECT_EQ(form.BackColor(), 0xFFFFFF);
    EXPECT_TRUE(DialogStyleColours::of(CurrentDialogStyle()).bandFirst.isEmpty());
}

TEST_F(FormWizardTest, TheStoredStyleComesBackAtLoadUnlessTheFormOverridesIt) {
    RegSetApp(QStringLiteral("frmKunden"), QStringLiteral("DialogStyle"),
              QStringLiteral("Business"));
    form.wizard = addWizard(&form);
    showActive(form);
    EXPECT_EQ(CurrentDialogStyle(), "Business");
    EXPECT_EQ(form.BackColor(), HexColor(QStringLiteral("D3D3D3")));
    form.close();

    CurrentDialogStyle().clear();
    ManagedForm own;
    own.setName(QStringLiteral("frmKunden"));
    own.setBackColor(0x123456);
    own.wizard = addWizard(&own, QStringLiteral("FormWizard1"),
                           [](FormWizard* w) { w->setOverrideUserStyle(true); });
    showActive(own);
    EXPECT_EQ(CurrentDialogStyle(), "Cool and hot");
    EXPECT_EQ(own.BackColor(), 0x123456);
    EXPECT_EQ(own.calls.filter("Activate2").size(), 1) << "no style applied at Load";
}

// The right-click menu: the style chosen there holds for the next run of the form, the
// switches are the user's per form; a form that overrides the style has no style submenu.
TEST_F(FormWizardTest, TheDialogMenuSetsTheStyleAndTheUsersSwitchesForTheNextRun) {
    test::FakePopupMenu menu;
    ScopedService<PopupMenu> scopedMenu{menu};
    form.wizard = addWizard(&form);
    showActive(form);
    form.calls.clear();

    menu.choose = QStringLiteral("dStyle\\Winter");
    QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
    ASSERT_EQ(menu.shown.size(), 1);
    EXPECT_EQ(menu.shown[0].title, "Dialog");
    EXPECT_NE(menu.flagsOf(QStringLiteral("dStyle\\Cool and hot")) & MenuChecked, 0);
    EXPECT_NE(menu.flagsOf(QStringLiteral("tooltips")) & MenuChecked, 0);
    EXPECT_EQ(menu.flagsOf(QStringLiteral("nextmonitor")), -1) << "one screen only";
    EXPECT_EQ(CurrentDialogStyle(), "Winter");
    EXPECT_EQ(form.BackColor(), 0xFFFFFF);
    EXPECT_EQ(form.wizard->GetStatus1().toString(), "Dialog style Winter set.");
    EXPECT_EQ(form.calls, QStringList({"Activate2", "MouseDown2(2,0)"}));

    menu.choose = QStringLiteral("tooltips");
    QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
    EXPECT_TRUE(DoNotShowToolTips());
    EXPECT_EQ(RegGetApp(QStringLiteral("frmKunden"), QStringLiteral("DoNotShowToolTips"), {}), "1");
    form.close();

    CurrentDialogStyle().clear();
    DoNotShowToolTips() = false;
    ManagedForm again;
    again.setName(QStringLiteral("frmKunden"));
    again.wizard = addWizard(&again);
    showActive(again);
    EXPECT_EQ(CurrentDialogStyle(), "Winter");
    EXPECT_TRUE(DoNotShowToolTips());
    DoNotShowToolTips() = false;
    again.close();

    ManagedForm own;
    own.setName(QStringLiteral("frmOwn"));
    own.wizard = addWizard(&own, QStringLiteral("FormWizard1"),
                           [](FormWizard* w) { w->setOverrideUserStyle(true); });
    showActive(own);
    menu.choose.clear();
    QTest::mouseClick(&own, Qt::RightButton, {}, QPoint(40, 40));
    EXPECT_EQ(menu.flagsOf(QStringLiteral("dStyle")), -1);
    EXPECT_EQ(menu.flagsOf(QStringLiteral("posreset")), 0);
}

TEST_F(FormWizardTest, TheDialogMenuInBothLanguagesWithItsEntriesInOrder) {
    test::FakePopupMenu menu;
    ScopedService<PopupMenu> scopedMenu{menu};
    form.wizard = addWizard(&form);
    showActive(form);
    const auto rows = [&] {
        QStringList list;
        for (const MenuRow& row : menu.shown.last().rows) {
            list << QStringLiteral("%1|%2|%3").arg(row.id, row.text).arg(row.depth);
        }
        return list;
    };
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        menu.choose = QStringLiteral("statusscroll2");
        QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
        EXPECT_EQ(rows(), QStringList({
                              "tooltips|ToolTipps anzeigen|0",
                              "statusscroll|Statuszeile bei Überlänge scrollen|0",
                              "statusscroll2|Hinweise zu Steuerelementen bei Übergröße scrollen|0",
                              "dStyle|Dialog-Style|0",
                              "dStyle\\Cool and hot|Cool and hot (kalt und heiss)|1",
                              "dStyle\\Winter|Winter (Schnee und Eis)|1",
                              "dStyle\\Business|Business (grau in grau)|1",
                              "dStyle\\Quick and simple|Quick and simple (schnell und einfach)|1",
                              "posreset|Fensterpositionen zurücksetzen \t(Strg+F12)|0",
                          }));
        EXPECT_TRUE(DoNotScrollStatus2());
        EXPECT_EQ(RegGetApp(QStringLiteral("frmKunden"), QStringLiteral("DoNotScrollStatus2"), {}),
                  "1");
        menu.choose = QStringLiteral("dStyle\\Business");
        QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
        EXPECT_EQ(form.wizard->GetStatus1().toString(), "Dialog-Style Business gesetzt.");
    }
    menu.choose = QStringLiteral("statusscroll2");
    QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
    EXPECT_EQ(rows(), QStringList({
                          "tooltips|Show tooltips|0",
                          "statusscroll|Scroll status bar if too wide|0",
                          "statusscroll2|Scroll control description in status bar if too large|0",
                          "dStyle|Dialog style|0",
                          "dStyle\\Cool and hot|Cool and hot|1",
                          "dStyle\\Winter|Winter (snow and ice)|1",
                          "dStyle\\Business|Business (gray on gray)|1",
                          "dStyle\\Quick and simple|Quick and simple|1",
                          "posreset|Reset window positions \t(Ctrl+F12)|0",
                      }));
    EXPECT_EQ(menu.flagsOf(QStringLiteral("statusscroll2")) & MenuChecked, 0)
        << "switched off before";
    EXPECT_NE(menu.flagsOf(QStringLiteral("dStyle\\Business")) & MenuChecked, 0);
    EXPECT_FALSE(DoNotScrollStatus2()) << "and on again";
    EXPECT_EQ(RegGetApp(QStringLiteral("frmKunden"), QStringLiteral("DoNotScrollStatus2"), {}),
              "0");
    form.close();
}

TEST_F(FormWizardTest, WhileTheDialogMenuIsOpenTheFormIsNotReportedAsDeactivated) {
    test::FakePopupMenu menu;
    ScopedService<PopupMenu> scopedMenu{menu};
    form.wizard = addWizard(&form);
    showActive(form);
    QString seenWhileOpen;
    menu.whileShown = [&] {
        emit form.Deactivate();
        seenWhileOpen = form.wizard->status2Text();
    };
    QTest::mouseClick(&form, Qt::RightButton, {}, QPoint(40, 40));
    ASSERT_EQ(menu.shown.size(), 1);
    EXPECT_FALSE(seenWhileOpen.startsWith(u"Dialog is deactivated")) << qPrintable(seenWhileOpen);
    emit form.Deactivate();
    EXPECT_EQ(form.wizard->status2Text(), "Dialog is deactivated. Click to activate this dialog.");
    form.close();
}

TEST_F(FormWizardTest, CoolAndHotPaintsTheFormsDiagonalAndTheStatusGradient) {
    form.resize(200, 200);
    form.wizard = addWizard(&form);
    showActive(form);
    const QImage& surface = form.surface();
    const QColor corner = surface.pixelColor(0, 0);
    EXPECT_GT(std::min({corner.red(), corner.green(), corner.blue()}), 245)
        << "reversed: white in the corner";
    const QColor far = surface.pixelColor(190, 160);
    EXPECT_GT(far.red(), 240);
    EXPECT_LT(far.blue(), 200) << "towards the manager's colour FFCC00";
    const QImage& bar = form.wizard->surface();
    EXPECT_LT(bar.pixelColor(bar.width() / 2, 0).red(), 20) << "0227aa at the top";
    EXPECT_GT(bar.pixelColor(bar.width() / 2, bar.height() - 1).red(), 100) << "8888c0 below";
}

TEST_F(FormWizardTest, OnlyTheNameFormWizard1IsPlacedAndTwoManagersBothServe) {
    form.wizard = addWizard(&form, QStringLiteral("Manager"));
    showActive(form);
    EXPECT_EQ(form.calls.filter(QRegularExpression("^Load2")).size(), 1);
    EXPECT_EQ(form.wizard->Top(), 0) << "not placed under another name";

    ManagedForm twice;
    twice.setName(QStringLiteral("frmTwice"));
    twice.wizard = addWizard(&twice);
    addWizard(&twice, QStringLiteral("FormWizard2"));
    showActive(twice);
    EXPECT_EQ(twice.calls.filter(QRegularExpression("^Load2")).size(), 2);
}

TEST_F(FormWizardTest, TheTickStopsAtDesignTimeAndScrollsALongStatus) {
    form.setUserMode(false);
    form.wizard = addWizard(&form);
    auto* timer = form.wizard->findChild<QTimer*>(QStringLiteral("TimerMouseEvent"));
    ASSERT_NE(timer, nullptr);
    form.wizard->TimerMouseEvent_Timer();
    EXPECT_FALSE(timer->isActive());
    EXPECT_EQ(form.wizard->Height(), FormWizard::kStatusHeight);

    ManagedForm running;
    running.resize(200, 150);
    running.wizard = addWizard(&running);
    showActive(running);
    const QString longText(120, u'x');
    running.wizard->Status1(longText);
    const int first = running.wizard->status1VisibleLength();
    EXPECT_GT(first, 0);
    EXPECT_LT(first, longText.size());
    for (int tick = 0; tick < 100; ++tick) {
        running.wizard->TimerMouseEvent_Timer();
    }
    EXPECT_EQ(running.wizard->status1VisibleLength(), first) << "two seconds of rest first";
    for (int tick = 0; tick < 30; ++tick) {
        running.wizard->TimerMouseEvent_Timer();
    }
    EXPECT_GT(running.wizard->status1VisibleLength(), first) << "then it moves left";
    running.wizard->Status1(QStringLiteral("short"));
    EXPECT_EQ(running.wizard->status1VisibleLength(), 5);
}

}  // namespace
}  // namespace vorelle

#include "FormWizardTest.moc"
