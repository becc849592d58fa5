#pragma once

#include <QImage>
#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "foundation/Export.h"
#include "host/platform/DrawingSurface.h"

namespace vorelle {

// A form: the window that hosts controls. Its notifications are signals that controls
// bind to; each also reaches the form's own optional routine when the form class offers
// one as a Q_INVOKABLE member, after the signal:
//   Load              -> Form_Load2()
//   Activate          -> Form_Activate2()
//   Deactivate        -> Form_Deactivate2()
//   QueryUnload       -> Form_QueryUnload2(int& Cancel, int UnloadMode)
//   Resize            -> Form_Resize2()
//   KeyDown           -> Form_KeyDown2(int& KeyCode, int Shift)
//   MouseDown         -> Form_MouseDown2(int Button, int Shift, float X, float Y)
// Sizes and places are twips. Load runs once, at the first show (or earlier by runLoad).
// A form is in the list of loaded forms from its creation until it is unloaded (closed
// without Cancel) or destroyed.
class VORELLE_EXPORT Form : public QWidget, public DrawingSurface {
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name WRITE setName)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(qint32 Left READ Left WRITE setLeft)
    Q_PROPERTY(qint32 Top READ Top WRITE setTop)
    Q_PROPERTY(qint32 Width READ Width WRITE setWidth)
    Q_PROPERTY(qint32 Height READ Height WRITE setHeight)
    Q_PROPERTY(qint32 ScaleWidth READ ScaleWidth)
    Q_PROPERTY(qint32 ScaleHeight READ ScaleHeight)
    Q_PROPERTY(int WindowState READ WindowState WRITE setWindowStateProperty)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(qint32 hWnd READ hWnd)
    Q_PROPERTY(bool UserMode READ UserMode WRITE setUserMode)
    Q_PROPERTY(bool KeyPreview READ KeyPreview WRITE setKeyPreview)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(bool AutoRedraw READ AutoRedraw WRITE setAutoRedraw)
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode)
    Q_PROPERTY(qint32 hdc READ hdc)
    Q_PROPERTY(bool HasDC READ HasDC)

public:
    explicit Form(QWidget* parent = nullptr);
    ~Form() override;

    QString Name() const { return objectName(); }
    void setName(const QString& name) { setObjectName(name); }
    QString Caption() const { return windowTitle(); }
    void setCaption(const QString& caption) { setWindowTitle(caption); }
    qint32 Left() const;
    void setLeft(qint32 twips);
    qint32 Top() const;
    void setTop(qint32 twips);
    qint32 Width() const;
    void setWidth(qint32 twips);
    qint32 Height() const;
    void setHeight(qint32 twips);
    /// Inner width in the unit of ScaleMode (twips, or pixels under ScaleMode 3).
    qint32 ScaleWidth() const;
    /// Inner height in the unit of ScaleMode.
    qint32 ScaleHeight() const;
    /// The unit of ScaleWidth and ScaleHeight: 1 twips (the default), 3 pixels. Other
    /// values are refused and leave the mode as it was.
    int ScaleMode() const { return scaleMode_; }
    /// Sets the unit of ScaleWidth and ScaleHeight (1 or 3).
    void setScaleMode(int mode);
    /// The device context of the form's surface: its window handle, which the gradient
    /// service maps back to surface().
    qint32 hdc() const { return hWnd(); }
    /// A form always has a drawing surface.
    bool HasDC() const { return true; }
    // 0 normal, 1 minimized, 2 maximized.
    int WindowState() const;
    void setWindowStateProperty(int state);
    // 0 none, 1 fixed single, 2 sizable, 3 fixed dialog, 4 fixed tool window, 5 sizable tool
    // window.
    int BorderStyle() const { return borderStyle_; }
    void setBorderStyle(int style);
    bool Enabled() const { return isEnabled(); }
    void setEnabledProperty(bool on) { setEnabled(on); }
    qint32 hWnd() const;
    // False while the form stands in a designer: controls then do no run-time work.
    bool UserMode() const { return userMode_; }
    void setUserMode(bool on) { userMode_ = on; }
    // True: KeyDown is raised for keys typed into any control of the form, before the
    // control sees them.
    bool KeyPreview() const { return keyPreview_; }
    void setKeyPreview(bool on);
    // The surface colour (OLE colour); Cls clears to it.
    qint32 BackColor() const { return backColor_; }
    void setBackColor(qint32 color);
    // True: what is drawn on surface() persists and is shown under the controls.
    bool AutoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    // The persistent drawing of the form (gradients, caption effects), the size of the
    // form's client area; drawn under the controls. update() after drawing.
    QImage& surface() override;
    /// Repaints the form with its surface.
    void surfaceChanged() override { update(); }

    /// The control that manages the form's life (its FormWizard1 once bound), or nullptr.
    /// While a manager is set, the form leaves its optional Form_...2 routines to it and
    /// calls none of them itself.
    QObject* manager() const { return manager_; }
    /// Sets or clears (nullptr) the managing control.
    void setManager(QObject* manager) { manager_ = manager; }

    // The controls of the form, flat and in collection order, controls inside
    // containers included.
    QList<QWidget*> Controls() const;
    // A control by name (case-insensitive), or nullptr.
    Q_INVOKABLE QObject* Controls(const QString& name) const;
    // Clears what was painted on the form's surface.
    Q_INVOKABLE void Cls();

    // Runs Load: the signal, then the form's own Form_Load2 if any. Only the first call
    // does anything; showing the form calls it when nobody has.
    void runLoad();
    bool isLoaded() const { return loadRan_; }
    // Unloads the form from code: QueryUnload with UnloadMode 1, Unload, then the form
    // closes. False when a handler cancelled.
    Q_INVOKABLE bool UnloadForm();
    void setVisible(bool visible) override;

    // Every form that is loaded in the process, oldest first.
    static QList<Form*> loadedForms();

signals:
    void Load();
    void Activate();
    void Deactivate();
    void QueryUnload(int& Cancel, int UnloadMode);
    void Unload(int& Cancel);
    void Resize();
    void KeyDown(int& KeyCode, int Shift);
    void MouseDown(int Button, int Shift, float X, float Y);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    // KeyDown and Form_KeyDown2; false when a handler set KeyCode to 0.
    bool raiseKeyDown(QKeyEvent* event);

    // Calls the form's own optional routine unless a manager calls it.
    void callRoutine(const char* name, QVariantList& args);

    QImage surface_;
    QPointer<QObject> manager_;
    const QEvent* previewed_ = nullptr;
    int borderStyle_ = 2;
    int unloadMode_ = 0;
    qint32 backColor_ = static_cast<qint32>(0x8000000F);
    bool userMode_ = true;
    bool active_ = false;
    bool loadRan_ = false;
    bool keyPreview_ = false;
    bool autoRedraw_ = false;
    int scaleMode_ = 1;
};

}  // namespace vorelle
