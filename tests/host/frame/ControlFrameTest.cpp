#include <gtest/gtest.h>

#include <QApplication>
#include <QMetaProperty>
#include <QTest>

#include "display/brd.h"
#include "formwizard/FormWizard.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/RecordingControl.h"
#include "host/frame/Registration.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

using test::RecordingControl;
using test::RecordingHost;

class ControlFrameTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    Form form;

    void SetUp() override {
        form.setName(QStringLiteral("frmTest"));
        RecordingControl::defaultForeColor = 0x123456;
        RecordingControl::neverFocus = false;
    }
    void TearDown() override { setLanguage("en"); }

    static void setLanguage(const char* language) {
        RegSet(QStringLiteral("Vorelle"), QStringLiteral("Config"), QStringLiteral("Sprache"),
               QString::fromUtf8(language));
        LanguageLoad();
    }

    RecordingControl* addControl(const QString& name) {
        auto* c = new RecordingControl(&form);
        c->setObjectName(name);
        return c;
    }
};

TEST_F(ControlFrameTest, ANewInstanceIsInitialisedAndNeverRead) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startNew();
    EXPECT_EQ(c->steps, QStringList({"Initialize", "InitProperties", "Resize"}));
}

TEST_F(ControlFrameTest, AStoredInstanceIsReadAndNeverInitialised) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startFrom(PropertyBag());
    EXPECT_EQ(c->steps, QStringList({"Initialize", "ReadProperties", "ApplyLanguage",
                                     "AfterReadProperties", "Resize"}));
}

TEST_F(ControlFrameTest, InitializeLoadsTheLanguageBeforeAnyPropertyIsRead) {
    setLanguage("en");
    RegSet(QStringLiteral("Vorelle"), QStringLiteral("Config"), QStringLiteral("Sprache"),
           QStringLiteral("de"));
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    PropertyBag bag;
    bag.insert(QStringLiteral("Caption_de"), QStringLiteral("Hallo"));
    bag.insert(QStringLiteral("Caption_en"), QStringLiteral("Hello"));
    c->startFrom(bag);
    EXPECT_EQ(CurrentLanguage(), QStringLiteral("de"));
    EXPECT_EQ(c->shown, QStringLiteral("Hallo"));
}

TEST_F(ControlFrameTest, ResizeFollowsEachSizeChange) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startNew();
    c->steps.clear();
    c->setWidth(3000);
    c->setHeight(600);
    c->setWidth(3000);  // no change, no layout
    EXPECT_EQ(c->steps, QStringList({"Resize", "Resize"}));
    EXPECT_EQ(c->Width(), 3000);
    EXPECT_EQ(c->Height(), 600);
    EXPECT_EQ(c->width(), 200);
}

TEST_F(ControlFrameTest, ReadPropertiesTakesTheNamesFromTheHost) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startFrom(PropertyBag());
    EXPECT_EQ(c->FormName(), QStringLiteral("frmTest"));
    EXPECT_EQ(c->ControlName(), QStringLiteral("rec1"));
    EXPECT_FALSE(c->ModuleAppName().isEmpty());

    RecordingControl loose;  // not on a form: no FormName, no failure
    loose.setObjectName(QStringLiteral("loose"));
    loose.startFrom(PropertyBag());
    EXPECT_EQ(loose.FormName(), QString());
    EXPECT_EQ(loose.ControlName(), QStringLiteral("loose"));
}

struct HookCase {
    const char* formName;
    bool userMode;
    bool hooked;
};

class HookRuleTest : public ControlFrameTest, public ::testing::WithParamInterface<HookCase> {};

TEST_P(HookRuleTest, OnlyAtRunTimeAndNotOnPropertyPages) {
    const HookCase h = GetParam();
    form.setName(QString::fromUtf8(h.formName));
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->setHost(std::make_unique<RecordingHost>(c, &form, h.userMode, QStringLiteral("rec1")));
    c->startFrom(PropertyBag());
    EXPECT_EQ(c->hookAllowedAtRead, h.hooked);
}

INSTANTIATE_TEST_SUITE_P(Forms, HookRuleTest,
                         ::testing::Values(HookCase{"frmMain", true, true},
                                           HookCase{"frmMain", false, false},
                                           HookCase{"propText", true, false},
                                           HookCase{"prop", true, false},
                                           HookCase{"Property", true, true},
                                           HookCase{"pro", true, true}, HookCase{"", true, true}));

TEST_F(ControlFrameTest, ControlsThatNeverTakeTheFocusSwitchTabStopOffInTheDesigner) {
    RecordingControl::neverFocus = true;
    for (const bool userMode : {false, true}) {
        RecordingControl* c = addControl(QStringLiteral("recDesign%1").arg(userMode));
        c->setTabStop(true);
        c->setHost(std::make_unique<RecordingHost>(c, &form, userMode, c->objectName()));
        c->startFrom(PropertyBag());
        EXPECT_EQ(c->TabStop(), userMode) << "user mode " << userMode;
    }
    RecordingControl* placed = addControl(QStringLiteral("recNew"));
    placed->setTabStop(true);
    placed->startNew();
    EXPECT_FALSE(placed->TabStop());
}

TEST_F(ControlFrameTest, TabIndexMovesOneControlInTheFormsTabOrder) {
    QList<RecordingControl*> c;
    for (const char* name : {"recA", "recB", "recC", "recD"}) {
        c << addControl(QString::fromLatin1(name));
        c.last()->setTabStop(true);
    }
    EXPECT_EQ(c[2]->TabIndex(), 2);
    c[3]->setTabIndex(0);
    c[0]->setTabIndex(99);  // past the end: last
    EXPECT_EQ(c[3]->TabIndex(), 0);
    EXPECT_EQ(c[1]->TabIndex(), 1);
    EXPECT_EQ(c[2]->TabIndex(), 2);
    EXPECT_EQ(c[0]->TabIndex(), 3);
    EXPECT_EQ(c[3]->nextInFocusChain(), c[1]) << "Tab follows the numbers";
}

TEST_F(ControlFrameTest, CaptionSetUnderEnglishLeavesGermanAndReportsEnglish) {
    setLanguage("en");
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startNew();
    c->setCaption_de(QStringLiteral("Name"));
    c->host().clearDirty();
    c->setCaption(QStringLiteral("Title"));
    EXPECT_EQ(c->Caption_de(), QStringLiteral("Name"));
    EXPECT_EQ(c->Caption_en(), QStringLiteral("Title"));
    EXPECT_EQ(c->shown, QStringLiteral("Title"));
    EXPECT_EQ(c->host().changedProperties(), QStringList{QStringLiteral("Caption_en")});

    // Setting the German field under English shows the unchanged English text again.
    c->shown.clear();
    c->setCaption_de(QStringLiteral("Neu"));
    EXPECT_EQ(c->shown, QStringLiteral("Title"));
    EXPECT_TRUE(c->host().changedProperties().contains(QStringLiteral("Caption_de")));

    setLanguage("de");
    c->host().clearDirty();
    c->setCaption(QStringLiteral("Titel"));
    EXPECT_EQ(c->Caption_de(), QStringLiteral("Titel"));
    EXPECT_EQ(c->Caption_en(), QStringLiteral("Title"));
    EXPECT_EQ(c->host().changedProperties(), QStringList{QStringLiteral("Caption_de")});
}

TEST_F(ControlFrameTest, ADefaultIsNotStoredAndANewDefaultChangesTheReloadedControl) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startNew();
    c->setForeColor(RecordingControl::defaultForeColor);
    c->setResizingMoveHor(0.0);
    EXPECT_TRUE(c->save().isEmpty());

    c->setForeColor(0x00FF00);
    EXPECT_TRUE(c->save().contains(QStringLiteral("ForeColor")));
    c->setForeColor(RecordingControl::defaultForeColor);
    const PropertyBag bag = c->save();
    EXPECT_FALSE(bag.contains(QStringLiteral("ForeColor")));

    RecordingControl::defaultForeColor = 0x654321;  // the next version's default
    RecordingControl* reloaded = addControl(QStringLiteral("rec2"));
    reloaded->startFrom(bag);
    EXPECT_EQ(reloaded->ForeColor(), 0x654321);
}

TEST_F(ControlFrameTest, EnterAndExitFocusFollowTheRealFocus) {
    RecordingControl* a = addControl(QStringLiteral("recA"));
    RecordingControl* b = addControl(QStringLiteral("recB"));
    a->startNew();
    b->startNew();
    b->move(0, 40);
    auto* outside = new QLineEdit(&form);
    outside->move(0, 80);
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    outside->setFocus();
    a->steps.clear();
    b->steps.clear();

    a->field->setFocus();
    EXPECT_EQ(a->steps, QStringList{"EnterFocus"});
    b->field->setFocus();
    EXPECT_EQ(a->steps, QStringList({"EnterFocus", "ExitFocus"}));
    EXPECT_EQ(b->steps, QStringList{"EnterFocus"});
    b->setFocus();  // moving within the control is no exit
    b->field->setFocus();
    EXPECT_EQ(b->steps, QStringList{"EnterFocus"});
    QTest::keyClick(b->field, Qt::Key_Tab);  // on to the field outside
    EXPECT_EQ(QApplication::focusWidget(), outside);
    EXPECT_EQ(b->steps, QStringList({"EnterFocus", "ExitFocus"}));
}

TEST_F(ControlFrameTest, AFormWithoutItsManagerStillWorks) {
    RecordingControl* c = addControl(QStringLiteral("rec1"));
    c->startFrom(PropertyBag());
    bool ok = true;
    EXPECT_EQ(LateCall(form.Controls(QStringLiteral("FormWizard1")), "Status1",
                       {QStringLiteral("a"), QStringLiteral("b")}, &ok),
              QVariant());
    EXPECT_FALSE(ok);
    EXPECT_FALSE(LateSet(form.Controls(QStringLiteral("FormWizard1")), "TabStop", false));

    auto* manager = new FormWizard(&form);
    manager->setObjectName(QStringLiteral("FormWizard1"));
    EXPECT_EQ(form.Controls(QStringLiteral("formwizard1")), manager);
}

// Every registered class: loading from an empty bag gives the state of a new instance.
class EveryControlTest : public ::testing::TestWithParam<QString> {
protected:
    test::ScopedMemoryStore store;
    Form form;
};

QVariantMap storedState(const ControlBase& control) {
    QVariantMap state;
    const QMetaObject* meta = control.metaObject();
    for (int i = QWidget::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        const QMetaProperty p = meta->property(i);
        if (p.isStored() && p.isReadable()) {
            state.insert(QString::fromLatin1(p.name()), p.read(&control));
        }
    }
    return state;
}

TEST_P(EveryControlTest, AnEmptyBagGivesTheDefaults) {
    form.setName(QStringLiteral("frmAll"));
    ControlBase* fresh = ControlRegistry::create(GetParam(), &form);
    ControlBase* loaded = ControlRegistry::create(GetParam(), &form);
    ASSERT_NE(fresh, nullptr);
    fresh->setObjectName(QStringLiteral("a"));
    loaded->setObjectName(QStringLiteral("b"));
    fresh->startNew();
    loaded->startFrom(PropertyBag());
    // The date and time controls start unlocked but read a missing Locked as True, so a
    // new one writes its False; everything else is alike.
    const bool lockedApart = QStringList{"dat", "tim", "dti"}.contains(fresh->TypeName());
    if (lockedApart) {
        EXPECT_EQ(fresh->save().ReadProperty(QStringLiteral("Locked"), true), QVariant(false));
        EXPECT_TRUE(loaded->property("Locked").toBool());
        fresh->setProperty("Locked", true);
    }
    EXPECT_TRUE(fresh->save().isEmpty());
    EXPECT_TRUE(loaded->save().isEmpty());
    const QVariantMap state = storedState(*loaded);
    EXPECT_EQ(state, storedState(*fresh));
    for (const char* factor :
         {"ResizingMoveHor", "ResizingMoveVert", "ResizingResizeHor", "ResizingResizeVert"}) {
        if (state.contains(QString::fromLatin1(factor))) {
            EXPECT_EQ(state.value(QString::fromLatin1(factor)).toDouble(), 0.0) << factor;
        }
    }
}

TEST_P(EveryControlTest, RefreshExistsWhereTheCommonTableSaysSo) {
    ControlBase* control = ControlRegistry::create(GetParam(), &form);
    ASSERT_NE(control, nullptr);
    const QString type = control->TypeName();
    const bool expected = !QStringList{"brd", "dat", "tim", "dti"}.contains(type);
    EXPECT_EQ(LateHas(control, "Refresh"), expected) << type.toStdString();
    const QStringList withDc{"FormWizard", "fra", "txt", "mlt"};
    EXPECT_EQ(LateHas(control, "hdc"), withDc.contains(type)) << type.toStdString();
    EXPECT_EQ(LateHas(control, "ResizingMoveHor"), type != u"FormWizard") << type.toStdString();
}

QStringList registeredNames() {
    QStringList names;
    for (const ClassRegistration& r : RegisteredClasses()) {
        names << r.className;
    }
    return names;
}

INSTANTIATE_TEST_SUITE_P(Registered, EveryControlTest, ::testing::ValuesIn(registeredNames()),
                         [](const auto& info) { return info.param.toStdString(); });

}  // namespace
}  // namespace vorelle
