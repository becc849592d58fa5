#pragma once

// Doubles for the tests of window places and automatic resizing: a control with the four
// resize factors, grids reached by name, a stand-in manager, and a form with a FormWizard1.

#include <QList>
#include <QWidget>
#include <functional>
#include <memory>

#include "formwizard/FormWizard.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/FormControl.h"
#include "host/platform/Environment.h"

namespace vorelle::test {

// A plain control of the library: place members in twips and the four factors.
class Box : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "box")
public:
    using FormControl::FormControl;
};

// A control the places skip by its type name.
class TimerStandIn : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "Timer")
public:
    using QWidget::QWidget;
};

class Column : public QObject {
    Q_OBJECT
    Q_PROPERTY(double Width MEMBER width)
    Q_PROPERTY(QString Key MEMBER key)
    Q_PROPERTY(int Position MEMBER position)
public:
    using QObject::QObject;
    double width = 1000;
    QString key;
    int position = 0;
};

// A collection by name: Count, Item(index) from `base`, Add(index).
class Columns : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)
public:
    Columns(int count, int base, QObject* parent) : QObject(parent), base_(base) {
        for (int i = 0; i < count; ++i) {
            Add(i);
        }
    }
    QList<Column*> items;
    int Count() const { return static_cast<int>(items.size()); }
    Q_INVOKABLE QObject* Item(int index) const { return items.value(index - base_); }
    Q_INVOKABLE void Add(int index) {
        auto* column = new Column(this);
        column->position = index + 1;
        items.insert(index, column);
    }

private:
    int base_;
};

// A DataGrid of the host: Columns (0-based) and RowHeight.
class FakeGrid : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "DataGrid")
    Q_PROPERTY(QObject* Columns READ columns)
    Q_PROPERTY(double RowHeight MEMBER rowHeight)
public:
    FakeGrid(int count, QWidget* parent)
        : QWidget(parent), cols(new test::Columns(count, 0, this)) {}
    QObject* columns() const { return cols; }
    test::Columns* cols;
    double rowHeight = 225;
};

// A ListView of the host: ColumnHeaders (1-based) with Key, Position and Width.
class FakeListView : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "ListView")
    Q_PROPERTY(QObject* ColumnHeaders READ headers)
public:
    FakeListView(int count, QWidget* parent)
        : QWidget(parent), cols(new test::Columns(count, 1, this)) {}
    QObject* headers() const { return cols; }
    test::Columns* cols;
};

// Stands in for the manager where only its FormDimensions text matters.
class DimensionsStandIn : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString FormDimensions MEMBER dimensions)
public:
    using QWidget::QWidget;
    QString dimensions;
};

inline QString placeProgram() {
    return GetModuleAppName(QString());
}

// A value of the form's places, "<none>" when missing.
inline QString placeValue(const QString& key, const QString& name) {
    return RegGet(placeProgram(), key, name, QStringLiteral("<none>"));
}

inline void setPlaceValue(const QString& key, const QString& name, const QString& value) {
    RegSet(placeProgram(), key, name, value);
}

// The four place values and the state of a key as "Left|Top|Width|Height|WindowState".
inline QString placeOfKey(const QString& key) {
    QStringList parts;
    for (const char* name : {"Left", "Top", "Width", "Height", "WindowState"}) {
        parts << placeValue(key, QString::fromLatin1(name));
    }
    return parts.join(u'|');
}

inline QString placeOfForm(const Form& form) {
    return QStringLiteral("%1|%2|%3|%4|%5")
        .arg(form.Left())
        .arg(form.Top())
        .arg(form.Width())
        .arg(form.Height())
        .arg(form.WindowState());
}

// A form with a FormWizard1 set up by `setup` before it starts; not shown yet.
inline std::unique_ptr<Form> managedForm(const QString& name,
                                         const std::function<void(FormWizard*)>& setup = {}) {
    auto form = std::make_unique<Form>();
    form->setName(name);
    form->setGeometry(60, 45, 400, 300);
    auto* wizard = new FormWizard(form.get());
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    if (setup) {
        setup(wizard);
    }
    wizard->startNew();
    return form;
}

inline Box* addBox(Form* form, const QString& name, const QRect& pixels) {
    auto* box = new Box(form);
    box->setObjectName(name);
    box->setGeometry(pixels);
    return box;
}

}  // namespace vorelle::test
