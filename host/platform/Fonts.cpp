#include "host/platform/Fonts.h"

#include <QFont>
#include <utility>

namespace vorelle {

namespace {

const QList<std::pair<QString, QStringList>>& table() {
    static const QList<std::pair<QString, QStringList>> substitutes{
        {QStringLiteral("MS Sans Serif"),
         {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")}},
        {QStringLiteral("Microsoft Sans Serif"),
         {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")}},
        {QStringLiteral("MS Shell Dlg"),
         {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")}},
        {QStringLiteral("MS Shell Dlg 2"),
         {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")}},
        {QStringLiteral("Small Fonts"),
         {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")}},
        {QStringLiteral("Terminal"),
         {QStringLiteral("Terminus"), QStringLiteral("DejaVu Sans Mono")}},
        {QStringLiteral("Arial"),
         {QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")}},
        {QStringLiteral("Courier New"),
         {QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono")}},
        {QStringLiteral("Times New Roman"),
         {QStringLiteral("Liberation Serif"), QStringLiteral("DejaVu Serif")}},
    };
    return substitutes;
}

}  // namespace

QStringList FontSubstitutesFor(const QString& family) {
    for (const auto& [name, list] : table()) {
        if (name.compare(family, Qt::CaseInsensitive) == 0) {
            return list;
        }
    }
    return {};
}

void InstallFontSubstitutions() {
    static bool installed = false;
    if (installed) {
        return;
    }
    installed = true;
    for (const auto& [name, list] : table()) {
        QFont::insertSubstitutions(name, list);
    }
}

}  // namespace vorelle
