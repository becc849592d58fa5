#pragma once

#include <QString>
#include <QTime>
#include <memory>

#include "numberdate/DateEntry.h"

namespace vorelle {

class TimPrivate;

/// Entry of a time of day: hour and minute as two small fields with a spin scroller each,
/// the locale's time separator between them and, on a 12-hour locale, an AM/PM label that
/// a click turns over. The value is always the 24-hour text "hh:nn"; minutes carry into
/// the hour, and the hour wraps at midnight.
class VORELLE_EXPORT Tim : public DateEntry {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "tim")
    Q_CLASSINFO("ClassId", "{3F276331-6215-4D4D-83B0-FEE0FE1EE639}")
    Q_CLASSINFO("InterfaceId", "{AA8660AF-35C3-4DDE-A5E5-906E40E32552}")
    Q_CLASSINFO("EventInterfaceId", "{D4401E04-1B45-411D-9F95-184C96B60D43}")
    Q_CLASSINFO("AboutHeader", "ctrlZeit V 1.11")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Zeit mit automatischer Anpassung an regionales Zeitformat")
    Q_PROPERTY(QString Zeit READ Zeit WRITE setZeit)
    Q_PROPERTY(QTime ZeitAsTime READ ZeitAsTime WRITE setZeitAsTime STORED false)

public:
    /// Zeit of a new control.
    static constexpr const char* kDefaultZeit = "00:00";

    /// Creates the control with its fields, scrollers, labels and frames.
    explicit Tim(QWidget* parent = nullptr);
    ~Tim() override;

    /// "hh:nn" of the working numbers, 24-hour.
    QString Zeit() const;
    /// Takes a legal "h:n" (empty: 00:00) and raises Change; anything else shows a message
    /// box and changes nothing. Hour and minute are read by position: the first and the
    /// last two characters.
    void setZeit(const QString& value);
    /// The time of hour and minute.
    QTime ZeitAsTime();
    /// Takes a time through setZeit.
    void setZeitAsTime(const QTime& time);
    /// The time in the locale's form, without seconds.
    QString Text() const override;
    /// The German hint for the status line.
    QString Status2_de() const override;
    /// The English hint for the status line.
    QString Status2_en() const override;
    /// The AM/PM label, desAMPM.
    QLabel* ampmLabel() const;

    /// Loads the stored value from the form's key; raises Change.
    Q_INVOKABLE void RegLoading();
    /// Stores the value under the form's key.
    Q_INVOKABLE void RegSaving();
    /// Carries minutes by one hour, wraps the hour and takes the result as the value.
    Q_INVOKABLE void ChangeZeit();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ExitFocus() override;
    void applyLocale() override;
    void normalise() override { ChangeZeit(); }
    EntryField* moveTarget(DatePart from, int keyCode) const override;
    EntryField* completedTarget(DatePart part) const override;
    bool twelveHour() const override;
    void labelClicked(QLabel* label) override;
    void applyLockedEnabled() override;
    void RegSavingValue() override { RegSaving(); }
    void parentLoaded() override { RegLoading(); }

private:
    QString status2(bool german) const;

    std::unique_ptr<TimPrivate> d;
};

}  // namespace vorelle
