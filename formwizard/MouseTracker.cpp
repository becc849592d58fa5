#include "formwizard/MouseTracker.h"

#include <QFontMetrics>
#include <QHash>
#include <QPointer>
#include <QVariantList>
#include <QWidget>

#include "automation/Mouse.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/input/WindowGeometry.h"
#include "host/platform/Screen.h"

namespace vorelle {

namespace {

constexpr int kTwips = Screen::TwipsPerPixelX();

// What the tracker knew at its last tracked change; shared by every form, since only the
// active window's timer tracks.
struct TrackerState {
    int lastX = 0;
    int lastY = 0;
    qint16 lastButton = 0;
    QPointer<QObject> lastControl;
    bool hadLastControl = false;
    QPointer<QObject> pressedControl;
    qint16 pressedButton = 0;
};

TrackerState& state() {
    static TrackerState s;
    return s;
}

// Edges included on all four sides.
bool holds(const QRect& r, int x, int y) {
    return x >= r.left() && x <= r.left() + r.width() && y >= r.top() && y <= r.top() + r.height();
}

bool readsTrue(QObject* object, const char* property) {
    bool ok = false;
    const QVariant value = LateGet(object, property, &ok);
    return ok && value.toBool();
}

QString readText(QObject* object, const char* property) {
    return LateGet(object, property).toString();
}

bool windowRectOf(QObject* object, QRect& rect) {
    bool ok = false;
    const qint32 hwnd = LateGet(object, "hwnd", &ok).toInt();
    return ok && hwnd != 0 && WindowGeometry::instance().windowRect(hwnd, rect);
}

// The mouse members take Button, X and Y by reference: what a handler writes into them is
// what the following calls of the same tick get.
struct MouseArgs {
    qint16 button = 0;
    float x = 0;
    float y = 0;
};

void callButton(QObject* control, const char* member, MouseArgs& args) {
    QVariantList list{QVariant::fromValue(args.button)};
    LateCallByRef(control, member, list);
    args.button = static_cast<qint16>(list.at(0).toInt());
}

void callButtonXY(QObject* control, const char* member, MouseArgs& args) {
    QVariantList list{QVariant::fromValue(args.button), QVariant::fromValue(args.x),
                      QVariant::fromValue(args.y)};
    LateCallByRef(control, member, list);
    args.button = static_cast<qint16>(list.at(0).toInt());
    args.x = list.at(1).toFloat();
    args.y = list.at(2).toFloat();
}

// Whether the control's caption does not fit it, and the expansion to show then.
void captionExpansion(QObject* control, Form* form) {
    const QString type = ControlTypeName(control);
    CaptionExpansion e;
    e.control = control;
    e.form = form;
    e.typeName = type;
    e.text = IsGerman() ? readText(control, "Caption_de") : readText(control, "Caption_en");
    if (type == u"prb") {
        e.text = RoundTo(LateGet(control, "Percent").toDouble(),
                         LateGet(control, "Nachkommastellen").toInt(), QStringLiteral("=+-"), true)
                     .toString() +
                 QStringLiteral("% ") + e.text;
    }
    LateSet(control->parent(), "ScaleMode", 1);
    bool ok = false;
    const QVariant alignment = LateGet(control, "Alignment", &ok);
    e.alignment = ok ? alignment.toInt() : 0;
    const QVariant font = LateGet(control, "Font", &ok);
    if (ok && font.canConvert<QFont>()) {
        e.font = font.value<QFont>();
    } else if (const auto* widget = qobject_cast<QWidget*>(control)) {
        e.font = widget->font();
    }
    e.room = LateGet(control, "Width").toInt();
    if (!windowRectOf(control, e.rect)) {
        return;
    }
    if (type == u"cmd") {
        e.alignment = 2;
        if (!readText(control, "ButtonType").isEmpty()) {
            e.room -= 390;
            e.alignment = 0;
        }
        if (readText(control, "Caption").isEmpty()) {
            e.room = 2048;  // an empty caption never expands
        }
    } else if (type == u"des" && readsTrue(control, "Multiline")) {
        const int lineHeight = QFontMetrics(e.font).height() * kTwips + 60;
        e.room = (LateGet(control, "Height").toInt() / lineHeight + 1) * e.room;
    } else if (type == u"FormWizard") {
        const int middle = (e.rect.left() + e.rect.left() + e.rect.width()) / 2;
        e.room = (e.rect.left() + e.rect.width() - middle - 2) * kTwips;
        e.foreColor = QStringLiteral("FFFFFF");
        e.backColor = QStringLiteral("0227aa");
        e.rect.setWidth(middle - e.rect.left());
        e.font = QFont(QStringLiteral("MS Sans Serif"));
        e.font.setPointSizeF(8.25);
        QVariantList none;
        e.text = LateCallByRef(control, "GetStatus1", none).toString();
    }
    e.textWidth = QFontMetrics(e.font).horizontalAdvance(e.text) * kTwips;
    QRect formRect;
    if (e.textWidth <= e.room || !WindowGeometry::instance().windowRect(form->hWnd(), formRect)) {
        return;
    }
    const int right = e.rect.left() + e.rect.width();
    const int bottom = e.rect.top() + e.rect.height();
    if (e.rect.left() > formRect.left() && e.rect.top() > formRect.top() &&
        right < formRect.left() + formRect.width() && bottom < formRect.top() + formRect.height()) {
        CaptionExpandShow(e);
    }
}

}  // namespace

namespace {

// What the tracker needs to know of a class, found once per class.
struct TypeFacts {
    QString name;
    bool noWindow = false;
    bool timer = false;
};

const TypeFacts& factsOf(const QMetaObject* meta) {
    thread_local QHash<const QMetaObject*, TypeFacts> known;
    const auto it = known.constFind(meta);
    if (it != known.constEnd()) {
        return *it;
    }
    static const QStringList kLookedThrough{
        QStringLiteral("FormWizard"), QStringLiteral("Form"),       QStringLiteral("fra"),
        QStringLiteral("brd"),        QStringLiteral("Frame"),      QStringLiteral("SSTab"),
        QStringLiteral("TabStrip"),   QStringLiteral("PictureBox"), QStringLiteral("Image")};
    TypeFacts facts;
    const int index = meta->indexOfClassInfo("TypeName");
    if (index >= 0) {
        facts.name = QString::fromUtf8(meta->classInfo(index).value());
    } else {
        const QString name = QString::fromLatin1(meta->className());
        facts.name = name.mid(name.lastIndexOf(u':') + 1);
    }
    facts.noWindow = kLookedThrough.contains(facts.name);
    facts.timer = facts.name == u"Timer";
    return *known.insert(meta, facts);
}

}  // namespace

QString ControlTypeName(const QObject* object) {
    return object ? factsOf(object->metaObject()).name : QString();
}

bool ControlIsVisible(QObject* control) {
    return control && !factsOf(control->metaObject()).timer && readsTrue(control, "Visible");
}

bool ControlHasNoWindow(QObject* control) {
    return control && factsOf(control->metaObject()).noWindow;
}

void FormStatus2Text(Form* form, const QString& Text_de, const QString& Text_en) {
    if (!form) {
        return;
    }
    const QString english = Text_en.isEmpty() ? Text_de : Text_en;
    LateCall(form->Controls(QStringLiteral("FormWizard1")), "Status2", {Text_de, english});
}

Mouse& TrackerMouse() {
    static Mouse mouse;
    return mouse;
}

void MouseTrackerReset() {
    state() = TrackerState();
}

void MouseTracker(int /*Interval*/, Form* form) {
    if (MouseEventLocked() || !form) {
        return;
    }
    TrackerState& s = state();
    const Mouse& mouse = TrackerMouse();
    const int x = mouse.X() / kTwips;
    const int y = mouse.Y() / Screen::TwipsPerPixelY();
    MouseArgs args;
    args.button = static_cast<qint16>(mouse.Button());
    if (x == s.lastX && y == s.lastY && args.button == s.lastButton) {
        return;  // a still mouse costs nothing further
    }

    // Hit test in collection order; the first rectangle that holds the point wins.
    QPointer<QObject> hit;
    QRect rect;
    const QList<QWidget*> controls = form->Controls();
    for (QWidget* control : controls) {
        if (ControlHasNoWindow(control) || !ControlIsVisible(control)) {
            continue;
        }
        if (windowRectOf(control, rect) && holds(rect, x, y)) {
            hit = control;
            break;
        }
    }
    if (!hit) {
        // The status bar: its left half (Status1) counts, the right half never does.
        QObject* wizard = form->Controls(QStringLiteral("FormWizard1"));
        if (wizard && windowRectOf(wizard, rect) && holds(rect, x, y) &&
            x <= (rect.left() + rect.left() + rect.width()) / 2) {
            hit = wizard;
        }
    }
    if (hit) {
        args.x = static_cast<float>((x - rect.left()) * kTwips);
        args.y = static_cast<float>((y - rect.top()) * Screen::TwipsPerPixelY());
    }

    if (!hit) {
        ToolTipHide();
        CaptionExpandHide();
        FormStatus2Text(form, {}, {});
    } else if (!DoNotShowToolTips()) {
        ToolTipShow(readText(hit, "Name"), form, readText(hit, "ToolTipText_de"),
                    readText(hit, "ToolTipText_en"));
    }

    if (hit.data() != s.lastControl.data() || (!hit && s.hadLastControl && !s.lastControl)) {
        if (s.hadLastControl && readsTrue(s.lastControl, "Enabled")) {
            callButton(s.lastControl, "MouseOut", args);
        }
        CaptionExpandHide();
        if (hit) {
            if (readsTrue(hit, "Enabled")) {
                callButton(hit, "MouseOver", args);
            }
            if (hit) {
                FormStatus2Text(form, readText(hit, "Status2_de"), readText(hit, "Status2_en"));
            }
            if (hit) {
                captionExpansion(hit, form);
            }
        }
    }

    if (hit && readsTrue(hit, "Enabled")) {
        callButtonXY(hit, "MouseMove", args);
    }

    if (args.button != s.lastButton) {
        if (args.button > 0 && hit && hit.data() != s.pressedControl.data()) {
            s.pressedButton = args.button;
            if (readsTrue(hit, "Enabled")) {
                callButtonXY(hit, "MouseDown", args);
            }
            s.pressedControl = hit;  // nothing when the handler took the control away
        } else if (args.button == 0) {
            if (hit && hit.data() == s.pressedControl.data()) {
                MouseArgs release{s.pressedButton, args.x, args.y};
                if (readsTrue(hit, "Enabled")) {
                    callButtonXY(hit, "MouseUp", release);
                }
                if (readsTrue(hit, "Enabled")) {
                    callButtonXY(hit, "MouseClick", release);
                }
            }
            s.pressedControl = nullptr;
        }
    }

    // The state last: a tick re-entered from a handler above saw the old one.
    s.lastControl = hit;
    s.hadLastControl = !hit.isNull();
    s.lastX = x;
    s.lastY = y;
    s.lastButton = args.button;
}

}  // namespace vorelle
