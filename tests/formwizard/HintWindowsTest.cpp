#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QWidget>

#include "errors/ScopedLanguage.h"
#include "formwizard/FormWizard.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

using namespace vorelle;

namespace {

// A label-like control with the members the tooltip and the mouse tracker read.
class Field : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "des")
    Q_PROPERTY(qint32 hwnd READ hwnd)
    Q_PROPERTY(bool Visible MEMBER visible)
    Q_PROPERTY(bool Enabled MEMBER enabled)
    Q_PROPERTY(bool Locked MEMBER locked)
    Q_PROPERTY(QString Name READ name)
    Q_PROPERTY(QString ToolTipText_en MEMBER tip)
    Q_PROPERTY(QString Caption_en MEMBER caption)
    Q_PROPERTY(qint32 Width MEMBER widthTwips)
public:
    using QWidget::QWidget;
    bool visible = true;
    bool enabled = true;
    bool locked = false;
    QString tip, caption;
    qint32 widthTwips = 600;
    qint32 hwnd() const { return HwndOf(this); }
    QString name() const { return objectName(); }
};

QFont tipFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(8.25);
    return font;
}

QWidget* child(QWidget* form, const char* name) {
    return form ? form->findChild<QWidget*>(QString::fromLatin1(name)) : nullptr;
}

class HintWindowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        LastToolTipText().clear();
        form.setName(QStringLiteral("frmTipps"));
        field = new Field(&form);
        field->setObjectName(QStringLiteral("txtName"));
        cursor.position = QPoint(100, 50);
    }
    QWidget* tip() const { return windows.toolTipWindow(); }
    QWidget* expansion() const { return windows.captionExpandWindow(); }
    CaptionExpansion expand(const char* type, const QRect& rect, int alignment = 0) const {
        CaptionExpansion e;
        e.typeName = QString::fromLatin1(type);
        e.text = QStringLiteral("Ein abgeschnittener Text");
        e.font = tipFont();
        e.rect = rect;
        e.alignment = alignment;
        return e;
    }

    test::ScopedMemoryStore store;
    test::FakeCursor cursor;
    ScopedService<CursorState> scopedCursor{cursor};
    Form form;
    Field* field = nullptr;
    SystemHintWindows windows;
};

TEST_F(HintWindowsTest, OneLineTipIsMeasuredAndFollowsTheCursor) {
    windows.toolTipShow(QStringLiteral("txtName"), &form, QStringLiteral("Name"),
                        QStringLiteral("Name of the customer"));
    ASSERT_NE(tip(), nullptr);
    EXPECT_TRUE(tip()->isVisible());
    EXPECT_EQ(tip()->windowTitle(), "VRLL_Tooltip");
    EXPECT_EQ(tip()->objectName(), "frmTooltip");
    EXPECT_EQ(tip()->palette().color(QPalette::Window), QColor(255, 255, 192));
    const int w = QFontMetrics(tipFont()).horizontalAdvance(QStringLiteral("Name of the customer"));
    EXPECT_EQ(tip()->geometry(), QRect(109, 69, w + 8, 20)) << "9 and 19 pixels off the cursor";
    EXPECT_EQ(child(tip(), "txtTooltip")->width(), w);
    EXPECT_EQ(child(tip(), "shpSchwarz")->size(), QSize(w + 7, 19));
    EXPECT_EQ(child(tip(), "shpWeiss")->size(), QSize(w + 7, 19));

    QWidget* const shown = tip();
    cursor.position = QPoint(300, 200);
    windows.toolTipShow(QStringLiteral("txtName"), &form, QStringLiteral("Name"),
                        QStringLiteral("Name of the customer"));
    EXPECT_EQ(tip(), shown) << "the same text only moves the window";
    EXPECT_EQ(tip()->pos(), QPoint(309, 219));

    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(), QStringLiteral("-"));
    EXPECT_EQ(tip(), nullptr) << "a leading '-' switches the tooltip off";
    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(), QStringLiteral("Tip"));
    ASSERT_NE(tip(), nullptr);
    windows.toolTipHide();
    EXPECT_EQ(tip(), nullptr);
    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(), QString());
    EXPECT_EQ(tip(), nullptr) << "an empty text shows nothing";
}

TEST_F(HintWindowsTest, LineBreaksAndLongTextsAreMeasuredAsSeveralLines) {
    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(),
                        QStringLiteral("First\r\nSecond\nThird"));
    ASSERT_NE(tip(), nullptr);
    // Three lines: 3 * 195 + 105 twips high, 2550 + 120 wide.
    EXPECT_EQ(tip()->size(), QSize(178, 46));
    EXPECT_EQ(child(tip(), "txtTooltip")->size(), QSize(170, 39));
    EXPECT_EQ(child(tip(), "shpSchwarz")->size(), QSize(177, 45));

    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(),
                        QString(QStringLiteral("word ")).repeated(40));
    ASSERT_NE(tip(), nullptr);
    EXPECT_GT(tip()->height(), 46) << "a text wider than the box wraps";
    EXPECT_EQ(tip()->width(), 178);
}

TEST_F(HintWindowsTest, DisabledAndLockedControlsGetALineOfTheirOwn) {
    field->enabled = false;
    windows.toolTipShow(QStringLiteral("txtName"), &form, QString(), QString());
    EXPECT_EQ(LastToolTipText(), "\r\n(disabled)") << "shown even without a tooltip text";
    ASSERT_NE(tip(), nullptr);
    EXPECT_EQ(tip()->height(), 33) << "two lines";
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        field->locked = true;
        windows.toolTipShow(QStringLiteral("txtName"), &form, QStringLiteral("Name"),
                            QStringLiteral("Name"));
        EXPECT_EQ(LastToolTipText(), "Name\r\n(deaktiviert)\r\n(gesperrt)");
        field->enabled = true;
        windows.toolTipShow(QStringLiteral("txtName"), &form, QStringLiteral("Name"),
                            QStringLiteral("Name"));
        EXPECT_EQ(LastToolTipText(), "Name\r\n(gesperrt)");
    }
    windows.toolTipShow(QStringLiteral("txtName"), &form, QStringLiteral("Name"),
                        QStringLiteral("Name"));
    EXPECT_EQ(LastToolTipText(), "Name\r\n(locked)");
    windows.toolTipShow(QStringLiteral("txtGone"), &form, QStringLiteral("Name"),
                        QStringLiteral("Name"));
    EXPECT_EQ(LastToolTipText(), "Name") << "an unknown control adds nothing";
}

TEST_F(HintWindowsTest, CaptionExpansionLiesOverTheControlInItsTypesColours) {
    const QFontMetrics fm(tipFont());
    const int w = fm.horizontalAdvance(QStringLiteral("Ein abgeschnittener Text"));
    const int h = fm.height() + 3;
    const QRect control(100, 100, 60, 20);

    windows.captionExpandShow(expand("des", control));
    ASSERT_NE(expansion(), nullptr);
    EXPECT_EQ(expansion()->windowTitle(), "VRLL_CaptionExpand");
    EXPECT_EQ(expansion()->geometry(), QRect(96, 101, w + 8, h + 3));
    EXPECT_EQ(expansion()->palette().color(QPalette::Window), QColor(255, 255, 208));
    EXPECT_EQ(child(expansion(), "desCaption")->palette().color(QPalette::WindowText),
              QColor(Qt::black));
    EXPECT_EQ(child(expansion(), "shpWeiss")->size(), QSize(w + 7, h + 2));
    QWidget* const shown = expansion();
    windows.captionExpandShow(expand("chb", control));
    EXPECT_EQ(expansion(), shown) << "a shown expansion stays";
    windows.captionExpandHide();
    EXPECT_EQ(expansion(), nullptr);

    struct Case {
        const char* type;
        int alignment;
        QPoint at;
        QColor fore, back;
    };
    const QColor pale(255, 255, 208);
    const QColor blue(0x31, 0x6a, 0xc5);
    for (const Case& c : {
             Case{"des", 1, QPoint(160 - 4 - w, 101), Qt::black, pale},
             Case{"des", 2, QPoint(qRound(130 - w / 2.0 - 4), 101), Qt::black, pale},
             Case{"cmd", 0, QPoint(119, 120 - h - 5), Qt::white, QColor(0x02, 0x27, 0xaa)},
             Case{"prb", 0, QPoint(int(130 - w / 2.0 - 2), 100), Qt::black, pale},
             Case{"lstEntryWizard", 0, QPoint(104, 103), Qt::white, blue},
             Case{"txtDropDown", 0, QPoint(102, 99), Qt::white, blue},
             Case{"lst", 0, QPoint(102, 99), Qt::black, pale},
             Case{"chb", 0, QPoint(116, 101), Qt::black, pale},
         }) {
        windows.captionExpandShow(expand(c.type, control, c.alignment));
        ASSERT_NE(expansion(), nullptr) << c.type;
        EXPECT_EQ(expansion()->pos(), c.at) << c.type << c.alignment;
        EXPECT_EQ(expansion()->palette().color(QPalette::Window), c.back) << c.type;
        EXPECT_EQ(child(expansion(), "desCaption")->palette().color(QPalette::WindowText), c.fore)
            << c.type;
        windows.captionExpandHide();
    }

    CaptionExpansion given = expand("FormWizard", control);
    given.foreColor = QStringLiteral("FFFFFF");
    given.backColor = QStringLiteral("0227aa");
    windows.captionExpandShow(given);
    ASSERT_NE(expansion(), nullptr);
    EXPECT_EQ(expansion()->pos(), QPoint(98, 104));
    EXPECT_EQ(expansion()->palette().color(QPalette::Window), QColor(0x02, 0x27, 0xaa));
    windows.captionExpandHide();

    windows.captionExpandShow(expand("txtUnknown", control));
    EXPECT_EQ(expansion(), nullptr) << "an unknown type shows nothing";
}

TEST_F(HintWindowsTest, CaptionExpansionStaysOnItsMonitor) {
    const QRect work = QGuiApplication::primaryScreen()->availableGeometry();
    windows.captionExpandShow(expand("des", QRect(work.right() - 20, work.bottom() - 5, 30, 20)));
    ASSERT_NE(expansion(), nullptr);
    EXPECT_EQ(expansion()->geometry().right(), work.right());
    EXPECT_EQ(expansion()->geometry().bottom(), work.bottom());
    windows.captionExpandHide();
    windows.captionExpandShow(expand("des", QRect(work.left(), work.top() - 5, 30, 20)));
    ASSERT_NE(expansion(), nullptr);
    EXPECT_EQ(expansion()->pos(), work.topLeft());
}

TEST_F(HintWindowsTest, TheTrackerShowsTheRealWindowsAndTheHideRoutinesRemoveThem) {
    test::FakeWindowGeometry geometry;
    ScopedService<WindowGeometry> scopedGeometry{geometry};
    test::FakeMouseButtons buttons;
    ScopedService<MouseButtons> scopedButtons{buttons};
    ScopedService<HintWindows> scopedHints{windows};
    MouseTrackerReset();
    MouseEventLocked() = false;
    DoNotShowToolTips() = false;
    form.resize(400, 300);
    field->tip = QStringLiteral("Name of the customer");
    field->caption = QStringLiteral("A caption far too long for its control");
    geometry.rects[form.hWnd()] = QRect(0, 0, 400, 300);
    geometry.rects[field->hwnd()] = QRect(50, 60, 40, 16);

    cursor.position = QPoint(60, 65);
    MouseTracker(20, &form);
    ASSERT_NE(tip(), nullptr);
    EXPECT_EQ(tip()->pos(), QPoint(69, 84));
    ASSERT_NE(expansion(), nullptr) << "the cut-off caption expands";
    EXPECT_EQ(expansion()->pos(), QPoint(46, 61));

    ToolTipHide();
    CaptionExpandHide();
    EXPECT_EQ(tip(), nullptr);
    EXPECT_EQ(expansion(), nullptr);

    cursor.position = QPoint(62, 66);
    MouseTracker(20, &form);
    ASSERT_NE(tip(), nullptr) << "shown again while the cursor moves over the control";
    LockMouseEvent();
    EXPECT_EQ(tip(), nullptr);
    UnlockMouseEvent();
    MouseTrackerReset();
}

}  // namespace

#include "HintWindowsTest.moc"
