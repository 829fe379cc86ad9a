#include "desktop/shared_columns.h"

#include <QtWidgets>
#include <algorithm>
#include <numeric>
#include <vector>

namespace tav {
namespace {

constexpr const char* kName = "SharedColumns";
constexpr int kWidestMinimum = 400;

class SharedColumns : public QObject {
 public:
  SharedColumns(QTableWidget& table, int wide) : QObject(&table), table_(table), wide_(wide) {
    setObjectName(QString::fromLatin1(kName));
    auto& header = *table.horizontalHeader();
    header.setMinimumSectionSize(16);
    header.setSectionResizeMode(wide < 0 ? QHeaderView::Fixed : QHeaderView::Interactive);
    if (wide >= 0) connect(&header, &QHeaderView::sectionResized, this, &SharedColumns::Widen);
    table.viewport()->installEventFilter(this);
  }

  void Share() {
    if (wide_ < 0) {
      ShareEqually();
    } else {
      FitOnce();
      wideTexts_ = table_.columnCount() > wide_ ? WidestText(wide_) : 0;
      Widen();
    }
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FontChange) fitted_ = false;
    if (event->type() == QEvent::FontChange || (event->type() == QEvent::Resize && wide_ < 0)) Share();
    if (event->type() == QEvent::Resize && wide_ >= 0) Widen();
    return QObject::eventFilter(watched, event);
  }

 private:
  [[nodiscard]] QHeaderView& Header() const { return *table_.horizontalHeader(); }

  /// For the head of a column and all that stands in it.
  [[nodiscard]] int WidestText(int column) const {
    int width = Header().sectionSizeHint(column);
    for (int row = 0; row < table_.rowCount(); ++row) {
      width = std::max(width, table_.sizeHintForIndex(table_.model()->index(row, column)).width() + 1);
    }
    return width;
  }

  void ShareEqually() {
    const int count = table_.columnCount();
    std::vector<int> widths;
    widths.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) widths.push_back(WidestText(column));
    const int needed = std::accumulate(widths.begin(), widths.end(), 0);
    const int around = 2 * table_.frameWidth() + table_.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    table_.setMinimumWidth(std::min(needed + around, kWidestMinimum));
    int left = std::max(0, table_.viewport()->width() - needed);
    for (int column = 0; column < count; ++column) {
      const int share = left / (count - column);
      left -= share;
      table_.setColumnWidth(column, widths[static_cast<std::size_t>(column)] + share);
    }
  }

  /// The columns of numbers get their width once: they don't move while the user types, and stay as he drags them.
  void FitOnce() {
    if (fitted_ || table_.columnCount() <= wide_) return;
    fitted_ = true;
    constexpr int kMargins = 9;
    for (int column = 0; column < table_.columnCount(); ++column) {
      if (column == wide_) continue;
      const QString widest = column == 0 ? QStringLiteral("00") : QStringLiteral("000.0");
      const int number = table_.fontMetrics().horizontalAdvance(widest) + kMargins;
      table_.setColumnWidth(column, std::max(number, Header().sectionSizeHint(column)));
    }
  }

  void Widen() {
    if (widening_ || table_.columnCount() <= wide_) return;
    widening_ = true;
    const int others = Header().length() - Header().sectionSize(wide_);
    table_.setColumnWidth(wide_, std::max(wideTexts_, table_.viewport()->width() - others));
    widening_ = false;
  }

  QTableWidget& table_;
  int wide_;
  int wideTexts_ = 0;
  bool fitted_ = false;
  bool widening_ = false;
};

}  // namespace

void ShareColumns(QTableWidget& table, int wide) { new SharedColumns(table, wide); }

void ShareColumnsAnew(QTableWidget& table) {
  auto* columns = table.findChild<QObject*>(QString::fromLatin1(kName), Qt::FindDirectChildrenOnly);
  if (columns != nullptr) static_cast<SharedColumns*>(columns)->Share();
}

}  // namespace tav
