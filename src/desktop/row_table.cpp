#include "desktop/row_table.h"

#include <QtWidgets>
#include <algorithm>

namespace tav {

void RowTable::updateGeometries() {
  constexpr int kAroundLetters = 3;  // pixels
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAroundLetters);
  QTableWidget::updateGeometries();
  const int height = HeightOf("wantedRows");
  if (height == height_) return;
  height_ = height;
  updateGeometry();
}

int RowTable::HeightOf(const char* rows) const {
  const int head = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
  return head + verticalHeader()->defaultSectionSize() * property(rows).toInt() + 2 * frameWidth();
}

GridCell HeadOf(const QTableWidget& table, GridCell cell) {
  if (dynamic_cast<const RowTable*>(&table) != nullptr) std::ranges::replace(cell.text, '\n', ' ');
  return cell;
}

}  // namespace tav
