#pragma once

#include <functional>
#include <string>

#include "reports/report_pages.h"

namespace tav {

/// Told how many rows of a report are written; returns false to end it at once.
using ReportProgress = std::function<bool(int done, int of)>;

/// The long report: settings, every row, bottom segments, stops, summary, gas and gas supply of one dive, or of each
/// dive of a series in turn, on landscape pages.
class GeneralReport {
 public:
  using Dive = ReportDive;

  /// `step` is told how far the report is, as a text for the wait window.
  explicit GeneralReport(PrintPreview& out, std::function<void(const std::string&)> step = nullptr,
                         ReportProgress progress = nullptr);

  [[nodiscard]] const TextSource& Texts() const { return out_.Texts(); }
  /// `rows` are those of all dives that follow, as far as they are known.
  void InitLongReport(int rows = 0);
  /// Appends all pages of one dive. False when the progress has ended it: then there is nothing to show.
  bool LongReport(const Dive& dive);
  /// Shows the report.
  void ShowLongReport();

 private:
  void Step(int textId, int page);

  PrintPreview& out_;
  std::function<void(const std::string&)> step_;
  ReportProgress progress_;
  int ReportPage_ = 1;
  int done_ = 0;  ///< rows
  int of_ = 0;
};

}  // namespace tav
