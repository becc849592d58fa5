#pragma once

#include <QString>

class QWidget;

namespace vorelle {
class Form;
}

namespace vorelle::demo {

// A slider on a demo form with the dynamic property "drives", a list of control names
// separated by "|", sets the Percent of those controls to its value as a share of its
// range whenever it moves. Connects every such slider below `root`.
void ConnectProgressSliders(QWidget* root);

// The progress form at 0%, at a middle value and at 100%, to DIR/progress_0_<language>.png,
// DIR/progress_50_<language>.png and DIR/progress_100_<language>.png; returns the number of
// pictures that could not be written.
int ProgressShots(Form& form, const QString& dir, const QString& language);

}  // namespace vorelle::demo
