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
#include "host/form/Form_p.h"
#include "host/frame/ControlBase.h"
#include "host/frame/OleColor.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Fonts.h"

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

Form::Form(QWidget* parent) : QWidget(parent), d(std::make_unique<FormPrivate>()) {
    InstallFontSubstitutions();
    formList().append(this);
}

Form::~Form() {
    if (d->keyPreview && qApp) {
        qApp->removeEventFilter(this);
    }
    // The procedures on the form (and on widgets of the form that are not controls) see
    // a whole form with its window menu, before QWidget's destructor takes it apart.
    SendDestroyMessages(this);
    formList().removeAll(this);
}

int Form::BorderStyle() const {
    return d->borderStyle;
}

bool Form::UserMode() const {
    return d->userMode;
}

void Form::setUserMode(bool on) {
    d->userMode = on;
}

bool Form::KeyPreview() const {
    return d->keyPreview;
}

qint32 Form::BackColor() const {
    return d->backColor;
}

bool Form::AutoRedraw() const {
    return d->autoRedraw;
}

void Form::setAutoRedraw(bool on) {
    d->autoRedraw = on;
}

bool Form::isLoaded() const {
    return d->loadRan;
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
    return d->scaleMode == 3 ? width() : PixelsToTwips(width());
}
qint32 Form::ScaleHeight() const {
    return d->scaleMode == 3 ? height() : PixelsToTwips(height());
}

void Form::setScaleMode(int mode) {
    if (mode == 1 || mode == 3) {
        d->scaleMode = mode;
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
    d->borderStyle = style;
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
    if (on == d->keyPreview) {
        return;
    }
    d->keyPreview = on;
    if (on) {
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
    }
}

void Form::setBackColor(qint32 color) {
    d->backColor = color;
    QPalette p = palette();
    p.setColor(QPalette::Window, OleToQColor(color));
    setPalette(p);
    setAutoFillBackground(true);
    update();
}

QImage& Form::surface() {
    if (d->surfaceBlank && d->surface.format() != QImage::Format_ARGB32_Premultiplied) {
        d->surface = QImage();  // an opaque picture given by replaceSurface cannot be cleared
    }
    fitToWidget(d->surface, *this, Qt::transparent, true);
    if (d->surfaceBlank) {
        d->surfaceBlank = false;
        d->surface.fill(Qt::transparent);
    }
    return d->surface;
}

void Form::surfaceChanged() {
    if (d->checkQueued) {
        return;
    }
    d->checkQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            d->checkQueued = false;
            const size_t hash =
                d->surfaceBlank || d->surface.isNull()
                    ? 0
                    : qHashBits(d->surface.constBits(), size_t(d->surface.sizeInBytes()), 1);
            if (hash != d->shownHash) {
                d->shownHash = hash;
                update();
            }
        },
        Qt::QueuedConnection);
}

void Form::replaceSurface(const QImage& picture) {
    d->surface = picture;
    d->surfaceBlank = false;
}

void Form::Cls() {
    d->surfaceBlank = true;
    surfaceChanged();
}

void Form::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!d->surface.isNull() && !d->surfaceBlank) {
        QPainter p(this);
        p.drawImage(event->rect(), d->surface,
                    QRectF(QPointF(event->rect().topLeft()) * d->surface.devicePixelRatio(),
                           QSizeF(event->rect().size()) * d->surface.devicePixelRatio()));
    }
}

void Form::callRoutine(const char* name, QVariantList& args) {
    if (!d->manager) {
        LateCallByRef(this, name, args);
    }
}

QObject* Form::manager() const {
    return d->manager;
}

void Form::setManager(QObject* manager) {
    d->manager = manager;
}

int Form::ScaleMode() const {
    return d->scaleMode;
}

void Form::runLoad() {
    if (d->loadRan) {
        return;
    }
    d->loadRan = true;
    if (!formList().contains(this)) {
        formList().append(this);
    }
    const QPointer<Form> self(this);
    emit Load();
    if (self) {
        QVariantList none;
        callRoutine("Form_Load2", none);
    }
}

void Form::setVisible(bool visible) {
    // Load comes before the first Resize and Activate of a shown form; a form that stands
    // in a designer runs none.
    if (visible && !d->loadRan && d->userMode) {
        runLoad();
    }
    QWidget::setVisible(visible);
}

bool Form::UnloadForm() {
    d->unloadMode = 1;
    const bool closed = close();
    d->unloadMode = 0;
    return closed;
}

void Form::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        const bool active = isActiveWindow();
        if (active != d->active) {
            d->active = active;
            // Handlers may open modal boxes; the form may be gone when they return.
            const QPointer<Form> self(this);
            if (active) {
                emit Activate();
                if (self) {
                    QVariantList none;
                    callRoutine("Form_Activate2", none);
                }
            } else {
                emit Deactivate();
                if (self) {
                    QVariantList none;
                    callRoutine("Form_Deactivate2", none);
                }
            }
        }
    }
}

void Form::closeEvent(QCloseEvent* event) {
    int cancel = 0;
    const int mode = d->unloadMode;
    // Handlers may open modal boxes and delete the form meanwhile: nothing of it is
    // touched after that.
    const QPointer<Form> self(this);
    emit QueryUnload(cancel, mode);
    if (!self) {
        return;
    }
    QVariantList args{cancel, mode};
    callRoutine("Form_QueryUnload2", args);
    if (!self) {
        return;
    }
    cancel = args.value(0).toInt();
    if (cancel == 0) {
        emit Unload(cancel);
        if (!self) {
            return;
        }
    }
    if (cancel != 0) {
        event->ignore();
        return;
    }
    formList().removeAll(this);
    d->loadRan = false;  // a form shown again is loaded again
    QWidget::closeEvent(event);
}

bool Form::eventFilter(QObject* watched, QEvent* event) {
    // Each key is previewed once, where it enters the form: at the focus widget. On its way
    // up through the parents of an ignoring widget it is not raised again.
    if (d->keyPreview && event->type() == QEvent::KeyPress && watched != this &&
        watched == QApplication::focusWidget()) {
        auto* w = static_cast<QWidget*>(watched);
        if (w->window() == this && isAncestorOf(w) &&
            !raiseKeyDown(static_cast<QKeyEvent*>(event))) {
            return true;  // a handler swallowed the key
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool Form::previewedAtFocus() const {
    const QWidget* focus = QApplication::focusWidget();
    return d->keyPreview && focus && focus != this && isAncestorOf(focus);
}

bool Form::raiseKeyDown(QKeyEvent* event) {
    int keyCode = VirtualKeyFromEvent(event);
    const int shift = ShiftFromModifiers(event->modifiers());
    const QPointer<Form> self(this);
    emit KeyDown(keyCode, shift);
    if (!self) {
        return false;
    }
    QVariantList args{keyCode, shift};
    callRoutine("Form_KeyDown2", args);
    return self && keyCode != 0 && args.value(0).toInt() != 0;
}

void Form::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit Resize();
    QVariantList none;
    callRoutine("Form_Resize2", none);
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (previewedAtFocus()) {
        QWidget::keyPressEvent(event);
        return;
    }
    const QPointer<Form> self(this);
    if (!raiseKeyDown(event)) {
        event->accept();
        return;
    }
    if (self) {
        QWidget::keyPressEvent(event);
    }
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
    const QPointer<Form> self(this);
    emit MouseDown(button, shift, x, y);
    if (self) {
        QVariantList args{button, shift, x, y};
        callRoutine("Form_MouseDown2", args);
    }
    if (self) {
        QWidget::mousePressEvent(event);
    }
}

}  // namespace vorelle
