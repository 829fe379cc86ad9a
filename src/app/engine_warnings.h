#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "app/warning_memory.h"
#include "engine/observer.h"
#include "model/number_texts.h"
#include "platform/message_boxes.h"
#include "platform/text_source.h"
#include "start/phi_log.h"

namespace tav {

/// What the engine says during a run of the desktop program: warnings as boxes, each once for a plan until what it
/// warns of changes; the trace to its file.
class EngineWarnings : public EngineObserver {
 public:
  EngineWarnings(MessageBoxes& boxes, const TextSource& texts, const DocumentStore& documents, NumberTexts numbers)
      : boxes_(boxes), texts_(texts), numbers_(std::move(numbers)), memory_(documents) {}

  void WarnEND(const LimitWarning& warning) override;
  void WarnPPO2High(const LimitWarning& warning) override;
  void WarnPPO2Low(const LimitWarning& warning) override;
  /// The first stop that hit its limit since the notice was last taken.
  void StopHitLimit(const StopLimit& stop) override;
  [[nodiscard]] bool WantsTrace() const override { return trace_.has_value(); }
  void Trace(const TraceSegment& segment) override { trace_->Write(segment); }

  /// Throws FileError.
  void OpenTrace(const std::filesystem::path& file) { trace_.emplace(file); }

  /// A command that runs the engine many times begins and ends. In between the boxes carry a check box that silences
  /// further ones of their kind until the end.
  void CommandBegins() { inCommand_ = true; }
  void CommandEnds() {
    inCommand_ = false;
    silenced_.clear();
    told_.clear();
  }

  /// Boxes are held back while plans are computed that the user did not ask to see, and by tests.
  bool silent = false;
  /// Set by the program: whether a run returns to an earlier state of its plan.
  std::function<bool()> returning = [] { return false; };
  /// Set by the program: the title of a plan that is not the one in front; empty for that one.
  std::function<std::string(std::int16_t document)> elsewhere = [](std::int16_t) { return std::string(); };

  [[nodiscard]] WarningMemory& Memory() { return memory_; }

 private:
  /// The texts before and after the limit, and the number of decimals of both values.
  struct Words {
    int before;
    int between;
    int after;
    int decimals;
    int title;
  };
  void Warn(const LimitWarning& warning, const Words& words);
  /// What a warning is about: the plan, and the kind of the warning, by the number of a text.
  struct Subject {
    std::int16_t document;
    int kind;
  };
  void Show(const Subject& subject, const std::string& told, const std::string& title);
  /// Where it is: depth and gas.
  [[nodiscard]] std::string Place(Single depth, const std::string& gas, bool metric) const;
  [[nodiscard]] std::string Fixed(Single value, int decimals) const { return numbers_.Fixed(value, decimals); }

  MessageBoxes& boxes_;
  const TextSource& texts_;
  NumberTexts numbers_;
  WarningMemory memory_;
  std::optional<PhiLog> trace_;
  bool inCommand_ = false;
  std::set<int> silenced_;      ///< kinds that the user wants to hear no more of in this command
  std::set<std::string> told_;  ///< in this command
};

}  // namespace tav
