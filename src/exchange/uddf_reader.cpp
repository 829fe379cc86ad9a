#include "exchange/uddf_reader.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <map>
#include <utility>

#include "exchange/control_characters.h"
#include "exchange/plan_instruction.h"
#include "exchange/si_units.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "persist/format_faults.h"

namespace tav {
namespace {

using pugi::xml_node;

constexpr double kDeepest = 500;       // m
constexpr double kAboveSurface = -10;  // m: what a gauge that was not set to zero may show
constexpr double kMostPressure = 1e8;  // Pa
constexpr double kHighest = 6000;      // m
constexpr double kLeastSurface = 0.3;  // bar: of a shore
constexpr double kMostSurface = 1.2;
constexpr double kLeastSetpoint = 0.2;  // bar
constexpr double kMostSetpoint = 2;
constexpr std::size_t kMostSamples = 50000;  // of a dive: 14 hours with one a second
constexpr std::size_t kMostDives = 30000;
constexpr std::size_t kMostMixes = 1000;
constexpr std::size_t kMostTanks = 100;  // of a dive

class Reader {
 public:
  Reader(const UddfDocument& document, const std::set<int>& withoutPlan)
      : document_(document), withoutPlan_(withoutPlan) {}

  DiveLog Run() {
    ReadMixes();
    ReadSites();
    // The schema has one "profiledata" of groups; what has more, or dives without a group, holds dives all the same.
    for (const xml_node data : document_.Root().children()) {
      if (!IsElement(data, "profiledata")) continue;
      for (const xml_node group : data.children()) {
        if (IsElement(group, "dive")) ReadDive(group);
        if (!IsElement(group, "repetitiongroup")) continue;
        for (const xml_node dive : group.children()) {
          if (IsElement(dive, "dive")) ReadDive(dive);
        }
      }
    }
    if (log_.dives.empty()) document_.Fail(document_.Root(), Text::ImportNoDive);
    return std::move(log_);
  }

 private:
  /// A share in per cent.
  [[nodiscard]] double Share(xml_node mix, const char* gas) const {
    const xml_node element = Child(mix, gas);
    if (!element) return 0;
    const double share = document_.Number(element, 0, 100);
    return share > 1 ? share : share * 100;
  }

  /// A gas that can't be breathed matters to logged dives alone: a plan has its own.
  void Blame(xml_node mix, int text, const std::string& more = "") {
    if (mixFault_ != 0) return;
    faultyMix_ = mix;
    mixFault_ = text;
    mixMore_ = more;
  }

  /// By its name, else by its "id".
  [[nodiscard]] static std::string NameOf(xml_node mix) {
    std::string name = TextOf(Child(mix, "name"));
    if (name.empty()) name = mix.attribute("id").value();
    return Shown(name);
  }

  void ReadMixes() {
    for (const xml_node data : document_.Root().children()) {
      if (!IsElement(data, "gasdefinitions")) continue;
      for (const xml_node node : data.children()) {
        if (IsElement(node, "mix")) ReadMix(node);
      }
    }
  }

  void ReadSites() {
    for (const xml_node data : document_.Root().children()) {
      if (!IsElement(data, "divesite")) continue;
      for (const xml_node site : data.children()) {
        const std::string id = site.attribute("id").value();
        if (IsElement(site, "site") && !id.empty()) placeOfId_.emplace(id, TextOf(Child(site, "name")));
      }
    }
  }

  /// Where a logged dive was made, and what its diver says of it.
  void ReadTexts(xml_node node, PlanTexts& texts) const {
    for (const xml_node link : Child(node, "informationbeforedive").children()) {
      const auto site = placeOfId_.find(link.attribute("ref").value());
      if (IsElement(link, "link") && site != placeOfId_.end()) texts.place = site->second;
    }
    for (const xml_node para : Child(Child(node, "informationafterdive"), "notes").children()) {
      const std::string line = TextOf(para);
      if (IsElement(para, "para") && line != kPlanRemark) texts.notes += line + "\n";
    }
    for (const PlanTextField& field : kPlanTextFields) texts.*field.text = FittingPlanText(field, texts.*field.text);
  }

  void ReadMix(xml_node node) {
    if (log_.mixes.size() == kMostMixes) return Blame(node, Text::ImportTooManyGases);
    LoggedMix mix{TextOf(Child(node, "name")), Share(node, "o2"), Share(node, "he")};
    if (HasControl(mix.name)) Blame(node, Text::ImportControlCharacter);
    if (Share(node, "ar") + Share(node, "h2") > 0.1) Blame(node, Text::ImportOtherGas);
    const double nitrogen = Share(node, "n2");
    if (!Child(node, "o2")) {
      // What is left is oxygen where both other gases are told; a mix that tells less could be anything.
      if (!Child(node, "n2") || !Child(node, "he")) Blame(node, Text::ImportOxygenUntold);
      mix.o2 = 100 - nitrogen - mix.he;
    }
    constexpr double kRounding = 0.5;  // per cent
    if (mix.o2 + mix.he + nitrogen > 100 + kRounding || mix.o2 < -kRounding) {
      Blame(node, Text::ImportSharesBeyondWhole);
    }
    if (Child(node, "n2") && mix.o2 + mix.he + nitrogen < 100 - kRounding) {
      Blame(node, Text::ImportSharesNotWhole, FormatFixed(Single(mix.o2 + mix.he + nitrogen), 1));
    }
    constexpr double kNone = 0.05;  // per cent
    if (mix.o2 < kNone) Blame(node, Text::ImportNoOxygen);
    mix.o2 = std::clamp(mix.o2, 0.0, 100.0);
    mix.he = std::min(mix.he, 100 - mix.o2);
    const std::string id = node.attribute("id").value();
    if (!id.empty()) {
      const auto [known, first] = mixOfId_.emplace(id, log_.mixes.size());
      if (!first && !SameShares(log_.mixes[known->second], mix)) Blame(node, Text::ImportTwoOfOneId, id);
    }
    log_.mixes.push_back(std::move(mix));
  }

  static bool SameShares(const LoggedMix& a, const LoggedMix& b) { return a.o2 == b.o2 && a.he == b.he; }

  void ReadDive(xml_node node) {
    if (log_.dives.size() == kMostDives) document_.Fail(node, Text::ImportTooManyDives);
    LoggedDive& dive = log_.dives.emplace_back();
    dive.number = static_cast<int>(log_.dives.size());
    dive.line = document_.Line(node);
    const bool mayHavePlan = !withoutPlan_.contains(dive.number);
    for (const xml_node child : node.children()) {
      if (mayHavePlan && child.type() == pugi::node_pi && std::string_view(child.name()) == kPlanInstruction) {
        dive.plan = UnescapePlan(child.value());
        dive.planLine = document_.Line(child);
      }
      if (IsElement(child, "tankdata") && dive.tanks.size() < kMostTanks) ReadTank(child, dive);
    }
    if (!dive.plan.empty()) return ReadPlanned(node, dive);
    if (mixFault_ != 0) document_.Fail(faultyMix_, mixFault_, {NameOf(faultyMix_), mixMore_});
    ReadBefore(Child(node, "informationbeforedive"), dive);
    ReadTexts(node, dive.texts);
    lastMinute_ = 0;
    for (const xml_node sample : Child(node, "samples").children()) {
      if (IsElement(sample, "waypoint")) ReadSample(sample, dive);
    }
  }

  /// What tells whether the dive still is its plan.
  static void ReadPlanned(xml_node node, LoggedDive& dive) {
    const xml_node before = Child(node, "informationbeforedive");
    dive.startMinute = MinuteOf(TextOf(Child(before, "datetime")));
    const xml_node interval = Child(before, "surfaceintervalbeforedive");
    dive.longInterval = !Child(interval, "infinity").empty();
    const auto number = [](xml_node element) {
      return ParseStrict(TextOf(element)).value_or(std::numeric_limits<double>::quiet_NaN());
    };
    for (const xml_node sample : Child(node, "samples").children()) {
      const xml_node depth = Child(sample, "depth");
      if (!IsElement(sample, "waypoint") || !depth) continue;
      dive.samples.push_back({number(Child(sample, "divetime")) / si::kSecondsPerMinute, number(depth)});
    }
  }

  /// The mix that a link names.
  [[nodiscard]] std::size_t Linked(xml_node link) const {
    const std::string id = link.attribute("ref").value();
    const auto found = mixOfId_.find(id);
    if (found == mixOfId_.end()) document_.Fail(link, Text::ImportUnknownGas, {Shown(id)});
    return found->second;
  }

  void ReadTank(xml_node node, LoggedDive& dive) const {
    LoggedDive::Tank tank;
    for (const xml_node link : node.children()) {
      const auto found = mixOfId_.find(link.attribute("ref").value());
      if (IsElement(link, "link") && found != mixOfId_.end()) tank.mix = found->second;
    }
    if (const xml_node volume = Child(node, "tankvolume")) {
      const double number = document_.Number(volume, 0, 1000);
      tank.litres = number < 1 ? number * si::kLitresPerCubicMetre : number;
    }
    if (const xml_node pressure = Child(node, "tankpressurebegin")) {
      const double number = document_.Number(pressure, 0, kMostPressure);
      tank.bar = number > 1000 ? number / si::kPascalPerBar : number;
    }
    dive.tanks.push_back(tank);
  }

  /// "2026-05-01T09:30:00", with or without seconds; the zone is left aside, for a series is dived in one.
  static std::optional<double> MinuteOf(const std::string& dateTime) {
    const auto part = [&](std::size_t from, std::size_t count) {
      const std::string text = from < dateTime.size() ? dateTime.substr(from, count) : "";
      const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
      return digits ? static_cast<int>(ParseLenient(text)) : -1;
    };
    const auto within = [](int number, int most) { return number >= 0 && number <= most; };
    if (dateTime.size() < 16 || !within(part(11, 2), 24) || !within(part(14, 2), 59)) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(part(0, 4)),
                                           std::chrono::month(static_cast<unsigned>(part(5, 2))),
                                           std::chrono::day(static_cast<unsigned>(part(8, 2))));
    if (!date.ok()) return std::nullopt;
    const auto days = static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count());
    return days * 1440 + part(11, 2) * 60 + part(14, 2) + std::max(0, part(17, 2)) / 60.0;
  }

  void ReadBefore(xml_node before, LoggedDive& dive) const {
    dive.startMinute = MinuteOf(TextOf(Child(before, "datetime")));
    const xml_node interval = Child(before, "surfaceintervalbeforedive");
    dive.longInterval = !Child(interval, "infinity").empty();
    if (const xml_node passed = Child(interval, "passedtime")) {
      dive.surfaceInterval =
          document_.Number(passed, 0, kMaximumSurfaceInterval * si::kSecondsPerMinute) / si::kSecondsPerMinute;
    }
    if (const xml_node altitude = Child(before, "altitude")) dive.altitude = document_.Number(altitude, -500, kHighest);
    if (const xml_node pressure = Child(before, "surfacepressure")) {
      dive.surfacePressure = Bar(pressure, kLeastSurface, kMostSurface, dive);
    }
    dive.rebreather = TextOf(Child(before, "apparatus")) == "rebreather";
    for (const xml_node link : before.children()) {
      const auto found = mixOfId_.find(link.attribute("ref").value());
      if (IsElement(link, "link") && found != mixOfId_.end()) dive.switches.push_back({0, found->second});
    }
  }

  void ReadSample(xml_node node, LoggedDive& dive) {
    const xml_node time = Child(node, "divetime");
    if (!time) document_.Fail(node, Text::ImportNoDiveTime);
    const double minutes = document_.Number(time, 0, kMaximumLegTime * si::kSecondsPerMinute) / si::kSecondsPerMinute;
    if (minutes < lastMinute_) document_.Fail(time, Text::ImportNotInOrder);
    lastMinute_ = minutes;
    ReadDepth(node, minutes, dive);
    if (const xml_node link = Child(node, "switchmix")) dive.switches.push_back({minutes, Linked(link)});
    if (const xml_node setpoint = Child(node, "setpo2")) {
      dive.setpoints.push_back({minutes, Bar(setpoint, kLeastSetpoint, kMostSetpoint, dive)});
    }
    if (const xml_node mode = Child(node, "divemode")) {
      const std::string_view type = mode.attribute("type").value();
      const bool loop = type == "closedcircuit";
      if (!loop && type != "opencircuit") NoteMode(type, dive);
      dive.leavesLoop = dive.leavesLoop || (dive.rebreather && !loop) || (loop && !dive.rebreather && minutes > 0);
      dive.rebreather = dive.rebreather || loop;
    }
  }

  static void NoteMode(std::string_view type, LoggedDive& dive) {
    std::string mode = WithoutControl(Shown(type));
    constexpr std::size_t kMostModes = 5;
    const bool known = std::ranges::find(dive.otherModes, mode) != dive.otherModes.end();
    if (!known && dive.otherModes.size() < kMostModes) dive.otherModes.push_back(std::move(mode));
  }

  /// A pressure of `least` to `most` bar, in pascal or in the unit in which it is one.
  [[nodiscard]] double Bar(xml_node element, double least, double most, LoggedDive& dive) const {
    constexpr std::pair<double, const char*> kUnits[] = {{100000, "Pa"}, {1000, "hPa"}, {100, "kPa"}, {1, "bar"}};
    const double number = document_.Number(element, 0, kMostPressure);
    for (const auto& [ofBar, unit] : kUnits) {
      if (number < least * ofBar || number > most * ofBar) continue;
      const std::string name = element.name();
      const bool told = std::ranges::find(dive.readAs, name, &LoggedDive::ReadAs::element) != dive.readAs.end();
      if (ofBar < si::kPascalPerBar && !told) dive.readAs.push_back({name, TextOf(element), unit});
      return number / ofBar;
    }
    return document_.Number(element, least * si::kPascalPerBar, most * si::kPascalPerBar) / si::kPascalPerBar;
  }

  /// A sample without a depth tells an event between two others.
  void ReadDepth(xml_node node, double minutes, LoggedDive& dive) const {
    const xml_node depth = Child(node, "depth");
    if (!depth) return;
    if (dive.samples.size() == kMostSamples) {
      document_.Fail(node, Text::ImportTooManySamples, {std::to_string(kMostSamples)});
    }
    const double metres = std::max(0.0, document_.Number(depth, kAboveSurface, kDeepest));
    // A dive begins at the surface, even where its log begins a moment later.
    if (dive.samples.empty() && (minutes > 0 || metres > 0)) dive.samples.push_back({0, 0});
    dive.samples.push_back({minutes, metres});
  }

  const UddfDocument& document_;
  const std::set<int>& withoutPlan_;
  DiveLog log_;
  xml_node faultyMix_;  // the first one
  int mixFault_ = 0;
  std::string mixMore_;
  double lastMinute_ = 0;  // of the dive at hand
  std::map<std::string, std::size_t> mixOfId_;
  std::map<std::string, std::string> placeOfId_;
};

}  // namespace

DiveLog ReadDiveLog(const UddfDocument& document, const std::set<int>& withoutPlan) {
  return Reader(document, withoutPlan).Run();
}

}  // namespace tav
