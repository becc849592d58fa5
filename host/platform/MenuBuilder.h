#pragma once

#include <QString>

#include "foundation/Export.h"

class QObject;

namespace vorelle {

// The popup menus of the library, built in a table and shown in one call:
//   MenuStart("textbox", "Textfeld", "Text field");
//   MenuAdd("copy", "Kopieren \t(Strg+C)", "Copy \t(Ctrl+C)", greyed ? 1 : 0);
//   MenuSub("dStyle", "Dialog-Style", "Dialog style");  ... MenuEndSub();
//   const QString id = MenuShow(owner);  // "copy", "dStyle\Winter" or "" for none
// Flags: 1 greyed, 8 checked, 2048 separator. The table holds up to MenuMaxRows rows;
// rows beyond are left out. Titles take the English text when the language is not
// German and the English title is not empty; items take the English text when the
// language is not German, the German one when the English text is empty.

/// The most rows a menu table holds.
inline constexpr int MenuMaxRows = 1000;

/// Starts a new menu; the previous table is dropped.
VORELLE_EXPORT void MenuStart(const QString& Id, const QString& TitleDe, const QString& TitleEn);
/// Opens a submenu: the items up to MenuEndSub belong to it and carry Id as a path prefix.
VORELLE_EXPORT void MenuSub(const QString& Id, const QString& TextDe, const QString& TextEn,
                            int Flags = 0);
/// Closes the submenu opened last by MenuSub.
VORELLE_EXPORT void MenuEndSub();
/// Adds an item with its text in both languages to the menu being built.
VORELLE_EXPORT void MenuAdd(const QString& Id, const QString& TextDe, const QString& TextEn,
                            int Flags = 0);
/// Shows the menu at the mouse over the window of Owner and returns the id of the chosen
/// item, "" when nothing was chosen. MenuIsOpen() is true while the popup is up.
VORELLE_EXPORT QString MenuShow(QObject* Owner = nullptr);
/// Whether a menu started by MenuStart is being built or shown.
VORELLE_EXPORT bool MenuIsOpen();

/// The id of the menu being built and the number of rows in its table.
VORELLE_EXPORT QString MenuId();
/// The number of rows of the menu being built.
VORELLE_EXPORT int MenuRowCount();
// Drops the menu table, as at the start of the process (tests start from a clean state).
// A menu that is up keeps its rows until it closes.
VORELLE_EXPORT void MenuReset();

}  // namespace vorelle
