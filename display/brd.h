#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

class Shape;

/// A see-through 3D frame: two outline rectangles offset by one pixel, the light one
/// (shpWeiss, ForeColor) beneath and the coloured one (shpBlau, BackColor) on top, with
/// nothing painted in between. No events, never takes the focus.
class VORELLE_EXPORT brd : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "brd")
    Q_CLASSINFO("ClassId", "{B77268E7-D72C-4C40-85AF-5C5A5ACE1370}")
    Q_CLASSINFO("InterfaceId", "{2FCE064C-AB1A-4717-B583-20A1971E40A4}")
    Q_CLASSINFO("EventInterfaceId", "{94BAF39F-D4AA-4AFE-B602-C7DBFD71D0C8}")
    Q_CLASSINFO("AboutHeader", "ctrlBorder V 1.03")
    Q_CLASSINFO("AboutDescription", "Durchsichtiger 3D-Rahmen")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)

public:
    static constexpr qint32 kDefaultForeColor = 0xFFFFFF;  ///< white
    static constexpr qint32 kDefaultBackColor = 0xFFC0C0;  ///< red C0, green C0, blue FF

    /// Creates the control; a form's loader passes the form as parent.
    explicit brd(QWidget* parent = nullptr);

    ///@{
    /// The colour of the light outline shpWeiss; the line colours live in the shapes
    /// themselves.
    qint32 ForeColor() const;
    void setForeColor(qint32 color);
    ///@}
    /// The colour of the coloured outline shpBlau.
    qint32 BackColor() const;
    /// Sets BackColor.
    void setBackColor(qint32 color);

    /// The light outline (ForeColor), beneath.
    Shape* shpWeiss() const { return shpWeiss_; }
    /// The coloured outline (BackColor), on top.
    Shape* shpBlau() const { return shpBlau_; }

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;

private:
    Shape* shpWeiss_;
    Shape* shpBlau_;
};

}  // namespace vorelle
