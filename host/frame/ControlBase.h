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

class ControlBasePrivate;
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
    Q_PROPERTY(qint32 TabIndex READ TabIndex WRITE setTabIndex STORED false)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisibleProperty STORED false)
    Q_PROPERTY(QString Name READ Name STORED false)

public:
    /// Creates the frame; the control is started later by startNew() or startFrom().
    explicit ControlBase(QWidget* parent = nullptr);
    /// Gives the hooks of the control and its constituents their last message while the
    /// control is whole; no focus notification reaches it afterwards.
    ~ControlBase() override;

    // --- Driving the life cycle (the host's side) ---
    /// A new instance: Initialize, InitProperties, Resize.
    void startNew();
    /// A stored instance: Initialize, ReadProperties, Resize. Throws PropertyError for a
    /// value of the wrong type; the control is then not started.
    void startFrom(const PropertyBag& bag);
    /// WriteProperties into a fresh bag.
    PropertyBag save() const;
    /// True once startNew() or startFrom() has run.
    bool isStarted() const;
    /// Number of control instances alive in the process.
    static int liveInstances();

    /// The host's operations for this control.
    ControlHost& host();
    /// The host's operations for this control, read only.
    const ControlHost& host() const;
    /// Puts another host in place (tests, designers); a null host is ignored.
    void setHost(std::unique_ptr<ControlHost> host);

    // --- Common members ---
    /// Shows the About box of the control's class, owned by the control's window.
    Q_INVOKABLE void ShowAbout();
    /// The text of the About box.
    QString aboutText() const;
    /// The lower-case type name of the class ("txt"), from its class data.
    QString TypeName() const;
    /// Window handle of the drawing surface.
    qint32 hwnd() const;
    /// The scale mode of the surface: 0 user, 1 twips, 2 points, 3 pixels, 5 inches, 6 mm,
    /// 7 cm.
    int ScaleMode() const;
    /// Sets the scale mode; 0 keeps the current scale as the user scale.
    void setScaleMode(int mode);
    /// The surface's width in the units of ScaleMode, rounded.
    qint32 ScaleWidth() const;
    /// Sets a user scale of the given width (ScaleMode becomes 0).
    void setScaleWidth(qint32 width);
    /// The surface's height in the units of ScaleMode, rounded.
    qint32 ScaleHeight() const;
    /// Sets a user scale of the given height (ScaleMode becomes 0).
    void setScaleHeight(qint32 height);
    /// Whether drawings on the surface persist.
    bool AutoRedraw() const;
    /// Sets whether drawings on the surface persist.
    void setAutoRedraw(bool on);
    /// Device context of the drawing surface: the surface's handle in this host.
    qint32 hdc() const { return hwnd(); }
    /// Constant true: every surface has a device context.
    bool HasDC() const { return true; }
    /// Width in twips.
    qint32 Width() const { return PixelsToTwips(width()); }
    /// Sets the width in twips; the layout follows at once.
    void setWidth(qint32 twips);
    /// Height in twips.
    qint32 Height() const { return PixelsToTwips(height()); }
    /// Sets the height in twips; the layout follows at once.
    void setHeight(qint32 twips);
    /// Resizes in pixels and lays the constituents out at once, shown or not.
    void resizeNow(const QSize& size);
    /// Left edge in twips, in the parent's coordinates.
    qint32 Left() const { return PixelsToTwips(x()); }
    /// Moves the left edge, in twips.
    void setLeft(qint32 twips);
    /// Top edge in twips, in the parent's coordinates.
    qint32 Top() const { return PixelsToTwips(y()); }
    /// Moves the top edge, in twips.
    void setTop(qint32 twips);
    /// Whether Tab reaches the control.
    bool TabStop() const;
    /// Sets whether Tab reaches the control.
    void setTabStop(bool on);
    /// The control's place in its form's tab order, counted from 0 over the form's controls.
    qint32 TabIndex() const;
    /// Moves the control to that place in its form's tab order; the others keep their order.
    void setTabIndex(qint32 index);
    /// Whether the control is shown (not hidden by code).
    bool Visible() const { return !isHidden(); }
    /// Shows or hides the control.
    void setVisibleProperty(bool on) { setVisible(on); }
    /// The instance's name on the form.
    QString Name() const { return objectName(); }

    /// The hosting form's name, set at ReadProperties ("" off a form).
    const QString& FormName() const;
    /// The instance's name, set at ReadProperties.
    const QString& ControlName() const;
    /// The product name of the running program, set at ReadProperties.
    const QString& ModuleAppName() const;

    /// The widget that holds the controls dropped onto a container control, or nullptr.
    virtual QWidget* containerArea() const { return nullptr; }

    /// Class data of a control class (Q_CLASSINFO), "" when missing.
    static QString classInfo(const QMetaObject* meta, const char* key);
    /// The About text of a control class: header, description, the library line and the
    /// maker's line, each ended by CR LF but the last, an empty line after the description.
    static QString aboutTextOf(const QMetaObject* meta);

    /// True when the widget is a constituent of its control (drawn or native parts such as
    /// shpWeiss or txtText) rather than a control of the form.
    static bool isConstituent(const QWidget* widget);

protected:
    /// Life-cycle step 1; overrides call the base first.
    virtual void Initialize();
    /// Life-cycle step 2 (a new instance); overrides call the base first.
    virtual void InitProperties();
    /// Life-cycle step 3 (a stored instance); overrides call the base first.
    virtual void ReadProperties(const PropertyBag& bag);
    /// Saving; overrides call the base first.
    virtual void WriteProperties(PropertyBag& bag) const;
    /// Lays out the constituents after each size change.
    virtual void Resize();
    /// The focus arrived at the control or one of its constituents.
    virtual void EnterFocus();
    /// The focus left the control. The control may be deleted by a handler that runs in
    /// here; the frame does not touch it afterwards.
    virtual void ExitFocus();

    /// Step 6 of ReadProperties and part of Refresh: puts the texts of CurrentLanguage on
    /// the constituent controls.
    virtual void ApplyLanguage() {}
    /// Runs after ApplyLanguage when a stored instance is loaded: the place for the run-time
    /// start-up that needs all properties (hooks of the text controls).
    virtual void AfterReadProperties() {}
    /// Whether the text controls hook their fields: at run time, on a form whose name does
    /// not begin with "prop" (the library's own property pages show previews).
    bool HookAllowed() const;
    /// True from EnterFocus until ExitFocus: the focus is on the control or inside it.
    bool focusInside() const;

    /// True for controls that never take the focus (fra, des): their TabStop is switched
    /// off in the designer.
    virtual bool neverTakesFocus() const { return false; }
    /// Passes the focus on to the next control by a posted Tab key.
    static void PassFocusOn();

    /// Registers a child widget as a constituent: it is not one of the form's controls.
    static void markConstituent(QWidget* widget);

    // --- Shared common members (made public by the controls that have them) ---
    /// ForeColor (OLE colour).
    qint32 ForeColor() const;
    /// Stores the colour, applies it (applyForeColor) and reports "ForeColor".
    void setForeColor(qint32 color);
    /// BackColor (OLE colour).
    qint32 BackColor() const;
    /// Stores the colour, applies it (applyBackColor) and reports "BackColor".
    void setBackColor(qint32 color);
    /// The font of the surface.
    QFont Font() const { return font(); }
    /// Stores the font on the surface (its constituents inherit it), then applyFont.
    void setFontProperty(const QFont& font);
    /// Enabled.
    bool Enabled() const;
    /// Stores the value and gives it to the constituent controls (applyEnabled).
    void setEnabledProperty(bool on);
    /// Refresh: LanguageLoad, the current language's texts back on the surface, redraw.
    void refreshControl();

    /// How ForeColor reaches the surface; by default the text colour roles of the palette.
    virtual void applyForeColor(const QColor& color);
    /// How BackColor reaches the surface; by default the window and base roles, filled.
    virtual void applyBackColor(const QColor& color);
    /// How Font reaches the constituents beyond inheritance; nothing by default.
    virtual void applyFont(const QFont& font) {}
    /// How Enabled reaches the constituents; by default every direct child widget.
    virtual void applyEnabled(bool on);

    /// Reads ForeColor with the control's default and applies it without reporting.
    void readForeColor(const PropertyBag& bag, qint32 defaultColor);
    /// Writes ForeColor with the control's default.
    void writeForeColor(PropertyBag& bag, qint32 defaultColor) const;
    /// Reads BackColor with the control's default and applies it without reporting.
    void readBackColor(const PropertyBag& bag, qint32 defaultColor);
    /// Writes BackColor with the control's default.
    void writeBackColor(PropertyBag& bag, qint32 defaultColor) const;
    /// Reads Font; its default is Ambient.Font.
    void readFont(const PropertyBag& bag);
    /// Writes Font; its default is Ambient.Font.
    void writeFont(PropertyBag& bag) const;
    /// Reads Enabled (default true) and applies it without reporting.
    void readEnabled(const PropertyBag& bag);
    /// Writes Enabled (default true).
    void writeEnabled(PropertyBag& bag) const;
    /// Sets ForeColor without reporting: for InitProperties and constructors.
    void initForeColor(qint32 color);
    /// Sets BackColor without reporting: for InitProperties and constructors.
    void initBackColor(qint32 color);
    /// Sets Enabled and applies it without reporting: for ReadProperties.
    void initEnabled(bool on);
    /// Sets Font and applies it without reporting: for ReadProperties.
    void initFont(const QFont& font);

    /// Tells the host that the named property is dirty.
    void PropertyChanged(const QString& name);

    /// The text-pair rule for X_de: stores the field, shows the text of the current
    /// language through `show` and reports X_de.
    void letPairDe(TextPair& pair, const QString& value, const QString& baseName,
                   const std::function<void(const QString&)>& show);
    /// The text-pair rule for X_en, as letPairDe.
    void letPairEn(TextPair& pair, const QString& value, const QString& baseName,
                   const std::function<void(const QString&)>& show);
    /// The text-pair rule for X: the current language's half, reported by its own name.
    void letPair(TextPair& pair, const QString& value, const QString& baseName,
                 const std::function<void(const QString&)>& show);

    /// True while the instance runs inside a running program (Ambient.UserMode).
    bool userMode() const;
    /// The hosting form, or nullptr.
    Form* parentForm() const;
    /// A sibling on the hosting form by name, or nullptr.
    QObject* sibling(const QString& name) const;
    /// The form's manager, the control named "FormWizard1", or nullptr: a form without one
    /// still works, only without status line, access keys and tooltips.
    QObject* formWizard() const { return sibling(QStringLiteral("FormWizard1")); }
    /// Calls a member of the form's manager by name; nothing happens when there is no
    /// manager or no such member.
    QVariant callFormWizard(const char* member, const QVariantList& args = {}) const;

    /// Runs Resize after a size change of a started control.
    void resizeEvent(QResizeEvent* event) override;

private:
    void beginReadProperties();
    void onFocusChanged(QWidget* old, QWidget* now);

    std::unique_ptr<ControlBasePrivate> d;
};

}  // namespace vorelle
