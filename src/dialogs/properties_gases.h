#pragma once

#include <functional>
#include <string>

#include "dialogs/template_page.h"
#include "dialogs/template_table.h"

namespace tav {

/// The gases of a template. A new one is stored at once.
class GasesPage : public TemplatePage {
 public:
  explicit GasesPage(TemplateSheet& sheet);

  Grid FgGas{form_, "FgGas"};
  Button cbCustomBlend{form_, "cbCustomBlend"};
  Button cbDelGas{form_, "cbDelGas"};
  Button Command1{form_, "Command1"};  ///< the mixer, for the gas that was chosen last

  /// A share of a gas has changed.
  Event Changed;
  /// Takes a gas that is to be deleted out of the gas changes; false when it is the only one of them.
  std::function<bool(const std::string& name)> Release;

  /// O2 in percent of the gas of that name in the list of gases; -1 when there is none.
  [[nodiscard]] double GetPercentO2(const std::string& name) const;

  void Fill() override;
  [[nodiscard]] std::string Fault() const override { return table_.Fault(frame.Caption); }
  void Store(DiveTemplate& t) override;

 private:
  static constexpr int kOxygen = 1;  ///< columns of the table
  static constexpr int kHelium = 2;
  static constexpr int kNitrogen = 3;

  [[nodiscard]] std::vector<std::string> RowOf(const GasMix& mix) const;
  void AddBlend();
  void CommitShare(int row, int column, const std::string& text);
  /// What the shares of a gas come to, in percent.
  [[nodiscard]] Single SharesOf(int row) const;
  [[nodiscard]] std::string ShareFault(int row) const;
  void Mark(int row);
  void FgGas_MouseDown();
  [[nodiscard]] bool PlanUsesGases() const;
  void DeleteBlend(int row);

  TemplateTable table_{sheet_, FgGas, kOxygen, kNitrogen + 1};
  double MixerO2_ = 0;
  double MixerHe_ = 0;
};

}  // namespace tav
