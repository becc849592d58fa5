#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "foundation/Export.h"
#include "foundation/TextPair.h"
#include "host/frame/ControlHost.h"
#include "host/frame/PropertyBag.h"

namespace vorelle {

class Form;

// Pixels and twips: 1 pixel is 15 twips throughout the library.
inline constexpr int kTwipsPerPixel = 15;
inline int TwipsToPixels(double twips) {
    return static_cast<int>(twips / kTwipsPerPixel + (twips >= 0 ? 0.5 : -0.5));
}
inline qint32 PixelsToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

// The frame of every control: life cycle, host contract and the members common to all
// sixteen controls. A control class adds its class data with Q_CLASSINFO:
//   "TypeName" ("txt"), "ClassId", "InterfaceId", "EventInterfaceId",
//   "AboutHeader" ("ctrlText V 1.21"), "AboutDescription".
//
// Life cycle, in this order: Initialize; then InitProperties (a new instance) or
// ReadProperties (a stored one); then Resize on every size change; EnterFocus and
// ExitFocus as the focus comes and goes; WriteProperties when the host saves.
//
// Loading a stored instance (startFrom) runs: Initialize; the start of ReadProperties
// (ModuleAppName, FormName, ControlName, TabStop in the designer); the control's
// ReadProperties(bag); ApplyLanguage() (the current language's texts onto the surface);
// AfterReadProperties() (where the text controls hook their fields when HookAllowed());
// then Resize.
//
// The members that most controls share (ForeColor, BackColor, Font, Enabled, Refresh,
// hdc, HasDC) live here as protected helpers. A control that has one makes it public
// and declares its property, e.g.
//   Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
//   public: using ControlBase::ForeColor; using ControlBase::setForeColor;
// and reads and writes it with readForeColor/writeForeColor at its place in the order.
class VORELLE_EXPORT ControlBase : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString TypeName READ TypeName STORED false)
    Q_PROPERTY(qint32 hwnd READ hwnd STORED false)
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode STORED false)
    Q_PROPERTY(qint32 ScaleWidth READ ScaleWidth WRITE setScaleWidth STORED false)
    Q_PROPERTY(qint32 ScaleHeight READ ScaleHeight WRITE setScaleHeight STORED false)
    Q_PROPERTY(bool AutoRedraw READ AutoRedraw WRITE setAutoRedraw STORED false)
    Q_PROPERTY(qint32 Width READ Width WRITE setWidth STORED false)
    Q_PROPERTY(qint32 Height READ Height WRITE setHeight STORED false)
    Q_PROPERTY(qint32 Left READ Left WRITE setLeft STORED false)
    Q_PROPERTY(qint32 Top READ Top WRITE setTop STORED false)
    Q_PROPERTY(bool TabStop READ TabStop WRITE setTabStop STORED false)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisibleProperty STORED false)
    Q_PROPERTY(QString Name READ Name STORED false)

public:
    explicit ControlBase(QWidget* parent = nullptr);
    ~ControlBase() override;

    // --- Driving the life cycle (the host's side) ---
    // A new instance: Initialize, InitProperties, Resize.
    void startNew();
    // A stored instance: Initialize, ReadProperties, Resize. Throws PropertyError for a
    // value of the wrong type; the control is then not started.
    void startFrom(const PropertyBag& bag);
    // WriteProperties into a fresh bag.
    PropertyBag save() const;
    bool isStarted() const { return started_; }
    // Number of control instances alive in the process.
    static int liveInstances();

    ControlHost& host() const { return *host_; }
    void setHost(std::unique_ptr<ControlHost> host);

    // --- Common members ---
    Q_INVOKABLE void ShowAbout();
    // The text of the About box.
    QString aboutText() const;
    QString TypeName() const;
    qint32 hwnd() const;
    int ScaleMode() const { return scaleMode_; }
    void setScaleMode(int mode);
    qint32 ScaleWidth() const;
    void setScaleWidth(qint32 width);
    qint32 ScaleHeight() const;
    void setScaleHeight(qint32 height);
    bool AutoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    // Device context of the drawing surface: the surface's handle in this host.
    qint32 hdc() const { return hwnd(); }
    bool HasDC() const { return true; }
    qint32 Width() const { return PixelsToTwips(width()); }
    void setWidth(qint32 twips);
    qint32 Height() const { return PixelsToTwips(height()); }
    void setHeight(qint32 twips);
    // Resizes in pixels and lays the constituents out at once, shown or not.
    void resizeNow(const QSize& size);
    qint32 Left() const { return PixelsToTwips(x()); }
    void setLeft(qint32 twips);
    qint32 Top() const { return PixelsToTwips(y()); }
    void setTop(qint32 twips);
    bool TabStop() const;
    void setTabStop(bool on);
    bool Visible() const { return !isHidden(); }
    void setVisibleProperty(bool on) { setVisible(on); }
    QString Name() const { return objectName(); }

    // Window handle of the drawing surface and its device context (the same handle here).
    // The controls that have hdc declare the properties themselves.
    // The private fields of every control, set at ReadProperties.
    const QString& FormName() const { return formName_; }
    const QString& ControlName() const { return controlName_; }
    const QString& ModuleAppName() const { return moduleAppName_; }

    // The widget that holds the controls dropped onto a container control, or nullptr.
    virtual QWidget* containerArea() const { return nullptr; }

    // Class data of a control class (Q_CLASSINFO), "" when missing.
    static QString classInfo(const QMetaObject* meta, const char* key);
    // The About text of a control class: header, description, the library line and the
    // maker's line, each ended by CR LF but the last, an empty line after the description.
    static QString aboutTextOf(const QMetaObject* meta);

    // True when the widget is a constituent of its control (drawn or native parts such as
    // shpWeiss or txtText) rather than a control of the form.
    static bool isConstituent(const QWidget* widget);

protected:
    // The life-cycle steps. Overrides call the base first.
    virtual void Initialize();
    virtual void InitProperties();
    virtual void ReadProperties(const PropertyBag& bag);
    virtual void WriteProperties(PropertyBag& bag) const;
    virtual void Resize();
    virtual void EnterFocus();
    virtual void ExitFocus();

    // Step 6 of ReadProperties and part of Refresh: puts the texts of CurrentLanguage on
    // the constituent controls.
    virtual void ApplyLanguage() {}
    // Runs after ApplyLanguage when a stored instance is loaded: the place for the run-time
    // start-up that needs all properties (hooks of the text controls).
    virtual void AfterReadProperties() {}
    // Whether the text controls hook their fields: at run time, on a form whose name does
    // not begin with "prop" (the library's own property pages show previews).
    bool HookAllowed() const;

    // True for controls that never take the focus (fra, des): their TabStop is switched
    // off in the designer.
    virtual bool neverTakesFocus() const { return false; }
    // Passes the focus on to the next control by a posted Tab key.
    static void PassFocusOn();

    // Registers a child widget as a constituent: it is not one of the form's controls.
    static void markConstituent(QWidget* widget);

    // --- Shared common members (made public by the controls that have them) ---
    qint32 ForeColor() const { return foreColor_; }
    // Stores the colour, applies it (applyForeColor) and reports "ForeColor".
    void setForeColor(qint32 color);
    qint32 BackColor() const { return backColor_; }
    void setBackColor(qint32 color);
    QFont Font() const { return font(); }
    // Stores the font on the surface (its constituents inherit it), then applyFont.
    void setFontProperty(const QFont& font);
    bool Enabled() const { return enabled_; }
    // Stores the value and gives it to the constituent controls (applyEnabled).
    void setEnabledProperty(bool on);
    // Refresh: LanguageLoad, the current language's texts back on the surface, redraw.
    void refreshControl();

    // How the shared members reach the surface. By default: the text colour roles of the
    // palette, the window and base roles (filled), nothing more for the font, and every
    // direct child widget for Enabled.
    virtual void applyForeColor(const QColor& color);
    virtual void applyBackColor(const QColor& color);
    virtual void applyFont(const QFont& font) {}
    virtual void applyEnabled(bool on);

    // Reading and writing the shared members with the control's defaults.
    void readForeColor(const PropertyBag& bag, qint32 defaultColor);
    void writeForeColor(PropertyBag& bag, qint32 defaultColor) const;
    void readBackColor(const PropertyBag& bag, qint32 defaultColor);
    void writeBackColor(PropertyBag& bag, qint32 defaultColor) const;
    // The default of Font is Ambient.Font.
    void readFont(const PropertyBag& bag);
    void writeFont(PropertyBag& bag) const;
    void readEnabled(const PropertyBag& bag);
    void writeEnabled(PropertyBag& bag) const;
    // Sets the field without applying or reporting: for InitProperties and constructors.
    void initForeColor(qint32 color);
    void initBackColor(qint32 color);

    // Tells the host that the named property is dirty.
    void PropertyChanged(const QString& name);

    // The text-pair rule: setting X_de, X_en or X stores the field, shows the text of
    // the current language through `show` and reports the member that changed.
    void letPairDe(TextPair& pair, const QString& value, const QString& baseName,
                   const std::function<void(const QString&)>& show);
    void letPairEn(TextPair& pair, const QString& value, const QString& baseName,
                   const std::function<void(const QString&)>& show);
    void letPair(TextPair& pair, const QString& value, const QString& baseName,
                 const std::function<void(const QString&)>& show);

    // True while the instance runs inside a running program (Ambient.UserMode).
    bool userMode() const { return host_->UserMode(); }
    // The hosting form, or nullptr.
    Form* parentForm() const { return host_->Parent(); }
    // A sibling on the hosting form by name, or nullptr.
    QObject* sibling(const QString& name) const;
    // The form's manager, the control named "FormWizard1", or nullptr: a form without one
    // still works, only without status line, access keys and tooltips.
    QObject* formWizard() const { return sibling(QStringLiteral("FormWizard1")); }
    // Calls a member of the form's manager by name; nothing happens when there is no
    // manager or no such member.
    QVariant callFormWizard(const char* member, const QVariantList& args = {}) const;

    void resizeEvent(QResizeEvent* event) override;

private:
    void beginReadProperties();
    void onFocusChanged(QWidget* old, QWidget* now);

    std::unique_ptr<ControlHost> host_;
    QString formName_;
    QString controlName_;
    QString moduleAppName_;
    int scaleMode_ = 1;
    double scaleWidth_ = 0;
    double scaleHeight_ = 0;
    bool autoRedraw_ = false;
    qint32 foreColor_ = 0;
    qint32 backColor_ = 0xFFFFFF;
    bool enabled_ = true;
    bool started_ = false;
    bool inResize_ = false;
    bool hasFocus_ = false;
};

}  // namespace vorelle
