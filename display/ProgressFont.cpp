#include "display/ProgressFont_p.h"

#include "host/platform/Fonts.h"

namespace vorelle {

QFont ProgressFont() {
    InstallFontSubstitutions();  // the same measure on every machine, on a form or not
    QFont font(QStringLiteral("MS Sans Serif"), 10);
    font.setBold(true);
    font.setItalic(false);
    return font;
}

}  // namespace vorelle
