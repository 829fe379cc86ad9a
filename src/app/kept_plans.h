#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/comparison.h"
#include "app/main_services.h"
#include "app/plan_looks.h"

namespace tav {

/// Plans as they were when they were kept, to be compared with those that are open. They are drawn thin behind
/// what has become of them, until they are cleared.
class KeptPlans {
 public:
  struct Kept {
    ComparedPlan plan;
    std::int16_t document = 0;  ///< that it was kept of
    int opening = 0;
    bool shown = true;
  };

  KeptPlans(const MainServices& services, PlanLooks& looks) : services_(services), looks_(looks) {}

  /// Keeps a document as it is now. Why it can't be, in words; empty when it is kept.
  std::string Keep(std::int16_t document);
  /// Keeps what a document would become, in place of one of that name; its name follows that of the document.
  void Keep(ComparedPlan plan, std::int16_t document);
  /// Who looks at a dive without keeping it.
  enum class Looker { Window, Pane };
  /// Draws what a document would become thin over it, in place of the one that this looker looked at before; nothing
  /// for none.
  void Look(Looker looker, std::optional<ComparedPlan> plan, std::int16_t document);
  void Clear();
  void Show(std::size_t index, bool shown);
  [[nodiscard]] const std::vector<Kept>& Plans() const { return kept_; }

  [[nodiscard]] std::vector<std::int16_t> OpenDocuments() const { return services_.OpenDocuments(); }
  /// A document as it is now, with its deepest leg and gradient factors told.
  [[nodiscard]] ComparedPlan AsItIs(std::int16_t document) const;

 private:
  void Draw() const;
  /// Named after its document, with its deepest leg told.
  [[nodiscard]] Kept Of(ComparedPlan plan, std::int16_t document) const;

  const MainServices& services_;
  PlanLooks& looks_;
  std::vector<Kept> kept_;
  std::map<Looker, Kept> looked_;
  int number_ = 0;
};

}  // namespace tav
