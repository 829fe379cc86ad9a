#pragma once

#include "controls/form.h"
#include "platform/text_source.h"

namespace tav {

/// Asks whether a report covers the current dive alone or its whole series.
class frmReportSelection : public Form {
 public:
  explicit frmReportSelection(const TextSource& texts);

  OptionButton Option1{*this, "Option1"};  ///< the current dive
  OptionButton Option2{*this, "Option2"};  ///< all dives
  Button Command1{*this, "Command1"};
  Button Command2{*this, "Command2"};  ///< cancel

  /// The user pressed OK.
  [[nodiscard]] bool Confirmed() const { return confirmed_; }
  [[nodiscard]] bool ReportCurrentDive() const { return Option1.Value; }

 protected:
  void Form_Load() override;

 private:
  const TextSource& texts_;
  bool confirmed_ = false;
};

}  // namespace tav
