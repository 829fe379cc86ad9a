#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "dialogs/dialog_services.h"
#include "dialogs/leg_entry.h"
#include "plans/undo_history.h"

namespace tav {

/// What the plan pane works with. All of it outlives it.
struct PlanPaneServices {
  DialogServices dialogs;
  UndoHistory& history;
  /// The plan can't be changed: a run of tables computes from it.
  std::function<bool(std::int16_t document)> held;
  std::function<void()> editTemplate;
  /// Offers example plans; empty where there are none.
  std::function<void()> examples;
  /// What is entered has become a change of the document, or is refused, or not
  /// refused any more.
  std::function<void(std::int16_t document)> entered;
  /// A row of the profile has been selected: the graph marks it.
  std::function<void(std::int16_t row)> markRow;
};

/// The plan of the plan pane while it is entered: its legs and the settings at
/// hand, what of them is not taken and why, and the legs of other plans that
/// are still to be completed. It knows no control; what shows it follows
/// `Changed`.
class PlanEntry : protected FormTexts {
 public:
  explicit PlanEntry(PlanPaneServices services);

  /// What is to be shown has changed.
  std::function<void()> Changed;

  [[nodiscard]] const PlanPaneServices& Services() const { return services_; }
  [[nodiscard]] bool HasPlan() const { return document_.has_value(); }
  // Of the plan that is shown.
  [[nodiscard]] frmWaypointEditor& Editor() const { return services_.dialogs.forms(*document_); }
  [[nodiscard]] const DiveTemplate& Template() const { return services_.dialogs.Documents()(*document_).Template; }
  [[nodiscard]] Single Interval() const { return services_.dialogs.Documents()(*document_).SurfaceInterval; }
  [[nodiscard]] std::string LengthUnit() const { return Template().Metric ? "m" : "ft"; }
  [[nodiscard]] bool IsFree() const { return document_ && !services_.held(*document_); }
  [[nodiscard]] const LegEntry& Legs() const { return legs_; }
  /// A setting holds what its user types, not what the plan has.
  [[nodiscard]] bool SettingIsOpen() const { return trial_.Running() && !legs_.CellIsOpen(); }
  /// Why the plan does not have what is entered; empty when it has.
  [[nodiscard]] std::string Refusal() const { return settingFault_.empty() ? legs_.Refusal() : settingFault_; }
  /// The same, or the entry that was refused last.
  [[nodiscard]] std::string Told() const { return told_.empty() ? Refusal() : told_; }
  /// The cell that the entry was in.
  [[nodiscard]] const std::optional<LegTable::Fault>& Mark() const { return mark_; }

  /// The plan in front is another one, or has changed.
  void ShowDocument(std::optional<std::int16_t> document);
  /// Stores what is being entered.
  void Finish();

  void TypeCell(int line, LegTable::Field field, const std::string& text);
  /// A cell is left with this text, which is `typed` or that of the plan.
  void CommitCell(int line, LegTable::Field field, const std::string& text, bool typed);
  /// A cell, or the table without an open one, is left without its entry.
  void RestoreCell();
  /// A change of whole rows. One that the plan refuses leaves the rows as they
  /// were; so does, with `whole`, one that leaves a cell to be filled. True
  /// when the rows have changed.
  bool Change(const std::function<void(LegTable&)>& change, bool whole = false);
  /// Takes the ascent into the plan or out of it; one that is still empty gets it with its first leg, or does not.
  void WantAscent(bool on);
  [[nodiscard]] bool WantsAscent() const {
    return legs_.Table().Rows() == 0 ? HasPlan() && Editor().WantsAscent() : legs_.Table().EndsWithAscent();
  }
  /// Why something has not been done, until the next entry.
  void Tell(const std::string& words);

  /// A waypoint is moved about in the graph, a trial until it rests: each place
  /// is a change of the rows as they were when the move began. False while the
  /// plan can't be changed.
  bool BeginMove();
  [[nodiscard]] bool IsMoving() const { return moving_; }
  /// Why the plan does not take it; empty when it has, and after the move.
  std::string Move(const std::function<void(LegTable&)>& change);
  /// Keeps the place that is in force, or brings the former plan back.
  void EndMove(bool keep);

  /// Tries a setting whose field holds this text. One with a fault is refused,
  /// whatever the change makes of it.
  void TypeSetting(const std::string& text, const std::string& fault, const std::function<void(DiveTemplate&)>& change);
  /// The same with the surface interval, in minutes.
  void TypeInterval(const std::string& text, const std::string& fault, Single minutes);
  void RestoreSetting();

  // Plans by document, as in the pane.
  [[nodiscard]] std::string Refusal(std::int16_t document) const;
  [[nodiscard]] std::string MarkedCells(std::int16_t document) const;
  void MarkUnfinished() const;
  bool GiveUp(std::int16_t document);

 private:
  /// Legs whose cells are still to be filled, while the plan has those of
  /// before.
  struct Unfinished {
    int opening = 0;  ///< of the window
    LegTable table;
    ClassUseractions inForce;
  };
  [[nodiscard]] const Unfinished* FindUnfinished(std::int16_t document) const;
  void KeepUnfinished();
  void TakeUp(const Unfinished& unfinished);
  /// The rows are those of the plan; nothing is being entered any more.
  void Reload();
  void EnterSetting(const std::string& text, const std::string& fault, const std::function<std::string()>& attempt);
  /// Does it while a trial runs, whose steps are not shown.
  void Try(const std::function<void()>& attempt);
  /// What was entered is not taken, and why.
  void Tell(const std::string& entered, const std::string& reason);
  void Forget() { told_.clear(), mark_.reset(); }

  PlanPaneServices services_;
  PlanTrial trial_;
  LegEntry legs_;
  std::optional<std::int16_t> document_;  ///< the one that is shown
  int opening_ = 0;                       ///< of its window, which may hold another plan later
  ClassUseractions inForce_;              ///< the actions of the plan when the rows were
                                          ///< last in line with them
  bool trying_ = false;
  bool moving_ = false;
  bool finishing_ = false;                         ///< what is entered is being stored
  std::string settingText_;                        ///< what is typed in a setting and refused
  std::string settingFault_;                       ///< why
  std::string told_;                               ///< of the entry that was refused last
  std::optional<LegTable::Fault> mark_;            ///< at the cell that it was in
  std::map<std::int16_t, Unfinished> unfinished_;  ///< by document
};

/// A part of the plan pane, with controls of its own.
class PlanPanePart : protected FormTexts {
 protected:
  PlanPanePart(Form& form, PlanEntry& entry)
      : FormTexts(entry.Services().dialogs.platform, entry.Services().dialogs.texts), form_(form), entry_(entry) {}

  Form& form_;
  PlanEntry& entry_;
};

}  // namespace tav
