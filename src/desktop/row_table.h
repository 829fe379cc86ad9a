#pragma once

#include <QTableWidget>

#include "controls/grid_cell.h"

namespace tav {

/// A table of a pane, close together: heads are one line, and rows little higher than their letters. It asks for the
/// height of as many rows as "wantedRows" of its design tells and takes no less than that of "leastRows", in whatever
/// letters. What the pane has beyond is shared by the stretch of the design.
class RowTable : public QTableWidget {
 public:
  using QTableWidget::QTableWidget;
  [[nodiscard]] QSize sizeHint() const override { return {QTableWidget::sizeHint().width(), HeightOf("wantedRows")}; }
  [[nodiscard]] QSize minimumSizeHint() const override {
    return {QTableWidget::minimumSizeHint().width(), HeightOf("leastRows")};
  }

 protected:
  void updateGeometries() override;

 private:
  [[nodiscard]] int HeightOf(const char* rows) const;

  int height_ = 0;  ///< that it last asked for
};

/// A cell of the head of a table as the table shows it.
[[nodiscard]] GridCell HeadOf(const QTableWidget& table, GridCell cell);

}  // namespace tav
