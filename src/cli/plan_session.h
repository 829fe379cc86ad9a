#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plans/document_forms.h"
#include "plans/profile_commands.h"
#include "start/phi_log.h"

namespace tav {

/// Writes the trace of all runs, where it is asked for.
class TraceWriter : public EngineObserver {
 public:
  /// Throws FileError.
  void Open(const std::string& file) { log_.emplace(file); }
  /// Why the file does not hold all of the trace; null when all is well.
  [[nodiscard]] const FileError* Fault() const { return log_ && log_->Fault() ? &*log_->Fault() : nullptr; }

  [[nodiscard]] bool WantsTrace() const override { return log_.has_value(); }
  void Trace(const TraceSegment& segment) override { log_->Write(segment); }

 private:
  std::optional<PhiLog> log_;
};

/// The core of the program without a window: documents, engine choice and trace.
class PlanSession {
 public:
  /// The texts outlive the session.
  explicit PlanSession(const TextSource& texts)
      : texts_(texts), forms_({documents_, model_, trace_, display_, boxes_, texts_}) {}
  PlanSession(const PlanSession&) = delete;
  PlanSession& operator=(const PlanSession&) = delete;

  DocumentStore& Documents() { return documents_; }
  DocumentForms& Forms() { return forms_; }
  ModelChoice& Model() { return model_; }
  TraceWriter& Trace() { return trace_; }
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
  TraceWriter trace_;
  EditorDisplay display_;
  KeptBoxes boxes_;
  const TextSource& texts_;
  DocumentForms forms_;
};

}  // namespace tav
