#pragma once

#include <QDate>
#include <QString>
#include <memory>

#include "numberdate/DateEntry.h"

namespace vorelle {

class DatPrivate;

/// Entry of a date: day, month and year as three small fields with a spin scroller each,
/// in the order and with the separator of the user's locale. The value is always the
/// German text "dd.mm.yyyy"; an illegal date is refused when the focus leaves.
class VORELLE_EXPORT Dat : public DateEntry {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "dat")
    Q_CLASSINFO("ClassId", "{62F7F6B4-B275-4266-A997-4C9571CADECD}")
    Q_CLASSINFO("InterfaceId", "{584B4403-B783-49DB-8758-2682BB5F08C7}")
    Q_CLASSINFO("EventInterfaceId", "{66BFC2A2-5DBD-4330-8235-36F2B3E1B519}")
    Q_CLASSINFO("AboutHeader", "ctrlDatum V 1.12")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Datum mit automatischer Anpassung an regionales Datumsformat")
    Q_PROPERTY(QString Datum READ Datum WRITE setDatum)
    Q_PROPERTY(bool ShowDay READ ShowDay WRITE setShowDay)
    Q_PROPERTY(QString Datum_de READ Datum STORED false)
    Q_PROPERTY(QString Datum_us READ Datum_us STORED false)
    Q_PROPERTY(QDate DatumAsDate READ DatumAsDate WRITE setDatumAsDate STORED false)
    Q_PROPERTY(QString DatumYYYYMMDD READ DatumYYYYMMDD STORED false)

public:
    /// Datum of a new control.
    static constexpr const char* kDefaultDatum = "01.01.2000";

    /// Creates the control with its fields, scrollers, separators and frames.
    explicit Dat(QWidget* parent = nullptr);
    ~Dat() override;

    /// "dd.mm.yyyy" of the working numbers.
    QString Datum() const;
    /// Takes a legal "d.m.yyyy" (empty: 01.01.2000); anything else shows a message box and
    /// changes nothing.
    void setDatum(const QString& value);
    /// The same as Datum.
    QString Datum_de() const { return Datum(); }
    /// "mm/dd/yyyy".
    QString Datum_us() const;
    /// The date of the numbers with the calendar's roll (day 0 is the last of the month
    /// before).
    QDate DatumAsDate();
    /// Takes a date through setDatum.
    void setDatumAsDate(const QDate& date);
    /// "yyyy-mm-dd".
    QString DatumYYYYMMDD();
    /// Whether the day field is there for the user.
    bool ShowDay() const;
    /// Shows or hides the day field and lays the fields out anew.
    void setShowDay(bool on);
    /// The date in the locale's short form.
    QString Text() const override;
    /// The German hint for the status line.
    QString Status2_de() const override;
    /// The English hint for the status line.
    QString Status2_en() const override;

    /// Loads the stored value from the form's key; raises Change.
    Q_INVOKABLE void RegLoading();
    /// Stores the value under the form's key.
    Q_INVOKABLE void RegSaving();
    /// Lifts the year into 1000 to 9999, rolls day and month over by the calendar and
    /// takes the result as the value.
    Q_INVOKABLE void ChangeDatum();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ExitFocus() override;
    void applyLocale() override;
    void normalise() override { ChangeDatum(); }
    EntryField* moveTarget(DatePart from, int keyCode) const override;
    EntryField* completedTarget(DatePart part) const override;
    void RegSavingValue() override { RegSaving(); }
    void parentLoaded() override { RegLoading(); }

private:
    QString status2(bool german) const;

    std::unique_ptr<DatPrivate> d;
};

}  // namespace vorelle
