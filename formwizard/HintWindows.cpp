#include "formwizard/HintWindows.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <QtGlobal>

#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/input/CursorState.h"
#include "host/platform/Screen.h"

namespace vorelle {

namespace {

constexpr int kTwips = Screen::TwipsPerPixelX();
constexpr int kTipBoxWidth = 2550;   // twips
constexpr int kTipLineHeight = 195;  // twips
const QColor kTipBack(255, 255, 192);
const QColor kExpandBack(255, 255, 208);

int px(int twips) {
    return twips / kTwips;
}

QFont tipFont() {
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(8.25);
    return font;
}

// A colour given as "RRGGBB" or "#RRGGBB"; invalid for anything else.
QColor colourOf(const QString& text) {
    return QColor::fromString(text.startsWith(u'#') ? text : u'#' + text);
}

// A 1-pixel rectangle outline of one colour; it takes no mouse input.
class Shape : public QWidget {
public:
    Shape(QWidget* parent, const char* name, const QColor& colour)
        : QWidget(parent), colour_(colour) {
        setObjectName(QString::fromLatin1(name));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setPen(colour_);
        p.drawRect(0, 0, width() - 1, height() - 1);
    }

private:
    QColor colour_;
};

// The text box of the tooltip: the lines it was given, one below the other.
class TextLines : public QWidget {
public:
    explicit TextLines(QWidget* parent) : QWidget(parent) {
        setObjectName(QStringLiteral("txtTooltip"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    QStringList lines;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setFont(font());
        p.setPen(palette().color(QPalette::WindowText));
        const QFontMetrics fm(font());
        const int step = lines.size() > 1 ? px(kTipLineHeight) : fm.height();
        for (int i = 0; i < lines.size(); ++i) {
            p.drawText(0, i * step + fm.ascent(), lines.at(i));
        }
    }
};

// A small borderless top-level window that never takes the focus, with the white and the
// black frame shape (the white one a pixel up and left of the black one: a raised edge).
std::unique_ptr<QWidget> hintForm(const char* name, const char* caption, const QColor& back) {
    auto form = std::make_unique<QWidget>(nullptr, Qt::ToolTip | Qt::FramelessWindowHint |
                                                       Qt::WindowStaysOnTopHint |
                                                       Qt::WindowDoesNotAcceptFocus);
    form->setObjectName(QString::fromLatin1(name));
    form->setWindowTitle(QString::fromLatin1(caption));
    form->setAttribute(Qt::WA_ShowWithoutActivating);
    QPalette palette = form->palette();
    palette.setColor(QPalette::Window, back);
    palette.setColor(QPalette::WindowText, Qt::black);
    form->setPalette(palette);
    form->setAutoFillBackground(true);
    new Shape(form.get(), "shpWeiss", Qt::white);
    new Shape(form.get(), "shpSchwarz", Qt::black);
    return form;
}

void placeShapes(QWidget* form, int width, int height) {
    form->findChild<QWidget*>(QStringLiteral("shpWeiss"))->setGeometry(0, 0, width, height);
    form->findChild<QWidget*>(QStringLiteral("shpSchwarz"))->setGeometry(1, 1, width, height);
}

// Breaks a text into the lines a word-wrapping box of `width` pixels shows: at each line
// break (CR LF, LF or CR), then before the word that would pass the right edge; a word
// wider than the box is broken between characters. An empty paragraph is one line.
QStringList wrappedLines(const QString& text, const QFontMetrics& fm, int width) {
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    QStringList lines;
    for (const QString& paragraph : plain.split(u'\n')) {
        QString line;
        qsizetype i = 0;
        while (i < paragraph.size()) {
            qsizetype end = i;
            while (end < paragraph.size() && paragraph.at(end) != u' ') {
                ++end;
            }
            while (end < paragraph.size() && paragraph.at(end) == u' ') {
                ++end;
            }
            const QString word = paragraph.mid(i, end - i);
            if (fm.horizontalAdvance(line + word.trimmed()) <= width) {
                line += word;
            } else if (!line.isEmpty()) {
                lines << line.trimmed();
                line.clear();
                continue;  // the word starts the next line
            } else {
                qsizetype n = 1;
                while (n < word.size() && fm.horizontalAdvance(word.left(n + 1)) <= width) {
                    ++n;
                }
                lines << word.left(n);
                i += n;
                continue;
            }
            i = end;
        }
        lines << line.trimmed();
    }
    return lines;
}

// Reads a True/False member of a control; Qt's own property as a fallback.
bool readsAs(QObject* control, const char* member, const char* qtProperty, bool value) {
    bool ok = false;
    QVariant v = LateGet(control, member, &ok);
    if (!ok && qtProperty) {
        v = control->property(qtProperty);
        ok = v.isValid();
    }
    return ok && v.toBool() == value;
}

QRect workAreaAround(const QRect& rect) {
    const QScreen* screen = QGuiApplication::screenAt(rect.center());
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen ? screen->availableGeometry() : QRect();
}

}  // namespace

class SystemHintWindowsPrivate {
public:
    std::unique_ptr<QWidget> tip;
    std::unique_ptr<QWidget> expand;
};

HintWindows::~HintWindows() = default;

SystemHintWindows::SystemHintWindows() : d(std::make_unique<SystemHintWindowsPrivate>()) {}

SystemHintWindows::~SystemHintWindows() = default;

QString& LastToolTipText() {
    static QString text;
    return text;
}

void SystemHintWindows::toolTipShow(const QString& name, Form* form, const QString& textDe,
                                    const QString& textEn) {
    const bool german = IsGerman();
    QString text = german ? textDe : textEn;
    if (text.startsWith(u'-')) {
        toolTipHide();
        return;
    }
    if (QObject* control = form ? form->Controls(name) : nullptr) {
        if (readsAs(control, "Enabled", "enabled", false)) {
            text += german ? QStringLiteral("\r\n(deaktiviert)") : QStringLiteral("\r\n(disabled)");
        }
        if (readsAs(control, "Locked", nullptr, true)) {
            text += german ? QStringLiteral("\r\n(gesperrt)") : QStringLiteral("\r\n(locked)");
        }
    }
    if (text != LastToolTipText()) {
        toolTipHide();
        LastToolTipText() = text;
    }
    if (text.isEmpty()) {
        toolTipHide();
        return;
    }
    const QPoint mouse = CursorState::instance().pos();
    const QPoint at(mouse.x() + px(135), mouse.y() + px(285));
    if (d->tip && d->tip->isVisible()) {
        d->tip->move(at);
        return;
    }
    d->tip = hintForm("frmTooltip", "VRLL_Tooltip", kTipBack);
    auto* box = new TextLines(d->tip.get());
    box->setFont(tipFont());
    const QFontMetrics fm(box->font());
    box->lines = wrappedLines(text, fm, px(kTipBoxWidth));
    const int lines = static_cast<int>(box->lines.size());
    int w = kTipBoxWidth;
    int h = 0;
    if (lines > 1) {
        h = lines * kTipLineHeight + 105;
        box->resize(px(w), px(lines * kTipLineHeight));
    } else {
        w = fm.horizontalAdvance(box->lines.value(0)) * kTwips;
        h = 300;
        box->resize(px(w), fm.height());
    }
    box->move(px(60), px(45));
    placeShapes(d->tip.get(), px(w + 105), px(h - 15));
    d->tip->setGeometry(at.x(), at.y(), px(w + 120), px(h));
    d->tip->show();
}

void SystemHintWindows::toolTipHide() {
    d->tip.reset();
}

void SystemHintWindows::captionExpandShow(const CaptionExpansion& e) {
    if (d->expand && d->expand->isVisible()) {
        return;
    }
    const QString type = !e.typeName.isEmpty() ? e.typeName
                         : e.control           ? ControlTypeName(e.control)
                                               : QString();
    const QFontMetrics fm(e.font);
    const int w = fm.horizontalAdvance(e.text) * kTwips;  // twips
    const int h = fm.height() * kTwips + 45;
    const int wPx = px(w);
    const int hPx = px(h);
    const int left = e.rect.left();
    const int top = e.rect.top();
    const int right = left + e.rect.width();
    const int bottom = top + e.rect.height();
    const double centre = (left + right) / 2.0;
    QColor fore = Qt::black;
    QColor back = kExpandBack;
    int x = 0;
    int y = 0;
    if (type == u"des") {
        x = e.alignment == 1   ? right - 4 - wPx
            : e.alignment == 2 ? qRound(centre - wPx / 2.0 - 4)
                               : left - 4;
        y = top + 1;
    } else if (type == u"cmd") {
        fore = Qt::white;
        back = colourOf(QStringLiteral("0227aa"));
        x = e.alignment == 2 ? qRound(centre - wPx / 2.0 - 4) : left + 19;
        y = bottom - hPx - 5;
    } else if (type == u"prb") {
        x = static_cast<int>(centre - wPx / 2.0 - 2);
        y = top;
    } else if (type == u"lstEntryWizard") {
        fore = Qt::white;
        back = colourOf(QStringLiteral("#316AC5"));
        x = left + 4;
        y = top + 3;
    } else if (type == u"txtDropDown") {
        fore = Qt::white;
        back = colourOf(QStringLiteral("#316AC5"));
        x = left + 2;
        y = top - 1;
    } else if (type == u"lst") {
        x = left + 2;
        y = top - 1;
    } else if (type == u"chb") {
        x = left + 16;
        y = top + 1;
    } else if (type == u"FormWizard") {
        x = left - 2;
        y = top + 4;
    } else {
        qWarning("CaptionExpandShow: no caption expansion for the type \"%s\"",
                 qUtf8Printable(type));
        return;
    }
    if (!e.foreColor.isEmpty() && colourOf(e.foreColor).isValid()) {
        fore = colourOf(e.foreColor);
    }
    if (!e.backColor.isEmpty() && colourOf(e.backColor).isValid()) {
        back = colourOf(e.backColor);
    }
    d->expand = hintForm("frmCaptionExpand", "VRLL_CaptionExpand", back);
    auto* label = new TextLines(d->expand.get());
    label->setObjectName(QStringLiteral("desCaption"));
    label->setFont(e.font);
    label->lines = QStringList{e.text};
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, fore);
    label->setPalette(palette);
    label->setGeometry(px(60), px(45), wPx, fm.height());
    placeShapes(d->expand.get(), px(w + 105), px(h + 30));
    QRect frame(x, y, px(w + 120), px(h + 45));
    const QRect work = workAreaAround(e.rect);
    if (work.isValid()) {
        if (frame.right() > work.right()) {
            frame.moveRight(work.right());
        }
        if (frame.bottom() > work.bottom()) {
            frame.moveBottom(work.bottom());
        }
        if (frame.left() < work.left()) {
            frame.moveLeft(work.left());
        }
        if (frame.top() < work.top()) {
            frame.moveTop(work.top());
        }
    }
    d->expand->setGeometry(frame);
    d->expand->show();
}

void SystemHintWindows::captionExpandHide() {
    d->expand.reset();
}

QWidget* SystemHintWindows::toolTipWindow() const {
    return d->tip.get();
}

QWidget* SystemHintWindows::captionExpandWindow() const {
    return d->expand.get();
}

VORELLE_DEFINE_SERVICE(HintWindows, SystemHintWindows)

void ToolTipShow(const QString& Name, Form* form, const QString& Text_de, const QString& Text_en) {
    HintWindows::instance().toolTipShow(Name, form, Text_de, Text_en);
}

void CaptionExpandShow(const CaptionExpansion& expansion) {
    HintWindows::instance().captionExpandShow(expansion);
}

void ToolTipHide() {
    HintWindows::instance().toolTipHide();
}

void CaptionExpandHide() {
    HintWindows::instance().captionExpandHide();
}

}  // namespace vorelle
