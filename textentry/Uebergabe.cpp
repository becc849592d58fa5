#include "textentry/Uebergabe.h"

namespace vorelle {

QString& UebergabeText() {
    static QString text;
    return text;
}

QString& UebergabeList() {
    static QString list;
    return list;
}

bool& UebergabeAllowRemove() {
    static bool allow = false;
    return allow;
}

}  // namespace vorelle
