#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include <QImage>
#include <QObject>

#include "foundation/GradientFill.h"
#include "foundation/ServiceSlot.h"
#include "foundation/program.h"
#include "host/form/Form.h"

namespace vorelle {
namespace {

// Records every fill instead of painting, and answers with a chosen error number.
class RecordingFill : public GradientFill {
public:
    struct Call {
        qint32 hdc;
        QList<GradientVertex> vertices;
        GradientFillMode mode;
    };
    QList<Call> calls;
    int answer = 0;

    int fill(qint32 hdc, const QList<GradientVertex>& vertices, GradientFillMode mode) override {
        calls.append({hdc, vertices, mode});
        return answer;
    }
};

// A drawing surface of 200 by 100 pixels (3000 by 1500 twips) reached only by member
// names, as any object offering the surface members is.
class Surface : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool HasDC MEMBER hasDc)
    Q_PROPERTY(qint32 hdc MEMBER dc)
    Q_PROPERTY(bool AutoRedraw MEMBER autoRedraw)
    Q_PROPERTY(int ScaleMode MEMBER scaleMode)
    Q_PROPERTY(qint32 ScaleWidth READ ScaleWidth)
    Q_PROPERTY(qint32 ScaleHeight READ ScaleHeight)
public:
    bool hasDc = true;
    qint32 dc = 77;
    bool autoRedraw = false;
    int scaleMode = 1;
    qint32 ScaleWidth() const { return scaleMode == 3 ? 200 : 3000; }
    qint32 ScaleHeight() const { return scaleMode == 3 ? 100 : 1500; }
};

std::unique_ptr<Surface> surface(bool hasDc = true) {
    auto s = std::make_unique<Surface>();
    s->hasDc = hasDc;
    return s;
}

QList<QPoint> corners(const RecordingFill::Call& call) {
    QList<QPoint> result;
    for (const GradientVertex& v : call.vertices) {
        result << QPoint(v.x, v.y);
    }
    return result;
}

QString colourOf(const GradientVertex& v) {
    return QStringLiteral("%1%2%3")
        .arg(v.red >> 8, 2, 16, QLatin1Char('0'))
        .arg(v.green >> 8, 2, 16, QLatin1Char('0'))
        .arg(v.blue >> 8, 2, 16, QLatin1Char('0'));
}

struct Shortage {
    static inline QList<QObject*> forms;
    static inline QStringList texts;
    static void record(QObject* form, const QString& de, const QString& en) {
        forms << form;
        texts << de << en;
    }
};

TEST(ColorFade, DefaultsTheEdgesButTopAndPassesOneRectangle) {
    RecordingFill recorder;
    ScopedService<GradientFill> scoped(recorder);
    auto target = surface();
    qint32 left = -1, top = -1, right = -1, bottom = -1;
    ColorFade(target.get(), QStringLiteral("0227aa"), false, QStringLiteral("8888C0"), left, top,
              right, bottom, false);

    EXPECT_EQ(left, 0);
    EXPECT_EQ(top, -1) << "Top has no default";
    EXPECT_EQ(right, 200);
    EXPECT_EQ(bottom, 100);
    ASSERT_EQ(recorder.calls.size(), 1);
    const RecordingFill::Call& call = recorder.calls.front();
    EXPECT_EQ(call.hdc, 77);
    EXPECT_EQ(call.mode, GradientFillRectV);
    EXPECT_EQ(corners(call), (QList<QPoint>{{0, -1}, {200, -1}, {200, 100}, {0, 100}}));
    EXPECT_EQ(colourOf(call.vertices[0]), "0227aa");
    EXPECT_EQ(colourOf(call.vertices[2]), "8888c0");
    EXPECT_EQ(call.vertices[0].red, 0x0200) << "channel in the high byte";
    EXPECT_TRUE(target->autoRedraw);
    EXPECT_EQ(target->scaleMode, 1) << "restored";
}

TEST(ColorFade, ReversedSwapsTheReadCornersAndHorizontalChangesTheMode) {
    RecordingFill recorder;
    ScopedService<GradientFill> scoped(recorder);
    auto target = surface();
    qint32 left = 10, top = 5, right = 50, bottom = 20;
    ColorFade(target.get(), QStringLiteral("ff0000"), true, QStringLiteral("0000ff"), left, top,
              right, bottom, true);
    ASSERT_EQ(recorder.calls.size(), 1);
    const RecordingFill::Call& call = recorder.calls.front();
    EXPECT_EQ(call.mode, GradientFillRectH);
    EXPECT_EQ(colourOf(call.vertices[0]), "0000ff");
    EXPECT_EQ(colourOf(call.vertices[1]), "ff0000");
    EXPECT_EQ(colourOf(call.vertices[2]), "ff0000");
    EXPECT_EQ(colourOf(call.vertices[3]), "ff0000");
    EXPECT_EQ(corners(call), (QList<QPoint>{{10, 5}, {50, 5}, {50, 20}, {10, 20}}));
}

TEST(ColorFade, NoDeviceContextPaintsNothingAndABadPairThrowsOutsideTheTrap) {
    RecordingFill recorder;
    ScopedService<GradientFill> scoped(recorder);
    auto blind = surface(false);
    qint32 l = -1, t = -1, r = -1, b = -1;
    EXPECT_NO_THROW(ColorFade(blind.get(), QStringLiteral("zz0000"), false,
                              QStringLiteral("ffffff"), l, t, r, b, false))
        << "HasDC is read before any colour is converted";
    FontEffect(blind.get(), QStringLiteral("ffffff"), false, QStringLiteral("000000"));
    EXPECT_TRUE(recorder.calls.isEmpty());

    auto target = surface();
    target->scaleMode = 7;
    l = t = r = b = -1;
    EXPECT_THROW(ColorFade(target.get(), QStringLiteral("12x456"), false, QStringLiteral("ffffff"),
                           l, t, r, b, false),
                 ColorTextError);
    EXPECT_THROW(FontEffect(target.get(), QStringLiteral("ffffff"), false, QStringLiteral("fff")),
                 ColorTextError);
    EXPECT_TRUE(recorder.calls.isEmpty());
    EXPECT_EQ(target->scaleMode, 7) << "the caller's unit survives the error";
}

TEST(FontEffect, OneTriangleOverTheSumOfTheSidesWithTheCornerColourFirst) {
    RecordingFill recorder;
    ScopedService<GradientFill> scoped(recorder);
    auto target = surface();
    FontEffect(target.get(), QStringLiteral("ffcc00"), false, QStringLiteral("FFFFFF"));
    FontEffect(target.get(), QStringLiteral("ffcc00"), true, QStringLiteral("FFFFFF"));
    ASSERT_EQ(recorder.calls.size(), 2);
    EXPECT_EQ(recorder.calls[0].mode, GradientFillTriangle);
    EXPECT_EQ(corners(recorder.calls[0]), (QList<QPoint>{{0, 0}, {300, 0}, {300, 300}, {0, 300}}));
    EXPECT_EQ(colourOf(recorder.calls[0].vertices[0]), "ffcc00");
    EXPECT_EQ(colourOf(recorder.calls[0].vertices[3]), "ffffff");
    EXPECT_EQ(colourOf(recorder.calls[1].vertices[0]), "ffffff");
    EXPECT_EQ(colourOf(recorder.calls[1].vertices[1]), "ffcc00");
}

TEST(Effects, ShortageGoesToTheStatusOfTheFormOrOfNoForm) {
    RecordingFill recorder;
    recorder.answer = GradientFill::kOutOfResources;
    ScopedService<GradientFill> scoped(recorder);
    const EffectStatusFunction previous = SetEffectStatusFunction(Shortage::record);
    Shortage::forms.clear();
    Shortage::texts.clear();

    Form form;
    form.resize(40, 30);
    FontEffect(&form, QStringLiteral("000000"), true, QStringLiteral("FFFFFF"));
    auto plain = surface();
    qint32 l = -1, t = -1, r = -1, b = -1;
    ColorFade(plain.get(), QStringLiteral("000000"), false, QStringLiteral("FFFFFF"), l, t, r, b,
              false);
    recorder.answer = 5;  // any other error is ignored
    FontEffect(plain.get(), QStringLiteral("000000"), false, QStringLiteral("FFFFFF"));
    SetEffectStatusFunction(previous);

    ASSERT_EQ(Shortage::forms.size(), 2);
    EXPECT_EQ(Shortage::forms[0], &form);
    EXPECT_EQ(Shortage::forms[1], nullptr);
    EXPECT_TRUE(Shortage::texts[0].startsWith("System-Ressourcen sind erschöpft."));
    EXPECT_TRUE(Shortage::texts[1].startsWith("System ressources are used up. The grafical"));
    EXPECT_EQ(form.ScaleMode(), 1);
}

// Counts the paint events of a widget.
class PaintSpy : public QObject {
public:
    PaintSpy(QWidget* widget, int* count) : count_(count) { widget->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++*count_;
        }
        return false;
    }

private:
    int* count_;
};

// Painting for real on a form's surface.
class FormSurface : public ::testing::Test {
protected:
    void SetUp() override { form.resize(120, 80); }
    QColor at(int x, int y) { return form.surface().pixelColor(x, y); }
    // The comparison of the picture runs after the event, its repaint one round later.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    Form form;
};

TEST_F(FormSurface, VerticalAndHorizontalFadesRunTheirWay) {
    qint32 l = -1, t = -1, r = -1, b = -1;
    ColorFade(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"), l, t, r, b, false);
    EXPECT_LT(at(60, 0).red(), 10);
    EXPECT_GT(at(60, 79).red(), 245);
    EXPECT_EQ(at(0, 40), at(119, 40)) << "a vertical fade is the same across a line";
    EXPECT_EQ(form.ScaleMode(), 1);
    EXPECT_TRUE(form.AutoRedraw());

    l = -1, t = 0, r = -1, b = -1;
    ColorFade(&form, QStringLiteral("ff0000"), true, QStringLiteral("0000ff"), l, t, r, b, true);
    EXPECT_GT(at(0, 40).blue(), 245) << "reversed: the second colour on the left";
    EXPECT_GT(at(119, 40).red(), 245);
    EXPECT_EQ(at(60, 0), at(60, 79));
}

TEST_F(FormSurface, AnEmptyRectangleChangesNothing) {
    const QImage before = form.surface().copy();
    qint32 l = 30, t = 0, r = 30, b = -1;
    ColorFade(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"), l, t, r, b, false);
    EXPECT_EQ(form.surface(), before);
}

TEST_F(FormSurface, FontEffectRunsAlongTheDiagonalAndSwapsWhenReversed) {
    form.resize(100, 100);
    FontEffect(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"));
    EXPECT_LT(at(0, 0).red(), 10);
    EXPECT_GT(at(99, 99).red(), 245);
    EXPECT_NEAR(at(99, 0).red(), at(0, 99).red(), 2) << "lines across the diagonal are even";
    EXPECT_NEAR(at(50, 50).red(), 128, 8);

    FontEffect(&form, QStringLiteral("000000"), true, QStringLiteral("ffffff"));
    EXPECT_GT(at(0, 0).red(), 245);
    EXPECT_LT(at(99, 99).red(), 10);
}

// A gradient painted again is copied from the one painted before: what was drawn over the
// first copy stays out of the second, and a change of size or colour paints anew. The form
// repaints only when its picture changed.
TEST_F(FormSurface, RepeatedGradientsComeBackCleanAndRepaintOnlyOnAChange) {
    int paints = 0;
    PaintSpy spy(&form, &paints);
    form.show();
    settle();
    FontEffect(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"));
    settle();
    const QImage first = form.surface().copy();
    ASSERT_GT(paints, 0);

    qint32 l = 0, t = 0, r = 10, b = 10;
    ColorFade(&form, QStringLiteral("ff0000"), false, QStringLiteral("ff0000"), l, t, r, b, false);
    EXPECT_EQ(at(5, 5), QColor(255, 0, 0)) << "a band drawn over the gradient";
    form.Cls();
    FontEffect(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"));
    EXPECT_EQ(form.surface(), first) << "the band is not part of the kept gradient";

    settle();
    paints = 0;
    form.Cls();
    FontEffect(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"));
    settle();
    EXPECT_EQ(paints, 0) << "cleared and painted as it was: nothing to repaint";

    FontEffect(&form, QStringLiteral("a0a0a0"), false, QStringLiteral("ffffff"));
    settle();
    EXPECT_GT(paints, 0);
    EXPECT_NEAR(at(0, 0).red(), 0xa0, 2);

    form.resize(60, 40);
    FontEffect(&form, QStringLiteral("000000"), false, QStringLiteral("ffffff"));
    EXPECT_EQ(form.surface().size(), QSize(60, 40));
    EXPECT_GT(at(59, 39).red(), 200) << "a new size paints the gradient to its own corner";

    paints = 0;
    form.Cls();
    settle();
    EXPECT_GT(paints, 0) << "a cleared form shows its background again";
}

}  // namespace
}  // namespace vorelle

#include "GradientTest.moc"
