#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "model/document_store.h"

namespace tav {

/// What each plan has been warned of: a plan is computed at every change, and a warning that says nothing new is in the
/// way. One that has not come up in an evaluation is news again when it does. A plan with a file is known by it, so
/// that opening it again brings no news.
class WarningMemory {
 public:
  explicit WarningMemory(const DocumentStore& documents) : documents_(documents) {}

  /// Notes a warning of a run. False when the last evaluation of the plan had it, or this one has had it already; and
  /// in one that returns to an earlier state of the plan, when it has ever come up.
  bool IsNews(std::int16_t document, const std::string& warning, bool returning);
  void EvaluationEnded(std::int16_t document);
  /// The number may go to another plan.
  void PlanClosed(std::int16_t document) { plans_.erase(document); }

 private:
  struct Plan {
    std::set<std::string> known;  ///< of the last evaluation
    std::set<std::string> seen;   ///< of the one under way
    std::set<std::string> ever;
  };

  Plan& Of(std::int16_t document);
  /// The file of a plan and the place of the dive in it; empty for a plan without a file.
  [[nodiscard]] std::string FileOf(std::int16_t document) const;

  const DocumentStore& documents_;
  std::map<std::int16_t, Plan> plans_;
  std::map<std::string, std::set<std::string>> knownOfFiles_;
};

}  // namespace tav
