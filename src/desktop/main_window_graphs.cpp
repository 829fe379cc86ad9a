// What the main window passes on to the graphs of its plans.

#include <QtWidgets>

#include "desktop/graph_view.h"
#include "desktop/main_window.h"
#include "desktop/qt_text.h"

namespace tav {

void MainWindow::TemplateChanged(std::int16_t document) {
  if (Child* child = Find(document)) child->graph->TemplateChanged();
}

void MainWindow::Redraw(std::int16_t document) {
  // The rows are others now, so no mark stays; that draws all of it.
  if (Child* child = Find(document)) child->graph->SelectRows(0, 0);
}

void MainWindow::ShowNotice(std::int16_t document, const std::string& text) {
  if (Child* child = Find(document)) child->graph->ShowNotice(ToQt(text));
}

void MainWindow::ShowOverlay(std::int16_t document, const std::vector<PlotPoint>& line) {
  if (Child* child = Find(document)) child->graph->ShowOverlay(line);
}

void MainWindow::ShowAsBefore(std::int16_t document, const std::string& words) {
  if (Child* child = Find(document)) child->graph->ShowAsBefore(ToQt(words));
}

void MainWindow::ResetZoom(std::int16_t document) {
  if (Child* child = Find(document)) child->graph->ResetZoom();
}

void MainWindow::SelectRows(std::int16_t document, std::int16_t first, std::int16_t last) {
  if (Child* child = Find(document)) child->graph->SelectRows(first, last);
}

void MainWindow::FitPlan(bool fit) {
  fitPlan_ = fit;
  for (auto& [document, child] : children_) child.graph->FitPlan(fit);
}

void MainWindow::ShowExtras(const GraphExtras& extras) {
  extras_ = extras;
  for (auto& [document, child] : children_) child.graph->ShowExtras(extras);
}

bool MainWindow::ExportGraph(std::int16_t document, const std::string& file, bool svg) {
  Child* child = Find(document);
  if (child == nullptr) return false;
  return svg ? child->graph->ExportSvg(ToQt(file)) : child->graph->ExportPng(ToQt(file));
}

}  // namespace tav
