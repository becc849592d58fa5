#include "foundation/Language.h"

#include "foundation/RegStore.h"
#include "foundation/Zentral.h"

namespace vorelle {

namespace {

QString& language() {
    static QString current;
    return current;
}

const QString kNoArgs = QStringLiteral("%1|%2|%3...");

}  // namespace

const QString& CurrentLanguage() {
    return language();
}

bool IsGerman() {
    return language() == u"de";
}

void LanguageLoad() {
    QString value = RegGet(QStringLiteral("Vorelle"), QStringLiteral("Config"),
                           QStringLiteral("Sprache"), QStringLiteral("en"));
    if (value != u"de" && value != u"en") {
        value = QStringLiteral("en");
    }
    language() = value;
}

QString LangText(const QString& TextDe, const QString& TextEn, const QString& Args,
                 QString& Language) {
    if (Language.isEmpty()) {
        Language = CurrentLanguage();
    }
    QString result = Language == u"de" ? TextDe : TextEn;
    if (Args != kNoArgs) {
        const int count = PslCount(Args);
        for (int i = 1; i <= count; ++i) {
            result.replace(u'%' + QString::number(i), PslItem(Args, i));
        }
    }
    if (result.contains(u"%1")) {
        result.remove(QStringLiteral("%1"));
    }
    return result;
}

QString LangText(const QString& TextDe, const QString& TextEn, const QString& Args,
                 const QString& Language) {
    QString language = Language;
    return LangText(TextDe, TextEn, Args, language);
}

QString EnglishOrGerman(const QString& TextDe, const QString& TextEn) {
    return TextEn.isEmpty() ? TextDe : TextEn;
}

QString MenuTitleText(const QString& TitleDe, const QString& TitleEn) {
    return !IsGerman() && !TitleEn.isEmpty() ? TitleEn : TitleDe;
}

QString MenuEntryText(const QString& TextDe, const QString& TextEn) {
    if (IsGerman()) {
        return TextDe;
    }
    return TextEn.isEmpty() ? TextDe : TextEn;
}

QString BilingualToken(const QString& Both) {
    return TokenGet(Both, QStringLiteral("|"), IsGerman() ? 1 : 2);
}

}  // namespace vorelle
