#pragma once

#include <QVariant>
#include <memory>

#include "host/frame/ControlBase.h"
#include "host/platform/DrawingSurface.h"

namespace vorelle {

class FormWizardPrivate;

/// The manager of a form, placed once on it under the name "FormWizard1". It shows itself
/// as the status bar along the bottom of the form (Status1 on the left half, Status2 on
/// the right) and, at run time, takes over the form's life: at the form's Load, Activate,
/// Deactivate, QueryUnload, Resize, KeyDown and MouseDown it does its own work and then
/// calls the form's optional routine (Form_Load2, Form_Activate2, Form_Deactivate2,
/// Form_QueryUnload2, Form_Resize2, Form_KeyDown2, Form_MouseDown2) by name. It builds the
/// window title, applies the dialog style, registers the program and runs a 20 ms timer
/// while its form is the active window.
class VORELLE_EXPORT FormWizard : public ControlBase, public DrawingSurface {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "FormWizard")
    Q_CLASSINFO("ClassId", "{98C52436-3159-4821-9514-17533A36E56A}")
    Q_CLASSINFO("InterfaceId", "{1FE6F057-BAFE-4F0B-9963-F7448816EC8C}")
    Q_CLASSINFO("EventInterfaceId", "{522198FD-3924-4394-A2BB-F2C60EB3F33C}")
    Q_CLASSINFO("AboutHeader", "ctrlFormWizard V 1.23")
    Q_CLASSINFO(
        "AboutDescription",
        "Ändert das Verhalten des Fensters, auf dem es platziert wird:\r\nHintergrund mit "
        "Farbverlauf, gespeicherte Fensterposition, automatische Größenanpassung, AccessKeys, "
        "ToolTips, Statustexte, Fenstertitel und Dialogmenü der rechten Maustaste")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool doFading READ doFading WRITE setDoFading)
    Q_PROPERTY(bool OverrideUserStyle READ OverrideUserStyle WRITE setOverrideUserStyle)
    Q_PROPERTY(bool doResizing READ doResizing WRITE setDoResizing)
    Q_PROPERTY(qint32 MinFormWidth READ MinFormWidth WRITE setMinFormWidth)
    Q_PROPERTY(qint32 MinFormHeight READ MinFormHeight WRITE setMinFormHeight)
    Q_PROPERTY(bool doPosLoadSave READ doPosLoadSave WRITE setDoPosLoadSave)
    Q_PROPERTY(
        bool doLoadSaveWithControls READ doLoadSaveWithControls WRITE setDoLoadSaveWithControls)
    Q_PROPERTY(bool doChangeTitle READ doChangeTitle WRITE setDoChangeTitle)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString AccessKeysGiven_de READ AccessKeysGiven_de WRITE setAccessKeysGiven_de)
    Q_PROPERTY(QString AccessKeysGiven_en READ AccessKeysGiven_en WRITE setAccessKeysGiven_en)
    Q_PROPERTY(QString AccessKeysGivenToolbar_de READ AccessKeysGivenToolbar_de WRITE
                   setAccessKeysGivenToolbar_de)
    Q_PROPERTY(QString AccessKeysGivenToolbar_en READ AccessKeysGivenToolbar_en WRITE
                   setAccessKeysGivenToolbar_en)
    Q_PROPERTY(QString FormDimensions READ FormDimensions STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// Default text colour of the drawn caption effect: RGB 255, 204, 0.
    static constexpr qint32 kDefaultForeColor = 52479;
    /// Height of the status bar in twips.
    static constexpr qint32 kStatusHeight = 390;

    /// Creates the manager; it binds to its form when it is started at run time.
    explicit FormWizard(QWidget* parent = nullptr);
    ~FormWizard() override;

    using ControlBase::ForeColor;
    using ControlBase::setForeColor;

    /// Whether the form's background effect is wanted (a dialog style may still switch it
    /// off; see isFadingActive()).
    bool doFading() const;
    /// Sets doFading and with it the applied fading.
    void setDoFading(bool on);
    /// True: the user's stored dialog style is ignored and the form keeps "Cool and hot".
    bool OverrideUserStyle() const;
    /// Sets OverrideUserStyle.
    void setOverrideUserStyle(bool on);
    /// True: the form's controls follow their resize factors.
    bool doResizing() const;
    /// Sets doResizing.
    void setDoResizing(bool on);
    /// Smallest outer width of the form, twips.
    qint32 MinFormWidth() const;
    /// Sets MinFormWidth.
    void setMinFormWidth(qint32 twips);
    /// Smallest outer height of the form, twips.
    qint32 MinFormHeight() const;
    /// Sets MinFormHeight.
    void setMinFormHeight(qint32 twips);
    /// True: the window position is saved at unload and restored at load.
    bool doPosLoadSave() const;
    /// Sets doPosLoadSave.
    void setDoPosLoadSave(bool on);
    /// True: the places of the controls are saved and restored with the window's.
    bool doLoadSaveWithControls() const;
    /// Sets doLoadSaveWithControls.
    void setDoLoadSaveWithControls(bool on);
    /// True: the form's title is built from the captions and the program data.
    bool doChangeTitle() const;
    /// Sets doChangeTitle.
    void setDoChangeTitle(bool on);
    /// The dialog caption in German.
    QString Caption_de() const;
    /// Stores the German caption and rebuilds the title at once.
    void setCaption_de(const QString& caption);
    /// The dialog caption in English.
    QString Caption_en() const;
    /// Stores the English caption and rebuilds the title at once.
    void setCaption_en(const QString& caption);
    ///@{
    /// The letters that the form's plain buttons took for their German and English access
    /// keys, as one string; written when the keys are handed out.
    QString AccessKeysGiven_de() const;
    void setAccessKeysGiven_de(const QString& given);
    QString AccessKeysGiven_en() const;
    void setAccessKeysGiven_en(const QString& given);
    ///@}
    ///@{
    /// The characters that the tool and menu buttons took, in German and English.
    QString AccessKeysGivenToolbar_de() const;
    void setAccessKeysGivenToolbar_de(const QString& given);
    QString AccessKeysGivenToolbar_en() const;
    void setAccessKeysGivenToolbar_en(const QString& given);
    ///@}
    /// The form's place as "Left|Top|Width|Height" in twips, from the last normal state.
    QString FormDimensions();
    /// The fading that is applied: doFading, unless the dialog style switched it off.
    bool isFadingActive() const;
    /// The device context of the status bar's surface.
    qint32 hdc() const { return hwnd(); }
    /// The status bar always has a drawing surface.
    bool HasDC() const { return true; }

    /// The form this manager is bound to, or nullptr.
    Form* boundForm() const;
    /// The current text of Status2's label.
    QString status2Text() const;
    /// How many characters of Status1 are drawn (all when it fits).
    int status1VisibleLength() const;
    /// The scroll counter of Status1: 100 down to 0 standing, below 0 moving, 999 down to
    /// 900 resting at the end.
    int status1ScrollPos() const;
    /// Whether Status1 is in its scroll cycle.
    bool status1Scrolling() const;
    /// The scroll counter of Status2, counted as that of Status1.
    int status2ScrollPos() const;
    /// Whether Status2 is in its scroll cycle.
    bool status2Scrolling() const;

    // --- Public members by name ---
    /// Loads the language again and rebuilds the title.
    Q_INVOKABLE void Refresh();
    /// Calls Refresh of every control of the form, ignoring every error.
    Q_INVOKABLE void RefreshForm();
    /// Applies one of the four dialog styles to the form and runs the form's activation.
    Q_INVOKABLE void SetDialogStyle(const QString& dStyle);
    /// One tick of the 20 ms timer; public so that a wait that pumps messages keeps it
    /// running.
    Q_INVOKABLE void TimerMouseEvent_Timer();
    /// Puts the form back to the place and size it had in the designer.
    Q_INVOKABLE void FensterPosReset();
    /// The text of the left half.
    Q_INVOKABLE QVariant GetStatus1() const;
    /// The text of the right half.
    Q_INVOKABLE QVariant GetStatus2() const;
    /// Puts a text on the left half (empty English: the German one) and draws it.
    Q_INVOKABLE void Status1(const QString& StatusText_de, const QString& StatusText_en = {});
    /// Puts a text on the right half (empty English: the German one), word-wrapped.
    Q_INVOKABLE void Status2(const QString& StatusText_de, const QString& StatusText_en = {});
    /// Stops the mouse tracking of every form, hiding tooltip and caption expansion.
    Q_INVOKABLE QVariant LockMouseEvent();
    /// Lets the mouse tracking run again.
    Q_INVOKABLE QVariant UnlockMouseEvent();
    /// Shows the menu bar banner "frmMenuLeiste" with a caption, topmost, at a place and size
    /// in screen pixels; returns an empty value.
    Q_INVOKABLE QVariant MenuLeisteShow(const QString& MenuCaption, int xPos, int yPos, int Width,
                                        int Height);
    /// Unloads the menu bar banner; returns an empty value.
    Q_INVOKABLE QVariant MenuLeisteHide();
    /// Hides the tooltip.
    Q_INVOKABLE void HideToolTip();
    /// Hides the caption expansion.
    Q_INVOKABLE void HideCaptionExpand();
    /// Disables every control of the form whose name is not in the pipe-separated list,
    /// remembering which were enabled; does nothing while an earlier list is kept.
    Q_INVOKABLE void DisableControls(const QString& ButNotAsPSL = {});
    /// Gives every control remembered by DisableControls its former Enabled back.
    Q_INVOKABLE void ReEnableControls();

    QImage& surface() override;
    void surfaceChanged() override { update(); }

protected:
    void Initialize() override;
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void paintEvent(QPaintEvent* event) override;

private:
    friend class FormWizardPrivate;
    std::unique_ptr<FormWizardPrivate> d;
};

}  // namespace vorelle
