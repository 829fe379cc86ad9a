#include "desktop/spoken_names.h"

#include <QtWidgets>

#include "desktop/spin_arrows.h"

namespace tav {
namespace {

/// A text as it is said: without the letter's mark, and without the colon.
QString Said(QString text) {
  text.remove(QLatin1Char('&'));
  text = text.simplified();
  while (text.endsWith(QLatin1Char(':')) || text.endsWith(QLatin1Char('.'))) text.chop(1);
  return text.trimmed();
}

bool IsControl(const QWidget& widget) {
  if (widget.objectName().isEmpty() || widget.objectName().startsWith(QLatin1String("qt_"))) return false;
  return qobject_cast<const QLabel*>(&widget) == nullptr &&
         (qobject_cast<const QAbstractButton*>(&widget) != nullptr || widget.focusPolicy() != Qt::NoFocus ||
          qobject_cast<const QProgressBar*>(&widget) != nullptr);
}

QString FrameAround(const QWidget& widget) {
  for (const QWidget* at = widget.parentWidget(); at != nullptr && !at->isWindow(); at = at->parentWidget()) {
    const auto* frame = qobject_cast<const QGroupBox*>(at);
    if (frame != nullptr && !frame->title().isEmpty()) return Said(frame->title());
  }
  return {};
}

/// What stands behind an item of a layout, in its row; nullptr for nothing.
QLayoutItem* ItemBehind(const QLayout& layout, int at) {
  const auto* grid = qobject_cast<const QGridLayout*>(&layout);
  if (grid == nullptr) return layout.itemAt(at + 1);
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(at, &row, &column, &rows, &columns);
  return grid->itemAtPosition(row, column + columns);
}

/// A short label right behind a field, past its arrows, is its unit. `found` tells that the field is in the layout.
const QLabel* UnitBehind(const QLayout& layout, const QWidget& field, bool& found) {
  for (int i = 0; i < layout.count() && !found; ++i) {
    QLayoutItem* item = layout.itemAt(i);
    if (item->layout() != nullptr) {
      if (const QLabel* unit = UnitBehind(*item->layout(), field, found)) return unit;
    }
    found = found || item->widget() == &field;
    if (!found) continue;
    QLayoutItem* next = ItemBehind(layout, i);
    if (next != nullptr && qobject_cast<const SpinArrows*>(next->widget()) != nullptr) {
      next = ItemBehind(layout, layout.indexOf(next->widget()));
    }
    const auto* label = next == nullptr ? nullptr : qobject_cast<const QLabel*>(next->widget());
    constexpr int kLongestUnit = 12;
    return label == nullptr || label->buddy() != nullptr || label->text().size() > kLongestUnit ? nullptr : label;
  }
  return nullptr;
}

QString NameOf(const QWidget& window, const QWidget& control) {
  if (QString own = control.property("spokenName").toString(); !own.isEmpty()) return own;
  const QString label = control.property("spokenAs").toString();
  if (const auto* named = label.isEmpty() ? nullptr : window.findChild<const QLabel*>(label))
    return Said(named->text());
  if (!control.toolTip().isEmpty()) return Said(control.toolTip());
  const QString frame = FrameAround(control);
  return frame.isEmpty() ? Said(window.window()->windowTitle()) : frame;
}

/// The text of the label that leads to a control; empty for none.
QString LabelOf(const QWidget& window, const QWidget& control) {
  for (const auto* label : window.findChildren<const QLabel*>()) {
    if (label->buddy() == &control) return Said(label->text());
  }
  return {};
}

/// The arrows beside a field step it: "+ Depth".
void NameArrows(const QWidget& window, const SpinArrows& arrows) {
  const auto* field = window.findChild<const QLineEdit*>(arrows.property("field").toString());
  if (field == nullptr) return;
  const QString label = LabelOf(window, *field);
  const QString name = label.isEmpty() ? field->accessibleName() : label;
  for (auto* arrow : arrows.findChildren<QToolButton*>()) {
    const QString sign = arrow->arrowType() == Qt::UpArrow ? QStringLiteral("+ ") : QStringLiteral("- ");
    arrow->setAccessibleName(sign + name);
    arrow->setAccessibleDescription(field->accessibleDescription());
  }
}

QString DescriptionOf(const QWidget& window, const QWidget& control, const QString& name) {
  QStringList parts;
  const QString tip = Said(control.toolTip());
  const QString frame = FrameAround(control);
  if (!tip.isEmpty() && tip != name) {
    parts << tip;
  } else if (!frame.isEmpty() && frame != name) {
    parts << frame;
  } else {
    parts << Said(window.window()->windowTitle());
  }
  if (qobject_cast<const QLineEdit*>(&control) != nullptr) {
    const QLayout* layout = control.parentWidget()->layout();
    bool found = false;
    const QLabel* unit = layout == nullptr ? nullptr : UnitBehind(*layout, control, found);
    if (unit != nullptr) parts << Said(unit->text());
  }
  if (parts.size() > 1) parts.removeAll(name);  // "% O2", with "% O2" behind the field
  parts.removeAll(QString());
  return parts.join(QStringLiteral(", "));
}

/// Names and units as they are when somebody listens: at each show, and when the focus moves within the window.
class NamesAtHand : public QObject {
 public:
  explicit NamesAtHand(QWidget& window) : QObject(&window) {
    window.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [&window](const QWidget* /*old*/, const QWidget* now) {
      if (now != nullptr && window.isAncestorOf(now)) NameAll(window);
    });
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) NameAll(*qobject_cast<QWidget*>(watched));
    return QObject::eventFilter(watched, event);
  }

 private:
  static void NameAll(QWidget& window);
};

void NamesAtHand::NameAll(QWidget& window) {
  for (auto* control : window.findChildren<QWidget*>()) {
    if (!IsControl(*control)) continue;
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    QString name = button == nullptr ? QString() : Said(button->text());
    if (name.isEmpty()) name = LabelOf(window, *control);
    if (name.isEmpty()) name = NameOf(window, *control);
    if (button == nullptr) control->setAccessibleName(name);
    control->setAccessibleDescription(DescriptionOf(window, *control, name));
  }
  for (const auto* arrows : window.findChildren<const SpinArrows*>()) NameArrows(window, *arrows);
}

}  // namespace

void NameControls(QWidget& window) { new NamesAtHand(window); }

}  // namespace tav
