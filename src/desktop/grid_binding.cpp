#include "desktop/grid_binding.h"

#include <QtWidgets>

#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "platform/controls.h"

namespace tav {
namespace {

/// Edits cells by the rules of the grid. Row 0 of the grid is the header, so table row r is grid row r + 1.
class GridDelegate : public QStyledItemDelegate {
 public:
  GridDelegate(Grid& grid, QTableWidget& table) : QStyledItemDelegate(&table), grid_(grid), table_(table) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    if (!grid_.EditorOf) return nullptr;
    const Grid::Editor editor = grid_.EditorOf(index.row() + 1, index.column());
    if (editor.kind == Grid::Editor::Kind::None) return nullptr;
    if (editor.kind == Grid::Editor::Kind::Text) return QStyledItemDelegate::createEditor(parent, option, index);
    auto* list = new QComboBox(parent);
    for (const std::string& entry : editor.entries) list->addItem(ToQt(entry));
    connect(list, &QComboBox::activated, this, [this, list] {
      auto* self = const_cast<GridDelegate*>(this);
      Q_EMIT self->commitData(list);
      Q_EMIT self->closeEditor(list);
    });
    return list;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const QString text = index.data(Qt::DisplayRole).toString();
    if (auto* list = qobject_cast<QComboBox*>(editor)) {
      list->setCurrentIndex(std::max(0, list->findText(text)));
    } else if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
      edit->setText(text);
      edit->selectAll();
    }
  }

  void setModelData(QWidget* editor, QAbstractItemModel* /*model*/, const QModelIndex& index) const override {
    auto* list = qobject_cast<QComboBox*>(editor);
    auto* edit = qobject_cast<QLineEdit*>(editor);
    const QString text = list != nullptr ? list->currentText() : edit != nullptr ? edit->text() : QString();
    grid_.Edit(index.row() + 1, index.column(), FromQt(text));
    ShowGrid(grid_, table_);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* edit = qobject_cast<QLineEdit*>(object);
    if (edit != nullptr && event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      const int step = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
      if (step != 0) {
        Q_EMIT commitData(edit);
        Q_EMIT closeEditor(edit);
        const int row = std::clamp(table_.currentRow() + step, 0, table_.rowCount() - 1);
        table_.setCurrentCell(row, table_.currentColumn());
        return true;
      }
    }
    return QStyledItemDelegate::eventFilter(object, event);
  }

 private:
  Grid& grid_;
  QTableWidget& table_;
};

}  // namespace

void BindGrid(Grid& grid, QTableWidget& table) {
  table.setItemDelegate(new GridDelegate(grid, table));
  table.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                        QAbstractItemView::AnyKeyPressed);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setAlternatingRowColors(true);
  table.setTabKeyNavigation(false);
  table.verticalHeader()->hide();
  table.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&table, &QTableWidget::currentCellChanged, [&grid](int row, int column, int, int) {
    if (row >= 0) {
      grid.SelectedRow = row + 1;
      grid.SelectedColumn = column;
    }
  });
  QObject::connect(&table, &QTableWidget::cellClicked, [&grid](int row, int column) { grid.Select(row + 1, column); });
  QObject::connect(&table, &QTableWidget::customContextMenuRequested, [&grid, &table](const QPoint& at) {
    if (const QTableWidgetItem* item = table.itemAt(at)) {
      table.setCurrentCell(item->row(), item->column());
    }
    grid.OpenMenu();
  });
}

void ShowGrid(const Grid& grid, QTableWidget& table) {
  const QSignalBlocker quiet(&table);
  const auto& cells = grid.Cells.Get();
  const int rows = std::max(0, grid.Rows() - 1);
  table.setRowCount(rows);
  table.setColumnCount(grid.Columns());
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int column = 0; column < grid.Columns(); ++column) {
      const GridCell& cell = cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      auto* item = row == 0 ? table.horizontalHeaderItem(column) : table.item(row - 1, column);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        if (row == 0) {
          table.setHorizontalHeaderItem(column, item);
        } else {
          table.setItem(row - 1, column, item);
        }
      }
      item->setText(ToQt(cell.text));
      QFont font = item->font();
      font.setBold(cell.bold);
      font.setItalic(cell.italic);
      item->setFont(font);
      if (cell.colour >= 0) {
        item->setForeground(ColourOf(cell.colour));
      } else {
        item->setData(Qt::ForegroundRole, QVariant());
      }
    }
  }
}

}  // namespace tav
