#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace tav::test {

/// What can't be read in a window that is shown, a line for each: texts without the room that they need, and controls
/// that lie one over the other. What scrolls has room.
std::vector<std::string> ReadingFaults(const QWidget& window);

}  // namespace tav::test
