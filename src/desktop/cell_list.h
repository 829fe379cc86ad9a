#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <functional>

namespace tav {

/// The list of a cell. It shows its entries at once, and only an entry that is chosen from them counts: keys and wheel
/// steps that would choose unseen do nothing but look for an entry. One that takes typing, too, is closed while one
/// types, and when Tab has led to it.
class CellList : public QComboBox {
 public:
  /// `closed` is called when the entries have been shown and are gone.
  CellList(QWidget* parent, bool takesTyping, std::function<void()> closed);

  /// What it holds is to be stored.
  [[nodiscard]] bool Chosen() const { return chosen_ || (isEditable() && lineEdit()->isModified()); }
  void KeepClosed() { keepsClosed_ = true; }

  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ShowEntries();

  std::function<void()> closed_;
  QString typed_;
  bool chosen_ = false;
  bool keepsClosed_ = false;
};

}  // namespace tav
