#include "host/frame/ControlBase.h"

#include <QApplication>
#include <QHash>
#include <QMetaClassInfo>
#include <QResizeEvent>
#include <QSet>
#include <algorithm>
#include <cmath>

#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/LibraryInfo.h"
#include "host/form/Form.h"
#include "host/frame/ControlBase_p.h"
#include "host/frame/OleColor.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/WindowHandle.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

// Twips per unit of the scale modes: 1 twips, 2 points, 3 pixels, 5 inches, 6 mm, 7 cm.
double twipsPerUnit(int mode) {
    switch (mode) {
        case 1:
            return 1.0;
        case 2:
            return 20.0;
        case 3:
            return kTwipsPerPixel;
        case 5:
            return 1440.0;
        case 6:
            return 1440.0 / 25.4;
        case 7:
            return 1440.0 / 2.54;
        default:
            return 0.0;
    }
}

int& instanceCount() {
    static int count = 0;
    return count;
}

// The constituent parts of every control; a part leaves the set when it is destroyed.
QSet<const QObject*>& constituents() {
    static QSet<const QObject*> parts;
    return parts;
}

}  // namespace

ControlBase::ControlBase(QWidget* parent)
    : QWidget(parent), d(std::make_unique<ControlBasePrivate>()) {
    d->host = std::make_unique<ControlHost>(this);
    ++instanceCount();
    if (qApp) {
        d->focusConnection =
            connect(qApp, &QApplication::focusChanged, this, &ControlBase::onFocusChanged);
    }
}

ControlBase::~ControlBase() {
    // QWidget's destructor gives the focus away and reports it: this control is gone by
    // then and must hear nothing more.
    disconnect(d->focusConnection);
    d->hasFocus = false;
    // The hooks on the control and its constituents get their last message while the
    // control is whole.
    SendDestroyMessages(this);
    --instanceCount();
}

int ControlBase::liveInstances() {
    return instanceCount();
}

void ControlBase::setHost(std::unique_ptr<ControlHost> host) {
    if (host) {
        d->host = std::move(host);
    }
}

ControlHost& ControlBase::host() {
    return *d->host;
}

const ControlHost& ControlBase::host() const {
    return *d->host;
}

bool ControlBase::isStarted() const {
    return d->started;
}

bool ControlBase::focusInside() const {
    return d->hasFocus;
}

const QString& ControlBase::FormName() const {
    return d->formName;
}

const QString& ControlBase::ControlName() const {
    return d->controlName;
}

const QString& ControlBase::ModuleAppName() const {
    return d->moduleAppName;
}

int ControlBase::ScaleMode() const {
    return d->scaleMode;
}

bool ControlBase::AutoRedraw() const {
    return d->autoRedraw;
}

void ControlBase::setAutoRedraw(bool on) {
    d->autoRedraw = on;
}

qint32 ControlBase::ForeColor() const {
    return d->foreColor;
}

qint32 ControlBase::BackColor() const {
    return d->backColor;
}

bool ControlBase::Enabled() const {
    return d->enabled;
}

bool ControlBase::userMode() const {
    return d->host->UserMode();
}

Form* ControlBase::parentForm() const {
    return d->host->Parent();
}

// --- Life cycle -----------------------------------------------------------------------------

void ControlBase::startNew() {
    Initialize();
    InitProperties();
    d->started = true;
    Resize();
}

void ControlBase::startFrom(const PropertyBag& bag) {
    Initialize();
    beginReadProperties();
    ReadProperties(bag);
    ApplyLanguage();
    AfterReadProperties();
    d->started = true;
    Resize();
}

PropertyBag ControlBase::save() const {
    PropertyBag bag;
    WriteProperties(bag);
    return bag;
}

void ControlBase::Initialize() {
    LanguageLoad();
}

void ControlBase::InitProperties() {
    if (neverTakesFocus()) {
        LateSet(sibling(d->host->DisplayName()), "TabStop", false);
    }
}

void ControlBase::beginReadProperties() {
    d->moduleAppName = GetModuleAppName(QString());
    const Form* form = d->host->Parent();
    d->formName = form ? form->Name() : QString();  // not on a form: FormName stays ""
    d->controlName = d->host->DisplayName();
    if (!d->host->UserMode() && neverTakesFocus()) {
        LateSet(sibling(d->controlName), "TabStop", false);
    }
}

void ControlBase::ReadProperties(const PropertyBag& bag) {}
void ControlBase::WriteProperties(PropertyBag& bag) const {}
void ControlBase::Resize() {}
void ControlBase::EnterFocus() {}
void ControlBase::ExitFocus() {}

void ControlBase::PropertyChanged(const QString& name) {
    d->host->PropertyChanged(name);
}

bool ControlBase::HookAllowed() const {
    return d->host->UserMode() && !d->formName.startsWith(QStringLiteral("prop"));
}

void ControlBase::PassFocusOn() {
    SendKeysSafe(QStringLiteral("{tab}"));
}

void ControlBase::markConstituent(QWidget* widget) {
    if (widget && !constituents().contains(widget)) {
        constituents().insert(widget);
        QObject::connect(widget, &QObject::destroyed,
                         [](QObject* gone) { constituents().remove(gone); });
    }
}

bool ControlBase::isConstituent(const QWidget* widget) {
    return widget && constituents().contains(widget);
}

QVariant ControlBase::callFormWizard(const char* member, const QVariantList& args) const {
    return LateCall(formWizard(), member, args);
}

void ControlBase::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (d->started && !d->inResize) {
        d->inResize = true;
        Resize();
        d->inResize = false;
    }
}

void ControlBase::onFocusChanged(QWidget* old, QWidget* now) {
    if (!now && !window()->isActiveWindow()) {
        // The window lost activation: the focus stays where it was within the form and
        // comes back there, so the control is not left.
        return;
    }
    const bool inside = now && (now == this || isAncestorOf(now));
    if (inside && !d->hasFocus) {
        d->hasFocus = true;
        EnterFocus();
    } else if (!inside && d->hasFocus) {
        d->hasFocus = false;
        ExitFocus();
    }
}

// --- Text pairs ------------------------------------------------------------------------------

void ControlBase::letPairDe(TextPair& pair, const QString& value, const QString& baseName,
                            const std::function<void(const QString&)>& show) {
    pair.setDe(value);
    if (show) {
        show(pair.current());
    }
    PropertyChanged(baseName + QStringLiteral("_de"));
}

void ControlBase::letPairEn(TextPair& pair, const QString& value, const QString& baseName,
                            const std::function<void(const QString&)>& show) {
    pair.setEn(value);
    if (show) {
        show(pair.current());
    }
    PropertyChanged(baseName + QStringLiteral("_en"));
}

void ControlBase::letPair(TextPair& pair, const QString& value, const QString& baseName,
                          const std::function<void(const QString&)>& show) {
    if (show) {
        show(value);
    }
    PropertyChanged(baseName + pair.setCurrent(value));
}

// --- Common members --------------------------------------------------------------------------

QString ControlBase::classInfo(const QMetaObject* meta, const char* key) {
    const int index = meta->indexOfClassInfo(key);
    return index < 0 ? QString() : QString::fromUtf8(meta->classInfo(index).value());
}

QString ControlBase::TypeName() const {
    return classInfo(metaObject(), "TypeName");
}

qint32 ControlBase::hwnd() const {
    return HwndOf(this);
}

QString ControlBase::aboutTextOf(const QMetaObject* meta) {
    static const QString kEnd = QStringLiteral("\r\n");
    const QString library = QStringLiteral("Part of %1 V %2.%3 (Build %4)")
                                .arg(QString::fromUtf8(kLibraryTitle))
                                .arg(kVersionMajor)
                                .arg(kVersionMinor, 2, 10, QLatin1Char('0'))
                                .arg(kRevision);
    return classInfo(meta, "AboutHeader") + kEnd + classInfo(meta, "AboutDescription") + kEnd +
           kEnd + library + kEnd + QString::fromUtf8(kMakerLine);
}

QString ControlBase::aboutText() const {
    return aboutTextOf(metaObject());
}

// German only and the same in both modes: the About box does not follow the language.
void ControlBase::ShowAbout() {
    MsgBox(aboutText(), 0, QString::fromUtf8(kLibraryTitle), window());
}

// --- Shared common members ---------------------------------------------------------------

void ControlBase::setForeColor(qint32 color) {
    d->foreColor = color;
    applyForeColor(OleToQColor(color));
    PropertyChanged(QStringLiteral("ForeColor"));
}

void ControlBase::setBackColor(qint32 color) {
    d->backColor = color;
    applyBackColor(OleToQColor(color));
    PropertyChanged(QStringLiteral("BackColor"));
}

void ControlBase::setFontProperty(const QFont& font) {
    setFont(font);
    applyFont(font);
    PropertyChanged(QStringLiteral("Font"));
}

void ControlBase::setEnabledProperty(bool on) {
    d->enabled = on;
    applyEnabled(on);
    PropertyChanged(QStringLiteral("Enabled"));
}

void ControlBase::refreshControl() {
    LanguageLoad();
    ApplyLanguage();
    update();
    for (QWidget* child : findChildren<QWidget*>()) {
        child->update();
    }
}

void ControlBase::applyForeColor(const QColor& color) {
    QPalette p = palette();
    p.setColor(QPalette::WindowText, color);
    p.setColor(QPalette::Text, color);
    p.setColor(QPalette::ButtonText, color);
    setPalette(p);
}

void ControlBase::applyBackColor(const QColor& color) {
    QPalette p = palette();
    p.setColor(QPalette::Window, color);
    p.setColor(QPalette::Base, color);
    p.setColor(QPalette::Button, color);
    setPalette(p);
    setAutoFillBackground(true);
}

void ControlBase::applyEnabled(bool on) {
    for (QObject* child : children()) {
        if (auto* w = qobject_cast<QWidget*>(child); w && !w->isWindow()) {
            w->setEnabled(on);
        }
    }
}

void ControlBase::initForeColor(qint32 color) {
    d->foreColor = color;
    applyForeColor(OleToQColor(color));
}

void ControlBase::initBackColor(qint32 color) {
    d->backColor = color;
    applyBackColor(OleToQColor(color));
}

void ControlBase::initEnabled(bool on) {
    d->enabled = on;
    applyEnabled(on);
}

void ControlBase::initFont(const QFont& font) {
    setFont(font);
    applyFont(font);
}

void ControlBase::readForeColor(const PropertyBag& bag, qint32 defaultColor) {
    initForeColor(bag.ReadProperty(QStringLiteral("ForeColor"), defaultColor).toInt());
}

void ControlBase::writeForeColor(PropertyBag& bag, qint32 defaultColor) const {
    bag.WriteProperty(QStringLiteral("ForeColor"), ForeColor(), defaultColor);
}

void ControlBase::readBackColor(const PropertyBag& bag, qint32 defaultColor) {
    initBackColor(bag.ReadProperty(QStringLiteral("BackColor"), defaultColor).toInt());
}

void ControlBase::writeBackColor(PropertyBag& bag, qint32 defaultColor) const {
    bag.WriteProperty(QStringLiteral("BackColor"), BackColor(), defaultColor);
}

void ControlBase::readFont(const PropertyBag& bag) {
    const QFont f = bag.ReadProperty(QStringLiteral("Font"), d->host->AmbientFont()).value<QFont>();
    setFont(f);
    applyFont(f);
}

void ControlBase::writeFont(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("Font"), Font(), d->host->AmbientFont());
}

void ControlBase::readEnabled(const PropertyBag& bag) {
    d->enabled = bag.ReadProperty(QStringLiteral("Enabled"), true).toBool();
    applyEnabled(d->enabled);
}

void ControlBase::writeEnabled(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("Enabled"), d->enabled, true);
}

void ControlBase::setScaleMode(int mode) {
    if (mode == 0 && d->scaleMode != 0) {
        d->scaleWidth = ScaleWidth();
        d->scaleHeight = ScaleHeight();
    }
    d->scaleMode = mode;
}

qint32 ControlBase::ScaleWidth() const {
    const double unit = twipsPerUnit(d->scaleMode);
    return static_cast<qint32>(std::lround(unit > 0 ? Width() / unit : d->scaleWidth));
}

void ControlBase::setScaleWidth(qint32 width) {
    d->scaleHeight = ScaleHeight();
    d->scaleWidth = width;
    d->scaleMode = 0;
}

qint32 ControlBase::ScaleHeight() const {
    const double unit = twipsPerUnit(d->scaleMode);
    return static_cast<qint32>(std::lround(unit > 0 ? Height() / unit : d->scaleHeight));
}

void ControlBase::setScaleHeight(qint32 height) {
    d->scaleWidth = ScaleWidth();
    d->scaleHeight = height;
    d->scaleMode = 0;
}

void ControlBase::setWidth(qint32 twips) {
    resizeNow(QSize(TwipsToPixels(twips), height()));
}
void ControlBase::setHeight(qint32 twips) {
    resizeNow(QSize(width(), TwipsToPixels(twips)));
}

void ControlBase::resizeNow(const QSize& size) {
    const bool changed = size != this->size();
    resize(size);
    // A hidden widget gets its resize event only when shown; the layout is due now.
    if (changed && testAttribute(Qt::WA_PendingResizeEvent) && d->started && !d->inResize) {
        d->inResize = true;
        Resize();
        d->inResize = false;
    }
}
void ControlBase::setLeft(qint32 twips) {
    move(TwipsToPixels(twips), y());
}
void ControlBase::setTop(qint32 twips) {
    move(x(), TwipsToPixels(twips));
}

bool ControlBase::TabStop() const {
    return (focusPolicy() & Qt::TabFocus) != 0;
}

void ControlBase::setTabStop(bool on) {
    setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
}

namespace {

// The form's controls in the order of the focus chain.
QList<QWidget*> tabOrderOf(const Form* form) {
    const QList<QWidget*> controls = form->Controls();
    QHash<const QWidget*, int> place;
    int n = 0;
    for (const QWidget* w = form->nextInFocusChain(); w && w != form; w = w->nextInFocusChain()) {
        place.insert(w, n++);
    }
    QList<QWidget*> order = controls;
    std::stable_sort(order.begin(), order.end(), [&](const QWidget* a, const QWidget* b) {
        return place.value(a, n) < place.value(b, n);
    });
    return order;
}

}  // namespace

qint32 ControlBase::TabIndex() const {
    const Form* form = d->host->Parent();
    return form ? static_cast<qint32>(tabOrderOf(form).indexOf(this)) : 0;
}

void ControlBase::setTabIndex(qint32 index) {
    const Form* form = d->host->Parent();
    if (!form) {
        return;
    }
    QList<QWidget*> order = tabOrderOf(form);
    order.removeAll(this);
    order.insert(std::clamp<qsizetype>(index, 0, order.size()), this);
    for (qsizetype i = 0; i + 1 < order.size(); ++i) {
        QWidget::setTabOrder(order[i], order[i + 1]);
    }
}

QObject* ControlBase::sibling(const QString& name) const {
    Form* form = d->host->Parent();
    return form ? form->Controls(name) : nullptr;
}

}  // namespace vorelle
