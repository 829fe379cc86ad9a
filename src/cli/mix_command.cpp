#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "mixer/fill_steps.h"
#include "mixer/fill_words.h"
#include "model/number_text.h"
#include "model/text_columns.h"
#include "model/utf8.h"
#include "persist/text_file.h"
#include "start/user_texts.h"

namespace tav {
namespace {

using Json = nlohmann::ordered_json;

// Texts by number.
constexpr int kNoNumber = 7957;
constexpr int kMustBe = 7959;
constexpr int kOutside = 7960;
constexpr int kMoreThanWhole = 7989;
constexpr int kNoPressure = 7990;
constexpr int kNoNitrogen = 8402;
constexpr int kStepHead = 8415;
constexpr int kStepFault = 8416;

const LocaleSeparators kPoint{".", ""};

struct Fill {
  MixShares mix;
  Single pressure;
};

/// A number of an option that holds several, `part` of `text`.
double PartOf(const std::string& option, const std::string& text, const std::string& part, double most) {
  const auto value = ParseStrict(part);
  if (!value) throw OptionError({kNoNumber, {option + " " + text, part}});
  if (!(*value >= 0 && *value <= most)) {
    throw OptionError({kOutside, {option + " " + text, part, "0", FormatPlain(most)}});
  }
  return *value;
}

/// O2/HE, the first part of `text`, whose form is told where it is another
MixShares ParseMix(const std::string& option, const std::string& text, const std::string& mix, const char* form) {
  const std::size_t slash = mix.find('/');
  if (slash == std::string::npos) throw OptionError({kMustBe, {option, text, form}});
  const double o2 = PartOf(option, text, mix.substr(0, slash), 100);
  const double he = PartOf(option, text, mix.substr(slash + 1), 100);
  if (o2 + he > 100) throw OptionError({kMoreThanWhole, {option, text}});
  return MixOf(o2, he);
}

/// O2/HE@PRESSURE
Fill ParseFill(const std::string& option, const std::string& text, bool metric) {
  constexpr const char* kForm = "O2/HE@PRESSURE";
  const std::size_t at = text.find('@');
  if (at == std::string::npos) throw OptionError({kMustBe, {option, text, kForm}});
  const MixShares mix = ParseMix(option, text, text.substr(0, at), kForm);
  return {mix, PartOf(option, text, text.substr(at + 1), HighestFill(metric))};
}

/// All but what is wanted.
FillRequest ParseRequest(const MixOptions& options) {
  FillRequest request;
  request.metric = !options.imperial;
  const Fill have = ParseFill("--have", options.have, request.metric);
  request.current = have.mix;
  request.currentFill = have.pressure;
  if (!options.top.empty()) {
    request.top = ParseMix("--top", options.top, options.top, "O2/HE");
    if (request.top.N2 < kLeastNitrogen) throw OptionError({kNoNitrogen, {"--top " + options.top}});
  }
  const auto degrees = [](const std::string& text, const char* option) {
    return NumberOf(text, option, kColdestFill, kWarmestFill);
  };
  if (!options.temperature.empty()) request.celsius = degrees(options.temperature, "--temperature");
  if (!options.warm.empty()) request.warm = degrees(options.warm, "--warm");
  return request;
}

void ParseWanted(const MixOptions& options, FillRequest& request) {
  const Fill want = ParseFill("--want", options.want, request.metric);
  if (want.pressure == 0) throw OptionError({kNoPressure, {"--want", options.want}});
  request.desired = want.mix;
  request.desiredFill = want.pressure;
}

/// A label as a number; null for one that shows nothing.
Json Shown(const std::string& label) { return label.empty() ? Json() : Json(ParseLenient(label)); }

constexpr double kFine = 0.1;  // what "fill_to" is rounded to

Json Figure(Single value, int decimals) { return Shown(FormatFixed(value, decimals)); }

Json MixFigures(const MixShares& mix) { return {{"o2", Figure(mix.O2, 2)}, {"he", Figure(mix.He, 2)}}; }

Json StepsJson(const FillRequest& request, const GaugeList& list) {
  const bool withAir = request.top.O2 == kAir.O2 && request.top.He == kAir.He;
  Json steps = Json::array();
  for (const FillStep& step : list.steps) {
    const char* gas = step.gas == FillGas::Helium ? "helium" : step.gas == FillGas::Oxygen ? "oxygen" : "top";
    steps.push_back({{"gas", step.gas == FillGas::Top && withAir ? "air" : gas}, {"to", Figure(step.to, 1)}});
    if (request.warm) steps.back()["warm"] = Figure(step.warm, 1);
  }
  return steps;
}

Json MixJson(const FillRequest& request) {
  const FillResult result = Recalculate(request);
  const FillAdvice advice(request, kFine);
  const GaugeList& asked = advice.AsAsked();
  Json list = {{"possible", asked.possible}, {"temperature", Figure(request.celsius, 2)}, {"result", Json()}};
  if (asked.possible) {
    list["result"] = MixFigures(asked.comesOut);
  } else {
    list["drain_to"] = asked.drainTo ? Figure(*asked.drainTo, 1) : Json();
    list["nearest"] = asked.nearest ? MixFigures(*asked.nearest) : Json();
    list["after_draining"] = advice.Drains() ? StepsJson(advice.from, advice.list) : Json::array();
  }
  return {
      {"air_top",
       {{"possible", !result.AirImpossible},
        {"oxygen", Shown(result.AirTopO2)},
        {"helium", Shown(result.AirTopHe)},
        {"air", Shown(result.AirTopAir)}}},
      {"van_der_waals",
       {{"oxygen", Shown(result.IdealTopO2)}, {"helium", Shown(result.IdealTopHe)}, {"air", Shown(result.IdealTopN2)}}},
      {"fill_to", StepsJson(request, asked)},
      {"fill_list", list}};
}

/// A fill as it was done.
struct Done {
  std::vector<DoneStep> steps;
  std::vector<MixShares> mixes;  ///< after each step
};

Json DoneJson(const Done& done) {
  Json steps = Json::array();
  for (std::size_t i = 0; i < done.steps.size(); ++i) {
    Json step = {{"gas", done.steps[i].name}, {"to", Figure(done.steps[i].to, 1)}};
    step.update(MixFigures(done.mixes[i]));
    steps.push_back(step);
  }
  return {{"steps", steps}, {"result", MixFigures(done.mixes.back())}};
}

/// A table: the first column to the left, the others to the right, all but the first of one width.
void PrintTable(const std::vector<std::vector<std::string>>& rows, std::ostream& out) {
  constexpr std::size_t kGap = 2;
  std::size_t first = 22;
  std::size_t other = 13;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::size_t& width = i == 0 ? first : other;
      width = std::max(width, Letters(row[i]));
    }
  }
  for (const auto& row : rows) {
    std::string line = "  ";
    for (std::size_t i = 0; i < row.size(); ++i) line += i == 0 ? AtLeft(row[i], first) : AtRight(row[i], other + kGap);
    out << line << "\n";
  }
  out << "\n";
}

void PrintSentence(const std::string& sentence, const char* mark, std::ostream& out) {
  if (!sentence.empty()) out << "  " << mark << sentence << "\n";
}

std::string Written(const MixShares& mix, Single pressure, const FillWords& words) {
  return FormatFixed(mix.O2, 1) + "/" + FormatFixed(mix.He, 1) + "@" + FormatPlain(pressure) + " " + words.Unit();
}

void PrintDone(const MixOptions& options, const Done& done, const FillWords& words, const TextSource& texts,
               std::ostream& out) {
  out << options.have << " " << words.Unit() << "\n\n";
  const auto heads = words.Heads({}, false);
  std::vector<std::vector<std::string>> rows = {{heads[0], texts.Filled(kStepHead, {words.Unit()}),
                                                 texts.GetResString(6402) + " %", texts.GetResString(6404) + " %"}};
  for (std::size_t i = 0; i < done.steps.size(); ++i) {
    const MixShares& mix = done.mixes[i];
    rows.push_back({done.steps[i].name, FormatPlain(done.steps[i].to), FormatFixed(mix.O2, 1), FormatFixed(mix.He, 1)});
  }
  PrintTable(rows, out);
  PrintSentence(words.OutcomeOfSteps(done.mixes.back()), "", out);
}

void PrintMix(const std::string& have, const MixOptions& options, const FillAdvice& advice, const FillWords& words,
              const TextSource& texts, std::ostream& out) {
  const FillRequest& request = advice.asked;
  const FillResult result = Recalculate(request);
  out << have << " -> " << options.want << " " << words.Unit() << "\n\n";
  const auto orDash = [](const std::string& label) { return label.empty() ? "-" : label; };
  const std::string airTop = texts.GetResString(6313);
  const std::string vanDerWaals = texts.GetResString(6312);
  PrintTable(
      {{"", texts.GetResString(6402), texts.GetResString(6404), texts.GetResString(6405)},
       {airTop + " (" + words.Unit() + ")", orDash(result.AirTopO2), orDash(result.AirTopHe), orDash(result.AirTopAir)},
       {vanDerWaals + " (" + words.Unit() + ")", result.IdealTopO2, result.IdealTopHe, result.IdealTopN2}},
      out);
  const auto about = [&](const std::string& block, const std::string& sentence) {
    if (!sentence.empty()) PrintSentence(block + ": " + sentence, "", out);
    return !sentence.empty();
  };
  const bool ideal = about(airTop, words.AboutAirTop(result, request));
  if (about(vanDerWaals, words.AboutVanDerWaals(result, request)) || ideal) out << "\n";
  if (advice.list.possible) PrintTable(words.Rows(advice, std::nullopt), out);
  PrintSentence(words.Hindrance(advice), "! ", out);
  PrintSentence(words.Misses(advice), "! ", out);
  PrintSentence(words.Outcome(advice), "", out);
  PrintSentence(words.Warm(advice), "", out);
  PrintSentence(words.IfIdeal(advice), "", out);
  PrintSentence(words.AboutPressures(request), "", out);
}

/// The steps of the options, done; the request goes on from what came out of them.
Done DoSteps(const MixOptions& options, FillRequest& request, const TextSource& texts) {
  const auto steps = [&] {
    try {
      return ParseSteps(options.steps, request, texts, kPoint);
    } catch (const MessageError& error) {
      throw OptionError({kStepFault, {"--steps", error.Reason()}});
    }
  }();
  Done done{steps, MixesAfter(steps, request)};
  request.current = done.mixes.back();
  request.currentFill = steps.back().to;
  return done;
}

}  // namespace

int MixCommand(const MixOptions& options, const ProgramFolders& folders, std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    FillRequest request = ParseRequest(options);
    const FillWords words(texts, kPoint, request.metric);
    std::string have = options.have + " " + words.Unit();
    std::optional<Done> done;
    if (!options.steps.empty() || options.want.empty()) {
      done = DoSteps(options, request, texts);
      have = Written(request.current, request.currentFill, words);
    }
    if (options.want.empty()) {
      if (options.json) {
        out << DoneJson(*done).dump(2) << "\n";
      } else {
        PrintDone(options, *done, words, texts, out);
      }
      return ExitStatus::kFine;
    }
    ParseWanted(options, request);
    const FillAdvice advice(request, GaugeMark(request.metric));
    if (options.json) {
      Json json = MixJson(request);
      if (done) {
        Json both = DoneJson(*done);
        both["mend"] = json;
        json = both;
      }
      out << json.dump(2) << "\n";
    } else {
      if (done) {
        PrintDone(options, *done, words, texts, out);
        out << "\n";
      }
      PrintMix(have, options, advice, words, texts, out);
    }
    if (advice.AsAsked().possible) return ExitStatus::kFine;
    err << "tavplan mix: " << words.Hindrance(advice) << "\n";
    return ExitStatus::kUnusableInput;
  } catch (const std::exception& error) {
    return Refused(error, "mix", texts, err);
  }
}

}  // namespace tav
