#include "host/form/Form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolBox>

#include "foundation/LateBinding.h"
#include "host/frame/ControlBase.h"
#include "host/platform/Fonts.h"
#include "host/frame/OleColor.h"
#include "host/input/VirtualKeys.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

namespace {

QList<QPointer<Form>>& formList() {
    static QList<QPointer<Form>> forms;
    return forms;
}

// Plain Qt widgets whose children are controls of the form (not internals of the widget).
bool isPlainContainer(const QWidget* w) {
    const QMetaObject* meta = w->metaObject();
    return meta == &QWidget::staticMetaObject || meta == &QFrame::staticMetaObject ||
           meta == &QGroupBox::staticMetaObject || meta == &QStackedWidget::staticMetaObject ||
           meta == &QTabWidget::staticMetaObject || meta == &QToolBox::staticMetaObject ||
           meta == &QScrollArea::staticMetaObject;
}

void collect(const QWidget* parent, QList<QWidget*>& out) {
    for (QObject* child : parent->children()) {
        auto* w = qobject_cast<QWidget*>(child);
        if (ControlBase::isConstituent(w)) {
            continue;
        }
        if (!w || w->isWindow() || w->objectName().isEmpty() ||
            w->objectName().startsWith(u"qt_")) {
            // Internals of Qt containers (tab bars, stacked pages) still hold controls.
            if (w && !w->isWindow() && !qobject_cast<ControlBase*>(w) &&
                (w->objectName().startsWith(u"qt_") || w->objectName().isEmpty()) &&
                isPlainContainer(parent)) {
                collect(w, out);
            }
            continue;
        }
        out.append(w);
        if (auto* control = qobject_cast<ControlBase*>(w)) {
            if (QWidget* area = control->containerArea()) {
                collect(area, out);
            }
        } else if (isPlainContainer(w)) {
            collect(w, out);
        }
    }
}

}  // namespace

Form::Form(QWidget* parent) : QWidget(parent) {
    InstallFontSubstitutions();
    formList().append(this);
}

Form::~Form() {
    formList().removeAll(this);
}

QList<Form*> Form::loadedForms() {
    QList<Form*> result;
    for (const QPointer<Form>& f : formList()) {
        if (f) {
            result.append(f);
        }
    }
    return result;
}

qint32 Form::Left() const {
    return PixelsToTwips(frameGeometry().x());
}
void Form::setLeft(qint32 twips) {
    move(TwipsToPixels(twips), frameGeometry().y());
}
qint32 Form::Top() const {
    return PixelsToTwips(frameGeometry().y());
}
void Form::setTop(qint32 twips) {
    move(frameGeometry().x(), TwipsToPixels(twips));
}
qint32 Form::Width() const {
    return PixelsToTwips(frameGeometry().width());
}
qint32 Form::Height() const {
    return PixelsToTwips(frameGeometry().height());
}

void Form::setWidth(qint32 twips) {
    const int frame = frameGeometry().width() - width();
    resize(TwipsToPixels(twips) - frame, height());
}

void Form::setHeight(qint32 twips) {
    const int frame = frameGeometry().height() - height();
    resize(width(), TwipsToPixels(twips) - frame);
}

qint32 Form::ScaleWidth() const {
    return scaleMode_ == 3 ? width() : PixelsToTwips(width());
}
qint32 Form::ScaleHeight() const {
    return scaleMode_ == 3 ? height() : PixelsToTwips(height());
}

void Form::setScaleMode(int mode) {
    if (mode == 1 || mode == 3) {
        scaleMode_ = mode;
    }
}

int Form::WindowState() const {
    if (isMinimized()) {
        return 1;
    }
    return isMaximized() ? 2 : 0;
}

void Form::setWindowStateProperty(int state) {
    switch (state) {
        case 1:
            setWindowState(Qt::WindowMinimized);
            break;
        case 2:
            setWindowState(Qt::WindowMaximized);
            break;
        default:
            setWindowState(Qt::WindowNoState);
            break;
    }
}

void Form::setBorderStyle(int style) {
    borderStyle_ = style;
    Qt::WindowFlags flags = Qt::Window;
    switch (style) {
        case 0:
            flags |= Qt::FramelessWindowHint;
            break;
        case 1:
        case 3:
            flags |= Qt::MSWindowsFixedSizeDialogHint;
            break;
        case 4:
            flags = Qt::Tool | Qt::MSWindowsFixedSizeDialogHint;
            break;
        case 5:
            flags = Qt::Tool;
            break;
        default:
            break;
    }
    if (isWindow()) {
        setWindowFlags(flags);
    }
}

qint32 Form::hWnd() const {
    return HwndOf(this);
}

QList<QWidget*> Form::Controls() const {
    QList<QWidget*> result;
    collect(this, result);
    return result;
}

QObject* Form::Controls(const QString& name) const {
    for (QWidget* w : Controls()) {
        if (w->objectName().compare(name, Qt::CaseInsensitive) == 0) {
            return w;
        }
    }
    return nullptr;
}

void Form::setKeyPreview(bool on) {
    if (on == keyPreview_) {
        return;
    }
    keyPreview_ = on;
    if (on) {
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
    }
}

void Form::setBackColor(qint32 color) {
    backColor_ = color;
    QPalette p = palette();
    p.setColor(QPalette::Window, OleToQColor(color));
    setPalette(p);
    setAutoFillBackground(true);
    update();
}

QImage& Form::surface() {
    const QSize wanted = size().expandedTo(QSize(1, 1));
    if (surface_.size() != wanted) {
        QImage grown(wanted, QImage::Format_ARGB32_Premultiplied);
        grown.fill(Qt::transparent);
        if (!surface_.isNull()) {
            QPainter p(&grown);
            p.drawImage(0, 0, surface_);
        }
        surface_ = std::move(grown);
    }
    return surface_;
}

void Form::Cls() {
    surface_ = QImage();
    update();
}

void Form::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!surface_.isNull()) {
        QPainter p(this);
        p.drawImage(0, 0, surface_);
    }
}

void Form::callRoutine(const char* name, QVariantList& args) {
    if (!manager_) {
        LateCall(this, name, args);
    }
}

void Form::runLoad() {
    if (loadRan_) {
        return;
    }
    loadRan_ = true;
    if (!formList().contains(this)) {
        formList().append(this);
    }
    emit Load();
    QVariantList none;
    callRoutine("Form_Load2", none);
}

void Form::setVisible(bool visible) {
    // Load comes before the first Resize and Activate of a shown form; a form that stands
    // in a designer runs none.
    if (visible && !loadRan_ && userMode_) {
        runLoad();
    }
    QWidget::setVisible(visible);
}

bool Form::UnloadForm() {
    unloadMode_ = 1;
    const bool closed = close();
    unloadMode_ = 0;
    return closed;
}

void Form::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        const bool active = isActiveWindow();
        if (active != active_) {
            active_ = active;
            if (active) {
                emit Activate();
                QVariantList none;
                callRoutine("Form_Activate2", none);
            } else {
                emit Deactivate();
                QVariantList none;
                callRoutine("Form_Deactivate2", none);
            }
        }
    }
}

void Form::closeEvent(QCloseEvent* event) {
    int cancel = 0;
    const int mode = unloadMode_;
    emit QueryUnload(cancel, mode);
    QVariantList args{cancel, mode};
    callRoutine("Form_QueryUnload2", args);
    cancel = args.value(0).toInt();
    if (cancel == 0) {
        emit Unload(cancel);
    }
    if (cancel != 0) {
        event->ignore();
        return;
    }
    formList().removeAll(this);
    loadRan_ = false;  // a form shown again is loaded again
    QWidget::closeEvent(event);
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
    if (keyPreview_ && event->type() == QEvent::KeyPress && watched != this) {
        auto* w = qobject_cast<QWidget*>(watched);
        if (w && w->window() == this && isAncestorOf(w)) {
            previewed_ = event;  // not raised again when it reaches the form unhandled
            if (!raiseKeyDown(static_cast<QKeyEvent*>(event))) {
                return true;  // a handler swallowed the key
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool Form::raiseKeyDown(QKeyEvent* event) {
    int keyCode = VirtualKeyFromEvent(event);
    const int shift = ShiftFromModifiers(event->modifiers());
    emit KeyDown(keyCode, shift);
    QVariantList args{keyCode, shift};
    callRoutine("Form_KeyDown2", args);
    return keyCode != 0 && args.value(0).toInt() != 0;
}

void Form::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit Resize();
    QVariantList none;
    callRoutine("Form_Resize2", none);
}

void Form::keyPressEvent(QKeyEvent* event) {
    const bool previewed = previewed_ == event;
    previewed_ = nullptr;
    if (previewed) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (!raiseKeyDown(event)) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

void Form::mousePressEvent(QMouseEvent* event) {
    int button = 0;
    switch (event->button()) {
        case Qt::LeftButton:
            button = 1;
            break;
        case Qt::RightButton:
            button = 2;
            break;
        case Qt::MiddleButton:
            button = 4;
            break;
        default:
            break;
    }
    const int shift = ShiftFromModifiers(event->modifiers());
    const auto x = static_cast<float>(PixelsToTwips(qRound(event->position().x())));
    const auto y = static_cast<float>(PixelsToTwips(qRound(event->position().y())));
    emit MouseDown(button, shift, x, y);
    QVariantList args{button, shift, x, y};
    callRoutine("Form_MouseDown2", args);
    QWidget::mousePressEvent(event);
}

}  // namespace vorelle
