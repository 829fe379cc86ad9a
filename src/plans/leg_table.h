#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "model/gas_name.h"
#include "model/number_texts.h"
#include "model/user_actions.h"
#include "platform/text_source.h"

namespace tav {

/// The actions of a plan as a table whose cells are typed: legs, and ascents as rows of their own. A cell may hold what
/// can't be planned; the table then tells why, and has no actions. Rows count from 0; a range is from its first to its
/// last row. What was not typed keeps its value to the bit.
class LegTable {
 public:
  enum class Field { Depth, Time, Gas };

  struct Number {
    std::string text;
    std::optional<Single> value;  ///< nothing for a text that is no number
    bool typed = false;
  };
  struct Row {
    bool ascent = false;
    Number depth;
    Number time;  ///< minutes of the whole leg, its move included
    std::string gas;
    std::optional<std::int16_t> mix;  ///< nothing for a name that no blend has
    std::int16_t origin = 0;          ///< the action that it was when the table was loaded; 0 for a new row
  };
  struct Fault {
    int row = 0;
    Field field = Field::Depth;
    std::string reason;  ///< a sentence
  };

  /// `gasOfName` tells the gas of a name that the plan has none of; it is then a gas of the table.
  explicit LegTable(NumberTexts numbers = {}, std::optional<GasMix> (*gasOfName)(std::string_view) = MixOfName)
      : numbers_(std::move(numbers)), gasOfName_(gasOfName) {}

  /// All rows anew. The template must outlive the table.
  void Load(const ClassUseractions& actions, const DiveTemplate& diveTemplate);
  /// The first leg of a table without rows comes with the ascent.
  void WantAscent(bool on) { wantsAscent_ = on; }
  [[nodiscard]] int Rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] const Row& At(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  /// What the numbers of the gases mean: those of the plan, and behind them those that only a typed name tells.
  [[nodiscard]] const std::vector<GasMix>& Gases() const { return gases_; }

  void Set(int row, Field field, const std::string& text);
  /// Puts a leg without depth and time ahead of a row, on the gas of the leg above it.
  void Insert(int row);
  void Delete(int first, int last);
  /// Puts copies behind the range.
  void Duplicate(int first, int last);
  /// Moves legs by one row, down for +1 and up for -1. False at the ends of the plan and for a range with an ascent.
  bool Move(int first, int last, int by);
  /// Whether the plan ends with its ascent.
  [[nodiscard]] bool EndsWithAscent() const { return !rows_.empty() && rows_.back().ascent; }
  void SetFinalAscent(bool on);
  /// Where a leg at the end of the plan goes: ahead of the ascent that ends it.
  [[nodiscard]] int EndOfLegs() const { return Rows() - (EndsWithAscent() ? 1 : 0); }

  /// Depth, time and gas of each row with tabs between them, an ascent as `ascentWord`, a line a row.
  [[nodiscard]] std::string Text(int first, int last, const std::string& ascentWord) const;
  /// Puts rows of a text of that form ahead of a row: with tabs or, in a text without any, with semicolons or commas
  /// between depth, time and gas. Beside tabs and semicolons a comma that the user's separators do not allow is that of
  /// a decimal ("18,5"). Lines without a number are passed over ahead of the first row (a heading). A row without a gas
  /// takes that of the leg above. Returns the number of rows.
  int Paste(int row, const std::string& text, const std::string& ascentWord);
  /// A text with one field in each line, and no word for an ascent.
  [[nodiscard]] bool IsColumn(const std::string& text, const std::string& ascentWord) const;
  /// Puts the lines of such a text into a field from row `first` down, further legs added at the end; a single line
  /// into all legs to `last`. Lines without a number ahead of a number are passed over. Returns the number of legs.
  int PasteColumn(int first, int last, Field field, const std::string& text);

  /// Why the rows can't be planned: no number, or one outside its limits (those of a new leg for what was typed), an
  /// unknown gas. One fault a cell at most, in the order of the rows.
  [[nodiscard]] std::vector<Fault> Faults(const TextSource& texts) const;
  /// Of a table without faults.
  [[nodiscard]] ClassUseractions Actions() const;
  /// The actions or the template of the plan have changed while the rows can't be planned. Rows that were not typed
  /// become what their actions are now, go with those that are gone and are joined by those that are new; a gas that
  /// was chosen keeps its name, a depth that was typed its place when the depths of the plan were converted.
  void Follow(const ClassUseractions& before, const ClassUseractions& now);
  /// The gases of the plan may have become others since the rows were loaded: their numbers follow.
  void RenewGases();
  /// The origin of each action, from element 1 on.
  [[nodiscard]] std::vector<std::int16_t> Origins() const;

 private:
  [[nodiscard]] std::optional<std::int16_t> GasAbove(int row) const;
  void SetMix(Row& row, std::optional<std::int16_t> mix) const;
  [[nodiscard]] bool Knows(std::optional<std::int16_t> mix) const;
  void Put(int row, Row made);
  [[nodiscard]] std::string WithDecimal(std::string field) const;
  [[nodiscard]] char Decimal() const;
  [[nodiscard]] Row Made(const ClassUseractions& actions, std::int16_t action) const;
  /// An ascent needs a leg ahead of it.
  void DropIdleAscents();
  [[nodiscard]] std::string DepthReason(const Number& depth, const TextSource& texts) const;
  [[nodiscard]] std::string TimeReason(const Number& time, const TextSource& texts) const;
  [[nodiscard]] std::string Written(Single value) const { return numbers_.Plain(value); }

  NumberTexts numbers_;
  std::optional<GasMix> (*gasOfName_)(std::string_view);
  const DiveTemplate* template_ = nullptr;
  std::vector<GasMix> gases_;
  bool metric_ = true;  ///< the units of the rows
  bool wantsAscent_ = false;
  std::vector<Row> rows_;
};

}  // namespace tav
