#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QFrame>
#include <QGroupBox>
#include <QLineEdit>
#include <QTest>

#include "choice/chb.h"
#include "display/Cmd.h"
#include "display/brd.h"
#include "display/des.h"
#include "display/fra.h"
#include "foundation/LateBinding.h"
#include "host/frame/RecordingControl.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Fonts.h"
#include "host/platform/Screen.h"
#include "numberdate/Num.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

using test::RoutineForm;

QStringList names(const QList<QWidget*>& widgets) {
    QStringList result;
    for (const QWidget* w : widgets) {
        result << w->objectName();
    }
    return result;
}

template <typename T>
T* add(QWidget* parent, const char* name) {
    auto* w = new T(parent);
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

TEST(FormControls, FlatInCollectionOrderWithTheControlsOfContainers) {
    Form form;
    add<brd>(&form, "brd1");
    auto* frame = add<fra>(&form, "fra1");
    add<des>(frame, "des1");
    auto* plain = add<QFrame>(frame, "Frame1");
    add<Cmd>(plain, "cmd1");
    add<Num>(&form, "num1");
    new QLineEdit(&form);  // unnamed helpers of the form are not controls

    EXPECT_EQ(names(form.Controls()),
              QStringList({"brd1", "fra1", "des1", "Frame1", "cmd1", "num1"}));
    EXPECT_EQ(form.Controls(QStringLiteral("CMD1")), form.findChild<Cmd*>());
    EXPECT_EQ(form.Controls(QStringLiteral("shpWeiss")), nullptr);  // a constituent
    EXPECT_EQ(form.Controls(QStringLiteral("FormWizard1")), nullptr);
    EXPECT_EQ(names(frame->host().ContainedControls()), QStringList({"des1", "Frame1"}));
}

TEST(FormGeometry, TwipsAtFifteenPerPixel) {
    Form form;
    form.resize(300, 200);
    EXPECT_EQ(form.ScaleWidth(), 4500);
    EXPECT_EQ(form.ScaleHeight(), 3000);
    form.setLeft(1500);
    form.setTop(750);
    EXPECT_EQ(form.Left(), 1500);
    EXPECT_EQ(form.Top(), 750);
    EXPECT_EQ(Screen::TwipsPerPixelX(), 15);
    EXPECT_EQ(LateGet(&Screen::instance(), "TwipsPerPixelY").toInt(), 15);
}

class FormRoutinesTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    RoutineForm form;
    QStringList signals_;

    void SetUp() override {
        form.setName(QStringLiteral("frmRoutines"));
        form.resize(200, 100);
        QObject::connect(&form, &Form::Load, [this] { signals_ << QStringLiteral("Load"); });
        QObject::connect(&form, &Form::QueryUnload, [this](int& cancel, int mode) {
            signals_ << QStringLiteral("QueryUnload(%1)").arg(mode);
        });
        QObject::connect(&form, &Form::Unload,
                         [this](int&) { signals_ << QStringLiteral("Unload"); });
        QObject::connect(&form, &Form::KeyDown, [this](int& key, int shift) {
            signals_ << QStringLiteral("KeyDown(%1,%2)").arg(key).arg(shift);
        });
        QObject::connect(&form, &Form::MouseDown, [this](int button, int, float x, float y) {
            signals_ << QStringLiteral("MouseDown(%1,%2,%3)").arg(button).arg(x).arg(y);
        });
    }

    void showActive() {
        form.show();
        QApplication::setActiveWindow(&form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
};

TEST_F(FormRoutinesTest, LoadRunsOnceAtTheFirstShowSignalFirst) {
    EXPECT_TRUE(Form::loadedForms().contains(&form));
    showActive();
    form.hide();
    form.show();
    EXPECT_EQ(signals_, QStringList{"Load"});
    EXPECT_EQ(form.calls.count(QStringLiteral("Load2")), 1);
    EXPECT_EQ(form.calls.first(), QStringLiteral("Load2"));
    EXPECT_TRUE(form.calls.contains(QStringLiteral("Activate2")));
}

TEST_F(FormRoutinesTest, QueryUnloadCanCancelAndNamesTheUnloadMode) {
    showActive();
    form.cancelWith = 1;
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(Form::loadedForms().contains(&form));
    EXPECT_FALSE(form.UnloadForm());
    form.cancelWith = 0;
    EXPECT_TRUE(form.UnloadForm());
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(Form::loadedForms().contains(&form));
    EXPECT_EQ(form.calls.filter(QStringLiteral("QueryUnload2")),
              QStringList({"QueryUnload2(0,0)", "QueryUnload2(0,1)", "QueryUnload2(0,1)"}));
    EXPECT_EQ(signals_.filter(QStringLiteral("Unload")),
              QStringList({"QueryUnload(0)", "QueryUnload(1)", "QueryUnload(1)", "Unload"}));
}

TEST_F(FormRoutinesTest, KeysAndMouseReachSignalAndRoutine) {
    showActive();
    QTest::keyClick(&form, Qt::Key_A, Qt::ShiftModifier);
    QTest::mouseClick(&form, Qt::RightButton, Qt::NoModifier, QPoint(2, 3));
    EXPECT_TRUE(signals_.contains(QStringLiteral("KeyDown(65,1)")));
    EXPECT_TRUE(form.calls.contains(QStringLiteral("KeyDown2(65,1)")));
    EXPECT_TRUE(signals_.contains(QStringLiteral("MouseDown(2,30,45)")));
    EXPECT_TRUE(form.calls.contains(QStringLiteral("MouseDown2(2,0,30,45)")));
}

TEST_F(FormRoutinesTest, KeyPreviewSeesKeysOfTheControlsFirstAndCanDropThem) {
    auto* field = new QLineEdit(&form);
    field->setObjectName(QStringLiteral("txtPlain"));
    showActive();
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("ab"));
    EXPECT_TRUE(form.calls.filter(QStringLiteral("KeyDown2")).isEmpty());

    form.setKeyPreview(true);
    form.dropKey = 'C';
    QTest::keyClicks(field, QStringLiteral("cd"));
    EXPECT_EQ(field->text(), QStringLiteral("abd"));
    EXPECT_EQ(form.calls.filter(QStringLiteral("KeyDown2")),
              QStringList({"KeyDown2(67,0)", "KeyDown2(68,0)"}));
    EXPECT_EQ(signals_.filter(QStringLiteral("KeyDown")).size(), 2);  // once each
    form.setKeyPreview(false);
}

TEST_F(FormRoutinesTest, KeyPreviewRaisesAKeyIgnoredInsideAGroupBoxOnce) {
    auto* group = add<QGroupBox>(&form, "grpAddress");
    auto* field = add<QLineEdit>(group, "txtStreet");
    showActive();
    field->setFocus();
    form.setKeyPreview(true);
    QTest::keyClick(field, Qt::Key_F5);  // a line edit ignores F5: it travels up to the form
    EXPECT_EQ(form.calls.filter(QStringLiteral("KeyDown2")), QStringList({"KeyDown2(116,0)"}));
    EXPECT_EQ(signals_.filter(QStringLiteral("KeyDown")).size(), 1);
    form.setKeyPreview(false);
}

TEST_F(FormRoutinesTest, KeyPreviewLosesNoKeyThatFollowsAnother) {
    auto* field = add<QLineEdit>(&form, "txtPlain");
    showActive();
    field->setFocus();
    form.setKeyPreview(true);
    QTest::keyClick(field, Qt::Key_C);  // taken by the field
    field->clearFocus();
    QTest::keyClick(&form, Qt::Key_F5);  // then one for the form itself
    EXPECT_EQ(form.calls.filter(QStringLiteral("KeyDown2")),
              QStringList({"KeyDown2(67,0)", "KeyDown2(116,0)"}));
    form.setKeyPreview(false);
}

TEST_F(FormRoutinesTest, ResizeAndActivationReachTheRoutines) {
    showActive();
    form.calls.clear();
    form.resize(260, 140);
    EXPECT_TRUE(form.calls.contains(QStringLiteral("Resize2")));

    RoutineForm other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_TRUE(form.calls.contains(QStringLiteral("Deactivate2")));
    EXPECT_EQ(Screen::ActiveForm(), &other);
}

TEST(LateCallArguments, OnlyTheByReferenceFormChangesTheCallersList) {
    RoutineForm form;
    form.dropKey = 'C';
    QVariantList args{67, 0};
    bool ok = false;
    LateCall(&form, "Form_KeyDown2", args, &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(args.at(0).toInt(), 67);
    LateCallByRef(&form, "Form_KeyDown2", args, &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(args.at(0).toInt(), 0);
    EXPECT_EQ(form.calls, QStringList({"KeyDown2(67,0)", "KeyDown2(67,0)"}));
}

TEST(ScreenPointer, HourglassThroughTheOverrideCursor) {
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    Screen::setMousePointer(Screen::vbHourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Screen::setMousePointer(Screen::vbHourglass);  // the same again stacks nothing
    Screen::setMousePointer(3);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::IBeamCursor);
    EXPECT_EQ(LateGet(&Screen::instance(), "MousePointer").toInt(), 3);
    Screen::setMousePointer(Screen::vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Screen::setMousePointer(Screen::vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

struct FontCase {
    const char* family;
    QStringList accepted;
};

class FontSubstitutionTest : public ::testing::TestWithParam<FontCase> {};

TEST_P(FontSubstitutionTest, TheFontsOfTheFormsResolveToInstalledFreeFonts) {
    Form form;  // installs the substitutes
    const FontCase c = GetParam();
    const QString resolved = QFontInfo(QFont(QString::fromLatin1(c.family), 8)).family();
    EXPECT_TRUE(c.accepted.contains(resolved)) << c.family << " -> " << resolved.toStdString();
    EXPECT_EQ(FontSubstitutesFor(QString::fromLatin1(c.family)).first(), c.accepted.first());
}

INSTANTIATE_TEST_SUITE_P(Families, FontSubstitutionTest,
                         ::testing::Values(FontCase{"MS Sans Serif", {"DejaVu Sans"}},
                                           FontCase{"Small Fonts", {"DejaVu Sans"}},
                                           FontCase{"Arial", {"Liberation Sans"}},
                                           FontCase{"Terminal", {"Terminus", "DejaVu Sans Mono"}}));

}  // namespace
}  // namespace vorelle
