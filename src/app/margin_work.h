#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "advice/comparison.h"
#include "advice/margins.h"
#include "controls/cell_map.h"
#include "controls/grid.h"
#include "dialogs/dialog_services.h"
#include "platform/file_picture.h"
#include "reports/margin_map.h"

namespace tav {

/// What the map of a plan can do with the program around it.
struct MarginActs {
  /// Keeps a dive for comparison with the plan in front and shows the comparison.
  std::function<void(const ComparedPlan& plan)> compare;
  /// Draws a dive thin over the plan in front, in place of the last one; nothing for none.
  std::function<void(std::optional<ComparedPlan> plan)> look;
  /// Gives a leg of the plan in front other minutes, in one step of undo. Why it can't be, or nothing.
  std::function<std::string(std::int16_t action, Single minutes)> setMinutes;
  /// Why the plan in front can't be changed now, or nothing.
  std::function<std::string()> refusal;
  /// Asks for a file and writes a picture of the plan in front there.
  std::function<void(const FilePicture& picture)> save;
};

/// The map of margins of a plan that is open, computed some milliseconds at a time: first without losses, then with
/// them, then the longest stay and the times without a stop. And the same in the words and colours of a window.
class MarginWork {
 public:
  /// Of the last steps, what a window does not show need not be computed.
  enum class Extent { MapAndStay, All };

  MarginWork(const DialogServices& services, Extent extent) : services_(services), extent_(extent) {}

  /// Takes up a plan, or that there is none, anew. `leg` is the action that is made longer; the deepest leg if it is
  /// none of the plan's.
  void Begin(std::optional<std::int16_t> document, std::optional<std::int16_t> leg = {});
  /// Computes for some milliseconds, until `IsDone`.
  void GoOn();

  /// There is a plan that can be asked.
  [[nodiscard]] bool IsThere() const { return margins_ != nullptr && margins_->Fault().IsEmpty(); }
  [[nodiscard]] bool IsDone() const { return done_; }
  /// Only to be called when `IsThere`.
  [[nodiscard]] const Margins& Of() const { return *margins_; }
  [[nodiscard]] const MarginGrid& Grid() const { return grid_; }
  [[nodiscard]] const std::vector<MarginCell>& Cells() const { return cells_; }
  /// Every cell is there with its losses.
  [[nodiscard]] bool HasMap() const { return IsThere() && judged_ == cells_.size() && judged_ > 0; }
  /// Nothing until it is done, and where the search was ended.
  [[nodiscard]] std::optional<LongestStay> Stay() const { return cut_ ? std::nullopt : shownStay_; }
  [[nodiscard]] const std::optional<std::vector<NoStopTime>>& NoStop() const { return noStop_; }
  [[nodiscard]] AdviceWords Words() const;

  [[nodiscard]] CellMap::Content Map() const;
  /// A row for each mark of the map: its colour, its letter, its words.
  [[nodiscard]] std::vector<std::vector<GridCell>> Legend() const;
  /// The dive of a cell that is there and what it breaks, in two lines.
  [[nodiscard]] std::string CellText(int index) const;
  /// Whether a cell is there and its dive can be dived at all.
  [[nodiscard]] bool CanCompare(int cell) const;
  /// The dive of a cell, to be compared with the plan, named by what it is more; nothing if it can't be computed.
  [[nodiscard]] std::optional<ComparedPlan> PlanOf(int cell) const;
  /// The longest stay in lines; empty until it is done.
  [[nodiscard]] std::string StayText() const;
  /// What can't be asked, that it is being computed, or what must be said of the map.
  [[nodiscard]] std::string State() const;

 private:
  [[nodiscard]] MarginCell CellOf(std::size_t index, bool losses) const;
  [[nodiscard]] bool IsCell(int cell) const { return cell >= 0 && cell < grid_.Columns() * grid_.Rows(); }
  [[nodiscard]] Single Longer(int cell) const { return grid_.longer.At(cell % grid_.Columns()); }
  [[nodiscard]] Single Deeper(int cell) const { return grid_.deeper.At(cell / grid_.Columns()); }
  /// "+6 min, +2 m"
  [[nodiscard]] std::string NameOf(int cell) const;

  const DialogServices& services_;
  Extent extent_;
  bool metric_ = true;
  bool done_ = true;
  std::unique_ptr<Margins> margins_;
  MarginGrid grid_ = MarginGrid::Usual(true);
  std::vector<MarginCell> cells_;  ///< from `judged_` on as they are without their losses
  std::size_t judged_ = 0;
  LongestStay stay_;
  bool cut_ = false;  ///< the search was ended: at least so long
  std::optional<LongestStay> shownStay_;
  std::optional<std::vector<NoStopTime>> noStop_;
};

}  // namespace tav
