// Numbers in windows are written with the user's separators.

#include <gtest/gtest.h>
#include <regex>

#include "support/all_forms.h"

namespace tav {
namespace {

/// All texts that a form shows.
std::vector<std::string> TextsOf(const Form& form) {
  std::vector<std::string> texts{form.Caption};
  const auto addCells = [&](const std::vector<std::vector<GridCell>>& cells) {
    for (const auto& row : cells) {
      for (const GridCell& cell : row) texts.push_back(cell.text);
    }
  };
  for (const Control* control : form.Controls()) {
    texts.push_back(control->Caption);
    texts.push_back(control->ToolTipText);
    if (const auto* field = dynamic_cast<const TextBox*>(control)) texts.push_back(field->Text);
    if (const auto* view = dynamic_cast<const TextView*>(control)) texts.push_back(view->Text);
    if (const auto* grid = dynamic_cast<const Grid*>(control)) addCells(grid->Cells);
    if (const auto* results = dynamic_cast<const ResultGrid*>(control)) addCells(results->Cells);
    if (const auto* list = dynamic_cast<const ComboBox*>(control)) {
      texts.insert(texts.end(), list->Items.Get().begin(), list->Items.Get().end());
    }
  }
  return texts;
}

TEST(Windows, WriteNumbersWithTheSeparatorOfTheUser) {
  const std::regex point("[0-9]\\.[0-9]");
  for (const char* dive : {"trimix-100.tav", "rebreather.tav", "lake-series.tav"}) {
    test::Forms all("", dive, {",", "."});
    for (const auto& form : all.forms) {
      if (form->Name() == "frmAbout" || form->Name() == "frmSystemInformation") continue;  // a version
      SCOPED_TRACE(form->Name() + ", " + dive);
      all.Load(*form);
      test::OnEachPage(*form, [&] {
        for (const std::string& text : TextsOf(*form)) {
          if (text.find('*') != std::string::npos) continue;  // the formula of the adjusted depth
          EXPECT_FALSE(std::regex_search(text, point)) << text;
        }
      });
      form->Unload();
    }
  }
}

}  // namespace
}  // namespace tav
