#pragma once

#include <QDateTime>
#include <QString>
#include <memory>

#include "numberdate/DateEntry.h"

namespace vorelle {

class dtiPrivate;

/// Entry of a date with a time of day: the fields of Dat and Tim in one control. The
/// value is the text "dd.mm.yyyy/hh:nn"; arithmetic on any field carries through the
/// whole value by the calendar (minute 60 is the next hour, hour 24 the next day).
class VORELLE_EXPORT dti : public DateEntry {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "dti")
    Q_CLASSINFO("ClassId", "{3F9A4FA0-A986-4320-A41A-5840E064CF3E}")
    Q_CLASSINFO("InterfaceId", "{1690E56D-242F-486D-A962-CE87852B80B5}")
    Q_CLASSINFO("EventInterfaceId", "{8B8AF569-A8CB-47A3-B0DB-4BCDC02F5C78}")
    Q_CLASSINFO("AboutHeader", "ctrlDatumZeit V 1.12")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Datum und Zeit mit automatischer Anpassung an regionales "
                "Datums-/Zeitformat")
    Q_PROPERTY(QString DatumZeit READ DatumZeit WRITE setDatumZeit)
    Q_PROPERTY(QDateTime DatumZeitAsDate READ DatumZeitAsDate WRITE setDatumZeitAsDate STORED false)
    Q_PROPERTY(double Timestamp READ Timestamp WRITE setTimestamp STORED false)
    Q_PROPERTY(QString Datum READ Datum STORED false)
    Q_PROPERTY(QString Datum_de READ Datum STORED false)
    Q_PROPERTY(QString Datum_us READ Datum_us STORED false)
    Q_PROPERTY(QString Zeit READ Zeit STORED false)

public:
    /// DatumZeit of a new control.
    static constexpr const char* kDefaultDatumZeit = "01.01.2000/00:00";

    /// Creates the control with its five fields, scrollers, labels and frames.
    explicit dti(QWidget* parent = nullptr);
    ~dti() override;

    /// "dd.mm.yyyy/hh:nn" of the working numbers.
    QString DatumZeit();
    /// Takes a legal date and time split by "/" or a blank (empty: 01.01.2000/00:00);
    /// anything else shows a message box and changes nothing.
    void setDatumZeit(const QString& value);
    /// The date and time of the numbers, rolled by the calendar.
    QDateTime DatumZeitAsDate();
    /// Takes a date and time through setDatumZeit.
    void setDatumZeitAsDate(const QDateTime& value);
    /// The seconds value of the date and time.
    double Timestamp();
    /// Takes a seconds value through setDatumZeit.
    void setTimestamp(double seconds);
    /// "dd.mm.yyyy".
    QString Datum() const;
    /// The same as Datum.
    QString Datum_de() const { return Datum(); }
    /// "mm/dd/yyyy".
    QString Datum_us() const;
    /// "hh:nn".
    QString Zeit() const;
    /// The date and the time in the locale's forms, without seconds.
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
    /// Builds the date and time of the numbers with the calendar's carries and takes it.
    Q_INVOKABLE void ChangeDatumZeit();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ExitFocus() override;
    void applyLocale() override;
    void normalise() override { ChangeDatumZeit(); }
    EntryField* moveTarget(DatePart from, int keyCode) const override;
    EntryField* completedTarget(DatePart part) const override;
    bool twelveHour() const override;
    void labelClicked(QLabel* label) override;
    void applyLockedEnabled() override;
    void RegSavingValue() override { RegSaving(); }
    void parentLoaded() override { RegLoading(); }

private:
    void layoutDate();
    QString status2(bool german) const;
    // The numbers back from the value shown, after a change that could not be made.
    void restoreNumbers();

    std::unique_ptr<dtiPrivate> d;
};

}  // namespace vorelle
