#include <algorithm>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/json_writer.h"
#include "cli/option_values.h"
#include "cli/shown.h"
#include "mixer/fill_steps.h"
#include "mixer/fill_words.h"
#include "model/number_text.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

const LocaleSeparators kPoint{".", ""};

constexpr const char* kDetails =
    "Prints what to fill into a cylinder so that it ends up with another gas: what to add by the arithmetic of ideal "
    "gases "
    "and by the van der Waals equation, and a list to fill by, which tells the pressure of the cylinder after helium, "
    "oxygen and air, rounded to what a gauge shows. The list is by GERG-2008, the reference equation of state for gas "
    "mixtures. The mix that comes out of the rounded list is worked out backwards and told with its maximum operating "
    "depths. A fill that is not possible is told in words, with the pressure to drain the cylinder to and the mix that "
    "comes nearest without draining. A fill within 0.5 % of oxygen and 1 % of helium is possible.\n"
    "With --steps it tells what came out of a fill as it was done, and with --want as well what mends it. A step is "
    "gas and "
    "pressure after it; a gas is he, o2, air, top, a usual name such as EAN32, or O2/HE.\n"
    "Pressures are absolute: an empty cylinder holds air at 1 bar (14.7 psi).\n"
    "--json has \"air_top\" and \"van_der_waals\", what to add by the two calculations, null where there is no answer, "
    "and "
    "\"fill_to\", the gases in order of filling with the pressure to fill to, to one decimal, an empty list when the "
    "fill "
    "is not possible; \"fill_list\" tells whether it is, the temperature and the mix that comes out, or what to drain "
    "to, "
    "the list from there and the nearest mix. With --steps it has the mix after each step and the result; the rest is "
    "in "
    "\"mend\".";

constexpr const char* kExamples = R"(
  tavplan mix --have 21/0@1 --want 32/0@200             EAN32 into an empty cylinder
  tavplan mix --have 21/35@80 --want 18/45@220          topping up trimix
  tavplan mix --have 21/0@14.7 --want 32/0@3000 --imperial
  tavplan mix --have 21/35@80 --want 21/35@220 --top 32/0   with EAN32 from a bank on top
  tavplan mix --have 21/0@1 --want 18/45@210 --warm 45  what the gauge shows while the cylinder is warm
  tavplan mix --have 21/0@1 --steps "he@67 o2@86 air@220" --want 21/35@230
                                                        what came out of a fill, and what mends it
)";

struct Given {
  std::string have;         ///< O2/HE@PRESSURE, the cylinder as it is
  std::string want;         ///< the same, as it shall be
  std::string top;          ///< O2/HE, the gas on top; air for an empty text
  std::string temperature;  ///< degrees Celsius at which the gauge is read; 20 for an empty text
  std::string warm;         ///< degrees Celsius of the cylinder while it is filled; empty for none
  std::string steps;        ///< a fill as it was done, "he@67 o2@86 air@220"; empty for none
  bool imperial = false;    ///< pressures in psi, not in bar
};

struct Fill {
  MixShares mix;
  Single pressure;
};

/// A number of an option that holds several, `part` of `text`.
double PartOf(const std::string& option, const std::string& text, const std::string& part, double most) {
  const auto value = ParseStrict(part);
  if (!value) throw OptionError({Text::OptionNoNumber, {option + " " + text, part}});
  if (!(*value >= 0 && *value <= most)) {
    throw OptionError({Text::OptionOutside, {option + " " + text, part, "0", FormatPlain(most)}});
  }
  return *value;
}

/// O2/HE, the first part of `text`, whose form is told where it is another
MixShares ParseMix(const std::string& option, const std::string& text, const std::string& mix, const char* form) {
  const std::size_t slash = mix.find('/');
  if (slash == std::string::npos) throw OptionError({Text::OptionMustBe, {option, text, form}});
  const double o2 = PartOf(option, text, mix.substr(0, slash), 100);
  const double he = PartOf(option, text, mix.substr(slash + 1), 100);
  if (o2 + he > 100) throw OptionError({Text::OptionMoreThanWhole, {option, text}});
  return MixOf(o2, he);
}

/// O2/HE@PRESSURE
Fill ParseFill(const std::string& option, const std::string& text, bool metric) {
  constexpr const char* kForm = "O2/HE@PRESSURE";
  const std::size_t at = text.find('@');
  if (at == std::string::npos) throw OptionError({Text::OptionMustBe, {option, text, kForm}});
  const MixShares mix = ParseMix(option, text, text.substr(0, at), kForm);
  return {mix, PartOf(option, text, text.substr(at + 1), HighestFill(metric))};
}

/// All but what is wanted.
FillRequest ParseRequest(const Given& options) {
  FillRequest request;
  request.metric = !options.imperial;
  const Fill have = ParseFill("--have", options.have, request.metric);
  request.current = have.mix;
  request.currentFill = have.pressure;
  if (!options.top.empty()) {
    request.top = ParseMix("--top", options.top, options.top, "O2/HE");
    if (request.top.N2 < kLeastNitrogen) throw OptionError({Text::FillNoNitrogen, {"--top " + options.top}});
  }
  const auto degrees = [](const std::string& text, const char* option) {
    return NumberOf(text, option, kColdestFill, kWarmestFill);
  };
  if (!options.temperature.empty()) request.celsius = degrees(options.temperature, "--temperature");
  if (!options.warm.empty()) request.warm = degrees(options.warm, "--warm");
  return request;
}

void ParseWanted(const Given& options, FillRequest& request) {
  const Fill want = ParseFill("--want", options.want, request.metric);
  if (want.pressure == 0) throw OptionError({Text::OptionNoPressure, {"--want", options.want}});
  request.desired = want.mix;
  request.desiredFill = want.pressure;
}

constexpr double kFine = 0.1;  // what "fill_to" is rounded to

void WriteMix(JsonWriter& json, const MixShares& mix) {
  json.Shown("o2", FormatFixed(mix.O2, 2));
  json.Shown("he", FormatFixed(mix.He, 2));
}

void WriteSteps(JsonWriter& json, const char* name, const FillRequest& request, const GaugeList& list) {
  const bool withAir = request.top.O2 == kAir.O2 && request.top.He == kAir.He;
  json.List(name, [&] {
    for (const FillStep& step : list.steps) {
      const char* gas = step.gas == FillGas::Helium ? "helium" : step.gas == FillGas::Oxygen ? "oxygen" : "top";
      json.Object([&] {
        json.Member("gas", step.gas == FillGas::Top && withAir ? "air" : gas);
        json.Shown("to", FormatFixed(step.to, 1));
        if (request.warm) json.Shown("warm", FormatFixed(step.warm, 1));
      });
    }
  });
}

void WriteFill(JsonWriter& json, const FillRequest& request) {
  const FillResult result = Recalculate(request);
  const FillAdvice advice(request, kFine);
  const GaugeList& asked = advice.AsAsked();
  json.Object("air_top", [&] {
    json.Member("possible", !result.AirImpossible);
    json.Shown("oxygen", result.AirTopO2);
    json.Shown("helium", result.AirTopHe);
    json.Shown("air", result.AirTopAir);
  });
  json.Object("van_der_waals", [&] {
    json.Shown("oxygen", result.IdealTopO2);
    json.Shown("helium", result.IdealTopHe);
    json.Shown("air", result.IdealTopN2);
  });
  WriteSteps(json, "fill_to", request, asked);
  json.Object("fill_list", [&] {
    json.Member("possible", asked.possible);
    json.Shown("temperature", FormatFixed(request.celsius, 2));
    if (asked.possible) return json.Object("result", [&] { WriteMix(json, asked.comesOut); });
    json.Member("result", std::nullopt);
    json.Shown("drain_to", asked.drainTo ? FormatFixed(Single(*asked.drainTo), 1) : std::string());
    if (asked.nearest) {
      json.Object("nearest", [&] { WriteMix(json, *asked.nearest); });
    } else {
      json.Member("nearest", std::nullopt);
    }
    WriteSteps(json, "after_draining", advice.from, advice.Drains() ? advice.list : GaugeList());
  });
}

/// A fill as it was done.
struct Done {
  std::vector<DoneStep> steps;
  std::vector<MixShares> mixes;  ///< after each step
};

void WriteDone(JsonWriter& json, const Done& done) {
  json.List("steps", [&] {
    for (std::size_t i = 0; i < done.steps.size(); ++i) {
      json.Object([&] {
        json.Member("gas", done.steps[i].name);
        json.Shown("to", FormatFixed(done.steps[i].to, 1));
        WriteMix(json, done.mixes[i]);
      });
    }
  });
  json.Object("result", [&] { WriteMix(json, done.mixes.back()); });
}

/// A table, the heads ahead of its rows: the first column to the left, the others to the right, all but the first of
/// one width.
void PutTable(const char* id, const std::vector<std::vector<std::string>>& rows, ShownOutput& shown) {
  constexpr std::size_t kGap = 2;
  std::size_t first = 22;
  std::size_t other = 13;
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::size_t& width = i == 0 ? first : other;
      width = std::max(width, Letters(row[i]));
    }
  }
  using Side = TextColumns::Column::Side;
  std::vector<TextColumns::Column> columns(rows.front().size(), {Side::Right, other, kGap});
  columns.front() = {Side::Left, first, kGap};
  ShownOutput::Table table{id, {rows.front()}, {}};
  for (std::size_t i = 1; i < rows.size(); ++i) table.rows.push_back({"", rows[i], {}});
  shown.Put(table, columns);
  shown.BlankLine();
}

/// A sentence, where there is one.
void PutSentence(const std::string& sentence, ShownOutput& shown, std::optional<Severity> severity = {}) {
  if (!sentence.empty()) shown.Line(sentence, "  ", severity);
}

std::string Written(const MixShares& mix, Single pressure, const FillWords& words) {
  return FormatFixed(mix.O2, 1) + "/" + FormatFixed(mix.He, 1) + "@" + FormatPlain(pressure) + " " + words.Unit();
}

void ShowDone(const Given& options, const Done& done, const FillWords& words, const TextSource& texts,
              ShownOutput& shown) {
  shown.Heading(options.have + " " + words.Unit());
  shown.BlankLine();
  const auto heads = words.Heads({}, false);
  std::vector<std::vector<std::string>> rows = {{heads[0], texts.Filled(Text::StepsFilledTo, {words.Unit()}),
                                                 texts.GetResString(Text::MixerO2) + " %",
                                                 texts.GetResString(Text::MixerHe) + " %"}};
  for (std::size_t i = 0; i < done.steps.size(); ++i) {
    const MixShares& mix = done.mixes[i];
    rows.push_back({done.steps[i].name, FormatPlain(done.steps[i].to), FormatFixed(mix.O2, 1), FormatFixed(mix.He, 1)});
  }
  PutTable("steps", rows, shown);
  PutSentence(words.OutcomeOfSteps(done.mixes.back()), shown);
}

void ShowMix(const std::string& have, const Given& options, const FillAdvice& advice, const FillWords& words,
             const TextSource& texts, ShownOutput& shown) {
  const FillRequest& request = advice.asked;
  const FillResult result = Recalculate(request);
  shown.Heading(have + " -> " + options.want + " " + words.Unit());
  shown.BlankLine();
  const auto orDash = [](const std::string& label) { return label.empty() ? "-" : label; };
  const std::string airTop = texts.GetResString(Text::MixerAirTop);
  const std::string vanDerWaals = texts.GetResString(Text::MixerVanDerWaals);
  PutTable(
      "add",
      {{"", texts.GetResString(Text::MixerO2), texts.GetResString(Text::MixerHe), texts.GetResString(Text::MixerAir)},
       {airTop + " (" + words.Unit() + ")", orDash(result.AirTopO2), orDash(result.AirTopHe), orDash(result.AirTopAir)},
       {vanDerWaals + " (" + words.Unit() + ")", result.IdealTopO2, result.IdealTopHe, result.IdealTopN2}},
      shown);
  const auto about = [&](const std::string& block, const std::string& sentence) {
    if (!sentence.empty()) PutSentence(block + ": " + sentence, shown);
    return !sentence.empty();
  };
  const bool ideal = about(airTop, words.AboutAirTop(result, request));
  if (about(vanDerWaals, words.AboutVanDerWaals(result, request)) || ideal) shown.BlankLine();
  if (advice.list.possible) PutTable("fill", words.Rows(advice, std::nullopt), shown);
  PutSentence(words.Hindrance(advice), shown, Severity::Danger);
  PutSentence(words.Misses(advice), shown, Severity::Caution);
  PutSentence(words.Outcome(advice), shown);
  PutSentence(words.Warm(advice), shown);
  PutSentence(words.IfIdeal(advice), shown);
  PutSentence(words.AboutPressures(request), shown);
}

/// The steps of the options, done; the request goes on from what came out of them.
Done DoSteps(const Given& options, FillRequest& request, const TextSource& texts) {
  const auto steps = [&] {
    try {
      return ParseSteps(options.steps, request, texts, kPoint);
    } catch (const MessageError& error) {
      throw OptionError({Text::StepsFault, {"--steps", error.Reason()}});
    }
  }();
  Done done{steps, MixesAfter(steps, request)};
  request.current = done.mixes.back();
  request.currentFill = steps.back().to;
  return done;
}

void WriteJson(const Given& options, const FillRequest& request, const std::optional<Done>& done,
               const ShownOutput& shown, std::ostream& out) {
  constexpr std::size_t kIndent = 2;
  JsonWriter json(out, kIndent);
  json.Object([&] {
    if (done) WriteDone(json, *done);
    if (!options.want.empty()) {
      if (done) {
        json.Object("mend", [&] { WriteFill(json, request); });
      } else {
        WriteFill(json, request);
      }
    }
    shown.Write(json);
  });
  out << "\n";
}

void Run(const Given& options, CommandFrame& frame) {
  if (options.want.empty() && options.steps.empty()) throw UsageError({Text::UsageMissing, {"--want"}});
  const TextSource& texts = frame.Texts();
  FillRequest request = ParseRequest(options);
  const FillWords words(texts, kPoint, request.metric);
  std::string have = options.have + " " + words.Unit();
  std::optional<Done> done;
  if (!options.steps.empty()) {
    done = DoSteps(options, request, texts);
    have = Written(request.current, request.currentFill, words);
  }
  if (!options.want.empty()) ParseWanted(options, request);
  ShownOutput shown(frame.Common());
  if (done) ShowDone(options, *done, words, texts, shown);
  std::optional<FillAdvice> advice;
  if (!options.want.empty()) {
    advice.emplace(request, GaugeMark(request.metric));
    if (done) shown.BlankLine();
    ShowMix(have, options, *advice, words, texts, shown);
  }
  if (frame.Common().json) {
    WriteJson(options, request, done, shown, frame.Out());
  } else {
    frame.Out() << shown.TakeText();
  }
  if (advice && !advice->AsAsked().possible) throw OptionError(words.Hindrance(*advice));
}

}  // namespace

Command MixCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"mix", "Print what to fill into a cylinder to make a mix", kDetails, kExamples};
  command.options = {
      {"--have", "O2/HE@PRESSURE", "What is in the cylinder, in per cent and bar", &given->have, true},
      {"--want", "O2/HE@PRESSURE", "What shall be in it", &given->want},
      {"--top", "O2/HE", "The gas on top, which must hold nitrogen; air if not given", &given->top},
      {"--temperature", "C", "Degrees Celsius at which the gauge is read; 20 if not given", &given->temperature},
      {"--warm", "C", "Degrees Celsius of the cylinder while it is filled", &given->warm},
      {"--steps", "STEPS", "A fill as it was done, from --have: \"he@67 o2@86 air@220\"", &given->steps},
      {"--imperial", "", "Pressures are in psi", &given->imperial},
  };
  command.AddJson("Print the figures as JSON");
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
