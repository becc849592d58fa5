#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "formwizard/FormWizard.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "support/Doubles.h"

namespace vorelle::test {

// Records the hint windows that the tick and the controls ask for.
class RecordingHints : public HintWindows {
public:
    QList<CaptionExpansion> expansions;
    int hidden = 0;
    void toolTipShow(const QString&, Form*, const QString&, const QString&) override {}
    void toolTipHide() override {}
    void captionExpandShow(const CaptionExpansion& e) override { expansions << e; }
    void captionExpandHide() override { ++hidden; }
};

// A managed form whose mouse tick the test drives through doubles of the cursor, the
// buttons and the window rectangles.
class ChoiceFixture : public ::testing::Test {
public:
    // The control drawn at a device pixel ratio.
    static QImage render(QWidget* w, qreal ratio = 1) {
        QImage image(w->size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        w->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

protected:
    void SetUp() override {
        MouseTrackerReset();
        MouseEventLocked() = false;
        form.setName(QStringLiteral("frmWahl"));
        form.resize(500, 400);
        wizard = new FormWizard(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
        wizard->startNew();
        geometry.rects[form.hWnd()] = QRect(-10, -30, 520, 440);
        geometry.rects[wizard->hwnd()] = QRect(0, 370, 500, 30);
    }

    // A started control of type T at a pixel position (form and screen alike).
    template <class T>
    T* place(const char* name, const QPoint& at, const PropertyBag& bag = {}) {
        auto* control = new T(&form);
        control->setObjectName(QString::fromLatin1(name));
        control->startFrom(bag);
        control->move(at);
        track(control);
        return control;
    }
    // Tells the tick where the control lies now.
    void track(ControlBase* control) {
        geometry.rects[control->hwnd()] = QRect(control->pos(), control->size());
    }
    // One tick with the cursor at a form pixel and the buttons held (1 left, 2 right).
    void at(const QPoint& p, int held = 0) {
        cursor.position = p;
        buttons.physical = held;
        MouseTracker(20, &form);
    }
    // A full click through the tick: press and release at the point, then away.
    void click(const QPoint& p, int button = 1) {
        at(p);
        at(p, button);
        at(p, 0);
    }
    ScopedMemoryStore store;
    Installed<FakeMessageBox, MessageBox> boxes;
    Installed<FakeCursor, CursorState> cursor;
    Installed<FakeMouseButtons, MouseButtons> buttons;
    Installed<FakeWindowGeometry, WindowGeometry> geometry;
    RecordingHints hints;
    ScopedService<HintWindows> scopedHints{hints};
    Form form;
    FormWizard* wizard = nullptr;
};

}  // namespace vorelle::test
