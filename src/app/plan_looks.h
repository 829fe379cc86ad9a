#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/main_services.h"

namespace tav {

/// What the windows of the plans show beside the plans themselves, by document. It stays when a plan is computed anew,
/// but for the mark on its rows, which are others then; a mark on the end of a leg stays with the leg.
class PlanLooks {
 public:
  explicit PlanLooks(const MainServices& services) : services_(services) {}

  /// All of it, read from the document and what has been set here.
  [[nodiscard]] PlanLook Of(std::int16_t document) const;

  /// Marks rows of an open document; 0 to 0 marks none.
  void SelectRows(std::int16_t document, std::int16_t first, std::int16_t last);
  /// How a dive would go; empty takes the line away.
  void ShowOverlay(std::int16_t document, const std::vector<PlotPoint>& line);
  /// Empty words take the grey away.
  void ShowAsBefore(std::int16_t document, const std::string& words);
  /// A plan that is drawn thin behind what has become of it.
  struct Kept {
    KeptLine line;
    bool metric = true;         ///< its depths are metres, else feet
    std::int16_t document = 0;  ///< that it was kept of
    int opening = 0;
  };
  void ShowKept(std::vector<Kept> kept);
  void FitPlan(bool fit);
  void ShowExtras(const GraphExtras& extras);
  void Forget(std::int16_t document) { set_.erase(document); }

 private:
  struct Set {
    std::pair<std::int16_t, std::int16_t> selected{0, 0};
    int evaluation = 0;        ///< of the rows that are selected
    std::int16_t leg = 0;      ///< that ends with the selected row; 0 for none
    std::int16_t actions = 0;  ///< of the plan then: with others the leg may be another one
    std::vector<PlotPoint> overlay;
    std::string asBefore;
  };
  void ShowAll() const;

  const MainServices& services_;
  std::map<std::int16_t, Set> set_;
  std::vector<Kept> kept_;
  bool fitPlan_ = true;
  GraphExtras extras_;
};

}  // namespace tav
