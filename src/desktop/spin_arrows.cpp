#include "desktop/spin_arrows.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace tav {

SpinArrows::SpinArrows(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  QToolButton* up = MakeArrow(Qt::UpArrow);
  QToolButton* down = MakeArrow(Qt::DownArrow);
  layout->addWidget(up);
  layout->addWidget(down);
  connect(up, &QToolButton::clicked, this, &SpinArrows::Up);
  connect(down, &QToolButton::clicked, this, &SpinArrows::Down);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SpinArrows::MakeCompact() {
  const int line = fontMetrics().height();
  for (auto* arrow : findChildren<QToolButton*>()) arrow->setFixedSize(line, line / 2 + 3);
}

QToolButton* SpinArrows::MakeArrow(Qt::ArrowType type) {
  auto* arrow = new QToolButton(this);
  arrow->setArrowType(type);
  arrow->setAutoRepeat(true);
  arrow->setFocusPolicy(Qt::NoFocus);  // the arrow keys do the same in the field
  const int line = fontMetrics().height();
  arrow->setFixedSize(line + 6, line - 1);
  return arrow;
}

}  // namespace tav
