#pragma once

class QTableWidget;

namespace tav {

/// From now on no column is narrower than its texts need, and the columns take all the room that there is: in equal
/// shares, or all of it the column `wide`, with the others as wide as a number or their head and open to the user's
/// hand. What doesn't fit scrolls. The table asks its window for room for its texts, within reason.
void ShareColumns(QTableWidget& table, int wide = -1);

/// After the texts of the table have changed.
void ShareColumnsAnew(QTableWidget& table);

}  // namespace tav
