#pragma once

#include <QFont>
#include <QPointer>
#include <QRect>
#include <QString>
#include <memory>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

class Form;

/// What the caption expansion is asked to show: a control's text that does not fit it,
/// drawn over the control in a window of its own.
struct VORELLE_EXPORT CaptionExpansion {
    /// The control whose text is shown.
    QPointer<QObject> control;
    /// The form of the control.
    QPointer<Form> form;
    /// The text to show.
    QString text;
    /// The font to show it in.
    QFont font;
    /// 0 left, 1 right, 2 centred.
    int alignment = 0;
    /// Where to show it: the control's window rectangle in screen pixels.
    QRect rect;
    /// The control's type name ("des", "cmd", "prb", "lstEntryWizard", "txtDropDown", "lst",
    /// "chb", "FormWizard"); empty: the run-time type name of the control.
    QString typeName;
    /// Colour texts ("RRGGBB"); empty: the expansion picks its colours itself.
    QString foreColor, backColor;
    /// The measured width of the text and the room the control has for it, both twips.
    qint32 textWidth = 0, room = 0;
};

/// The windows that the mouse tracker shows over a form: the tooltip and the caption
/// expansion. Tests put a recording double in place of the system windows.
class VORELLE_EXPORT HintWindows {
public:
    virtual ~HintWindows();
    /// Shows (or moves to the cursor) the tooltip of a control; a text starting with "-"
    /// means no tooltip.
    virtual void toolTipShow(const QString& name, Form* form, const QString& textDe,
                             const QString& textEn) = 0;
    /// Hides the tooltip.
    virtual void toolTipHide() = 0;
    /// Shows a caption expansion.
    virtual void captionExpandShow(const CaptionExpansion& expansion) = 0;
    /// Hides the caption expansion.
    virtual void captionExpandHide() = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static HintWindows& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static HintWindows* setInstance(HintWindows* windows);
};

class SystemHintWindowsPrivate;

/// The system implementation: the tooltip form "frmTooltip" (caption "VRLL_Tooltip") and
/// the caption expansion form "frmCaptionExpand" (caption "VRLL_CaptionExpand"), small
/// borderless top-level windows that never take the focus. Each is created when shown and
/// destroyed when hidden.
class VORELLE_EXPORT SystemHintWindows : public HintWindows {
public:
    /// Creates the service; no window exists yet.
    SystemHintWindows();
    ~SystemHintWindows() override;
    void toolTipShow(const QString& name, Form* form, const QString& textDe,
                     const QString& textEn) override;
    void toolTipHide() override;
    void captionExpandShow(const CaptionExpansion& expansion) override;
    void captionExpandHide() override;
    /// The tooltip form while it exists, else nullptr.
    QWidget* toolTipWindow() const;
    /// The caption expansion form while it exists, else nullptr.
    QWidget* captionExpandWindow() const;

private:
    std::unique_ptr<SystemHintWindowsPrivate> d;
};

/// The tooltip text shown or asked for last; a change hides the shown tooltip first.
VORELLE_EXPORT QString& LastToolTipText();

/// Shows the tooltip of a control (through HintWindows).
VORELLE_EXPORT void ToolTipShow(const QString& Name, Form* form, const QString& Text_de,
                                const QString& Text_en);
/// Shows a caption expansion (through HintWindows).
VORELLE_EXPORT void CaptionExpandShow(const CaptionExpansion& expansion);

}  // namespace vorelle
