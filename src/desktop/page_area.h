#pragma once

#include <QAbstractScrollArea>
#include <QImage>

namespace tav {

class PageView;

/// A page in a scrolling view: centred where there is room, else from its top left corner. Drawn once for each page and
/// zoom, at the resolution of the screen.
class PageArea : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit PageArea(QWidget* parent = nullptr);

  /// Ties the area to its control, which must outlive its use.
  void Bind(PageView& view);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Refresh();
  void LayOut();
  void DrawPage();
  [[nodiscard]] QSizeF PageSize() const;

  PageView* view_ = nullptr;
  int drawnPage_ = -1;
  double drawnZoom_ = 0;
  QImage image_;
};

}  // namespace tav
