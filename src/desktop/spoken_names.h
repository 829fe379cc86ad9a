#pragma once

class QWidget;

namespace tav {

/// Gives each control in a window that has no label of its own a name for screen readers, and each control a
/// description: what a seeing user takes from its surroundings. The name is the control's SpokenName, or the text of
/// the label that the property "spokenAs" of the design names, else the tool tip, the title of the frame, the title of
/// the window. The description is the tool tip, or the frame, with the unit that stands behind a field. Done at each
/// show and each move of the focus, so that units and titles are those of the moment.
void NameControls(QWidget& window);

}  // namespace tav
