#pragma once

#include <QImage>
#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>

#include "foundation/Export.h"
#include "host/platform/DrawingSurface.h"

namespace vorelle {

class FormPrivate;

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
    /// Creates the form and puts it in the list of loaded forms.
    explicit Form(QWidget* parent = nullptr);
    /// Gives the hooks of the form and of the widgets on it their last message while the
    /// form is whole, and takes the form off the list of loaded forms.
    ~Form() override;

    /// The form's name.
    QString Name() const { return objectName(); }
    /// Sets the form's name.
    void setName(const QString& name) { setObjectName(name); }
    /// The title bar text.
    QString Caption() const { return windowTitle(); }
    /// Sets the title bar text.
    void setCaption(const QString& caption) { setWindowTitle(caption); }
    /// Left edge of the window frame, in twips.
    qint32 Left() const;
    /// Moves the window frame's left edge, in twips.
    void setLeft(qint32 twips);
    /// Top edge of the window frame, in twips.
    qint32 Top() const;
    /// Moves the window frame's top edge, in twips.
    void setTop(qint32 twips);
    /// Width of the window frame, in twips.
    qint32 Width() const;
    /// Sets the width of the window frame, in twips.
    void setWidth(qint32 twips);
    /// Height of the window frame, in twips.
    qint32 Height() const;
    /// Sets the height of the window frame, in twips.
    void setHeight(qint32 twips);
    /// Inner width in the unit of ScaleMode (twips, or pixels under ScaleMode 3).
    qint32 ScaleWidth() const;
    /// Inner height in the unit of ScaleMode.
    qint32 ScaleHeight() const;
    /// The unit of ScaleWidth and ScaleHeight: 1 twips (the default), 3 pixels. Other
    /// values are refused and leave the mode as it was.
    int ScaleMode() const;
    /// Sets the unit of ScaleWidth and ScaleHeight (1 or 3).
    void setScaleMode(int mode);
    /// The device context of the form's surface: its window handle, which the gradient
    /// service maps back to surface().
    qint32 hdc() const { return hWnd(); }
    /// A form always has a drawing surface.
    bool HasDC() const { return true; }
    /// 0 normal, 1 minimized, 2 maximized.
    int WindowState() const;
    /// Sets the window state: 0 normal, 1 minimized, 2 maximized.
    void setWindowStateProperty(int state);
    /// 0 none, 1 fixed single, 2 sizable, 3 fixed dialog, 4 fixed tool window, 5 sizable
    /// tool window.
    int BorderStyle() const;
    /// Sets the border style and the window flags that go with it.
    void setBorderStyle(int style);
    /// Whether the form takes input.
    bool Enabled() const { return isEnabled(); }
    /// Sets whether the form takes input.
    void setEnabledProperty(bool on) { setEnabled(on); }
    /// The form's window handle.
    qint32 hWnd() const;
    /// False while the form stands in a designer: controls then do no run-time work.
    bool UserMode() const;
    /// Sets run mode (true) or design mode (false).
    void setUserMode(bool on);
    /// True: KeyDown is raised for keys typed into any control of the form, before the
    /// control sees them, once for each key.
    bool KeyPreview() const;
    /// Switches the preview of the controls' keys on or off.
    void setKeyPreview(bool on);
    /// The surface colour (OLE colour); Cls clears to it.
    qint32 BackColor() const;
    /// Sets the surface colour (OLE colour).
    void setBackColor(qint32 color);
    /// True: what is drawn on surface() persists and is shown under the controls.
    bool AutoRedraw() const;
    /// Sets whether what is drawn persists.
    void setAutoRedraw(bool on);
    /// The persistent drawing of the form (gradients, caption effects), the size of the
    /// form's client area; drawn under the controls. surfaceChanged() after drawing.
    QImage& surface() override;
    /// Repaints the form with its surface, once the event being handled is done and only
    /// when the picture differs from the one shown.
    void surfaceChanged() override;
    /// Takes the picture as the surface without making one of its own first.
    void replaceSurface(const QImage& picture) override;

    /// The control that manages the form's life (its FormWizard1 once bound), or nullptr.
    /// While a manager is set, the form leaves its optional Form_...2 routines to it and
    /// calls none of them itself.
    QObject* manager() const;
    /// Sets or clears (nullptr) the managing control.
    void setManager(QObject* manager);

    /// The controls of the form, flat and in collection order, controls inside
    /// containers included.
    QList<QWidget*> Controls() const;
    /// A control by name (case-insensitive), or nullptr.
    Q_INVOKABLE QObject* Controls(const QString& name) const;
    /// Clears what was painted on the form's surface.
    Q_INVOKABLE void Cls();

    /// Runs Load: the signal, then the form's own Form_Load2 if any. Only the first call
    /// does anything; showing the form calls it when nobody has.
    void runLoad();
    /// True once Load has run (until the form is unloaded).
    bool isLoaded() const;
    /// Unloads the form from code: QueryUnload with UnloadMode 1, Unload, then the form
    /// closes. False when a handler cancelled.
    Q_INVOKABLE bool UnloadForm();
    /// Runs Load before the first show of a form at run time.
    void setVisible(bool visible) override;

    /// Every form that is loaded in the process, oldest first.
    static QList<Form*> loadedForms();

signals:
    /// The form is loaded (once, before it is first shown).
    void Load();
    /// The form became the active window.
    void Activate();
    /// The form stopped being the active window.
    void Deactivate();
    /// The form is about to close; a handler sets Cancel to keep it. UnloadMode 0 by the
    /// user, 1 from code.
    void QueryUnload(int& Cancel, int UnloadMode);
    /// The form closes now; a handler may still set Cancel.
    void Unload(int& Cancel);
    /// The form's size changed.
    void Resize();
    /// A key went down on the form (or, with KeyPreview, on one of its controls); a
    /// handler sets KeyCode to 0 to drop it.
    void KeyDown(int& KeyCode, int Shift);
    /// A mouse button went down on the form's own surface; places in twips.
    void MouseDown(int Button, int Shift, float X, float Y);

protected:
    /// Previews the keys of the controls when KeyPreview is on.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Draws the persistent surface under the controls.
    void paintEvent(QPaintEvent* event) override;
    /// Raises Activate and Deactivate.
    void changeEvent(QEvent* event) override;
    /// Raises QueryUnload and Unload.
    void closeEvent(QCloseEvent* event) override;
    /// Raises Resize.
    void resizeEvent(QResizeEvent* event) override;
    /// Raises KeyDown for a key that was not previewed.
    void keyPressEvent(QKeyEvent* event) override;
    /// Raises MouseDown.
    void mousePressEvent(QMouseEvent* event) override;

private:
    // KeyDown and Form_KeyDown2; false when a handler set KeyCode to 0 (or the form went
    // away meanwhile).
    bool raiseKeyDown(QKeyEvent* event);
    // True when the key goes to the focus widget of this form first, and so was seen by
    // the preview already.
    bool previewedAtFocus() const;

    // Calls the form's own optional routine unless a manager calls it.
    void callRoutine(const char* name, QVariantList& args);

    std::unique_ptr<FormPrivate> d;
};

}  // namespace vorelle
