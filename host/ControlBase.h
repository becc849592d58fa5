#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

#include "foundation/Export.h"
#include "foundation/TextPair.h"
#include "host/ControlHost.h"
#include "host/PropertyBag.h"

namespace vorelle {

class Form;

// Pixels and twips: 1 pixel is 15 twips throughout the library.
inline constexpr int kTwipsPerPixel = 15;
inline int TwipsToPixels(double twips) { return static_cast<int>(twips / kTwipsPerPixel + (twips >= 0 ? 0.5 : -0.5)); }
inline qint32 PixelsToTwips(int pixels) { return pixels * kTwipsPerPixel; }

// The frame of every control: life cycle, host contract and the members common to all
// sixteen controls. A control class adds its class data with Q_CLASSINFO:
//   "TypeName" ("txt"), "ClassId", "InterfaceId", "EventInterfaceId",
//   "AboutHeader" ("ctrlText V 1.21"), "AboutDescription".
//
// Life cycle, in this order: Initialize; then InitProperties (a new instance) or
// ReadProperties (a stored one); then Resize on every size change; EnterFocus and
// ExitFocus as the focus comes and goes; WriteProperties when the host saves.
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
    qint32 Left() const { return PixelsToTwips(x()); }
    void setLeft(qint32 twips);
    qint32 Top() const { return PixelsToTwips(y()); }
    void setTop(qint32 twips);
    bool TabStop() const;
    void setTabStop(bool on);
    bool Visible() const { return !isHidden(); }
    void setVisibleProperty(bool on) { setVisible(on); }
    QString Name() const { return objectName(); }

    // The private fields of every control, set at ReadProperties.
    const QString& FormName() const { return formName_; }
    const QString& ControlName() const { return controlName_; }
    const QString& ModuleAppName() const { return moduleAppName_; }

    // The widget that holds the controls dropped onto a container control, or nullptr.
    virtual QWidget* containerArea() const { return nullptr; }

    // Class data of a control class (Q_CLASSINFO), "" when missing.
    static QString classInfo(const QMetaObject* meta, const char* key);

protected:
    // The life-cycle steps. Overrides call the base first.
    virtual void Initialize();
    virtual void InitProperties();
    virtual void ReadProperties(const PropertyBag& bag);
    virtual void WriteProperties(PropertyBag& bag) const;
    virtual void Resize();
    virtual void EnterFocus();
    virtual void ExitFocus();

    // True for controls that never take the focus (fra, des): their TabStop is switched
    // off in the designer.
    virtual bool neverTakesFocus() const { return false; }

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
    bool started_ = false;
    bool inResize_ = false;
    bool hasFocus_ = false;
};

}  // namespace vorelle
