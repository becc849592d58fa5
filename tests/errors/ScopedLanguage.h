#pragma once

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "support/Doubles.h"

namespace vorelle::test {

// Sets the process language ("de" or "en") through the store for one test and goes back
// to English afterwards.
class ScopedLanguage {
public:
    explicit ScopedLanguage(const QString& language) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
        LanguageLoad();
    }
    ~ScopedLanguage() {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("en"));
        LanguageLoad();
    }
    ScopedLanguage(const ScopedLanguage&) = delete;
    ScopedLanguage& operator=(const ScopedLanguage&) = delete;

private:
    ScopedMemoryStore store_;
};

}  // namespace vorelle::test
