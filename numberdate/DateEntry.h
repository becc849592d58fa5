#pragma once

#include <QDateTime>
#include <QFont>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

class QLabel;
class QScrollBar;

namespace vorelle {

class DateEntryPrivate;
class EntryField;
class PropertyBag;
class Shape;

/// The sub-fields of the date and time controls.
enum class DatePart { Day, Month, Year, Hour, Minute };

/// The common ground of the date and time controls (Dat, Tim, dti): small two- or
/// four-digit sub-fields with a spin scroller each, edited by the keyboard one field at a
/// time, a focus frame, the wheel, the right-click menu and the status-line hints. The
/// working value is one number per sub-field; the controls turn arithmetic on them into a
/// legal value in normalise().
class VORELLE_EXPORT DateEntry : public FormControl {
    Q_OBJECT
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    Q_PROPERTY(QString Text READ Text STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)

public:
    /// ForeColor of a new control (an OLE colour number).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number).
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;
    /// The height of every date and time control, in twips.
    static constexpr qint32 kHeight = 330;

    /// Gives the fields' hooks their last message while the control is whole.
    ~DateEntry() override;

    /// The background colour (an OLE colour number).
    using ControlBase::BackColor;
    /// Whether the control takes input; a disabled control passes the focus on.
    using ControlBase::Enabled;
    /// The font of the sub-fields.
    using ControlBase::Font;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets BackColor.
    using ControlBase::setBackColor;
    /// Sets Enabled; the fields and scrollers follow.
    using ControlBase::setEnabledProperty;
    /// Sets Font.
    using ControlBase::setFontProperty;
    /// Sets ForeColor.
    using ControlBase::setForeColor;

    /// Whether the value can be read but not changed by the user.
    bool Locked() const;
    /// Locks or unlocks the fields; the scrollers show only when Enabled and not Locked.
    void setLocked(bool on);
    /// Whether the value is kept in the registry per form and control.
    bool RegSave() const;
    /// Switches keeping the value.
    void setRegSave(bool on);
    /// The German tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The value in the locale's form.
    virtual QString Text() const = 0;
    /// The German hint for the status line.
    virtual QString Status2_de() const = 0;
    /// The English hint for the status line.
    virtual QString Status2_en() const = 0;

    /// Shows the value and lays the fields out anew, after a change of the locale.
    void showAnew();

    /// A click on the control focuses its first field.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);

    /// The text box of a sub-field, nullptr when the control has none.
    EntryField* field(DatePart part) const;
    /// The spin scroller of a sub-field, nullptr when the control has none.
    QScrollBar* spin(DatePart part) const;
    /// The inner focus frame, shpWeiss.
    Shape* innerFrame() const;
    /// The outer focus frame, shpBlau.
    Shape* outerFrame() const;
    /// True while the focus frame shows (the focus is inside).
    bool hasFocusFrame() const;

signals:
    /// A field's text changed, a field was completed, or the value was loaded.
    void Change();

protected:
    /// Creates the frame shapes; hookName names the fields in the hook table.
    DateEntry(const QString& hookName, QWidget* parent);

    /// Adds a sub-field with its scroller.
    void addField(DatePart part, const QString& textName, const QString& spinName);
    /// Adds a label (separator or AM/PM); a click on it calls labelClicked().
    QLabel* addLabel(const QString& name);
    /// Marks the constituents, sets the focus proxy and the colours; call once all parts
    /// are added.
    void finishParts();

    /// The working number of a sub-field.
    int& number(DatePart part);
    /// The working number of a sub-field.
    int number(DatePart part) const;
    /// The text of a sub-field, "" when the control has none.
    QString fieldText(DatePart part) const;
    /// Writes a text into a sub-field (its own Change follows when the text differs).
    void setFieldText(DatePart part, const QString& text);
    /// Writes the padded number into a sub-field.
    void showNumber(DatePart part, int value);
    /// Selects the whole text of a field.
    static void selectWhole(EntryField* field);
    /// Places a sub-field and its scroller at a left edge in twips.
    void placeField(DatePart part, qint32 left);
    /// Places a label at a left edge in twips.
    static void placeLabel(QLabel* label, qint32 left, qint32 width);
    /// Sets the tab order of the fields from left to right as given.
    void orderFields(const QList<DatePart>& parts);
    /// Puts the focus frame around the given width, in twips.
    void placeFrame(qint32 width);
    /// The failure on leaving: beep, the field takes the focus and is selected, a wait.
    void refuseLeaving(DatePart part);
    /// Leaving with a legal value: stores it when RegSave and turns the frame back.
    void acceptLeaving();
    /// Whether a sub-field's text is complete and within its limits.
    bool fieldLegal(DatePart part) const;

    /// Puts the locale's separators, order and clock on the fields.
    virtual void applyLocale() = 0;
    /// Turns the working numbers into the value and shows it.
    virtual void normalise() = 0;
    /// The field the key (Home, End, Left, Right) moves to from a part; nullptr: no move.
    virtual EntryField* moveTarget(DatePart from, int keyCode) const = 0;
    /// The field that takes the focus after a part was completed by typing; nullptr: none.
    virtual EntryField* completedTarget(DatePart part) const = 0;
    /// True when the hour is typed in 12-hour form.
    virtual bool twelveHour() const { return false; }
    /// A label added by addLabel() was clicked.
    virtual void labelClicked(QLabel* label);
    /// Locked or Enabled changed: the scrollers and the parts of the derived control
    /// follow.
    virtual void applyLockedEnabled();
    /// Stores the value (registry).
    virtual void RegSavingValue() = 0;

    /// Subscribes to the parent form's Load in run mode; the first step of ReadProperties.
    void readCommonStart();
    /// Reads ForeColor, BackColor, Font, the tooltips, Enabled, Locked and RegSave.
    void readCommonProperties(const PropertyBag& bag);
    /// Writes what readCommonProperties reads.
    void writeCommonProperties(PropertyBag& bag) const;
    /// The parent form was loaded: RegLoading when RegSave in run mode.
    virtual void parentLoaded() = 0;

    /// The orders of the locale's date pattern, matched with one free separator.
    enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay, Unknown };
    /// The order of LocaleDateFormat.
    static DateOrder localeDateOrder();
    /// The column of an order in the focus tables (an unknown order counts as day first).
    static int orderColumn(DateOrder order);
    /// A field by its letter in a focus table: D day, d day when shown, M month, Y year,
    /// h hour, n minute; anything else none.
    EntryField* fieldByLetter(char letter) const;
    /// The column of a Home, End, Left or Right key code (0 to 3), -1 for another key.
    static int moveKeyColumn(int keyCode);
    /// The date of year, month and day with the calendar's roll of day 0, day 32, month
    /// 13, month 0 and negative values; invalid beyond the years 100 to 9999.
    static QDate rolledDate(int year, int month, int day);
    /// Shows the hour in txtStunde, in 12-hour form with AM or PM on ampm when the locale
    /// has a 12-hour clock; ampm is hidden otherwise. A new AM/PM caption raises Change.
    void showHour(QLabel* ampm);
    /// "dd", "mm", "yyyy", "hh", "nn", "ss" and "AMPM" of a pattern filled from a moment.
    static QString fillPattern(const QString& pattern, const QDateTime& moment);
    /// The date pattern of the locale with the letters of the language: T, M, J or D, M, Y.
    static QString patternForHint(bool german);
    /// Whether the special-keys sentence belongs in the hint.
    bool hintsKeys() const;

    void InitProperties() override;
    void AfterReadProperties() override;
    void EnterFocus() override;
    void applyForeColor(const QColor& color) override;
    void applyBackColor(const QColor& color) override;
    void applyEnabled(bool on) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Tells screen readers the name and value anew.
    void updateAccessible();

private:
    void onKeyDown(DatePart part, int& KeyCode, int& Shift);
    void onKeyPress(DatePart part, int& KeyAscii);
    void onMouseDown(DatePart part, int Button);
    void onMouseUp(DatePart part, int Button);
    void onSpin(DatePart part, int direction);
    void onFocusMoved(QWidget* now);
    void typeDigit(DatePart part, int& KeyAscii);
    void complete(DatePart part, int value);

    std::unique_ptr<DateEntryPrivate> d;
};

}  // namespace vorelle
