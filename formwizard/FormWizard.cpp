#include "formwizard/FormWizard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include "formwizard/AccessKeys.h"
#include "formwizard/AutoResize.h"
#include "formwizard/DialogStyle.h"
#include "formwizard/MenuLeiste.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "formwizard/WindowPosition.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/LibraryInfo.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "foundation/program.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/SystemMenu.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/KeyState.h"
#include "host/input/VirtualKeys.h"
#include "host/input/WindowGeometry.h"
#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/MessageBox.h"
#include "host/platform/PopupMenu.h"
#include "host/platform/Screen.h"
#include "host/platform/SystemColors.h"

namespace vorelle {

namespace {

const QString kDefaultStyle = QStringLiteral("Cool and hot");

void pumpMessages() {
    QCoreApplication::processEvents();
}

QString pick(const QString& de, const QString& en) {
    return LangText(de, EnglishOrGerman(de, en));
}

constexpr int kTickInterval = 20;

// Every manager's timer ticks on the same 20 ms steps of one clock: with several forms open
// the process wakes once a step, not once a step for each form. A timer starts with what
// is left to the next step and takes its 20 ms at its first tick.
void startOnCommonStep(QTimer* timer) {
    static QElapsedTimer clock;
    if (!clock.isValid()) {
        clock.start();
    }
    const auto left = static_cast<int>(kTickInterval - clock.elapsed() % kTickInterval);
    timer->start(left);
}

}  // namespace

class FormWizardPrivate {
public:
    explicit FormWizardPrivate(FormWizard* owner) : q(owner) {}

    FormWizard* q;
    QString accessKeysGivenDe, accessKeysGivenEn, accessKeysGivenToolbarDe,
        accessKeysGivenToolbarEn;
    QList<AccessKeyRow> accessKeys;
    bool doFading = true;
    bool fadingActive = true;
    bool overrideUserStyle = false;
    bool doResizing = false;
    qint32 minFormWidth = 7200;
    qint32 minFormHeight = 9600;
    bool doPosLoadSave = true;
    bool doLoadSaveWithControls = false;
    bool doChangeTitle = true;
    QString captionDe, captionEn;
    QString status1Text, status2Text;
    QString parentName;
    QPointer<Form> parent;
    bool eventsBound = false;
    QString displayName;
    qint32 restoredLeft = 0, restoredTop = 0, restoredWidth = 0, restoredHeight = 0;
    QString formDimensionsText;
    QString appTitle, appVersion;
    bool status1Scrolling = false, status2Scrolling = false;
    qint32 status1ScrollPos = 0, status2ScrollPos = 0;
    int status1Visible = 0;
    QString disabledControlsPsl;

    QTimer* timer = nullptr;
    QLabel* desStatus2 = nullptr;
    QFrame* line1 = nullptr;
    QImage surface;

    void readProgram();
    void readUserSwitches();
    void bind(Form* form);
    bool bindToParent();
    void callForm(const char* routine, QVariantList& args);
    void callForm(const char* routine) {
        QVariantList none;
        callForm(routine, none);
    }

    void onLoad();
    void onActivate();
    void onDeactivate();
    void onQueryUnload(int& cancel, int unloadMode);
    void onResize();
    void onKeyDown(int& keyCode, int shift);
    void onMouseDown(int button, int shift, float x, float y);
    void dialogMenu();

    void formEffect(const QString& colour);
    void buildTitle();
    void layout();
    void drawStatus1();
    void layoutStatus2();
    void statusBackground();
    void advanceScrolling();
};

// --- Start -------------------------------------------------------------------------------

void FormWizardPrivate::readProgram() {
    const QString exe = QCoreApplication::applicationFilePath();
    appTitle = GetModuleAppName(QString());
    appVersion = ModuleVersion(exe);
    if (appTitle == u"Visual Basic") {
        appTitle = QStringLiteral("Entwicklungsumgebung");
        appVersion = QStringLiteral("6.71");
    }
}

void FormWizardPrivate::readUserSwitches() {
    if (!q->userMode()) {
        DoNotShowToolTips() = DoNotScrollStatus() = DoNotScrollStatus2() = true;
        return;
    }
    auto read = [&](const char* name) {
        return ToBool(RegGetApp(parentName, QString::fromLatin1(name), QStringLiteral("False")));
    };
    DoNotShowToolTips() = read("DoNotShowToolTips");
    DoNotScrollStatus() = read("DoNotScrollStatus");
    DoNotScrollStatus2() = read("DoNotScrollStatus2");
}

void FormWizardPrivate::bind(Form* form) {
    eventsBound = true;
    form->setManager(q);
    QObject::connect(form, &Form::Load, q, [this] { onLoad(); });
    QObject::connect(form, &Form::Activate, q, [this] { onActivate(); });
    QObject::connect(form, &Form::Deactivate, q, [this] { onDeactivate(); });
    QObject::connect(form, &Form::QueryUnload, q,
                     [this](int& cancel, int mode) { onQueryUnload(cancel, mode); });
    QObject::connect(form, &Form::Resize, q, [this] { onResize(); });
    QObject::connect(form, &Form::KeyDown, q,
                     [this](int& keyCode, int shift) { onKeyDown(keyCode, shift); });
    QObject::connect(form, &Form::MouseDown, q, [this](int button, int shift, float x, float y) {
        onMouseDown(button, shift, x, y);
    });
}

// Takes the hosting form as parent and, at run time, binds to its events; false when the
// parent is no form (a user control) or, at design time, when nothing is bound.
bool FormWizardPrivate::bindToParent() {
    if (eventsBound) {
        return true;
    }
    Form* form = q->parentForm();
    if (!form || form != q->parentWidget()) {
        return false;
    }
    parent = form;
    parentName = form->Name();
    if (!q->userMode()) {
        return false;
    }
    bind(form);
    return true;
}

void FormWizardPrivate::callForm(const char* routine, QVariantList& args) {
    LateCallByRef(parent, routine, args);
}

// --- The form's events -------------------------------------------------------------------

void FormWizardPrivate::onLoad() {
    Form* form = parent;
    Screen::setMousePointer(Screen::vbHourglass);
    Hook(form, WMPROC_Form, QStringLiteral("Form"));
    accessKeys = AccessKeyTableBuild(form);
    RegSaveProgramProps(appTitle);
    CurrentDialogStyle() = RegGetApp(form->Name(), QStringLiteral("DialogStyle"), kDefaultStyle);
    if (!overrideUserStyle) {
        q->SetDialogStyle(CurrentDialogStyle());
    } else {
        CurrentDialogStyle() = kDefaultStyle;
    }
    if (!parent) {
        return;  // a handler closed the form
    }
    q->Status1(QStringLiteral("Dialog wird geladen..."), QStringLiteral("Dialog is loading..."));
    if (doPosLoadSave) {
        // The design sizes first, then the place of the last run.
        PlaceAtShow(form, doLoadSaveWithControls);
    }
    if (HasToolOrMenuButtons(form)) {
        ToolbarBandDraw(form);
    }
    if (doChangeTitle) {
        buildTitle();
    }
    callForm("Form_Load2");
    Screen::setMousePointer(Screen::vbDefault);
    q->Status1(QStringLiteral("Dialog geladen."), QStringLiteral("Dialog loaded."));
}

void FormWizardPrivate::onActivate() {
    Form* form = parent;
    if (!form) {
        return;
    }
    SystemMenuRebuild(form);
    q->Status2(QStringLiteral("Dialog aktiv."), QStringLiteral("Dialog is active."));
    form->Cls();
    if (fadingActive) {
        formEffect(ColorToHex(q->ForeColor()));
    }
    if (HasToolOrMenuButtons(form)) {
        ToolbarBandDraw(form);
    }
    callForm("Form_Activate2");
}

void FormWizardPrivate::onDeactivate() {
    Form* form = parent;
    if (!form) {
        return;
    }
    SystemMenuClear(form);
    auto redraw = [&](const QString& colour) {
        form->Cls();
        if (fadingActive) {
            formEffect(colour);
        }
        if (HasToolOrMenuButtons(form)) {
            ToolbarBandDraw(form);
        }
        pumpMessages();
    };
    if (!form->isEnabled()) {
        q->Status2(QStringLiteral("Dialog ist gesperrt. Es sind keine Interaktionen möglich."),
                   QStringLiteral("Dialog is disabled. No interaction possible."));
        redraw(QStringLiteral("000000"));
    } else if (!MenuIsOpen()) {
        q->Status2(
            QStringLiteral("Dialog ist deaktiviert. Klicken, um diesen Dialog zu aktivieren."),
            QStringLiteral("Dialog is deactivated. Click to activate this dialog."));
        redraw(QStringLiteral("a0a0a0"));
    }
    if (parent) {
        callForm("Form_Deactivate2");
    }
}

void FormWizardPrivate::onQueryUnload(int& cancel, int unloadMode) {
    Form* form = parent;
    if ((!form->isEnabled() || SystemMenuCleared()) && !IsCompiled()) {
        Beep();
        cancel = 1;
        return;
    }
    q->Status1(QStringLiteral("Dialog wird entladen..."), QStringLiteral("Dialog is unloading..."));
    Screen::setMousePointer(Screen::vbHourglass);
    LockWindowUpdate(form);
    if (doPosLoadSave) {
        WindowPosSave(form, doLoadSaveWithControls, false);
    }
    for (QWidget* control : form->Controls()) {
        bool ok = false;
        const QVariant regSave = LateGet(control, "RegSave", &ok);
        if (ok && regSave.toBool()) {
            LateCall(control, "RegSaving");
        }
    }
    QVariantList args{cancel, unloadMode};
    callForm("Form_QueryUnload2", args);
    cancel = args.value(0).toInt();
    UnlockWindowUpdate();
    Screen::setMousePointer(Screen::vbDefault);
}

void FormWizardPrivate::onResize() {
    Form* form = parent;
    if (doResizing) {
        AutoResize(form, minFormWidth, minFormHeight);
    }
    layout();
    if (fadingActive) {
        form->Cls();
        formEffect(ColorToHex(q->ForeColor()));
    }
    if (HasToolOrMenuButtons(form)) {
        if (!fadingActive) {
            form->Cls();
        }
        ToolbarBandDraw(form);
    }
    callForm("Form_Resize2");
    if (parent && form->WindowState() == 0) {
        restoredLeft = form->Left();
        restoredTop = form->Top();
        restoredWidth = form->Width();
        restoredHeight = form->Height();
    }
    UnlockWindowUpdate();
}

void FormWizardPrivate::onKeyDown(int& keyCode, int shift) {
    if (!parent->isEnabled()) {
        Beep();
    }
    QVariantList args{keyCode, shift};
    callForm("Form_KeyDown2", args);
    keyCode = args.value(0).toInt();
}

void FormWizardPrivate::onMouseDown(int button, int shift, float x, float y) {
    if (button == 2) {
        dialogMenu();
    }
    QVariantList args{button, shift, x, y};
    callForm("Form_MouseDown2", args);
}

// The right-click menu of the form: the user's switches, the dialog style, the window
// commands.
void FormWizardPrivate::dialogMenu() {
    const QString cool = QStringLiteral("Cool and hot");
    const QString winter = QStringLiteral("Winter");
    const QString business = QStringLiteral("Business");
    const QString quick = QStringLiteral("Quick and simple");
    auto checked = [](bool on) { return on ? int(MenuChecked) : 0; };
    auto style = [&](const QString& name) { return checked(CurrentDialogStyle() == name); };

    MenuStart(QStringLiteral("formwizard"), QStringLiteral("Dialog"), QStringLiteral("Dialog"));
    MenuAdd(QStringLiteral("tooltips"), QStringLiteral("ToolTipps anzeigen"),
            QStringLiteral("Show tooltips"), checked(!DoNotShowToolTips()));
    MenuAdd(QStringLiteral("statusscroll"), QStringLiteral("Statuszeile bei Überlänge scrollen"),
            QStringLiteral("Scroll status bar if too wide"), checked(!DoNotScrollStatus()));
    MenuAdd(QStringLiteral("statusscroll2"),
            QStringLiteral("Hinweise zu Steuerelementen bei Übergröße scrollen"),
            QStringLiteral("Scroll control description in status bar if too large"),
            checked(!DoNotScrollStatus2()));
    if (!overrideUserStyle) {
        MenuSub(QStringLiteral("dStyle"), QStringLiteral("Dialog-Style"),
                QStringLiteral("Dialog style"));
        MenuAdd(cool, QStringLiteral("Cool and hot (kalt und heiss)"), cool, style(cool));
        MenuAdd(winter, QStringLiteral("Winter (Schnee und Eis)"),
                QStringLiteral("Winter (snow and ice)"), style(winter));
        MenuAdd(business, QStringLiteral("Business (grau in grau)"),
                QStringLiteral("Business (gray on gray)"), style(business));
        MenuAdd(quick, QStringLiteral("Quick and simple (schnell und einfach)"), quick,
                style(quick));
        MenuEndSub();
    }
    if (HasMultipleMonitors()) {
        MenuAdd(QStringLiteral("nextmonitor"),
                QStringLiteral("Auf anderem Monitor darstellen \t(Strg+F11)"),
                QStringLiteral("Display on other monitor \t(Ctrl+F11)"));
    }
    MenuAdd(QStringLiteral("posreset"),
            QStringLiteral("Fensterpositionen zurücksetzen \t(Strg+F12)"),
            QStringLiteral("Reset window positions \t(Ctrl+F12)"));
    const QString chosen = MenuShow(q);

    if (chosen == u"posreset") {
        q->FensterPosReset();
    } else if (chosen == u"nextmonitor") {
        WindowToNextScreen(parent);
    } else if (chosen == u"tooltips" || chosen == u"statusscroll" || chosen == u"statusscroll2") {
        ToolTipHide();
        bool& on = chosen == u"tooltips"       ? DoNotShowToolTips()
                   : chosen == u"statusscroll" ? DoNotScrollStatus()
                                               : DoNotScrollStatus2();
        on = !on;
        const QString name = chosen == u"tooltips"       ? QStringLiteral("DoNotShowToolTips")
                             : chosen == u"statusscroll" ? QStringLiteral("DoNotScrollStatus")
                                                         : QStringLiteral("DoNotScrollStatus2");
        RegSetApp(parentName, name, QString::number(BoolToInt(on)));
    } else if (chosen.contains(QStringLiteral("dStyle\\"))) {
        const QString picked = TokenGet(chosen, QStringLiteral("\\"), 2);
        RegSetApp(parentName, QStringLiteral("DialogStyle"), picked);
        q->SetDialogStyle(picked);
        q->RefreshForm();
        q->Status1(QStringLiteral("Dialog-Style ") + picked + QStringLiteral(" gesetzt."),
                   QStringLiteral("Dialog style ") + picked + QStringLiteral(" set."));
    }
}

// --- Drawing -----------------------------------------------------------------------------

void FormWizardPrivate::formEffect(const QString& colour) {
    FontEffect(parent, colour, true, QStringLiteral("FFFFFF"));
}

void FormWizardPrivate::buildTitle() {
    if (!parent) {
        return;
    }
    const QString text = CurrentLanguage() == u"de" ? captionDe : captionEn;
    QString title;
    if (!text.isEmpty()) {
        title = text + QStringLiteral(" - ");
    }
    title += appTitle + QStringLiteral(" V ") + appVersion + u' ' + QString::fromUtf8(kMakerLine);
    parent->setCaption(title);
}

void FormWizardPrivate::layout() {
    Form* form = parent;
    if (!form) {
        return;
    }
    if (q->Width() != form->Width()) {
        q->setWidth(form->Width());
    }
    const int half = q->width() / 2;
    line1->setGeometry(half, 0, 1, q->height());
    if (q->Height() != FormWizard::kStatusHeight) {
        q->setHeight(FormWizard::kStatusHeight);
        if (!q->userMode()) {
            // The designer's way to hand out the access keys: resize the manager.
            AccessKeysDistribute(form);
            MenuKeysRemoveTabStops(form);
            q->Status1(QStringLiteral("Shift bei Resize halten, um TabIndexes neu zu sortieren"));
            if (KeyState::instance().isDown(VK_SHIFT)) {
                TabIndexesSort(form);
            }
        }
    }
    // Placed by the fixed name: a manager under another name is not placed.
    if (QObject* named = form->Controls(QStringLiteral("FormWizard1"))) {
        const int mode = form->ScaleMode();
        form->setScaleMode(1);
        LateSet(named, "Top", form->ScaleHeight() - LateGet(named, "Height").toInt() + 30);
        LateSet(named, "Left", -15);
        form->setScaleMode(mode);
    }
    drawStatus1();
    layoutStatus2();
}

void FormWizardPrivate::statusBackground() {
    const QString style = CurrentDialogStyle();
    const DialogStyleColours colours = DialogStyleColours::of(style);
    if (!colours.bandFirst.isEmpty()) {
        qint32 left = -1, top = -1, right = -1, bottom = -1;
        ColorFade(q, colours.bandFirst, false, colours.bandSecond, left, top, right, bottom,
                  colours.statusHorizontal);
    } else {
        q->setBackColor(HexColor(colours.solid));
        surface.fill(OleToQColor(q->BackColor()));
    }
    QPalette p = desStatus2->palette();
    p.setColor(QPalette::WindowText, colours.whiteStatusText ? Qt::white : Qt::black);
    desStatus2->setPalette(p);
}

void FormWizardPrivate::drawStatus1() {
    const int room = q->Width() / 2 - 30;
    int offset = 0;
    if (status1Scrolling && status1ScrollPos < 0) {
        offset = status1ScrollPos;
    }
    surface = QImage();
    q->surface();
    statusBackground();
    const QFontMetrics metrics(q->font());
    const QString& text = status1Text;
    if (PixelsToTwips(metrics.horizontalAdvance(text)) >= room && !DoNotScrollStatus()) {
        if (!status1Scrolling) {
            status1ScrollPos = 100;
        }
        status1Scrolling = true;
    } else {
        status1Scrolling = false;
        offset = 0;
    }
    int visible = static_cast<int>(text.size());
    const int limit = room - offset * 15;
    while (visible > 0 && PixelsToTwips(metrics.horizontalAdvance(text.left(visible))) >= limit) {
        --visible;
    }
    status1Visible = visible;
    {
        QPainter p(&q->surface());
        p.setFont(q->font());
        p.setPen(desStatus2->palette().color(QPalette::WindowText));
        p.drawText(QPoint(offset, 5 + metrics.ascent()), text.left(visible));
    }
    q->update();
    if (visible == text.size()) {
        status1ScrollPos = 999;
    }
}

void FormWizardPrivate::layoutStatus2() {
    const int half = q->Width() / 2;
    desStatus2->setGeometry(TwipsToPixels(half + 30), desStatus2->y(),
                            std::max(1, TwipsToPixels(half - 180)), desStatus2->height());
    const int labelPixels = desStatus2->heightForWidth(desStatus2->width());
    desStatus2->resize(desStatus2->width(), std::max(labelPixels, 1));
    const qint32 labelH = PixelsToTwips(desStatus2->height());
    qint32 top = 0;
    if (status2Scrolling && !DoNotScrollStatus2() && status2ScrollPos < 0) {
        top = Screen::TwipsPerPixelX() * status2ScrollPos / 5;
    }
    if (labelH < 391) {
        status2Scrolling = false;
        top = 0;
    } else {
        if (!status2Scrolling) {
            status2ScrollPos = 100;
        }
        status2Scrolling = true;
    }
    desStatus2->move(desStatus2->x(), TwipsToPixels(top));
    if (std::abs(top) > labelH - 345) {
        status2ScrollPos = 999;
    }
}

void FormWizardPrivate::advanceScrolling() {
    if (status1Scrolling) {
        --status1ScrollPos;
        if (status1ScrollPos == 900) {
            status1Scrolling = false;
            drawStatus1();
        } else if (status1ScrollPos < 0) {
            drawStatus1();
        }
    }
    if (status2Scrolling) {
        --status2ScrollPos;
        if (status2ScrollPos % 5 == 0) {
            if (status2ScrollPos == 900) {
                status2Scrolling = false;
                layoutStatus2();
            } else if (status2ScrollPos < 0) {
                layoutStatus2();
            }
        }
    }
}

// --- FormWizard --------------------------------------------------------------------------

FormWizard::FormWizard(QWidget* parent)
    : ControlBase(parent), d(std::make_unique<FormWizardPrivate>(this)) {
    initForeColor(kDefaultForeColor);
    d->timer = new QTimer(this);
    d->timer->setObjectName(QStringLiteral("TimerMouseEvent"));
    d->timer->setInterval(kTickInterval);
    connect(d->timer, &QTimer::timeout, this, &FormWizard::TimerMouseEvent_Timer);
    d->line1 = new QFrame(this);
    d->line1->setObjectName(QStringLiteral("Line1"));
    d->line1->setFrameShape(QFrame::VLine);
    d->line1->setFrameShadow(QFrame::Sunken);
    markConstituent(d->line1);
    d->desStatus2 = new QLabel(this);
    d->desStatus2->setObjectName(QStringLiteral("desStatus2"));
    d->desStatus2->setWordWrap(true);
    d->desStatus2->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    d->desStatus2->setText(QStringLiteral(
        "resizen, um AccessKeys zu verteilen und TabStops für MenuKeys zu entfernen"));
    QFont small(QStringLiteral("Small Fonts"));
    small.setPointSizeF(6.75);
    d->desStatus2->setFont(small);
    markConstituent(d->desStatus2);
}

// The form's pointer to its manager clears itself; the form may already be half gone here.
FormWizard::~FormWizard() = default;

void FormWizard::Initialize() {
    ControlBase::Initialize();
    QFont f(QStringLiteral("MS Sans Serif"));
    f.setPointSizeF(8.25);
    setFont(f);
    initBackColor(0xFFFFFF);
    LanguageLoad();
}

void FormWizard::InitProperties() {
    ControlBase::InitProperties();
    d->readProgram();
    d->bindToParent();
    d->readUserSwitches();
    startOnCommonStep(d->timer);
}

void FormWizard::ReadProperties(const PropertyBag& bag) {
    ControlBase::ReadProperties(bag);
    d->readProgram();
    // Read everything first, so that a value of the wrong type changes nothing.
    auto flag = [&](const char* name, bool byDefault) {
        return bag.ReadProperty(QString::fromLatin1(name), byDefault).toBool();
    };
    auto text = [&](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    const qint32 fore = bag.ReadProperty(QStringLiteral("ForeColor"), kDefaultForeColor).toInt();
    const bool fading = flag("doFading", true);
    const bool override = flag("OverrideUserStyle", false);
    const bool resizing = flag("doResizing", false);
    const qint32 minWidth = bag.ReadProperty(QStringLiteral("MinFormWidth"), 7200).toInt();
    const qint32 minHeight = bag.ReadProperty(QStringLiteral("MinFormHeight"), 9600).toInt();
    const bool posLoadSave = flag("doPosLoadSave", true);
    const bool withControls = flag("doLoadSaveWithControls", false);
    const bool changeTitle = flag("doChangeTitle", true);
    const QString captionDe = text("Caption_de");
    const QString captionEn = text("Caption_en");
    const QString keysDe = text("AccessKeysGiven_de");
    const QString keysEn = text("AccessKeysGiven_en");
    const QString toolbarDe = text("AccessKeysGivenToolbar_de");
    const QString toolbarEn = text("AccessKeysGivenToolbar_en");

    initForeColor(fore);
    d->doFading = d->fadingActive = fading;
    d->overrideUserStyle = override;
    d->doResizing = resizing;
    d->minFormWidth = minWidth;
    d->minFormHeight = minHeight;
    d->doPosLoadSave = posLoadSave;
    d->doLoadSaveWithControls = withControls;
    d->doChangeTitle = changeTitle;
    d->captionDe = captionDe;
    d->captionEn = captionEn;
    d->accessKeysGivenDe = keysDe;
    d->accessKeysGivenEn = keysEn;
    d->accessKeysGivenToolbarDe = toolbarDe;
    d->accessKeysGivenToolbarEn = toolbarEn;

    d->bindToParent();
    d->readUserSwitches();
    startOnCommonStep(d->timer);  // at design time it ends itself at its first tick
}

void FormWizard::WriteProperties(PropertyBag& bag) const {
    ControlBase::WriteProperties(bag);
    bag.WriteProperty(QStringLiteral("ForeColor"), ForeColor(), kDefaultForeColor);
    bag.WriteProperty(QStringLiteral("doFading"), d->doFading, true);
    bag.WriteProperty(QStringLiteral("OverrideUserStyle"), d->overrideUserStyle, false);
    bag.WriteProperty(QStringLiteral("doResizing"), d->doResizing, false);
    bag.WriteProperty(QStringLiteral("MinFormWidth"), d->minFormWidth, 7200);
    bag.WriteProperty(QStringLiteral("MinFormHeight"), d->minFormHeight, 9600);
    bag.WriteProperty(QStringLiteral("doPosLoadSave"), d->doPosLoadSave, true);
    bag.WriteProperty(QStringLiteral("doLoadSaveWithControls"), d->doLoadSaveWithControls, false);
    bag.WriteProperty(QStringLiteral("doChangeTitle"), d->doChangeTitle, true);
    bag.WriteProperty(QStringLiteral("Caption_de"), d->captionDe, QString());
    bag.WriteProperty(QStringLiteral("Caption_en"), d->captionEn, QString());
    bag.WriteProperty(QStringLiteral("AccessKeysGiven_de"), d->accessKeysGivenDe, QString());
    bag.WriteProperty(QStringLiteral("AccessKeysGiven_en"), d->accessKeysGivenEn, QString());
    bag.WriteProperty(QStringLiteral("AccessKeysGivenToolbar_de"), d->accessKeysGivenToolbarDe,
                      QString());
    bag.WriteProperty(QStringLiteral("AccessKeysGivenToolbar_en"), d->accessKeysGivenToolbarEn,
                      QString());
}

void FormWizard::Resize() {
    ControlBase::Resize();
    if (d->parent) {
        d->layout();
    } else {
        d->line1->setGeometry(width() / 2, 0, 1, height());
        d->drawStatus1();
        d->layoutStatus2();
    }
}

QImage& FormWizard::surface() {
    fitToWidget(d->surface, *this, Qt::white, false);
    return d->surface;
}

void FormWizard::paintEvent(QPaintEvent* event) {
    ControlBase::paintEvent(event);
    QPainter p(this);
    p.drawImage(0, 0, surface());
}

// --- Properties --------------------------------------------------------------------------

bool FormWizard::doFading() const {
    return d->doFading;
}
void FormWizard::setDoFading(bool on) {
    d->doFading = d->fadingActive = on;
    PropertyChanged(QStringLiteral("doFading"));
}
bool FormWizard::OverrideUserStyle() const {
    return d->overrideUserStyle;
}
void FormWizard::setOverrideUserStyle(bool on) {
    d->overrideUserStyle = on;
    PropertyChanged(QStringLiteral("OverrideUserStyle"));
}
bool FormWizard::doResizing() const {
    return d->doResizing;
}
void FormWizard::setDoResizing(bool on) {
    d->doResizing = on;
    PropertyChanged(QStringLiteral("doResizing"));
}
qint32 FormWizard::MinFormWidth() const {
    return d->minFormWidth;
}
void FormWizard::setMinFormWidth(qint32 twips) {
    d->minFormWidth = twips;
    PropertyChanged(QStringLiteral("MinFormWidth"));
}
qint32 FormWizard::MinFormHeight() const {
    return d->minFormHeight;
}
void FormWizard::setMinFormHeight(qint32 twips) {
    d->minFormHeight = twips;
    PropertyChanged(QStringLiteral("MinFormHeight"));
}
bool FormWizard::doPosLoadSave() const {
    return d->doPosLoadSave;
}
void FormWizard::setDoPosLoadSave(bool on) {
    d->doPosLoadSave = on;
    PropertyChanged(QStringLiteral("doPosLoadSave"));
}
bool FormWizard::doLoadSaveWithControls() const {
    return d->doLoadSaveWithControls;
}
void FormWizard::setDoLoadSaveWithControls(bool on) {
    d->doLoadSaveWithControls = on;
    PropertyChanged(QStringLiteral("doLoadSaveWithControls"));
}
bool FormWizard::doChangeTitle() const {
    return d->doChangeTitle;
}
void FormWizard::setDoChangeTitle(bool on) {
    d->doChangeTitle = on;
    PropertyChanged(QStringLiteral("doChangeTitle"));
}
QString FormWizard::Caption_de() const {
    return d->captionDe;
}
void FormWizard::setCaption_de(const QString& caption) {
    d->captionDe = caption;
    PropertyChanged(QStringLiteral("Caption_de"));
    if (d->doChangeTitle) {
        d->buildTitle();
    }
}
QString FormWizard::Caption_en() const {
    return d->captionEn;
}
QString FormWizard::AccessKeysGiven_de() const {
    return d->accessKeysGivenDe;
}

void FormWizard::setAccessKeysGiven_de(const QString& given) {
    d->accessKeysGivenDe = given;
    PropertyChanged(QStringLiteral("AccessKeysGiven_de"));
}

QString FormWizard::AccessKeysGiven_en() const {
    return d->accessKeysGivenEn;
}

void FormWizard::setAccessKeysGiven_en(const QString& given) {
    d->accessKeysGivenEn = given;
    PropertyChanged(QStringLiteral("AccessKeysGiven_en"));
}

QString FormWizard::AccessKeysGivenToolbar_de() const {
    return d->accessKeysGivenToolbarDe;
}

void FormWizard::setAccessKeysGivenToolbar_de(const QString& given) {
    d->accessKeysGivenToolbarDe = given;
    PropertyChanged(QStringLiteral("AccessKeysGivenToolbar_de"));
}

QString FormWizard::AccessKeysGivenToolbar_en() const {
    return d->accessKeysGivenToolbarEn;
}

void FormWizard::setAccessKeysGivenToolbar_en(const QString& given) {
    d->accessKeysGivenToolbarEn = given;
    PropertyChanged(QStringLiteral("AccessKeysGivenToolbar_en"));
}

void FormWizard::setCaption_en(const QString& caption) {
    d->captionEn = caption;
    PropertyChanged(QStringLiteral("Caption_en"));
    if (d->doChangeTitle) {
        d->buildTitle();
    }
}
bool FormWizard::isFadingActive() const {
    return d->fadingActive;
}
Form* FormWizard::boundForm() const {
    return d->parent;
}
QString FormWizard::status2Text() const {
    return d->desStatus2->text();
}
int FormWizard::status1VisibleLength() const {
    return d->status1Visible;
}
int FormWizard::status1ScrollPos() const {
    return d->status1ScrollPos;
}
bool FormWizard::status1Scrolling() const {
    return d->status1Scrolling;
}
int FormWizard::status2ScrollPos() const {
    return d->status2ScrollPos;
}
bool FormWizard::status2Scrolling() const {
    return d->status2Scrolling;
}

QString FormWizard::FormDimensions() {
    Form* form = d->parent;
    if (d->restoredWidth != 0 || d->restoredHeight != 0) {
        if (form && form->WindowState() == 0) {
            d->restoredLeft = form->Left();
            d->restoredTop = form->Top();
            d->restoredWidth = form->Width();
            // The height is read and written back; the stored one stays as it was.
            form->setHeight(form->Height());
        }
        if (d->restoredLeft == 0) {
            d->restoredLeft =
                RegGetApp(d->parentName, QStringLiteral("Left"), QStringLiteral("0")).toInt();
        }
        if (d->restoredTop == 0) {
            d->restoredLeft =
                RegGetApp(d->parentName, QStringLiteral("Top"), QStringLiteral("0")).toInt();
        }
        d->formDimensionsText = QStringLiteral("%1|%2|%3|%4")
                                    .arg(d->restoredLeft)
                                    .arg(d->restoredTop)
                                    .arg(d->restoredWidth)
                                    .arg(d->restoredHeight);
    } else if (form && form->WindowState() == 0) {
        d->formDimensionsText =
            QStringLiteral("%1|%2|%3|%4")
                .arg(ToStr(double(form->Left())), ToStr(double(form->Top())),
                     ToStr(double(form->Width())), ToStr(double(form->Height())));
    }
    return d->formDimensionsText;
}

// --- Members by name ---------------------------------------------------------------------

void FormWizard::Refresh() {
    LanguageLoad();
    if (d->doChangeTitle) {
        d->buildTitle();
    }
}

void FormWizard::RefreshForm() {
    if (!d->parent) {
        return;
    }
    for (QWidget* control : d->parent->Controls()) {
        LateCall(control, "Refresh");
    }
}

void FormWizard::SetDialogStyle(const QString& dStyle) {
    CurrentDialogStyle() = dStyle;
    const QString lower = dStyle.toLower();
    if (lower == u"cool and hot") {
        d->fadingActive = d->doFading;
    } else if (IsKnownDialogStyle(dStyle)) {
        d->fadingActive = false;
        if (d->parent) {
            d->parent->setBackColor(DialogStyleFormColour(dStyle));
        }
    } else {
        MsgBox(LangText(QStringLiteral("Dialog-Style %1 ist unbekannt und kann nicht gesetzt "
                                       "werden."),
                        QStringLiteral("Dialog style %1 is unknown and cannot be set."), dStyle),
               48, QStringLiteral("Vorelle V 6.71"));
    }
    d->onActivate();
    d->drawStatus1();
}

namespace {

// Whether a text field's entry history pop-up is up: its owner keeps tracking meanwhile.
bool entryWizardShown() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget* window) {
        return window->objectName() == QLatin1String("frmEntryWizard") && window->isVisible();
    });
}

}  // namespace

void FormWizard::TimerMouseEvent_Timer() {
    if (d->timer->interval() != kTickInterval && d->timer->isActive()) {
        d->timer->setInterval(kTickInterval);  // on the common step from now on
    }
    d->advanceScrolling();
    if (!d->eventsBound) {
        d->bindToParent();
    }
    Form* form = d->parent;
    if (!form) {
        return;
    }
    if (!form->isEnabled() && !entryWizardShown()) {
        ToolTipHide();
        CaptionExpandHide();
        pumpMessages();
        return;
    }
    if (!userMode()) {
        d->timer->stop();
        return;
    }
    if (WindowGeometry::instance().activeWindow() != HwndOf(form->window())) {
        return;  // only the active window tracks and takes keys
    }
    if (!KeyboardPoll(form, d->accessKeys) || !d->parent) {
        return;
    }
    MouseTracker(kTickInterval, form);
}

void FormWizard::FensterPosReset() {
    if (d->parent) {
        PosLoadWindow(d->parent, d->doLoadSaveWithControls, true);
    }
}

QVariant FormWizard::GetStatus1() const {
    return d->status1Text;
}

QVariant FormWizard::GetStatus2() const {
    return d->desStatus2->text();
}

void FormWizard::Status1(const QString& StatusText_de, const QString& StatusText_en) {
    d->status1Text = pick(StatusText_de, StatusText_en);
    d->drawStatus1();
    pumpMessages();
}

void FormWizard::Status2(const QString& StatusText_de, const QString& StatusText_en) {
    const QString text = pick(StatusText_de, StatusText_en);
    d->desStatus2->setText(text);
    d->status2Text = text;
    d->layoutStatus2();
    pumpMessages();
}

QVariant FormWizard::LockMouseEvent() {
    vorelle::LockMouseEvent();
    return {};
}

QVariant FormWizard::UnlockMouseEvent() {
    vorelle::UnlockMouseEvent();
    return {};
}

QVariant FormWizard::MenuLeisteShow(const QString& MenuCaption, int xPos, int yPos, int Width,
                                    int Height) {
    vorelle::MenuLeisteShow(MenuCaption, xPos, yPos, Width, Height);
    return {};
}

QVariant FormWizard::MenuLeisteHide() {
    vorelle::MenuLeisteHide();
    return {};
}

void FormWizard::HideToolTip() {
    ToolTipHide();
}

void FormWizard::HideCaptionExpand() {
    CaptionExpandHide();
}

void FormWizard::DisableControls(const QString& ButNotAsPSL) {
    if (!d->disabledControlsPsl.isEmpty() || !d->parent) {
        return;
    }
    QStringList entries;
    for (QWidget* control : d->parent->Controls()) {
        if (control == this) {
            continue;
        }
        const QString name = control->objectName();
        if (name.isEmpty() || PslContains(ButNotAsPSL, name)) {
            continue;
        }
        bool ok = false;
        const QVariant enabled = LateGet(control, "Enabled", &ok);
        const bool on = ok ? enabled.toBool() : control->isEnabled();
        entries << name + u'=' + (on ? u'1' : u'0');
        if (!LateSet(control, "Enabled", false)) {
            control->setEnabled(false);
        }
    }
    d->disabledControlsPsl = entries.join(u'|');
    SleepPumping(0);
}

void FormWizard::ReEnableControls() {
    if (d->parent) {
        const int count = PslCount(d->disabledControlsPsl);
        for (int i = 1; i <= count; ++i) {
            const QString item = PslItem(d->disabledControlsPsl, i);
            const QString name = item.section(u'=', 0, 0);
            const bool on = ToBool(item.section(u'=', 1));
            QObject* control = d->parent->Controls(name);
            if (control && !LateSet(control, "Enabled", on)) {
                if (auto* w = qobject_cast<QWidget*>(control)) {
                    w->setEnabled(on);
                }
            }
        }
    }
    SleepPumping(0);
    d->disabledControlsPsl.clear();
}

VORELLE_REGISTER_CONTROL(FormWizard)

}  // namespace vorelle
