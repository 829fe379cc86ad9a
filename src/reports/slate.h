#pragma once

#include <string>
#include <vector>

#include "engine/model_choice.h"
#include "model/dive_template.h"
#include "model/profile.h"
#include "pages/print_preview.h"
#include "reports/slate_rows.h"

namespace tav {

/// One dive as a slate takes it. What it refers to outlives the call that takes it.
struct SlateDive {
  std::string title;    ///< of the plan
  std::string variant;  ///< what is different from the plan; empty for the plan itself
  const ClassProfile& rows;
  const DiveTemplate& settings;
  const ModelChoice& model;  ///< that made the rows
  bool repetitive = false;
  bool decompresses = true;
  std::string turn = {};                     ///< pressure to turn at, with its unit; empty when not told
  std::vector<std::string> shortGases = {};  ///< what is not enough, a line for each gas
};

/// Slates to take into the water: cards of the size A6, four to a page, with cut marks. Figures are in 14 points or
/// more; a gas change is a whole row in white on black, ahead of the stop at which it is made. A short dive has one
/// column in 18 points, a longer one two, and what is left goes on in the next card. Gases that are short stand at the
/// foot of each card.
class Slate {
 public:
  explicit Slate(PrintPreview& out) : out_(out) {}

  void Begin();
  /// Adds the cards of one dive.
  void Add(const SlateDive& dive);
  /// Closes the last page and shows the report.
  void End();

 private:
  struct Layout;

  void OpenCard();
  /// The index behind the last row of each column. A card that goes on begins with the gas to be on, which is put into
  /// the rows.
  static std::vector<std::size_t> EndsOfCards(const Layout& layout, std::vector<SlateRow>& rows);
  void CutMarks();
  void Head(const SlateDive& dive, const SlateRows& rows, std::size_t part, std::size_t parts);
  void ColumnHeads(const Layout& layout, double left);
  void Row(const Layout& layout, const SlateRow& row, double left, double y);
  void GasRow(const Layout& layout, const SlateRow& row, double left, double y);
  [[nodiscard]] std::string SettingsLine(const SlateDive& dive) const;
  [[nodiscard]] std::string GasOf(const SlateRow& row) const;
  void Fitted(double x, double y, const std::string& text, int size, int bold, double cm);
  [[nodiscard]] double Width(const std::string& text, int size, bool bold) const;
  [[nodiscard]] std::string T(int id) const { return out_.Texts().GetResString(id); }
  void Left(double x, double y, const std::string& text, int size, int bold = 0);
  void Right(double x, double y, const std::string& text, int size, int bold = 0);
  /// The same in so small letters that it is no wider than that, cm.
  void Figure(double x, double y, const std::string& text, double cm, int size, int bold);

  PrintPreview& out_;
  bool metric_ = true;
  int cards_ = 0;  ///< on the open page
  double x_ = 0;   ///< top left corner of the open card, cm
  double y_ = 0;
};

}  // namespace tav
