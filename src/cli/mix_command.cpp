#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "app/user_texts.h"
#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/terminal_text.h"
#include "mixer/fill_words.h"
#include "model/number_text.h"
#include "persist/text_file.h"

namespace tav {
namespace {

using Json = nlohmann::ordered_json;

// Texts by number.
constexpr int kNoNumber = 7957;
constexpr int kMustBe = 7959;
constexpr int kOutside = 7960;
constexpr int kMoreThanWhole = 7989;
constexpr int kNoPressure = 7990;

struct Fill {
  MixShares mix;
  Single pressure;
};

/// O2/HE@PRESSURE
Fill ParseFill(const std::string& option, const std::string& text, bool metric) {
  const std::size_t slash = text.find('/');
  const std::size_t at = text.find('@');
  if (slash == std::string::npos || at == std::string::npos || at < slash) {
    throw OptionError({kMustBe, {option, text, "O2/HE@PRESSURE"}});
  }
  const auto number = [&](const std::string& part, double most) {
    const auto value = ParseStrict(part);
    if (!value) throw OptionError({kNoNumber, {option + " " + text, part}});
    if (!(*value >= 0 && *value <= most)) {
      throw OptionError({kOutside, {option + " " + text, part, "0", FormatPlain(most)}});
    }
    return *value;
  };
  const double o2 = number(text.substr(0, slash), 100);
  const double he = number(text.substr(slash + 1, at - slash - 1), 100);
  if (o2 + he > 100) throw OptionError({kMoreThanWhole, {option, text}});
  return {MixOf(o2, he), number(text.substr(at + 1), HighestFill(metric))};
}

FillRequest ParseRequest(const MixOptions& options) {
  const Fill have = ParseFill("--have", options.have, !options.imperial);
  const Fill want = ParseFill("--want", options.want, !options.imperial);
  if (want.pressure == 0) throw OptionError({kNoPressure, {"--want", options.want}});
  return {have.mix, have.pressure, want.mix, want.pressure, !options.imperial};
}

/// A label as a number; null for one that shows nothing.
Json Shown(const std::string& label) { return label.empty() ? Json() : Json(ParseLenient(label)); }

const char* KeyOf(FillGas gas) {
  switch (gas) {
    case FillGas::Helium:
      return "helium";
    case FillGas::Oxygen:
      return "oxygen";
    case FillGas::Air:
      break;
  }
  return "air";
}

constexpr double kFine = 0.1;  // what "fill_to" and the first column are rounded to

Json MixJson(const FillRequest& request) {
  const FillResult result = Recalculate(request);
  Json fillTo = Json::array();
  for (const FillStep& step : GaugeListOf(request, kFine).steps) {
    fillTo.push_back({{"gas", KeyOf(step.gas)}, {"to", Shown(FormatFixed(step.to, 1))}});
  }
  return {
      {"air_top",
       {{"possible", !result.AirImpossible},
        {"oxygen", Shown(result.AirTopO2)},
        {"helium", Shown(result.AirTopHe)},
        {"air", Shown(result.AirTopAir)}}},
      {"van_der_waals",
       {{"oxygen", Shown(result.IdealTopO2)}, {"helium", Shown(result.IdealTopHe)}, {"air", Shown(result.IdealTopN2)}}},
      {"fill_to", fillTo}};
}

/// A table: the first column to the left, the others to the right, all but the first of one width.
void PrintTable(const std::vector<std::vector<std::string>>& rows, std::ostream& out) {
  constexpr std::size_t kGap = 2;
  std::size_t first = 22;
  std::size_t other = 13;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::size_t& width = i == 0 ? first : other;
      width = std::max(width, CharacterCount(row[i]));
    }
  }
  for (const auto& row : rows) {
    std::string line = "  ";
    for (std::size_t i = 0; i < row.size(); ++i) line += i == 0 ? Left(row[i], first) : Right(row[i], other + kGap);
    out << line << "\n";
  }
  out << "\n";
}

void PrintSentence(const std::string& sentence, const char* mark, std::ostream& out) {
  if (!sentence.empty()) out << "  " << mark << sentence << "\n";
}

void PrintMix(const MixOptions& options, const FillRequest& request, const GaugeList& list, const FillWords& words,
              const TextSource& texts, std::ostream& out) {
  const FillResult result = Recalculate(request);
  out << options.have << " " << words.Unit() << " -> " << options.want << " " << words.Unit() << "\n\n";
  const auto orDash = [](const std::string& label) { return label.empty() ? "-" : label; };
  PrintTable(
      {{"", texts.GetResString(6402), texts.GetResString(6404), texts.GetResString(6405)},
       {texts.GetResString(6313) + " (" + words.Unit() + ")", orDash(result.AirTopO2), orDash(result.AirTopHe),
        orDash(result.AirTopAir)},
       {texts.GetResString(6312) + " (" + words.Unit() + ")", result.IdealTopO2, result.IdealTopHe, result.IdealTopN2}},
      out);
  if (list.Possible()) PrintTable(words.Rows(request, list, std::nullopt), out);
  PrintSentence(words.Hindrance(request, list), "! ", out);
  PrintSentence(words.Misses(request, list), "! ", out);
  PrintSentence(words.Outcome(list), "", out);
  PrintSentence(words.IfIdeal(list), "", out);
  PrintSentence(words.AboutPressures(), "", out);
}

}  // namespace

int MixCommand(const MixOptions& options, const ProgramFolders& folders, std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    const FillRequest request = ParseRequest(options);
    const GaugeList list = GaugeListOf(request, GaugeMark(request.metric));
    const FillWords words(texts, {".", ""}, request.metric);
    if (options.json) {
      out << MixJson(request).dump(2) << "\n";
    } else {
      PrintMix(options, request, list, words, texts, out);
    }
    if (list.Possible()) return ExitStatus::kFine;
    err << "tavplan mix: " << words.Hindrance(request, list) << "\n";
    return ExitStatus::kUnusableInput;
  } catch (const std::exception& error) {
    return Refused(error, "mix", texts, err);
  }
}

}  // namespace tav
