#include "textentry/TextTypes.h"

namespace vorelle {

namespace {

const QString kLower = QStringLiteral("abcdefghijklmnopqrstuvwxyz");
const QString kUpper = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
const QString kLetters =
    QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜß");

struct NounRow {
    const char16_t* textTyp;
    const char16_t* de;
    const char16_t* en;
};

constexpr NounRow kNouns[] = {
    {u"Text", u"einen Text", u"a text"},
    {u"nur Kleinbuchstaben", u"einen Text in Kleinbuchstaben", u"a lower-cased text"},
    {u"nur Großbuchstaben", u"einen Text in Großbuchstaben", u"a upper-cased text"},
    {u"nur Buchstaben", u"einen Text (nur Buchstaben)", u"a text (only characters)"},
    {u"Name", u"einen Namen", u"a name"},
    {u"ein Wort", u"ein Wort", u"a word"},
    {u"mehrere Worte", u"ein oder mehrere Worte", u"one or more words"},
    {u"Domainname", u"einen Domainnamen", u"a domain-name"},
    {u"e-mail-Adresse", u"eine e-Mail-Adresse", u"an e-mail-address"},
    {u"URL", u"einen URL", u"an URL"},
    {u"Password", u"ein Passwort (wird nicht angezeigt) ", u"a password (won't be displayed)"},
};

}  // namespace

const QList<TextTypeRow>& TextTypeTable() {
    static const QList<TextTypeRow> kTable{
        {QStringLiteral("Freitext"), QStringLiteral("Text"), {}, {}, {}, 0, {}},
        {QStringLiteral("nur Kleinbuchstaben"),
         QStringLiteral("nur Kleinbuchstaben"),
         kLower + QStringLiteral("äöüß"),
         {},
         {},
         1,
         {}},
        {QStringLiteral("nur Großbuchstaben"),
         QStringLiteral("nur Großbuchstaben"),
         kUpper + QStringLiteral("ÄÖÜß"),
         {},
         {},
         2,
         {}},
        {QStringLiteral("Key-Code"),
         QStringLiteral("nur Großbuchstaben"),
         kUpper + QStringLiteral("1234567890-"),
         QStringLiteral(" =-"),
         {},
         2,
         {}},
        {QStringLiteral("nur Buchstaben"),
         QStringLiteral("nur Buchstaben"),
         kLetters,
         {},
         {},
         0,
         {}},
        {QStringLiteral("nur Ziffern"),
         QStringLiteral("nur Ziffern"),
         QStringLiteral("0123456789"),
         {},
         {},
         0,
         {}},
        {QStringLiteral("Name"),
         QStringLiteral("Name"),
         kLetters + QStringLiteral("- "),
         {},
         {},
         3,
         {}},
        {QStringLiteral("ein Wort"), QStringLiteral("ein Wort"), kLetters, {}, {}, 3, {}},
        {QStringLiteral("mehrere Worte"),
         QStringLiteral("mehrere Worte"),
         kLetters + QStringLiteral(" "),
         {},
         {},
         3,
         {}},
        {QStringLiteral("Domainname"),
         QStringLiteral("Domainname"),
         kLower + kUpper + QStringLiteral("0123456789-."),
         {},
         QStringLiteral(".>0"),
         0,
         {}},
        {QStringLiteral("e-mail-Adresse"),
         QStringLiteral("e-mail-Adresse"),
         kLower + kUpper + QStringLiteral("0123456789-.@"),
         {},
         QStringLiteral("@=1|.>0"),
         0,
         {}},
        {QStringLiteral("URL"),
         QStringLiteral("URL"),
         kLower + kUpper + QStringLiteral("-.:/"),
         QStringLiteral("\\=/"),
         QStringLiteral("/>2|:=1|.>0"),
         0,
         {}},
        {QStringLiteral("Password"),
         QStringLiteral("Password"),
         {},
         {},
         {},
         0,
         QStringLiteral("*")},
    };
    return kTable;
}

const TextTypeRow* TextTypeOfChoice(const QString& choice) {
    for (const TextTypeRow& row : TextTypeTable()) {
        if (row.choice == choice) {
            return &row;
        }
    }
    return nullptr;
}

QString TextTypeUndefined(const QString& choice) {
    return QStringLiteral("nicht definiert: ") + choice;
}

bool TextTypeNouns(const QString& textTyp, QString* nounDe, QString* nounEn) {
    for (const NounRow& row : kNouns) {
        if (textTyp == QStringView(row.textTyp)) {
            if (nounDe) {
                *nounDe = QString::fromUtf16(row.de);
            }
            if (nounEn) {
                *nounEn = QString::fromUtf16(row.en);
            }
            return true;
        }
    }
    if (nounDe) {
        nounDe->clear();
    }
    if (nounEn) {
        nounEn->clear();
    }
    return false;
}

QString TextTypeTooltipDe(const QString& textTyp, qint32 maxLength) {
    QString noun;
    TextTypeNouns(textTyp, &noun, nullptr);
    return QStringLiteral("Bitte geben Sie ") + noun + QStringLiteral(" mit max. ") +
           QString::number(maxLength) + QStringLiteral(" Zeichen ein.");
}

QString TextTypeTooltipEn(const QString& textTyp, qint32 maxLength) {
    QString noun;
    TextTypeNouns(textTyp, nullptr, &noun);
    return QStringLiteral("please enter ") + noun + QStringLiteral(" with max. ") +
           QString::number(maxLength) + QStringLiteral(" characters.");
}

QString TextTypeTooltipWarning(const QString& textTyp) {
    if (TextTypeNouns(textTyp, nullptr, nullptr)) {
        return QString();
    }
    return QStringLiteral("TextTyp ") + textTyp +
           QStringLiteral(" noch nicht in ChangeTooltip definiert!");
}

}  // namespace vorelle
