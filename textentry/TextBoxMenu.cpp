#include "textentry/TextBoxMenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QWidget>

#include "host/input/EntryField.h"

#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/PopupMenu.h"
#include "host/platform/StatusText.h"

namespace vorelle {

namespace {

QString clipboardLength() {
    return QString::number(QGuiApplication::clipboard()->text().size());
}

void post(QWidget* field, const QString& keys) {
    if (field) {
        field->setFocus();
    }
    SendKeysSafe(keys, false);
}

}  // namespace

void TextBoxMenuBuild(const QString& id, const QString& titleDe, const QString& titleEn,
                      const TextBoxMenuState& state) {
    MenuStart(id, titleDe, titleEn);
    MenuAdd(QStringLiteral("selall"), QStringLiteral("Alles selektieren \t(Strg+A/Einfg)"),
            QStringLiteral("Select all \t(Ctrl+A/Insrt)"), state.textEmpty ? MenuGrayed : 0);
    MenuAdd(QStringLiteral("copy"), QStringLiteral("Kopieren \t(Strg+C)"),
            QStringLiteral("Copy \t(Ctrl+C)"), state.selLength == 0 ? MenuGrayed : 0);
    MenuAdd(QStringLiteral("cut"), QStringLiteral("Ausschneiden \t(Strg+X)"),
            QStringLiteral("Cut \t(Ctrl+X)"),
            (state.selLength == 0 || state.locked) ? MenuGrayed : 0);
    MenuAdd(QStringLiteral("paste"), QStringLiteral("Einfügen \t(Strg+V)"),
            QStringLiteral("Paste \t(Ctrl+V)"),
            (!state.clipboardHasText || state.locked) ? MenuGrayed : 0);
    MenuAdd(QStringLiteral("sep1"), QStringLiteral("-"), QStringLiteral("-"), MenuSeparator);
    MenuAdd(QStringLiteral("undo"), QStringLiteral("Rückgängig \t(Strg+Z)"),
            QStringLiteral("Undo \t(Ctrl+Z)"), state.locked ? MenuGrayed : 0);
}

bool TextBoxMenuAct(const QString& id, QWidget* field) {
    if (id == u"selall") {
        post(field, QStringLiteral("^a"));
        FormStatusText(QStringLiteral("Alles selektiert."), QStringLiteral("All selected."));
    } else if (id == u"copy") {
        post(field, QStringLiteral("^c"));
        const QString n = clipboardLength();
        FormStatusText(n + QStringLiteral(" Zeichen kopiert."),
                       n + QStringLiteral(" chars copied."));
    } else if (id == u"cut") {
        // The count is read before the keys go out: it is that of the previous content.
        const QString n = clipboardLength();
        FormStatusText(n + QStringLiteral(" Zeichen ausgeschnitten."),
                       n + QStringLiteral(" chars cutted."));
        post(field, QStringLiteral("^x"));
    } else if (id == u"paste") {
        post(field, QStringLiteral("^v"));
        const QString n = clipboardLength();
        FormStatusText(n + QStringLiteral(" Zeichen eingefügt."),
                       n + QStringLiteral(" chars pasted."));
    } else if (id == u"undo") {
        post(field, QStringLiteral("^z"));
    } else {
        return false;
    }
    return true;
}

QString TextBoxMenuRun(QWidget* control, EntryField* field, QObject* wizard, const QString& id,
                       const QString& titleDe, const QString& titleEn) {
    TextBoxMenuState state;
    state.textEmpty = field->text().isEmpty();
    state.selLength = field->SelLength();
    state.locked = field->Locked();
    state.clipboardHasText = !QGuiApplication::clipboard()->text().isEmpty();
    TextBoxMenuBuild(id, titleDe, titleEn, state);
    if (!wizard) {
        return {};  // the menu goes through the form's manager; without one it does not open
    }
    control->setUpdatesEnabled(false);
    // The menu runs a modal loop: its handlers may delete the control.
    const QPointer<QWidget> self(control);
    const QPointer<EntryField> target(field);
    const QString chosen = MenuShow(wizard);
    UnlockWindowUpdate();
    if (!self || !target) {
        return {};
    }
    control->setUpdatesEnabled(true);
    TextBoxMenuAct(chosen, target);
    return chosen;
}

}  // namespace vorelle
