#pragma once

#include <string>
#include <vector>

#include "controls/form.h"
#include "platform/text_source.h"

namespace tav {

/// The one question of the end of the program: which of the plans with unsaved changes are to be saved.
class frmLeaving : public Form {
 public:
  /// The plans by their captions, all ticked at first, and what of them no save would keep.
  frmLeaving(const TextSource& texts, const std::vector<std::string>& plans, const std::string& lost);

  Label lbQuestion{*this, "lbQuestion"};
  CheckList ckPlans{*this, "ckPlans"};
  Label lbLost{*this, "lbLost"};
  Button cbSave{*this, "cbSave"};        ///< all of them, or those with a tick
  Button cbDiscard{*this, "cbDiscard"};  ///< all of them
  Button cbCancel{*this, "cbCancel"};    ///< the program goes on

  /// The user wants to leave.
  [[nodiscard]] bool Confirmed() const { return confirmed_; }
  [[nodiscard]] bool Saves(std::size_t plan) const { return ckPlans.Items.Get().at(plan).on; }

 protected:
  void Form_Load() override;

 private:
  void Leave();
  void ShowSave();

  const TextSource& texts_;
  bool confirmed_ = false;
};

}  // namespace tav
