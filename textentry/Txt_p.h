#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>

#include "foundation/TextPair.h"
#include "textentry/CharRules.h"

namespace vorelle {

class EntryField;
class Form;
class OleDragDrop;
class Shape;
class SymbolPicture;

// The data of Txt.
class TxtPrivate {
public:
    EntryField* txtText = nullptr;
    Shape* shpWeiss = nullptr;
    Shape* shpBlau = nullptr;
    SymbolPicture* picDropdownAddMouseOver = nullptr;
    SymbolPicture* picDropdownAdd = nullptr;
    SymbolPicture* picPassMouseOver = nullptr;
    SymbolPicture* picEntryWizardMouseOver = nullptr;
    SymbolPicture* picEntryWizard = nullptr;
    SymbolPicture* picPass = nullptr;
    SymbolPicture* picDropdownMouseOver = nullptr;
    SymbolPicture* picDropdown = nullptr;
    OleDragDrop* ole = nullptr;

    CharRules rules;
    TextPair text;
    TextPair dropDownList;
    TextPair toolTipText;
    // The entries of the drop-down list of the current language, split once per list.
    QString splitSource;
    QStringList splitEntries;
    QString textTyp = QStringLiteral("Text");
    QString passwordChar;
    QString plainPassword;
    QString parentName;
    QPointer<Form> parentForm;
    qint32 fillColor = 0;
    int oleDragMode = 0;
    int oleDropMode = 0;
    int lastKeyCode = 0;
    int mouseDownSelStart = 0;
    bool locked = false;
    bool regSave = true;
    bool entryWizard = true;
    bool dropDownSorted = false;
    bool dropDownAllowAdding = false;
    bool dropDownAllowDoubles = false;
    bool dropDownMustChooseFrom = false;
    bool loadConnected = false;
};

}  // namespace vorelle
