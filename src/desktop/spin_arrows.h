#pragma once

#include <QWidget>

class QToolButton;

namespace tav {

/// Two arrows, one above the other, that step the field beside them. Held down they repeat.
class SpinArrows : public QWidget {
  Q_OBJECT
 public:
  explicit SpinArrows(QWidget* parent = nullptr);
  /// No higher than the field beside them.
  void MakeCompact();

 Q_SIGNALS:
  void Up();
  void Down();

 private:
  QToolButton* MakeArrow(Qt::ArrowType type);
};

}  // namespace tav
