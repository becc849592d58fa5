#include "formwizard/WindowPosition.h"

#include "formwizard/StoredNumber_p.h"
#include "foundation/RegistryGroup.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMetaClassInfo>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "foundation/IniFileError.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "foundation/RegistryBackend.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlBase.h"
#include "host/hooks/SystemMenu.h"
#include "host/platform/Environment.h"
#include "host/platform/ErrorDialog.h"
#include "host/platform/Screen.h"

namespace vorelle {

namespace {

const char* const kPlaceNames[] = {"Left", "Top", "Width", "Height"};
const QString kDefaultValue = QStringLiteral("defaultValue");

QString noFormText() {
    return QStringLiteral("Übergebenes Objekt ist keine Form-Objekt!");
}

QString suffixOf(bool isInit) {
    return isInit ? QStringLiteral("_init") : QString();
}

QString program() {
    return GetModuleAppName(QString());
}

// The hourglass for the length of a call.
class Hourglass {
public:
    Hourglass() { Screen::setMousePointer(Screen::vbHourglass); }
    ~Hourglass() { Screen::setMousePointer(Screen::vbDefault); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

// The run-time type name of a control: its TypeName member or class data, else its class.
QString typeNameOf(const QObject* control) {
    bool ok = false;
    const QString named = LateGet(control, "TypeName", &ok).toString();
    if (ok && !named.isEmpty()) {
        return named;
    }
    const QMetaObject* meta = control->metaObject();
    const int info = meta->indexOfClassInfo("TypeName");
    if (info >= 0) {
        return QString::fromUtf8(meta->classInfo(info).value());
    }
    const QString cls = QString::fromLatin1(meta->className());
    return cls.mid(cls.lastIndexOf(u':') + 1);
}

bool isSkipped(const QString& type) {
    static const QStringList skipped{QStringLiteral("Menu"), QStringLiteral("ImageList"),
                                     QStringLiteral("Timer"), QStringLiteral("FormWizard")};
    return skipped.contains(type, Qt::CaseInsensitive);
}

bool isGrid(const QString& type) {
    return type.compare(u"DataGrid", Qt::CaseInsensitive) == 0 ||
           type.compare(u"DBGrid", Qt::CaseInsensitive) == 0;
}

bool isListView(const QString& type) {
    return type.compare(u"ListView", Qt::CaseInsensitive) == 0;
}

// A place member of a control in twips: its own property, else (a plain widget of the host)
// its geometry.
std::optional<double> placeOf(const QObject* control, const char* name) {
    if (LateHas(control, name)) {
        bool ok = false;
        const QVariant value = LateGet(control, name, &ok);
        if (ok && value.canConvert<double>()) {
            return value.toDouble();
        }
        return std::nullopt;
    }
    const auto* widget = qobject_cast<const QWidget*>(control);
    if (!widget) {
        return std::nullopt;
    }
    const QRect g = widget->geometry();
    const int pixels = qstrcmp(name, "Left") == 0    ? g.x()
                       : qstrcmp(name, "Top") == 0   ? g.y()
                       : qstrcmp(name, "Width") == 0 ? g.width()
                                                     : g.height();
    return PixelsToTwips(pixels);
}

void setPlace(QObject* control, const char* name, double twips) {
    if (LateHas(control, name)) {
        LateSet(control, name, twips);
        return;
    }
    auto* widget = qobject_cast<QWidget*>(control);
    if (!widget) {
        return;
    }
    QRect g = widget->geometry();
    const int pixels = TwipsToPixels(twips);
    if (qstrcmp(name, "Left") == 0) {
        g.moveLeft(pixels);
    } else if (qstrcmp(name, "Top") == 0) {
        g.moveTop(pixels);
    } else if (qstrcmp(name, "Width") == 0) {
        g.setWidth(std::max(pixels, 0));
    } else {
        g.setHeight(std::max(pixels, 0));
    }
    widget->setGeometry(g);
}

QObject* objectOf(const QVariant& value) {
    return value.value<QObject*>();
}

// Count of a collection reached by name; nothing when the member is missing.
std::optional<int> countOf(QObject* collection) {
    bool ok = false;
    const QVariant count = LateGet(collection, "Count", &ok);
    if (!ok || !collection) {
        return std::nullopt;
    }
    return count.toInt();
}

QObject* itemOf(QObject* collection, int index) {
    return objectOf(LateCall(collection, "Item", {index}));
}

void saveMember(const QString& prog, const QString& key, const QString& valueName, QObject* from,
                const char* member) {
    bool ok = false;
    const QVariant value = LateGet(from, member, &ok);
    if (ok && from) {
        RegSet(prog, key, valueName, ToStr(value));
    }
}

void loadMember(const QString& prog, const QString& key, const QString& valueName, QObject* to,
                const char* member, const QString& byDefault) {
    if (const auto value = StoredNumber(RegGet(prog, key, valueName, byDefault)); value && to) {
        LateSet(to, member, *value);
    }
}

QString headerKey(QObject* header, int index) {
    const QString key = LateGet(header, "Key").toString();
    return key.isEmpty() ? QStringLiteral("Col%1").arg(index) : key;
}

// Calls visit(header, its store key) for each column header of a list view.
template <typename Visit>
void forEachListHeader(QObject* control, const QString& key, Visit visit) {
    QObject* headers = objectOf(LateGet(control, "ColumnHeaders"));
    const int count = countOf(headers).value_or(0);
    for (int i = 1; i <= count; ++i) {
        QObject* header = itemOf(headers, i);
        visit(header, key + QStringLiteral("\\Headers\\") + headerKey(header, i));
    }
}

void saveControl(const QString& prog, const QString& formKey, QObject* control, bool isInit) {
    const QString type = typeNameOf(control);
    if (isSkipped(type) || control->objectName().isEmpty()) {
        return;
    }
    const QString key = formKey + u'\\' + control->objectName();
    for (const char* name : kPlaceNames) {
        if (const auto value = placeOf(control, name)) {
            RegSet(prog, key, QString::fromLatin1(name), ToStr(*value));
        }
    }
    if (isGrid(type)) {
        QObject* columns = objectOf(LateGet(control, "Columns"));
        const auto count = countOf(columns);
        if (count) {
            RegSet(prog, key, QStringLiteral("Columns.Count"), QString::number(*count));
        }
        saveMember(prog, key, QStringLiteral("RowHeight"), control, "RowHeight");
        if (!isInit && count) {
            for (int i = 0; i < *count; ++i) {
                saveMember(prog, key + QStringLiteral("\\Headers\\Col%1").arg(i + 1),
                           QStringLiteral("Width"), itemOf(columns, i), "Width");
            }
        }
    } else if (isListView(type)) {
        forEachListHeader(control, key, [&](QObject* header, const QString& sub) {
            saveMember(prog, sub, QStringLiteral("Position"), header, "Position");
            saveMember(prog, sub, QStringLiteral("Width"), header, "Width");
        });
    }
}

void loadControl(const QString& prog, const QString& formKey, QObject* control) {
    const QString type = typeNameOf(control);
    if (isSkipped(type) || control->objectName().isEmpty()) {
        return;
    }
    const QString key = formKey + u'\\' + control->objectName();
    for (const char* name : kPlaceNames) {
        if (const auto value =
                StoredNumber(RegGet(prog, key, QString::fromLatin1(name), kDefaultValue))) {
            setPlace(control, name, *value);
        }
    }
    if (isGrid(type)) {
        loadMember(prog, key, QStringLiteral("RowHeight"), control, "RowHeight", kDefaultValue);
        try {
            IniWrite(QString(), QStringLiteral("Config"), QStringLiteral("defaultKey"),
                     kDefaultValue);
        } catch (const IniFileError&) {
            // The entry has no reader; a file that cannot be written changes nothing here.
        }
        const int wanted = static_cast<int>(
            StoredNumber(RegGet(prog, key, QStringLiteral("Columns.Count"), QStringLiteral("0")))
                .value_or(0));
        QObject* columns = objectOf(LateGet(control, "Columns"));
        int have = countOf(columns).value_or(0);
        while (have < wanted) {
            LateCall(columns, "Add", {have});
            const int now = countOf(columns).value_or(have);
            if (now <= have) {
                break;  // a grid that takes no more columns
            }
            have = now;
        }
        for (int i = 0; i < have; ++i) {
            loadMember(prog, key + QStringLiteral("\\Headers\\Col%1").arg(i + 1),
                       QStringLiteral("Width"), itemOf(columns, i), "Width",
                       QStringLiteral("1800"));
        }
    } else if (isListView(type)) {
        forEachListHeader(control, key, [&](QObject* header, const QString& sub) {
            loadMember(prog, sub, QStringLiteral("Position"), header, "Position", kDefaultValue);
            loadMember(prog, sub, QStringLiteral("Width"), header, "Width", kDefaultValue);
        });
    }
}

Form* formOf(QObject* object, const char* function) {
    auto* form = qobject_cast<Form*>(object);
    if (!form) {
        ErrorDialog(QString::fromLatin1(function), noFormText(), 99999, QString(), QString(), false,
                    48);
    }
    return form;
}

QList<QRect> screenAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) {
        areas.append(screen->availableGeometry());
    }
    return areas;
}

// Runs a task once, at the first show of a widget.
class AtFirstShow : public QObject {
public:
    AtFirstShow(QWidget* widget, std::function<void()> task)
        : QObject(widget), task_(std::move(task)) {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched == parent()) {
            watched->removeEventFilter(this);
            const std::function<void()> task = std::move(task_);
            deleteLater();
            task();
        }
        return false;
    }

private:
    std::function<void()> task_;
};

}  // namespace

void PlaceAtShow(Form* form, bool WithControls) {
    if (!form) {
        return;
    }
    auto place = [form, WithControls] {
        WindowPosSave(form, WithControls, true);
        PosLoadWindow(form, WithControls, false);
    };
    if (form->isVisible()) {
        place();
    } else {
        new AtFirstShow(form, place);
    }
}

Form* SearchObjectForm(const QString& Name) {
    for (Form* form : Form::loadedForms()) {
        if (form->Name().compare(Name, Qt::CaseInsensitive) == 0) {
            return form;
        }
    }
    ErrorDialog(QStringLiteral("SearchObjectForm"),
                QStringLiteral("Das Form-Objekt '") + Name +
                    QStringLiteral("' konnte nicht gefunden werden!"),
                99999, QString(), QString(), false, 48);
    return nullptr;
}

void WindowPosSave(QObject* Form, bool WithControls, bool IsInit) {
    vorelle::Form* form = formOf(Form, "WindowPosSave");
    if (!form) {
        return;
    }
    Hourglass hourglass;
    const QString prog = program();
    const QString key = form->Name() + suffixOf(IsInit);
    RegistryGroup group(true);  // the writes of one save as one transaction
    bool ok = false;
    const QString dimensions =
        LateGet(form->Controls(QStringLiteral("FormWizard1")), "FormDimensions", &ok).toString();
    if (ok && !dimensions.isEmpty() && dimensions != u"0|0|0|0") {
        for (int i = 0; i < 4; ++i) {
            RegSet(prog, key, QString::fromLatin1(kPlaceNames[i]), PslItem(dimensions, i + 1));
        }
    }
    RegSet(prog, key, QStringLiteral("WindowState"), QString::number(form->WindowState()));
    if (WithControls) {
        for (QWidget* control : form->Controls()) {
            saveControl(prog, key, control, IsInit);
        }
    }
}

void WindowPosSave(const QString& Form, bool WithControls, bool IsInit) {
    WindowPosSave(SearchObjectForm(Form), WithControls, IsInit);
}

void PosLoadWindow(QObject* Form, bool WithControls, bool IsInit) {
    Hourglass hourglass;
    vorelle::Form* form = formOf(Form, "PosLoadWindow");
    if (!form) {
        return;
    }
    const QString prog = program();
    const QString key = form->Name() + suffixOf(IsInit);
    auto read = [&](const char* name, double present) {
        return StoredNumber(RegGet(prog, key, QString::fromLatin1(name), ToStr(present)))
            .value_or(present);
    };
    // Everything is read before the form moves: a move of a hooked form writes its place.
    const double left = read("Left", form->Left());
    const double top = read("Top", form->Top());
    const bool sizable = form->BorderStyle() == 2 || form->BorderStyle() == 5;
    // A size that is not stored stays as it is: setting the present size again could take
    // the window frame twice while the platform is still giving the new window its frame.
    const double width = sizable ? read("Width", -1) : -1;
    const double height = sizable ? read("Height", -1) : -1;
    const int state = static_cast<int>(read("WindowState", form->WindowState()));
    const bool stateApplies = state == 0 || state == 2;
    if (stateApplies && form->WindowState() != 0) {
        form->setWindowStateProperty(0);  // the place is that of the normal window
    }
    // The place is checked against the screens before the form takes it.
    const QRect frame = form->frameGeometry();
    const QRect wanted(TwipsToPixels(left), TwipsToPixels(top),
                       width >= 0 ? TwipsToPixels(width) : frame.width(),
                       height >= 0 ? TwipsToPixels(height) : frame.height());
    const QRect placed = PlaceOnScreens(wanted, screenAreas());
    if (placed == wanted) {
        form->setLeft(static_cast<qint32>(left));
        form->setTop(static_cast<qint32>(top));
        if (width >= 0 && static_cast<qint32>(width) != form->Width()) {
            form->setWidth(static_cast<qint32>(width));
        }
        if (height >= 0 && static_cast<qint32>(height) != form->Height()) {
            form->setHeight(static_cast<qint32>(height));
        }
    } else {
        form->setLeft(PixelsToTwips(placed.x()));
        form->setTop(PixelsToTwips(placed.y()));
        if (placed.size() != frame.size()) {
            form->setWidth(PixelsToTwips(placed.width()));
            form->setHeight(PixelsToTwips(placed.height()));
        }
    }
    if (stateApplies) {
        form->setWindowStateProperty(state);
    }
    if (WithControls) {
        for (QWidget* control : form->Controls()) {
            loadControl(prog, key, control);
        }
    }
}

void PosLoadWindow(const QString& Form, bool WithControls, bool IsInit) {
    PosLoadWindow(SearchObjectForm(Form), WithControls, IsInit);
}

void WindowPosSaveControls(QObject* Form, QObject* Control, bool IsInit) {
    vorelle::Form* form = formOf(Form, "WindowPosSaveControls");
    if (!form || !Control) {
        return;
    }
    RegistryGroup group(true);  // the writes of one save as one transaction
    saveControl(program(), form->Name() + suffixOf(IsInit), Control, IsInit);
}

void WindowPosSaveControls(const QString& Form, QObject* Control, bool IsInit) {
    WindowPosSaveControls(SearchObjectForm(Form), Control, IsInit);
}

void PosLoadWindowControls(QObject* Form, QObject* Control, bool IsInit) {
    vorelle::Form* form = formOf(Form, "PosLoadWindowControls");
    if (!form || !Control) {
        return;
    }
    loadControl(program(), form->Name() + suffixOf(IsInit), Control);
}

void PosLoadWindowControls(const QString& Form, QObject* Control, bool IsInit) {
    PosLoadWindowControls(SearchObjectForm(Form), Control, IsInit);
}

QRect PlaceOnScreens(const QRect& Frame, const QList<QRect>& Areas) {
    if (Areas.isEmpty()) {
        return Frame;
    }
    QRect all;
    for (const QRect& area : Areas) {
        all |= area;
    }
    if (Frame.width() <= all.width() && Frame.height() <= all.height()) {
        const QRect strip(Frame.left(), Frame.top(), Frame.width(), std::min(20, Frame.height()));
        const int needAcross = std::min(64, Frame.width());
        const int needDown = std::min(10, strip.height());
        for (const QRect& area : Areas) {
            const QRect common = strip.intersected(area);
            if (!common.isEmpty() && common.width() >= needAcross && common.height() >= needDown) {
                return Frame;
            }
        }
    }
    const QPoint centre = Frame.center();
    const QRect* nearest = nullptr;
    qint64 best = 0;
    for (const QRect& area : Areas) {
        const qint64 dx = std::max({area.left() - centre.x(), 0, centre.x() - area.right()});
        const qint64 dy = std::max({area.top() - centre.y(), 0, centre.y() - area.bottom()});
        const qint64 distance = dx * dx + dy * dy;
        if (!nearest || distance < best) {
            nearest = &area;
            best = distance;
        }
    }
    QSize size = Frame.size();
    bool changed = false;
    const QPoint place = CentredPlace(*nearest, size, changed);
    return {place, size};
}

}  // namespace vorelle
