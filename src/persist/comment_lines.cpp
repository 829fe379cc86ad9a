#include "persist/comment_lines.h"

#include <algorithm>
#include <limits>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "model/tokenizer.h"
#include "persist/cylinder_line.h"

namespace tav {
namespace {

constexpr int kMostLines = std::numeric_limits<std::int16_t>::max();

/// A name that this program knows.
struct KnownLine {
  std::string_view name;
  bool changesSchedule;  ///< a wrong line is an error, not passed over
  /// Takes the value of a line into the record; that of the first line in place of what the record held. Returns why it
  /// can't be, and leaves the record then as it was.
  Message (*read)(std::string_view value, bool first, DiveTemplate& diveTemplate);
  /// The values to write, one for each line.
  std::vector<std::string> (*values)(const DiveTemplate& diveTemplate);
};

Message ReadCylinder(std::string_view value, bool first, DiveTemplate& diveTemplate) {
  Cylinder cylinder;
  const Message fault = ReadCylinderLine(value, cylinder);
  if (!fault.IsEmpty()) return {Text::CylinderOfLine, {fault}};
  if (first) diveTemplate.Cylinders.clear();
  diveTemplate.Cylinders.push_back(std::move(cylinder));
  return {};
}

std::vector<std::string> CylinderValues(const DiveTemplate& diveTemplate) {
  std::vector<std::string> values;
  for (const Cylinder& cylinder : diveTemplate.Cylinders) values.push_back(WriteCylinderLine(cylinder));
  return values;
}

Message ReadTeam(std::string_view value, bool /*first*/, DiveTemplate& diveTemplate) {
  constexpr std::size_t kParts = 4;
  std::vector<std::string> parts;
  while (ClassTokenizer::hastokens(value, "/")) parts.emplace_back(TrimBlanks(ClassTokenizer::nextToken(value, "/")));
  if (parts.size() != kParts || !TrimBlanks(value).empty()) return Text::TeamForm;
  const auto divers = ParseStrict(parts[0]);
  const auto stress = ParseStrict(parts[1]);
  const auto minutes = ParseStrict(parts[2]);
  const auto rule = TurnRuleNamed(parts[3]);
  if (!divers || !stress || !minutes || !rule) return Text::TeamForm;
  const auto team = RoundToInt16(*divers).value_or(0);
  const SupplyChoice choice{*divers == team ? team : 0, *stress, *minutes, *rule};
  if (!IsSound(choice)) return Text::TeamForm;
  diveTemplate.Team = choice;
  return {};
}

std::vector<std::string> TeamValue(const DiveTemplate& diveTemplate) {
  if (!diveTemplate.Team) return {};
  const SupplyChoice& team = *diveTemplate.Team;
  std::string value;
  for (const Single number : {Single(team.team), team.stress, team.minutes}) value += FormatPadded(number) + "/";
  return {value + " " + std::string(NameOf(team.rule)) + "/"};
}

Message ReadKeptTeam(std::string_view value, bool /*first*/, DiveTemplate& diveTemplate) {
  const auto team = ParseStrict(value);
  if (!team || *team != RoundToInt16(*team).value_or(0) || *team < 1 || *team > kLargestTeam) return Text::TeamForm;
  diveTemplate.KeptTeam = static_cast<int>(*team);
  return {};
}

std::vector<std::string> KeptTeamValue(const DiveTemplate& diveTemplate) {
  if (!diveTemplate.KeptTeam) return {};
  return {std::to_string(*diveTemplate.KeptTeam)};
}

/// "run/ stops/ cns/ gas/": minutes, minutes, per cent, 1; nothing between the strokes where there is no limit.
Message ReadLimits(std::string_view value, bool /*first*/, DiveTemplate& diveTemplate) {
  constexpr std::size_t kParts = 4;
  std::vector<std::string_view> parts;
  for (std::size_t stroke = value.find('/'); stroke != std::string_view::npos; stroke = value.find('/')) {
    parts.push_back(TrimBlanks(value.substr(0, stroke)));
    value.remove_prefix(stroke + 1);
  }
  if (parts.size() != kParts || !TrimBlanks(value).empty()) return Text::LimitsForm;
  bool sound = true;
  const auto number = [&](std::string_view part) -> std::optional<Single> {
    if (part.empty()) return std::nullopt;
    const auto read = ParseStrict(part);
    sound = sound && read;
    return read;
  };
  const auto gas = number(parts[3]);
  const DiveLimits limits{number(parts[0]), number(parts[1]), number(parts[2]), gas.value_or(0) == 1};
  if (!sound || !IsSound(limits) || (gas && *gas != 0 && *gas != 1)) return Text::LimitsForm;
  diveTemplate.Limits = limits;
  return {};
}

std::vector<std::string> LimitsValue(const DiveTemplate& diveTemplate) {
  if (!diveTemplate.Limits) return {};
  const DiveLimits& limits = *diveTemplate.Limits;
  std::string value;
  for (const auto& number : {limits.run, limits.stops, limits.cns})
    value += (number ? FormatPadded(*number) : " ") + "/";
  return {value + (limits.gas ? " 1/" : " /")};
}

/// A line that says one thing of a rebreather, and without which the opposite holds. An open-circuit dive that was on
/// the loop says the opposite, as without the line it would become a new plan there.
struct OneValueLine {
  std::string_view name;
  std::string_view value;
  std::string_view opposite;
  bool DiveTemplate::*field;
};
constexpr OneValueLine kLoop{"Loop", "diluent", "gas changes", &DiveTemplate::KeepsDiluent};
constexpr OneValueLine kInterval{"Surface interval", "air", "loop", &DiveTemplate::IntervalOnAir};

template <const OneValueLine& Line>
Message ReadOneValue(std::string_view value, bool /*first*/, DiveTemplate& diveTemplate) {
  const bool isOpposite = TrimBlanks(value) == Line.opposite;
  if (TrimBlanks(value) != Line.value && !isOpposite) {
    return {Text::CommentOneValue, {std::string(Line.name), Shown(TrimBlanks(value)), std::string(Line.value)}};
  }
  diveTemplate.*Line.field = !isOpposite;
  if (isOpposite) diveTemplate.WasOnLoop = true;
  return {};
}

template <const OneValueLine& Line>
std::vector<std::string> OneValue(const DiveTemplate& diveTemplate) {
  const bool holds = diveTemplate.*Line.field;
  if (diveTemplate.OpenCircuit ? holds || !diveTemplate.WasOnLoop : !holds) return {};
  return {std::string(holds ? Line.value : Line.opposite)};
}

/// A text in one line: "\\n" for the end of a line, "\\\\" for "\\".
Message ReadEscaped(std::string_view value, const PlanTextField& field, std::string& text) {
  std::string read;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\') {
      read += value[i];
      continue;
    }
    const std::string_view next = value.substr(++i, 1);
    if (next != "n" && next != "\\") return {Text::PlanTextEscape, {std::string(field.key)}};
    read += next == "n" ? '\n' : '\\';
  }
  Message fault = PlanTextFault(field, std::string(field.key), read);
  if (fault.IsEmpty()) text = std::move(read);
  return fault;
}

template <std::size_t Field>
Message ReadPlanText(std::string_view value, bool /*first*/, DiveTemplate& diveTemplate) {
  const PlanTextField& field = kPlanTextFields[Field];
  return ReadEscaped(TrimBlanks(value), field, diveTemplate.Texts.*field.text);
}

template <std::size_t Field>
std::vector<std::string> PlanTextValue(const DiveTemplate& diveTemplate) {
  const std::string& text = diveTemplate.Texts.*kPlanTextFields[Field].text;
  if (text.empty()) return {};
  return {ReplaceAll(ReplaceAll(text, "\\", "\\\\"), "\n", "\\n")};
}

constexpr std::string_view kCylinders = "Cylinder";
constexpr KnownLine kKnownLines[] = {{kPlanTextFields[0].key, false, &ReadPlanText<0>, &PlanTextValue<0>},
                                     {kPlanTextFields[1].key, false, &ReadPlanText<1>, &PlanTextValue<1>},
                                     {kPlanTextFields[2].key, false, &ReadPlanText<2>, &PlanTextValue<2>},
                                     {kCylinders, false, &ReadCylinder, &CylinderValues},
                                     {"Team", false, &ReadTeam, &TeamValue},
                                     {"Team stays", false, &ReadKeptTeam, &KeptTeamValue},
                                     {"Limits", false, &ReadLimits, &LimitsValue},
                                     {kLoop.name, true, &ReadOneValue<kLoop>, &OneValue<kLoop>},
                                     {kInterval.name, true, &ReadOneValue<kInterval>, &OneValue<kInterval>}};

/// "Name" of "# Name=value"; empty for a comment of another form.
std::string_view NameOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (!line.starts_with("# ") || equals == std::string_view::npos) return {};
  return TrimBlanks(line.substr(2, equals - 2));
}

}  // namespace

CommentLines::CommentLines(DiveTemplate& diveTemplate, FormatFaults& faults)
    : template_(diveTemplate), faults_(faults), before_(std::move(diveTemplate.Comments)) {
  template_.Comments.clear();
}

std::string_view CommentLines::Read(std::string_view line, int number) {
  const std::string_view name = NameOf(line);
  if (name.empty()) return {};
  if (++lines_ > kMostLines) {
    faults_.Error(number, Text::TooManyNames);
    return {};
  }
  met_.emplace(name);
  const auto* known = std::ranges::find(kKnownLines, name, &KnownLine::name);
  if (known == std::end(kKnownLines)) {
    template_.Comments.emplace_back(line);
    return {};
  }
  const Message fault = known->read(line.substr(line.find('=') + 1), !read_.contains(name), template_);
  if (!fault.IsEmpty()) {
    if (known->changesSchedule) {
      faults_.Error(number, fault);
    } else {
      faults_.Advise(number, {Text::PassedOver, {fault}});
      template_.Comments.emplace_back(line);
    }
    return {};
  }
  read_.emplace(name);
  if (name == kCylinders) cylinderLines_.push_back(number);
  return name;
}

void CommentLines::Finish() {
  std::erase_if(before_, [&](const std::string& line) { return met_.contains(NameOf(line)); });
  template_.Comments.insert(template_.Comments.begin(), before_.begin(), before_.end());
  for (std::size_t i = 0; i < cylinderLines_.size(); ++i) {
    const std::string& gas = template_.Cylinders[i].Gas;
    if (!FindBlend(gas, template_)) faults_.Advise(cylinderLines_[i], {Text::CylinderUnknownGas, {Shown(gas)}});
  }
}

std::vector<std::string> WriteCommentLines(const DiveTemplate& diveTemplate) {
  std::vector<std::string> lines;
  for (const KnownLine& known : kKnownLines) {
    for (const std::string& value : known.values(diveTemplate)) {
      lines.push_back("# " + std::string(known.name) + "=" + value);
    }
  }
  lines.insert(lines.end(), diveTemplate.Comments.begin(), diveTemplate.Comments.end());
  return lines;
}

}  // namespace tav
