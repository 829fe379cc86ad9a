#include "desktop/grid_binding.h"

#include <QtWidgets>

#include "controls/grid.h"
#include "desktop/cell_list.h"
#include "desktop/qt_text.h"
#include "desktop/row_table.h"
#include "desktop/shared_columns.h"
#include "desktop/text_colour.h"

namespace tav {
namespace {

bool IsWithin(const QWidget& editor, const QWidget* widget) {
  while (widget != nullptr && widget != &editor) widget = widget->parentWidget();
  return widget != nullptr;
}

/// Calls a function ahead of every act elsewhere that need not take the focus: a key of a button or a menu, a press of
/// the mouse outside of a widget.
class OutsideWatch : public QObject {
 public:
  OutsideWatch(QWidget& inside, std::function<void()> act) : QObject(&inside), inside_(inside), act_(std::move(act)) {
    QApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* object, QEvent* event) override {
    const bool key = event->type() == QEvent::Shortcut;
    const auto* widget = qobject_cast<QWidget*>(object);
    if (key || (event->type() == QEvent::MouseButtonPress && widget != nullptr && !IsWithin(inside_, widget))) act_();
    return false;
  }

 private:
  const QWidget& inside_;
  std::function<void()> act_;
};

/// Edits cells by the rules of the grid. Row 0 of the grid is the header, so table row r is grid row r + 1.
///
/// A cell that is open for typing is stored by whatever leaves it but Escape. The focus tells only a part of that: the
/// key of a button or of a menu and a press on a tool bar act without taking the focus, so they are seen to here, ahead
/// of what they do.
class GridDelegate : public QStyledItemDelegate {
 public:
  GridDelegate(Grid& grid, QTableWidget& table) : QStyledItemDelegate(&table), grid_(grid), table_(table) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Grid::Editor editor = EditorAt(index.row(), index.column());
    if (editor.kind == Grid::Editor::Kind::None) return nullptr;
    auto* self = const_cast<GridDelegate*>(this);
    QWidget* widget = nullptr;
    if (editor.kind == Grid::Editor::Kind::Text) {
      widget = QStyledItemDelegate::createEditor(parent, option, index);
      if (auto* edit = qobject_cast<QLineEdit*>(widget); edit != nullptr && grid_.Typed) {
        connect(edit, &QLineEdit::textEdited, self, [self](const QString& text) { self->Type(text); });
      }
    } else {
      auto* list = new CellList(parent, editor.kind == Grid::Editor::Kind::TypedList, [self] { self->Leave(); });
      if (byTab_) list->KeepClosed();
      for (const std::string& entry : editor.entries) list->addItem(ToQt(entry));
      widget = list;
    }
    new OutsideWatch(*widget, [self] { self->Leave(); });
    self->open_ = widget;
    self->filled_ = self->typed_ = false;
    return widget;
  }

  void destroyEditor(QWidget* editor, const QModelIndex& index) const override {
    const_cast<GridDelegate*>(this)->open_ = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    // What is being typed is not brought in line with what is made of it.
    if (filled_) return;
    const_cast<GridDelegate*>(this)->filled_ = true;
    const QString text = index.data(Qt::DisplayRole).toString();
    if (auto* list = qobject_cast<QComboBox*>(editor)) {
      list->setCurrentIndex(list->findText(text));
      if (list->isEditable()) {
        list->setEditText(text);
        list->lineEdit()->selectAll();
      }
    } else if (auto* edit = qobject_cast<QLineEdit*>(editor)) {
      edit->setText(text);
      edit->selectAll();
    }
  }

  void setModelData(QWidget* editor, QAbstractItemModel* /*model*/, const QModelIndex& index) const override {
    const auto* list = dynamic_cast<CellList*>(editor);
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    if (list != nullptr && list->Chosen()) grid_.Edit(index.row() + 1, index.column(), FromQt(list->currentText()));
    if (edit != nullptr) grid_.Edit(index.row() + 1, index.column(), FromQt(edit->text()));
    ShowGrid(grid_, table_);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    // A message about what was typed takes the focus; that leaves the cell no second time.
    if (leaving_ || object != open_) return false;
    if (event->type() == QEvent::FocusOut) {
      // A menu of the field itself leaves nothing.
      if (!IsWithin(*open_, QApplication::focusWidget()) || !open_->isActiveWindow()) Leave();
      return false;
    }
    const auto* list = qobject_cast<QComboBox*>(open_);
    const bool typing = list == nullptr || list->isEditable();
    if (typing && event->type() == QEvent::KeyPress && LeavesByKey(*static_cast<QKeyEvent*>(event))) return true;
    return QStyledItemDelegate::eventFilter(object, event);
  }

 private:
  [[nodiscard]] Grid::Editor EditorAt(int row, int column) const {
    return grid_.EditorOf ? grid_.EditorOf(row + 1, column) : Grid::Editor{};
  }

  /// Stores what the open cell holds and closes it.
  void Leave() {
    if (open_ == nullptr || leaving_) return;
    leaving_ = true;
    Q_EMIT commitData(open_);
    if (open_ != nullptr) Q_EMIT closeEditor(open_);
    leaving_ = false;
  }

  void Type(const QString& text) {
    typed_ = true;
    grid_.Type(table_.currentRow() + 1, table_.currentColumn(), FromQt(text));
  }

  void Step(int by) {
    auto* edit = qobject_cast<QLineEdit*>(open_);
    edit->setText(ToQt(grid_.Stepped(FromQt(edit->text()), by)));
    edit->selectAll();
    Type(edit->text());
  }

  bool LeavesByKey(const QKeyEvent& event) {
    switch (event.key()) {
      case Qt::Key_Escape:
        if (!grid_.Restored) return false;
        leaving_ = true;
        Q_EMIT closeEditor(open_, RevertModelCache);
        leaving_ = false;
        // An open cell without an entry takes no other entry along.
        if (typed_) grid_.Restore();
        return true;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        Leave();
        if (grid_.Typed) {
          table_.setCurrentCell(std::min(table_.currentRow() + 1, table_.rowCount() - 1), table_.currentColumn());
        }
        return true;
      case Qt::Key_Up:
      case Qt::Key_Down: {
        if (qobject_cast<QComboBox*>(open_) != nullptr) return false;
        if (grid_.Stepped) {
          Step(event.key() == Qt::Key_Up ? 1 : -1);
          return true;
        }
        const int row = table_.currentRow() + (event.key() == Qt::Key_Up ? -1 : 1);
        Leave();
        table_.setCurrentCell(std::clamp(row, 0, table_.rowCount() - 1), table_.currentColumn());
        return true;
      }
      case Qt::Key_Tab:
      case Qt::Key_Backtab:
        MoveOn(event.key() == Qt::Key_Tab ? 1 : -1);
        return true;
      default:
        return false;
    }
  }

  /// Stores the open cell and opens the next one in reading order that takes typing; behind the last one the focus
  /// stays on the table.
  void MoveOn(int step) {
    Leave();
    const int columns = table_.columnCount();
    int at = table_.currentRow() * columns + table_.currentColumn() + step;
    for (; at >= 0 && at < table_.rowCount() * columns; at += step) {
      const auto kind = EditorAt(at / columns, at % columns).kind;
      if (kind != Grid::Editor::Kind::Text && kind != Grid::Editor::Kind::TypedList) continue;
      table_.setCurrentCell(at / columns, at % columns);
      byTab_ = true;
      table_.edit(table_.currentIndex());
      byTab_ = false;
      return;
    }
  }

  Grid& grid_;
  QTableWidget& table_;
  QPointer<QWidget> open_;
  bool leaving_ = false;
  bool filled_ = false;  ///< the open cell has got its text
  bool typed_ = false;   ///< and has been typed in
  bool byTab_ = false;   ///< a cell is being opened by Tab
};

/// The keys and the menu of a table while no cell is open.
class TableKeys : public QObject {
 public:
  TableKeys(Grid& grid, QTableWidget& table) : QObject(&table), grid_(grid), table_(table) {
    table.installEventFilter(this);
    table.viewport()->installEventFilter(this);
  }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::ContextMenu) {
      OpenMenu(*static_cast<QContextMenuEvent*>(event));
      return true;
    }
    const bool override = event->type() == QEvent::ShortcutOverride;
    if (object != &table_ || (event->type() != QEvent::KeyPress && !override)) return false;
    const auto* press = static_cast<QKeyEvent*>(event);
    const int key = press->key();
    const auto wish = WishOf(*press);
    if (override) {
      // Keys of the grid that are those of a menu, too, go to the grid.
      const bool own = (key == Qt::Key_Insert && grid_.InsertKey) || (key == Qt::Key_Delete && grid_.DeleteKey);
      if ((press->modifiers() == Qt::NoModifier && own) || wish) event->accept();
      return (press->modifiers() == Qt::NoModifier && own) || wish;
    }
    if (wish) {
      grid_.Ask(*wish);
      return true;
    }
    if (key == Qt::Key_Escape && grid_.Restored) {
      grid_.Restore();
      return true;
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && grid_.Typed) {
      table_.edit(table_.currentIndex());
      return true;
    }
    if (key == Qt::Key_Insert && grid_.InsertKey) {
      grid_.PressInsert();
      return true;
    }
    if (key == Qt::Key_Delete && grid_.DeleteKey) {
      grid_.PressDelete();
      return true;
    }
    return false;
  }

 private:
  [[nodiscard]] std::optional<Grid::Wish> WishOf(const QKeyEvent& press) const {
    if (!grid_.Wished) return std::nullopt;
    const bool alt = press.modifiers().testFlag(Qt::AltModifier);
    if (press.matches(QKeySequence::Copy)) return Grid::Wish::Copy;
    if (press.matches(QKeySequence::Paste)) return Grid::Wish::Paste;
    if (press.modifiers() == Qt::ControlModifier && press.key() == Qt::Key_D) return Grid::Wish::Duplicate;
    if (alt && press.key() == Qt::Key_Up) return Grid::Wish::MoveUp;
    if (alt && press.key() == Qt::Key_Down) return Grid::Wish::MoveDown;
    return std::nullopt;
  }

  void OpenMenu(const QContextMenuEvent& event) {
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    const QTableWidgetItem* item = byKey ? nullptr : table_.itemAt(table_.viewport()->mapFromGlobal(event.globalPos()));
    if (item != nullptr && !item->isSelected()) table_.setCurrentCell(item->row(), item->column());
    grid_.OpenMenu(byKey);
  }

  Grid& grid_;
  QTableWidget& table_;
};

/// What has not changed is not touched: a cell costs more to set than to compare. What is in red is bold as well, to be
/// told apart without colours.
void ShowCell(QTableWidgetItem& item, const GridCell& cell, std::initializer_list<QColor> grounds) {
  const QString text = ToQt(cell.text);
  if (item.text() != text) item.setText(text);
  const bool bold = cell.bold || cell.colour == kRed || !cell.fault.empty();
  QFont font = item.font();
  if (font.bold() != bold || font.italic() != cell.italic) {
    font.setBold(bold);
    font.setItalic(cell.italic);
    item.setFont(font);
  }
  const QVariant colour = cell.colour >= 0 ? QVariant(QBrush(TextColour(cell.colour, grounds))) : QVariant();
  if (item.data(Qt::ForegroundRole) != colour) item.setData(Qt::ForegroundRole, colour);
}

/// Cells that take no typing in a table that otherwise does look like the results that they are.
void ShowEditable(const Grid& grid, int row, int column, const QTableWidget& table, QTableWidgetItem& item) {
  const bool fixed = grid.EditorOf && grid.EditorOf(row, column).kind == Grid::Editor::Kind::None;
  const std::string& fault = grid.Cells.Get()[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].fault;
  QVariant background = fixed ? QVariant(table.palette().window()) : QVariant();
  if (!fault.empty()) background = FaultGround(table.palette());
  if (item.data(Qt::BackgroundRole) != background) item.setData(Qt::BackgroundRole, background);
  if (item.toolTip() != ToQt(fault)) item.setToolTip(ToQt(fault));
}

void ShowTick(const GridCell& cell, QTableWidgetItem& item) {
  const QVariant state = cell.tick ? QVariant(static_cast<int>(*cell.tick ? Qt::Checked : Qt::Unchecked)) : QVariant();
  if (item.data(Qt::CheckStateRole) != state) item.setData(Qt::CheckStateRole, state);
}

}  // namespace

void BindGrid(Grid& grid, QTableWidget& table) {
  table.setItemDelegate(new GridDelegate(grid, table));
  table.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                        QAbstractItemView::AnyKeyPressed);
  table.setSelectionMode(grid.Typed ? QAbstractItemView::ContiguousSelection : QAbstractItemView::SingleSelection);
  table.setAlternatingRowColors(true);
  table.setTabKeyNavigation(false);
  table.verticalHeader()->hide();
  ShareColumns(table, grid.WideColumn);
  const auto select = [&grid, &table](int row, int column) {
    const auto ranges = table.selectedRanges();
    if (row < 0) return;
    if (grid.Typed && !ranges.isEmpty() && ranges.front().topRow() <= row && row <= ranges.front().bottomRow()) {
      grid.Select(row + 1, column, ranges.front().topRow() + 1, ranges.front().bottomRow() + 1);
    } else {
      grid.Select(row + 1, column);
    }
  };
  QObject::connect(&table, &QTableWidget::currentCellChanged,
                   [select](int row, int column, int, int) { select(row, column); });
  QObject::connect(&table, &QTableWidget::cellClicked, select);
  if (grid.Typed) {
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 8);
    QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, [&grid, &table] {
      const auto ranges = table.selectedRanges();
      if (ranges.isEmpty()) return;
      grid.FirstRow = ranges.front().topRow() + 1;
      grid.LastRow = ranges.front().bottomRow() + 1;
    });
  }
  QObject::connect(&table, &QTableWidget::itemChanged, [&grid, &table](const QTableWidgetItem* item) {
    const int row = item->row() + 1;
    const auto& cells = grid.Cells.Get();
    if (row >= grid.Rows()) return;
    const auto& tick = cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(item->column())].tick;
    const bool on = item->checkState() == Qt::Checked;
    // Once the view has done with the click, because what the tick does may show other rows.
    if (tick && on != *tick) QTimer::singleShot(0, &table, [&grid, row, on] { grid.Tick(row, on); });
  });
  grid.OpenWanted = [&grid, &table] {
    const QModelIndex cell = table.model()->index(grid.SelectedRow - 1, grid.SelectedColumn);
    if (cell != table.currentIndex()) table.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    table.edit(cell);
  };
  QObject::connect(&table, &QObject::destroyed, [&grid] { grid.OpenWanted = nullptr; });
  new TableKeys(grid, table);
}

void ShowGrid(const Grid& grid, QTableWidget& table) {
  const QSignalBlocker quiet(&table);
  const auto& cells = grid.Cells.Get();
  const int rows = std::max(0, grid.Rows() - 1);
  table.setRowCount(rows);
  table.setColumnCount(grid.Columns());
  const QPalette& palette = table.palette();
  const auto grounds = {palette.color(QPalette::Base), palette.color(QPalette::AlternateBase),
                        palette.color(QPalette::Window)};
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
      ShowCell(*item, row == 0 ? HeadOf(table, cell) : cell, grounds);
      const bool right =
          std::find(grid.RightColumns.begin(), grid.RightColumns.end(), column) != grid.RightColumns.end();
      if (right) item->setTextAlignment(Qt::AlignVCenter | Qt::AlignRight);
      if (row > 0) ShowEditable(grid, row, column, table, *item);
      if (row > 0) ShowTick(cell, *item);
    }
  }
  ShareColumnsAnew(table);
  const int row = std::min(grid.SelectedRow, grid.Rows() - 1) - 1;
  const auto ranges = table.selectedRanges();
  const bool isOneRow = grid.FirstRow == grid.LastRow;
  const bool selectsMore = grid.Typed && isOneRow && !ranges.isEmpty() && ranges.front().rowCount() > 1;
  if (row >= 0 && (row != table.currentRow() || grid.SelectedColumn != table.currentColumn() || selectsMore)) {
    // Left to itself the table would add the cell to its selection while Ctrl is down.
    table.setCurrentCell(row, grid.SelectedColumn, QItemSelectionModel::ClearAndSelect);
  }
}

}  // namespace tav
