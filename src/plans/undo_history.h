#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/dive_template.h"
#include "model/user_actions.h"

namespace tav {

class DocumentForms;

/// The states that a plan went through: actions, template and surface interval, as far back as the document was opened.
/// A state is taken whenever the plan has been drawn anew; one that is the same as the last does not count. A history
/// is that of one plan: the next one in the same window has its own. A dive that was taken out of its series is a step
/// of the dive before it.
class UndoHistory {
 public:
  explicit UndoHistory(DocumentForms& forms) : forms_(forms) {}

  /// Takes the present state of a document.
  void Record(std::int16_t document);
  /// While a change is only on trial, its states are not taken.
  void Hold(bool on) { held_ = on; }
  [[nodiscard]] bool Held() const { return held_; }
  /// Forgets a document that has been closed.
  void Forget(std::int16_t document) { histories_.erase(document); }

  /// The series of a document is as its file has it, or new and empty: an undo that comes back to that leaves nothing
  /// to be saved.
  void MarkSaved(std::int16_t document);
  /// The file of a series is gone: no undo leads back to it.
  void ForgetSaved(std::int16_t document);
  /// The unsaved mark of a series goes when it is as it was saved, and comes when it is not.
  void ShowSaved(std::int16_t document);
  /// The template of a document has got another name and folder by being saved. Earlier states of the same template
  /// have them, too.
  void TemplateNamed(std::int16_t document, const DiveTemplate& before);

  /// The plan is not in the state that was taken last: a change is on trial.
  [[nodiscard]] bool OnTrial(std::int16_t document) const;
  [[nodiscard]] bool CanUndo(std::int16_t document) const;
  [[nodiscard]] bool CanRedo(std::int16_t document) const;
  /// A state is being put in force again.
  [[nodiscard]] bool Restoring() const { return restoring_; }
  /// Puts the state before, or after, in force and computes the plan anew.
  void Undo(std::int16_t document);
  void Redo(std::int16_t document);

  /// Takes a later dive out of its series and closes its window; Undo on the dive before brings it back, with its own
  /// history. The series is modified then.
  void TakeOut(std::int16_t document);

 private:
  struct TakenOut;
  struct State {
    DiveTemplate diveTemplate;
    std::string templateTitle;
    Single surfaceInterval;  ///< minutes
    ClassUseractions actions;
    std::string text;                          ///< all as a file would hold them, to tell states apart
    std::shared_ptr<const TakenOut> takenOut;  ///< the dive behind this one, which has left the series at this step
  };
  struct History {
    int opening = 0;  ///< of the window
    std::vector<State> states;
    std::size_t present = 0;
    std::optional<std::string> saved;  ///< its series as a file holds it, with the first dive
  };

  /// Of the plan that the window holds now.
  History& Of(std::int16_t document);
  [[nodiscard]] const History* Find(std::int16_t document) const;

  void PutInForce(std::int16_t document, const State& state);
  std::shared_ptr<const TakenOut> Remove(std::int16_t document);

  DocumentForms& forms_;
  std::map<std::int16_t, History> histories_;
  bool restoring_ = false;
  bool held_ = false;
};

}  // namespace tav
