#pragma once

#include "app/main_panes.h"
#include "graph/graph_legs.h"

namespace tav {

/// The edits of a graph on the plan of its document, made through the plan pane as if they were typed there. They act
/// on the plan in front only.
class GraphEdits : public GraphLegs {
 public:
  GraphEdits(const MainServices& services, MainPanes& panes, std::int16_t document)
      : services_(services), panes_(panes), document_(document) {}

  [[nodiscard]] bool HasAscent() const override;
  [[nodiscard]] bool EndsLeg(std::int16_t row) const override { return LegEndingAt(row) > 0; }
  void Select(std::int16_t row) override;
  bool BeginMove(std::int16_t row) override;
  [[nodiscard]] std::string Refusal() const override;
  [[nodiscard]] bool IsMoving() const override;
  std::string Move(Single depth, Single minutes) override;
  void EndMove(bool keep) override;
  std::string Remove(std::int16_t row) override;
  std::string Add(Single depth, Single runTime) override;
  /// Gives a leg other minutes, in one step of undo. Why it can't be, or nothing.
  std::string SetMinutes(std::int16_t action, Single minutes);

 private:
  /// The plan pane with this plan, and nothing open in it.
  [[nodiscard]] PlanEntry& Entry() const;
  [[nodiscard]] const frmWaypointEditor& Editor() const { return services_.forms(document_); }
  /// The action of the leg, 0 for none.
  [[nodiscard]] std::int16_t LegEndingAt(std::int16_t row) const;
  std::string Change(const std::function<void(LegTable&)>& change) const;
  [[nodiscard]] std::string Written(double value) const;

  const MainServices& services_;
  MainPanes& panes_;
  std::int16_t document_;
  /// The leg that is moved, as it was.
  int row_ = 0;  ///< of the table
  Single depth_, minutes_;
};

}  // namespace tav
