#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include "foundation/Export.h"

namespace vorelle {

// A form: the window that hosts controls. Its notifications are signals that controls
// bind to; each also reaches the form's own optional routine (Form_Load2, ...) when the
// form class offers one as a Q_INVOKABLE member. Sizes and places are twips.
class VORELLE_EXPORT Form : public QWidget {
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
    qint32 ScaleWidth() const;
    qint32 ScaleHeight() const;
    // 0 normal, 1 minimized, 2 maximized.
    int WindowState() const;
    void setWindowStateProperty(int state);
    // 0 none, 1 fixed single, 2 sizable, 3 fixed dialog, 4 fixed tool window, 5 sizable tool window.
    int BorderStyle() const { return borderStyle_; }
    void setBorderStyle(int style);
    bool Enabled() const { return isEnabled(); }
    void setEnabledProperty(bool on) { setEnabled(on); }
    qint32 hWnd() const;
    // False while the form stands in a designer: controls then do no run-time work.
    bool UserMode() const { return userMode_; }
    void setUserMode(bool on) { userMode_ = on; }

    // The controls of the form, flat and in collection order, controls inside
    // containers included.
    QList<QWidget*> Controls() const;
    // A control by name (case-insensitive), or nullptr.
    Q_INVOKABLE QObject* Controls(const QString& name) const;
    // Clears what was painted on the form's surface.
    Q_INVOKABLE void Cls();

    // Runs Load: the signal, then the form's own Form_Load2-style routine if any.
    void runLoad();

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
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    int borderStyle_ = 2;
    bool userMode_ = true;
    bool active_ = false;
};

}  // namespace vorelle
