#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "advice/finding.h"
#include "controls/grid.h"
#include "dialogs/pane_form.h"

namespace tav {

/// What an instructor would mark in the plan in front, the worst first, each told whole. A click or Return on one marks
/// its rows in the graph; the head counts them.
class frmCheckPane : public PaneForm {
 public:
  /// `selectRows` marks rows of the graph of a document, 0 to 0 none. `refusal` tells why a plan does not have what is
  /// entered, if it has not: what could be found then is of another plan.
  frmCheckPane(const DialogServices& services,
               std::function<void(std::int16_t document, std::int16_t first, std::int16_t last)> selectRows,
               std::function<std::string(std::int16_t document)> refusal = {});

  Label lbNothing{*this, "lbNothing"};  ///< nothing to mark, or why the plan can't be checked
  ResultGrid fgFindings{*this, "fgFindings"};

  /// Checks a plan, or takes note that none is open. Shown or not, the findings are those of this plan then.
  void Check(std::optional<std::int16_t> document);
  [[nodiscard]] const std::vector<Finding>& Findings() const { return findings_; }

  /// How many there are of each severity, for the status bar and the head of the pane: marks and numbers, and the same
  /// in words. Empty without a plan that has been checked.
  struct Count {
    std::string marks;
    std::string words;
    Colour colour = -1;  ///< of the worst
  };
  [[nodiscard]] Count CountNow() const;

  void ShowDocument(std::optional<std::int16_t> document) override;
  void TakeFocus() override { fgFindings.SetFocus(); }

 protected:
  void Form_Load() override;

 private:
  void ShowHead();
  void Fill();
  void SelectFinding();

  std::function<void(std::int16_t, std::int16_t, std::int16_t)> selectRows_;
  std::function<std::string(std::int16_t)> refusal_;
  std::optional<std::int16_t> document_;
  std::string fault_;  ///< why the plan could not be computed
  std::vector<Finding> findings_;
  bool marked_ = false;  ///< rows of the graph are marked
};

}  // namespace tav
