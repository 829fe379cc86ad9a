#include "exchange/exchange_texts.h"
#include "exchange/import.h"
#include "model/gas_name.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "plan/leg_table.h"

namespace tav {
namespace {

constexpr const char* kAscentWord = "ascent";

char SeparatorOf(const std::string& text) {
  for (const char separator : {'\t', ';'}) {
    if (text.find(separator) != std::string::npos) return separator;
  }
  return ',';
}

/// What a decimal separator may be beside the point.
LocaleSeparators NumbersBeside(char separator) { return {separator == ',' ? "." : ",", ""}; }

/// Adds a gas that only its name tells, so that the row has it.
void AddGasOfRow(LegTable& table, int row, DiveTemplate& settings) {
  const LegTable::Row& leg = table.At(row);
  if (leg.ascent || leg.mix) return;
  const auto mix = MixOfName(leg.gas);
  if (!mix) return;
  settings.Blends.push_back(*mix);
  const std::string name = leg.gas;
  table.Set(row, LegTable::Field::Gas, "");
  table.Set(row, LegTable::Field::Gas, name);
}

}  // namespace

ImportedDives ImportCsv(const std::filesystem::path& file, const std::string& text, const DiveTemplate& settings,
                        const TextSource& texts) {
  ImportedDives imported;
  DiveRecord& dive = imported.profile.dives.emplace_back();
  DiveRecordLines& where = imported.profile.lines.emplace_back();
  dive.Template = settings;
  const char separator = SeparatorOf(text);
  LegTable table(NumbersBeside(separator));
  table.Load({}, dive.Template);
  LineReader lines(text);
  while (const auto line = lines.Next()) {
    const int before = table.Rows();
    const int number = lines.LineNumber();
    if (TrimBlanks(*line).empty()) continue;
    const bool ascent = TrimBlanks(*line) == kAscentWord;
    if (before > 0 && !ascent && line->find(separator) == std::string_view::npos) {
      throw FileError(file, number, texts.GetResString(exchange_text::kNoSeparator));
    }
    if (before == INT16_MAX - 1) throw FileError(file, number, texts.GetResString(exchange_text::kTooManyLegs));
    // Behind the first row nothing is a heading any more: the row is there, with what is wrong in it.
    if (table.Paste(before, std::string(*line), kAscentWord) == 0) {
      if (before > 0 && !ascent) throw FileError(file, number, texts.GetResString(exchange_text::kNoSeparator));
      continue;
    }
    AddGasOfRow(table, before, dive.Template);
    where.actions.push_back(number);
  }
  if (table.Rows() == 0) throw FileError(file, 0, texts.GetResString(exchange_text::kNoWaypoint));
  const auto faults = table.Faults(texts);
  if (!faults.empty()) {
    throw FileError(file, where.actions.at(static_cast<std::size_t>(faults.front().row)), faults.front().reason);
  }
  table.SetFinalAscent(true);
  dive.UserActions = table.Actions();
  return imported;
}

}  // namespace tav
