#include "desktop/text_room.h"

#include <QtWidgets>

#include "desktop/qt_text.h"

namespace tav::test {
namespace {

int WidthOf(const QWidget& widget, const QString& text) { return widget.fontMetrics().horizontalAdvance(text); }

/// The first text of a widget that has too little room; empty for none.
QString ClippedText(const QLabel& label) {
  if (!label.pixmap().isNull() || label.text().isEmpty()) return {};
  if (label.wordWrap()) return label.height() < label.heightForWidth(label.width()) ? label.text() : QString();
  return label.width() < label.sizeHint().width() || label.height() < label.minimumSizeHint().height() ? label.text()
                                                                                                       : QString();
}

QString ClippedText(const QComboBox& combo) {
  QStyleOptionComboBox option;
  option.initFrom(&combo);
  const QRect room = combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
  for (int i = 0; i < combo.count(); ++i) {
    if (WidthOf(combo, combo.itemText(i)) > room.width()) return combo.itemText(i);
  }
  return {};
}

QString ClippedText(const QLineEdit& edit) {
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.hasFrame() ? edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit) : 0;
  const int room = edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit).width();
  const QString text = edit.text().isEmpty() ? edit.placeholderText() : edit.text();
  constexpr int kMargins = 4;
  return WidthOf(edit, text) + kMargins > room ? text : QString();
}

QString ClippedText(const QTableWidget& table) {
  const QHeaderView& head = *table.horizontalHeader();
  for (int column = 0; column < table.columnCount(); ++column) {
    if (table.isColumnHidden(column)) continue;
    const auto* title = table.horizontalHeaderItem(column);
    if (!head.isHidden() && title != nullptr && head.sectionSize(column) < head.sectionSizeHint(column)) {
      return title->text();
    }
    const bool wraps = table.wordWrap() && head.sectionResizeMode(column) == QHeaderView::Stretch;
    for (int row = 0; row < table.rowCount(); ++row) {
      if (wraps) {
        constexpr int kMargins = 7;
        const QString text = table.item(row, column)->text();
        const QRect room(0, 0, table.columnWidth(column) - kMargins, table.viewport()->height());
        if (table.fontMetrics().boundingRect(room, Qt::TextWordWrap, text).height() > table.rowHeight(row)) return text;
        continue;
      }
      const QModelIndex cell = table.model()->index(row, column);
      const QString text = cell.data().toString();
      if (!text.isEmpty() && table.columnSpan(row, column) == 1 &&
          table.sizeHintForIndex(cell).width() > table.columnWidth(column)) {
        return text;
      }
    }
  }
  return {};
}

QString ClippedTextOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return ClippedText(*label);
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return ClippedText(*combo);
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return ClippedText(*edit);
  if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) return ClippedText(*table);
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    const QSize needed = button->minimumSizeHint();
    const bool fits = button->width() >= needed.width() && button->height() >= needed.height();
    return fits ? QString() : button->text();
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    return tabs->count() > 0 && tabs->width() < tabs->sizeHint().width() ? tabs->tabText(tabs->count() - 1) : QString();
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
    constexpr int kMargins = 16;
    return WidthOf(*group, group->title()) + kMargins > group->width() ? group->title() : QString();
  }
  return {};
}

/// What lies in a layout may not touch its neighbours.
void AddOverlaps(const QWidget& parent, std::vector<std::string>& faults) {
  QList<const QWidget*> shown;
  for (const QObject* child : parent.children()) {
    const auto* widget = qobject_cast<const QWidget*>(child);
    if (widget != nullptr && widget->isVisible() && !widget->isWindow() && !widget->objectName().isEmpty() &&
        !widget->objectName().startsWith(QLatin1String("qt_")) && qobject_cast<const QSizeGrip*>(widget) == nullptr) {
      shown << widget;
    }
  }
  for (int i = 0; i < shown.size(); ++i) {
    for (int j = 0; j < i; ++j) {
      if (!shown[i]->geometry().intersects(shown[j]->geometry())) continue;
      faults.push_back(FromQt(shown[i]->objectName()) + " lies over " + FromQt(shown[j]->objectName()));
    }
  }
}

}  // namespace

std::vector<std::string> ReadingFaults(const QWidget& window) {
  std::vector<std::string> faults;
  AddOverlaps(window, faults);
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    const QString clipped = ClippedTextOf(*widget);
    if (!clipped.isEmpty()) {
      faults.push_back(FromQt(widget->objectName()) + " has no room for \"" + FromQt(clipped) + "\"");
    }
    if (qobject_cast<const QAbstractScrollArea*>(widget) == nullptr) AddOverlaps(*widget, faults);
  }
  return faults;
}

}  // namespace tav::test
