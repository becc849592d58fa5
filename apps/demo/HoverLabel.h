#pragma once

#include <QLabel>

namespace vorelle::demo {

// A label that takes part in the form's mouse tracking by offering the members that the
// FormWizard1 of its form reads and calls by name: it lights up while the cursor is over
// it and counts its clicks. No mouse event of its own is used.
class HoverLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(qint32 hwnd READ hwnd)
    Q_PROPERTY(bool Visible READ isVisible)
    Q_PROPERTY(bool Enabled READ isEnabled)
    Q_PROPERTY(QString Name READ objectName)
    Q_PROPERTY(QString ToolTipText_de MEMBER toolTipDe)
    Q_PROPERTY(QString ToolTipText_en MEMBER toolTipEn)
    Q_PROPERTY(QString Status2_de MEMBER status2De)
    Q_PROPERTY(QString Status2_en MEMBER status2En)

public:
    HoverLabel(const QString& de, const QString& en, QWidget* parent = nullptr);

    QString toolTipDe, toolTipEn, status2De, status2En;

    qint32 hwnd() const;
    Q_INVOKABLE void MouseOver(short& Button);
    Q_INVOKABLE void MouseOut(short& Button);
    Q_INVOKABLE void MouseClick(short& Button, float& X, float& Y);

private:
    void paintState(bool over);
    QString de_, en_;
    int clicks_ = 0;
};

}  // namespace vorelle::demo
