#pragma once

#include <string>
#include <vector>

#include "controls/grid_cell.h"
#include "figures/dive_figures.h"
#include "model/dive_template.h"
#include "model/profile.h"
#include "platform/text_source.h"

namespace tav {

/// The texts of the information window for one dive. In all tables row 0 is the header; what is out of bounds is red
/// and bold.
class DiveInformation {
 public:
  using Table = std::vector<std::vector<GridCell>>;

  /// All that is handed over must outlive the object.
  DiveInformation(const ClassProfile& profile, const DiveTemplate& diveTemplate, const ModelChoice& model,
                  bool repetitive, const TextSource& texts, const LocaleSeparators& separators)
      : profile_(profile),
        template_(diveTemplate),
        model_(model),
        repetitive_(repetitive),
        texts_(texts),
        numbers_(separators) {}

  /// Every row of the dive, 14 columns. From the first stop on, PPO2 is held against `DecoPPO2`.
  [[nodiscard]] Table Profile() const;
  /// One row for each stop: depth, minutes, run time, O2, He.
  [[nodiscard]] Table DecoStops() const;
  /// One row for each gas that was breathed: name, total.
  [[nodiscard]] Table Gas() const;
  /// Six rows without a header, a seventh for doses that were carried over: label, value, label, value. The values are
  /// empty for a dive without rows.
  [[nodiscard]] Table Summary() const;

  /// The settings of the plan.
  struct Block {
    std::string model;
    std::string depthConservatism;
    std::string gfConservatism;
    bool showsGF = false;
    std::string highGF;
    std::string lowGF;
    bool highGFAboveOne = false;
    std::string units;
    std::string startAltitude;
    std::string endAltitude;
    std::string startPressure;
    std::string endPressure;
    std::string stepSize;
    std::string lastStop;
    std::string apparatus;
    std::string o2Narcotic;
  };
  [[nodiscard]] Block Info() const;

 private:
  [[nodiscard]] std::string T(int id) const { return texts_.GetResString(id); }
  [[nodiscard]] std::vector<GridCell> Heads(const std::vector<std::string>& heads) const;
  [[nodiscard]] GridCell PPO2Cell(const Waypoint& row, bool deco) const;

  const ClassProfile& profile_;
  const DiveTemplate& template_;
  const ModelChoice& model_;
  bool repetitive_;
  const TextSource& texts_;
  NumberTexts numbers_;
};

}  // namespace tav
