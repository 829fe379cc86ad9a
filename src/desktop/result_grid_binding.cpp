#include "desktop/result_grid_binding.h"

#include <QtWidgets>
#include <algorithm>

#include "controls/grid.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "desktop/row_table.h"
#include "desktop/text_colour.h"

namespace tav {
namespace {

/// The selected cells as lines, with tabs between the columns; a gap in the selection stays empty.
QString SelectedText(const QTableWidget& table) {
  QString text;
  const auto ranges = table.selectedRanges();
  if (ranges.isEmpty()) return text;
  int top = table.rowCount();
  int bottom = -1;
  int left = table.columnCount();
  int right = -1;
  for (const QTableWidgetSelectionRange& range : ranges) {
    top = std::min(top, range.topRow());
    bottom = std::max(bottom, range.bottomRow());
    left = std::min(left, range.leftColumn());
    right = std::max(right, range.rightColumn());
  }
  for (int row = top; row <= bottom; ++row) {
    QStringList cells;
    for (int column = left; column <= right; ++column) {
      const auto* item = table.item(row, column);
      cells << (item != nullptr && item->isSelected() ? item->text().trimmed() : QString());
    }
    text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
  }
  return text;
}

void ShowCell(QTableWidgetItem& item, const GridCell& cell, bool atLeft) {
  item.setText(ToQt(cell.text));
  // The text for what is wider than its column; as rich text long lines are wrapped.
  item.setToolTip(cell.tip.empty() ? ToQt(cell.text) : QStringLiteral("<p>%1</p>").arg(ToQt(cell.tip).toHtmlEscaped()));
  item.setData(Qt::AccessibleDescriptionRole, cell.tip.empty() ? QVariant() : QVariant(ToQt(cell.tip)));
  item.setData(Qt::AccessibleTextRole, cell.spoken.empty() ? QVariant() : QVariant(ToQt(cell.spoken)));
  item.setTextAlignment(Qt::AlignVCenter | (atLeft ? Qt::AlignLeft : Qt::AlignRight));
  QFont font;
  const bool bold = cell.bold || cell.colour == kRed;  // told apart without colours, too
  font.setBold(bold);
  font.setItalic(cell.italic);
  item.setData(Qt::FontRole, bold || cell.italic ? QVariant(font) : QVariant());
  const QPalette& palette = item.tableWidget()->palette();
  const bool filled = cell.fill >= 0;
  const QColor ground = filled ? ColourOf(cell.fill) : palette.color(QPalette::Base);
  const QColor other = filled ? ground : palette.color(QPalette::AlternateBase);
  item.setData(Qt::ForegroundRole, cell.colour < 0 ? QVariant() : QVariant(TextColour(cell.colour, {ground, other})));
  item.setData(Qt::BackgroundRole, filled ? QVariant(QBrush(ground)) : QVariant());
}

/// Rows of sentences are as high as these are long, whatever room there is beside them.
class RowsFollow : public QObject {
 public:
  explicit RowsFollow(QTableWidget& table) : QObject(&table) { table.viewport()->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // A table that goes is none any more when its viewport does.
    auto* table = qobject_cast<QTableWidget*>(parent());
    const bool resized = event->type() == QEvent::Resize || event->type() == QEvent::FontChange;
    if (resized && table != nullptr && table->wordWrap()) {
      QTimer::singleShot(0, table, &QTableWidget::resizeRowsToContents);
    }
    return QObject::eventFilter(watched, event);
  }
};

void Show(const ResultGrid& grid, QTableWidget& table) {
  const QSignalBlocker quiet(&table);
  const QSignalBlocker quietHeader(table.horizontalHeader());
  const auto& cells = grid.Cells.Get();
  const std::size_t header = grid.HasHeader && !cells.empty() ? 1 : 0;
  const int columns = cells.empty() ? 0 : static_cast<int>(cells.front().size());
  table.setColumnCount(columns);
  table.setRowCount(static_cast<int>(cells.size() - header));
  table.horizontalHeader()->setVisible(grid.HasHeader);
  const auto atLeft = [&grid](int column) {
    const auto& left = grid.TextColumns;
    return std::find(left.begin(), left.end(), column) != left.end();
  };
  for (int column = 0; column < columns; ++column) {
    for (std::size_t row = 0; row < cells.size(); ++row) {
      const int shown = static_cast<int>(row) - static_cast<int>(header);
      QTableWidgetItem* item = shown < 0 ? table.horizontalHeaderItem(column) : table.item(shown, column);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (shown < 0) {
          table.setHorizontalHeaderItem(column, item);
        } else {
          table.setItem(shown, column, item);
        }
      }
      const GridCell& cell = cells[row][static_cast<std::size_t>(column)];
      ShowCell(*item, shown < 0 ? HeadOf(table, cell) : cell, atLeft(column));
    }
  }
  const auto& widths = grid.ColumnWidths;
  for (int column = 0; column < columns; ++column) {
    const auto at = static_cast<std::size_t>(column);
    if (at < widths.size() && widths[at] > 0) {
      table.setColumnWidth(column, widths[at]);
    } else {
      table.resizeColumnToContents(column);
    }
  }
  // Sentences below each other take as many lines as they need.
  const bool sentences = !grid.HasHeader && columns > 0 && atLeft(columns - 1);
  table.setWordWrap(sentences);
  if (columns > 0) {
    table.horizontalHeader()->setSectionResizeMode(columns - 1,
                                                   sentences ? QHeaderView::Stretch : QHeaderView::Interactive);
  }
  if (sentences) table.resizeRowsToContents();
  table.setHorizontalScrollBarPolicy(sentences ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
  table.viewport()->update();  // the header was kept from telling that columns have moved
}

}  // namespace

void BindResultGrid(ResultGrid& grid, QTableWidget& table) {
  table.setEditTriggers(QAbstractItemView::NoEditTriggers);
  table.setSelectionMode(QAbstractItemView::ExtendedSelection);
  table.setAlternatingRowColors(true);
  table.setTabKeyNavigation(false);
  table.setWordWrap(false);
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setMinimumSectionSize(16);
  new RowsFollow(table);
  auto* copy = new QShortcut(QKeySequence::Copy, &table);
  copy->setContext(Qt::WidgetShortcut);
  QObject::connect(copy, &QShortcut::activated, [&table] { QApplication::clipboard()->setText(SelectedText(table)); });
  QObject::connect(&table, &QTableWidget::currentCellChanged, [&grid](int row, int, int, int) {
    if (row >= 0) grid.Select(row + (grid.HasHeader ? 1 : 0));
  });
  // A click on the cell that is reached already.
  QObject::connect(&table, &QTableWidget::cellPressed, [&grid, was = table.currentRow()](int row, int) mutable {
    if (row == was) grid.Select(row + (grid.HasHeader ? 1 : 0));
    was = row;
  });
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(QKeySequence(key), &table);
    enter->setContext(Qt::WidgetShortcut);
    QObject::connect(enter, &QShortcut::activated, [&grid, &table] {
      if (table.currentRow() >= 0) grid.PressReturn(table.currentRow() + (grid.HasHeader ? 1 : 0));
    });
  }
  QObject::connect(table.horizontalHeader(), &QHeaderView::sectionResized, [&grid, &table](int, int, int) {
    std::vector<int> widths;
    widths.reserve(static_cast<std::size_t>(table.columnCount()));
    for (int column = 0; column < table.columnCount(); ++column) widths.push_back(table.columnWidth(column));
    grid.ColumnWidths = std::move(widths);
  });
  grid.Changed = [&grid, &table] {
    table.setProperty("spokenName", ToQt(grid.SpokenName));
    table.setEnabled(grid.Enabled);
    table.setVisible(grid.Visible);
    Show(grid, table);
  };
  grid.FocusWanted = [&table] { table.setFocus(); };
  grid.SelectWanted = [&grid, &table] {
    const QSignalBlocker quiet(&table);
    table.selectRow(grid.SelectedRow - (grid.HasHeader ? 1 : 0));
  };
  QObject::connect(&table, &QObject::destroyed, [&grid] {
    grid.Changed = nullptr;
    grid.FocusWanted = nullptr;
    grid.SelectWanted = nullptr;
  });
  grid.Changed();
}

}  // namespace tav
