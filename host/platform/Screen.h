#pragma once

#include <QObject>

#include "foundation/Export.h"

namespace vorelle {

class Form;

/// The process's screen object: the mouse pointer shape over all forms, the active form
/// and the twips measure. Reached as Screen::instance() or by its static members.
class VORELLE_EXPORT Screen : public QObject {
    Q_OBJECT
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(QObject* ActiveForm READ activeFormObject)
    Q_PROPERTY(int TwipsPerPixelX READ TwipsPerPixelX CONSTANT)
    Q_PROPERTY(int TwipsPerPixelY READ TwipsPerPixelY CONSTANT)

public:
    /// Pointer shapes: 0 default, 1 arrow, 2 cross, 3 I-beam, 7 size N-S, 9 size W-E,
    /// 11 hourglass, 12 no drop, 13 arrow and hourglass, 15 size all, 99 custom (arrow here).
    static constexpr int vbDefault = 0;
    /// The hourglass pointer.
    static constexpr int vbHourglass = 11;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static Screen& instance();

    ///@{
    /// The shape set last; every value but 0 puts an application-wide override cursor in
    /// place, 0 removes the one that this object set.
    static int MousePointer();
    static void setMousePointer(int pointer);
    ///@}
    /// The form that is the active window, or nullptr.
    static Form* ActiveForm();
    /// Twips in one pixel across: 15.
    static constexpr int TwipsPerPixelX() { return 15; }
    /// Twips in one pixel down: 15.
    static constexpr int TwipsPerPixelY() { return 15; }

private:
    explicit Screen(QObject* parent = nullptr);
    QObject* activeFormObject() const;

    int pointer_ = 0;
    bool overridden_ = false;
};

}  // namespace vorelle
