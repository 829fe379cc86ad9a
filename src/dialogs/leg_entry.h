#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "controls/form_texts.h"
#include "plans/leg_table.h"
#include "plans/plan_trial.h"

namespace tav {

/// The legs of a plan while they are entered. The plan has the rows as long as
/// they can be planned; else it has those of before, and the faults tell why.
/// On the screen the rows stand below a head, in lines from 1 on, with an empty
/// line for one more leg ahead of the ascent that ends the plan.
class LegEntry : protected FormTexts {
 public:
  LegEntry(PlanTrial& trial, const Platform& platform, const TextSource& texts)
      : FormTexts(platform, texts), trial_(trial), table_(platform.separators, GasFromName) {}

  [[nodiscard]] const LegTable& Table() const { return table_; }
  [[nodiscard]] bool IsInForce() const { return isInForce_; }  ///< the plan has the rows
  [[nodiscard]] const std::vector<LegTable::Fault>& Faults() const { return faults_; }
  /// Why the plan does not have the rows; empty when it has.
  [[nodiscard]] std::string Refusal() const;
  /// The same without the number of the leg.
  [[nodiscard]] std::string Reason() const { return faults_.empty() ? planFault_ : faults_.front().reason; }
  [[nodiscard]] std::string FaultLine(const LegTable::Fault& fault) const;
  /// The row of a line; nothing for the head and the empty line.
  [[nodiscard]] std::optional<int> RowOf(int line) const;
  [[nodiscard]] int LineOf(int row) const { return row + (row < table_.EndOfLegs() ? 1 : 2); }

  /// The rows are those of the plan, which has this template and, without rows, may want the ascent with its first leg.
  void Load(const ClassUseractions& actions, const DiveTemplate& diveTemplate, bool wantsAscent);
  /// There is no plan.
  void Clear() { Put(LegTable(platform_.separators, GasFromName), true); }
  /// Rows that the plan did not have when they were left.
  void TakeUp(LegTable table, const ClassUseractions& actions, const DiveTemplate& diveTemplate);

  [[nodiscard]] bool CellIsOpen() const { return former_.has_value(); }
  void OpenCell();
  /// Tries a change of the rows as they were before the cell was opened.
  void Retry(const std::function<void(LegTable&)>& change);
  /// Tries a text of the open cell.
  void Type(int line, LegTable::Field field, const std::string& text);
  void CloseCell() { former_.reset(); }
  /// The rows as they were before the cell was opened.
  void Restore();
  /// What an open cell held that has its former text again, because its text is
  /// why the plan does not have the rows.
  struct Refused {
    std::string text;
    LegTable::Fault at;
  };
  std::optional<Refused> PutCellBack();

  /// Tries a change of whole rows, in a trial that is running. One that is
  /// refused leaves the rows as they were; so does, with `whole`, one that
  /// leaves a cell to be filled. Why it is refused; empty when the rows have
  /// changed.
  std::string Change(const std::function<void(LegTable&)>& change, bool whole);

 private:
  /// Puts the rows in force, unless they can't be planned: then the faults tell
  /// why. True when they are.
  bool Try();
  /// The rows are these, and no cell is open.
  void Put(LegTable table, bool isInForce);

  PlanTrial& trial_;
  const DiveTemplate* template_ = nullptr;  ///< of the plan
  LegTable table_;
  bool isInForce_ = true;
  std::vector<LegTable::Fault> faults_;
  std::string planFault_;           ///< of the whole plan
  std::optional<LegTable> former_;  ///< the rows before a cell was opened, while it is typed in
  bool formerInForce_ = true;       ///< the plan has those
  int openRow_ = 0;                 ///< of the table: the cell that is typed in
  LegTable::Field openField_ = LegTable::Field::Depth;
};

}  // namespace tav
