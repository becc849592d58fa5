#include "keys/EntryKind.h"

#include <QListWidget>

#include "choice/Lst.h"
#include "choice/chb.h"
#include "choice/rbl.h"
#include "display/Cmd.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "host/input/MultilineField.h"
#include "keys/ChbInvariant.h"
#include "keys/CmdInvariant.h"
#include "keys/DateInvariant.h"
#include "keys/LstInvariant.h"
#include "keys/MltInvariant.h"
#include "keys/NumInvariant.h"
#include "keys/RblInvariant.h"
#include "keys/TxtInvariant.h"
#include "numberdate/Dat.h"
#include "numberdate/Num.h"
#include "numberdate/Tim.h"
#include "numberdate/dti.h"
#include "textentry/Txt.h"
#include "textentry/mlt.h"

namespace vorelle::fuzz {

namespace {

EntryKind txtKind() {
    EntryKind kind;
    kind.name = QStringLiteral("Txt");
    kind.create = [](Form& form) -> QWidget* {
        auto* txt = new Txt(&form);
        txt->setObjectName(QStringLiteral("txtFuzz"));
        txt->startFrom(PropertyBag());
        return txt;
    };
    kind.keyTarget = [](QWidget* control) -> QWidget* {
        return static_cast<Txt*>(control)->field();
    };
    kind.properties = {QStringLiteral("Text"),         QStringLiteral("ValidChars"),
                       QStringLiteral("MaxLength"),    QStringLiteral("TypingBehavior"),
                       QStringLiteral("CharReplace"),  QStringLiteral("ValidCharAnz"),
                       QStringLiteral("DropDownList"), QStringLiteral("Locked"),
                       QStringLiteral("Enabled")};
    kind.reset = [](QWidget* control) {
        auto* txt = static_cast<Txt*>(control);
        txt->setValidCharAnz(QString());
        txt->setEnabledProperty(true);
        txt->setLocked(false);
        txt->setDropDownList(QString());
        txt->setValidChars(QString());
        txt->setCharReplace(QString());
        txt->setTypingBehavior(0);
        txt->setMaxLength(255);
        txt->setText(QString());
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<TxtInvariant>(static_cast<Txt*>(control));
    };
    return kind;
}

EntryKind numKind() {
    EntryKind kind;
    kind.name = QStringLiteral("Num");
    kind.create = [](Form& form) -> QWidget* {
        auto* num = new Num(&form);
        num->setObjectName(QStringLiteral("numFuzz"));
        num->startFrom(PropertyBag());
        return num;
    };
    kind.keyTarget = [](QWidget* control) -> QWidget* {
        return static_cast<Num*>(control)->field();
    };
    kind.properties = {QStringLiteral("Zahl"),    QStringLiteral("Min"),
                       QStringLiteral("Max"),     QStringLiteral("Nachkommastellen"),
                       QStringLiteral("Locked"),  QStringLiteral("Enabled"),
                       QStringLiteral("SelStart")};
    kind.reset = [](QWidget* control) {
        auto* num = static_cast<Num*>(control);
        num->setEnabledProperty(true);
        num->setLocked(false);
        num->setMin(Num::kDefaultMin);
        num->setMax(Num::kDefaultMax);
        num->setNachkommastellen(0);
        num->setZahl(Num::kDefaultZahl);
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<NumInvariant>(static_cast<Num*>(control));
    };
    return kind;
}

// The command button takes Return, Space and, as a menu button, Down; its Enabled may
// change between the press and the release of a key.
EntryKind cmdKind() {
    EntryKind kind;
    kind.name = QStringLiteral("Cmd");
    kind.create = [](Form& form) -> QWidget* {
        auto* button = new Cmd(&form);
        button->setObjectName(QStringLiteral("cmdFuzz"));
        button->startFrom(PropertyBag());
        button->resizeNow(QSize(120, 26));
        return button;
    };
    kind.keyTarget = [](QWidget* control) { return control; };
    kind.properties = {QStringLiteral("Enabled"),      QStringLiteral("IsMenuButton"),
                       QStringLiteral("IsToolButton"), QStringLiteral("Caption"),
                       QStringLiteral("AccessKey_en"), QStringLiteral("PictureAlignHor")};
    kind.reset = [](QWidget* control) {
        auto* button = static_cast<Cmd*>(control);
        button->setEnabledProperty(true);
        button->setIsMenuButton(false);
        button->setIsToolButton(false);
        button->setCaption(QStringLiteral("Speichern"));
        button->setAccessKey_en(QStringLiteral("Alt+S"));
        button->setPictureAlignHor(0);
        button->MouseOut(0);
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<CmdInvariant>(static_cast<Cmd*>(control));
    };
    return kind;
}

// The check box takes Space and Return, and clicks on a form without a manager.
EntryKind chbKind() {
    EntryKind kind;
    kind.name = QStringLiteral("chb");
    kind.create = [](Form& form) -> QWidget* {
        auto* box = new chb(&form);
        box->setObjectName(QStringLiteral("chbFuzz"));
        box->startFrom(PropertyBag());
        return box;
    };
    kind.keyTarget = [](QWidget* control) { return control; };
    kind.properties = {QStringLiteral("Value"), QStringLiteral("Enabled"),
                       QStringLiteral("Caption"), QStringLiteral("Caption_de")};
    kind.reset = [](QWidget* control) {
        auto* box = static_cast<chb*>(control);
        box->setEnabledProperty(true);
        box->setCaption(QStringLiteral("Merken"));
        box->setValue(false);
        box->MouseOut(0);
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<ChbInvariant>(static_cast<chb*>(control));
    };
    return kind;
}

// The radio button list takes the arrows, Home, End, Space and Return, and clicks.
EntryKind rblKind() {
    EntryKind kind;
    kind.name = QStringLiteral("rbl");
    kind.create = [](Form& form) -> QWidget* {
        auto* list = new rbl(&form);
        list->setObjectName(QStringLiteral("rblFuzz"));
        list->startFrom(PropertyBag());
        list->resizeNow(QSize(200, 20));
        return list;
    };
    kind.keyTarget = [](QWidget* control) { return control; };
    kind.properties = {QStringLiteral("Value"),       QStringLiteral("CaptionList"),
                       QStringLiteral("CaptionPosY"), QStringLiteral("Orientation"),
                       QStringLiteral("AutoSize"),    QStringLiteral("Enabled"),
                       QStringLiteral("Text")};
    kind.reset = [](QWidget* control) {
        auto* list = static_cast<rbl*>(control);
        list->setEnabledProperty(true);
        list->setCaptionPosY(QString());
        list->setCaptionList(QStringLiteral("eins|zwei|drei"));
        list->setAutoSize(true);
        list->setOrientation(0);
        list->resizeNow(QSize(200, 20));
        list->setValue(1);
        list->MouseOut(0);
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<RblInvariant>(static_cast<rbl*>(control));
    };
    return kind;
}

// The list box takes its keys and clicks on the list widget's viewport, which hands the
// keys on to the list widget.
EntryKind lstKind() {
    EntryKind kind;
    kind.name = QStringLiteral("Lst");
    kind.create = [](Form& form) -> QWidget* {
        auto* list = new Lst(&form);
        list->setObjectName(QStringLiteral("lstFuzz"));
        list->startFrom(PropertyBag());
        list->resizeNow(QSize(200, 36));
        return list;
    };
    kind.keyTarget = [](QWidget* control) -> QWidget* {
        return static_cast<Lst*>(control)->activeList()->viewport();
    };
    kind.properties = {QStringLiteral("List"),         QStringLiteral("Selected"),
                       QStringLiteral("Text"),         QStringLiteral("AllowMultiSelect"),
                       QStringLiteral("AllowDoubles"), QStringLiteral("Sorted"),
                       QStringLiteral("Locked"),       QStringLiteral("Enabled"),
                       QStringLiteral("ListIndex"),    QStringLiteral("TopIndex")};
    kind.reset = [](QWidget* control) {
        auto* list = static_cast<Lst*>(control);
        list->setEnabledProperty(true);
        list->setLocked(false);
        list->setSorted(false);
        list->setAllowDoubles(false);
        list->setAllowMultiSelect(false);
        list->Clear();
        list->setList(QStringLiteral("Hans|Hanna|Peter|Berlin|berlin"));
        list->setSelected(QString());
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<LstInvariant>(static_cast<Lst*>(control));
    };
    return kind;
}

// The multi-line field. Ctrl+E opens its enlarged copy through the fuzzer's PopupLoop,
// which closes it unchanged (it has no list to drive).
EntryKind mltKind() {
    EntryKind kind;
    kind.name = QStringLiteral("mlt");
    kind.create = [](Form& form) -> QWidget* {
        auto* control = new mlt(&form);
        control->setObjectName(QStringLiteral("mltFuzz"));
        control->startFrom(PropertyBag());
        control->setHeight(450);  // two lines: the fuzz form gives each control 40 pixels
        return control;
    };
    kind.keyTarget = [](QWidget* control) -> QWidget* {
        return static_cast<mlt*>(control)->field();
    };
    kind.properties = {QStringLiteral("Text"),        QStringLiteral("ValidChars"),
                       QStringLiteral("MaxLength"),   QStringLiteral("TypingBehavior"),
                       QStringLiteral("CharReplace"), QStringLiteral("ValidCharAnz"),
                       QStringLiteral("Locked"),      QStringLiteral("Enabled"),
                       QStringLiteral("Alignment")};
    kind.reset = [](QWidget* control) {
        auto* field = static_cast<mlt*>(control);
        field->setValidCharAnz(QString());
        field->setEnabledProperty(true);
        field->setLocked(false);
        field->setValidChars(QString());
        field->setCharReplace(QString());
        field->setTypingBehavior(0);
        field->setAlignment(0);
        field->setMaxLength(mlt::kDefaultMaxLength);
        field->setText(QString());
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<MltInvariant>(static_cast<mlt*>(control));
    };
    return kind;
}

// The date and time controls: keys go to whichever sub-field has the focus; the first one
// takes them when the focus is elsewhere.
template <class Control>
EntryKind dateKind(const QString& name, const QStringList& properties,
                   const std::function<void(Control*)>& resetValue) {
    EntryKind kind;
    kind.name = name;
    kind.create = [name](Form& form) -> QWidget* {
        auto* control = new Control(&form);
        control->setObjectName(name.toLower() + QStringLiteral("Fuzz"));
        PropertyBag bag;
        bag.insert(QStringLiteral("Locked"), false);
        control->startFrom(bag);
        return control;
    };
    kind.keyTarget = [](QWidget* control) -> QWidget* { return control->focusProxy(); };
    kind.properties = properties + QStringList{QStringLiteral("Locked"), QStringLiteral("Enabled")};
    kind.reset = [resetValue](QWidget* control) {
        auto* c = static_cast<Control*>(control);
        c->setEnabledProperty(true);
        c->setLocked(false);
        resetValue(c);
    };
    kind.invariant = [](QWidget* control) -> std::unique_ptr<EntryInvariant> {
        return std::make_unique<DateInvariant>(static_cast<Control*>(control));
    };
    return kind;
}

}  // namespace

const QList<EntryKind>& EntryKinds() {
    static const QList<EntryKind> kinds = {
        txtKind(),
        numKind(),
        cmdKind(),
        dateKind<Dat>(QStringLiteral("Dat"), {QStringLiteral("Datum"), QStringLiteral("ShowDay")},
                      [](Dat* c) {
                          c->setShowDay(true);
                          c->setDatum(QString());
                      }),
        dateKind<Tim>(QStringLiteral("Tim"), {QStringLiteral("Zeit")},
                      [](Tim* c) { c->setZeit(QString()); }),
        dateKind<dti>(QStringLiteral("dti"), {QStringLiteral("DatumZeit")},
                      [](dti* c) { c->setDatumZeit(QString()); }),
        mltKind(),
        chbKind(),
        rblKind(),
        lstKind()};
    return kinds;
}

}  // namespace vorelle::fuzz
