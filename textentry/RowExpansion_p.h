#pragma once

#include <QString>

class QListWidget;
class QListWidgetItem;

namespace vorelle {

/// Shows the full text of a list row over the row when it does not fit the list (its
/// width plus 60 twips, and 300 more with 11 rows or more for the scroll bar, reaching the
/// list's width); otherwise hides a shown expansion. TypeName is that of the pop-up
/// ("txtDropDown", "lstEntryWizard").
void RowTextExpansion(QListWidget* list, QListWidgetItem* item, const QString& TypeName);

}  // namespace vorelle
