#pragma once

#include "dialogs/template_page.h"
#include "dialogs/template_table.h"

namespace tav {

/// The rates of descent and ascent.
class RatesPage : public TemplatePage {
 public:
  explicit RatesPage(TemplateSheet& sheet);

  Frame Frame7{form_, "Frame7"};
  Grid fgDescend{form_, "fgDescend"};
  Button cbAddDescend{form_, "cbAddDescend"};
  Button cbDelDescend{form_, "cbDelDescend"};
  Frame Frame6{form_, "Frame6"};
  Grid fgAscend{form_, "fgAscend"};
  Button cbAddAscend{form_, "cbAddAscend"};
  Button cbDelAscend{form_, "cbDelAscend"};

  void Fill() override;
  void ShowUnits() override;
  void Convert(double length) override;
  [[nodiscard]] std::string Fault() const override;
  void Store(DiveTemplate& t) override;

 private:
  void Wire(Grid& grid, TemplateTable& table);
  [[nodiscard]] static std::vector<RateEntry> Rates(const Grid& grid, const TemplateTable& table);

  TemplateTable descend_{sheet_, fgDescend, 0, 2};
  TemplateTable ascend_{sheet_, fgAscend, 0, 2};
};

}  // namespace tav
