#pragma once

#include <string>
#include <vector>

#include "cli/run_notes.h"
#include "plan/document_forms.h"
#include "plan/profile_commands.h"

namespace tav {

/// The core of the program without a window: documents, engine choice and what a run has to say.
class PlanSession {
 public:
  PlanSession() : forms_({documents_, model_, notes_, display_, boxes_, texts_}) {}
  PlanSession(const PlanSession&) = delete;
  PlanSession& operator=(const PlanSession&) = delete;

  DocumentStore& Documents() { return documents_; }
  DocumentForms& Forms() { return forms_; }
  ModelChoice& Model() { return model_; }
  RunNotes& Notes() { return notes_; }
  /// The texts of the boxes shown so far.
  [[nodiscard]] const std::vector<std::string>& Boxes() const { return boxes_.shown; }

 private:
  /// Boxes have nobody to answer them here: they are kept, and Cancel is the answer.
  struct KeptBoxes : MessageBoxes {
    BoxAnswer Show(const std::string& text, const std::string&, BoxIcon, BoxButtons buttons) override {
      shown.push_back(text);
      return buttons == BoxButtons::OK ? BoxAnswer::OK : BoxAnswer::Cancel;
    }
    std::vector<std::string> shown;
  };

  DocumentStore documents_;
  ModelChoice model_;
  RunNotes notes_;
  EditorDisplay display_;
  KeptBoxes boxes_;
  TextSource texts_;
  DocumentForms forms_;
};

}  // namespace tav
