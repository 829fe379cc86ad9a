#include "exchange/uddf_export.h"

#include <algorithm>
#include <pugixml.hpp>
#include <sstream>

#include "exchange/plan_instruction.h"
#include "exchange/si_units.h"
#include "model/number_text.h"
#include "persist/line_reader.h"
#include "persist/profile_file.h"

namespace tav {
namespace {

using pugi::xml_node;

constexpr const char* kNamespace = "http://www.streit.cc/uddf/3.2/";
constexpr const char* kSite = "site1";

xml_node Add(xml_node parent, const char* name) { return parent.append_child(name); }
void Add(xml_node parent, const char* name, const std::string& text) {
  parent.append_child(name).text().set(text.c_str());
}
void AddNumber(xml_node parent, const char* name, double value) { Add(parent, name, FormatPlain(Single(value))); }
void AddLink(xml_node parent, const char* name, const std::string& id) {
  parent.append_child(name).append_attribute("ref").set_value(id.c_str());
}

/// "2026-05-01T09:30:00Z"
std::string DateTime(std::chrono::sys_seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  const auto two = [](auto value) { return FormatZeroFilled(static_cast<int>(value), 2); };
  return FormatZeroFilled(static_cast<int>(date.year()), 4) + "-" + two(unsigned{date.month()}) + "-" +
         two(unsigned{date.day()}) + "T" + two(clock.hours().count()) + ":" + two(clock.minutes().count()) + ":" +
         two(clock.seconds().count()) + "Z";
}

/// The gases of all dives, each once.
class MixList {
 public:
  std::string Id(const std::string& name, double o2, double n2, double he) {
    const auto same = [&](const GasMix& mix) { return mix.Name == name && mix.O2 == o2 && mix.He == he; };
    auto found = std::find_if(mixes_.begin(), mixes_.end(), same);
    if (found == mixes_.end()) found = mixes_.insert(mixes_.end(), {name, o2, n2, he});
    return "mix" + std::to_string(found - mixes_.begin() + 1);
  }
  void Write(xml_node definitions) const {
    for (std::size_t i = 0; i < mixes_.size(); ++i) {
      xml_node mix = Add(definitions, "mix");
      mix.append_attribute("id").set_value(("mix" + std::to_string(i + 1)).c_str());
      Add(mix, "name", XmlText(mixes_[i].Name));
      AddNumber(mix, "o2", mixes_[i].O2 / 100);
      AddNumber(mix, "n2", mixes_[i].N2 / 100);
      AddNumber(mix, "he", mixes_[i].He / 100);
    }
  }

 private:
  std::vector<GasMix> mixes_;
};

/// What the diver breathes on one row.
struct Breathing {
  std::string mix;
  bool loop = false;
  Single setpoint;  ///< of the loop
};

class DiveWriter {
 public:
  /// `texts` are those of the series.
  DiveWriter(const PlannedDive& dive, const PlanTexts& texts, MixList& mixes)
      : dive_(dive), texts_(texts), rows_(dive.plan.rows), settings_(dive.record.Template), mixes_(mixes) {
    lastUserRow_ = LastUserRow(rows_);
    bool circuitOpened = settings_.OpenCircuit;
    for (std::int16_t i = 1; i <= rows_.GetLength(); ++i) {
      const Waypoint& row = rows_.Row(i);
      // A rebreather dive with its stops on open circuit leaves the loop at the first stop of the computed ascent.
      const bool stop = row.Status == RowStatus::kStop && i > lastUserRow_;
      circuitOpened = circuitOpened || (settings_.OCDeco && stop);
      const std::string mix = mixes_.Id(row.GasMixName, row.GasMixO2, row.GasMixN2, row.GasMixHe);
      breathing_.push_back({mix, !circuitOpened, stop ? settings_.DecoSetpoint : settings_.Setpoint});
    }
  }

  void Write(xml_node dive, std::chrono::sys_seconds start) {
    WritePlan(dive);
    WriteBefore(Add(dive, "informationbeforedive"), start);
    for (const Cylinder& cylinder : settings_.Cylinders) WriteCylinders(dive, cylinder);
    xml_node samples = Add(dive, "samples");
    for (std::int16_t i = 0; i <= rows_.GetLength(); ++i) WriteSample(Add(samples, "waypoint"), i);
    WriteAfter(Add(dive, "informationafterdive"));
  }

 private:
  [[nodiscard]] double Metres(double depth) const { return si::Metres(depth, settings_.Metric); }
  [[nodiscard]] double Pascal(double pressure) const { return si::Pascal(pressure, settings_.Metric); }

  void WritePlan(xml_node dive) const {
    xml_node instruction = dive.append_child(pugi::node_pi);
    instruction.set_name(kPlanInstruction);
    const std::string record = WriteDiveRecord(settings_, dive_.record.SurfaceInterval, dive_.record.UserActions);
    instruction.set_value(EscapePlan(record).c_str());
  }

  void WriteBefore(xml_node before, std::chrono::sys_seconds start) const {
    if (!texts_.place.empty()) AddLink(before, "link", kSite);
    Add(before, "datetime", DateTime(start));
    xml_node interval = Add(before, "surfaceintervalbeforedive");
    if (dive_.before == nullptr) {
      Add(interval, "infinity");
    } else {
      Add(interval, "passedtime", FormatFixed(dive_.record.SurfaceInterval * si::kSecondsPerMinute, 0));
    }
    AddNumber(before, "altitude", Metres(settings_.StartAltitude));
    Add(before, "apparatus", settings_.OpenCircuit ? "open-scuba" : "rebreather");
    AddNumber(before, "surfacepressure", Pascal(settings_.StartPressure));
  }

  /// A tank for each cylinder, by the volume of water that it holds.
  void WriteCylinders(xml_node dive, const Cylinder& cylinder) const {
    const auto blend = FindBlend(cylinder.Gas, settings_);
    const double pascal = cylinder.InLitres() ? si::kPascalPerBar : si::kPascalPerPsi;
    const double litres = cylinder.InLitres() ? double{cylinder.Size}
                                              : cylinder.Size * si::kLitresPerCubicFoot * si::kPascalPerAtmosphere /
                                                    (cylinder.RatedPressure * pascal);
    for (int i = 0; i < cylinder.Count; ++i) {
      xml_node tank = Add(dive, "tankdata");
      if (blend) {
        const GasMix& mix = settings_.Blends[static_cast<std::size_t>(*blend)];
        AddLink(tank, "link", mixes_.Id(mix.Name, mix.O2, mix.N2, mix.He));
      }
      AddNumber(tank, "tankvolume", litres / si::kLitresPerCubicMetre);
      AddNumber(tank, "tankpressurebegin", cylinder.Fill * pascal);
    }
  }

  /// A sample is the end of its row and the beginning of the next: what changes there is told there.
  void WriteSample(xml_node sample, std::int16_t i) const {
    const Waypoint& row = rows_.Row(i);
    const bool hasNext = i < rows_.GetLength();
    const auto next = static_cast<std::int16_t>(i + 1);
    if (hasNext && rows_.GetStatus(next) == RowStatus::kStop) {
      xml_node stop = Add(sample, "decostop");
      stop.append_attribute("kind").set_value("mandatory");
      stop.append_attribute("decodepth").set_value(FormatPlain(Metres(rows_.getStopDepth(next))).c_str());
      const double seconds = rows_.getStopTime(next) * si::kSecondsPerMinute;
      stop.append_attribute("duration").set_value(FormatPlain(seconds).c_str());
    }
    if (i > 0) AddNumber(sample, "calculatedpo2", Pascal(row.PPO2));
    AddNumber(sample, "depth", Metres(row.Depth));
    AddNumber(sample, "divetime", row.RunTime * si::kSecondsPerMinute);
    AddNumber(sample, "otu", row.TotalOTU);
    if (!hasNext) return;
    const Breathing* before = i > 0 ? &breathing_[static_cast<std::size_t>(i) - 1] : nullptr;
    const Breathing& now = breathing_[static_cast<std::size_t>(i)];
    const bool other = before == nullptr || before->loop != now.loop;
    if (now.loop && (other || before->setpoint != now.setpoint)) {
      AddNumber(sample, "setpo2", Pascal(now.setpoint));
      sample.child("setpo2").append_attribute("setby").set_value("computer");
    }
    if (before == nullptr || before->mix != now.mix) AddLink(sample, "switchmix", now.mix);
    if (other) Add(sample, "divemode").append_attribute("type").set_value(now.loop ? "closedcircuit" : "opencircuit");
  }

  /// The name of the plan has no element of its own.
  void WriteNotes(xml_node notes) const {
    Add(notes, "para", kPlanRemark);
    if (!texts_.name.empty()) Add(notes, "para", XmlText(texts_.name));
    LineReader lines(texts_.notes);
    while (const auto line = lines.Next()) Add(notes, "para", XmlText(*line));
  }

  void WriteAfter(xml_node after) const {
    double deepest = 0;
    double area = 0;
    for (std::int16_t i = 1; i <= rows_.GetLength(); ++i) {
      const Waypoint& row = rows_.Row(i);
      deepest = std::max<double>(deepest, row.Depth);
      area += row.SegmentTime * (row.Depth + rows_.getDepth(static_cast<std::int16_t>(i - 1))) / 2;
    }
    const double minutes = rows_.GetRunTime(rows_.GetLength());
    AddNumber(after, "greatestdepth", Metres(deepest));
    WriteNotes(Add(after, "notes"));
    AddNumber(after, "diveduration", minutes * si::kSecondsPerMinute);
    if (minutes > 0) AddNumber(after, "averagedepth", Metres(area / minutes));
  }

  const PlannedDive& dive_;
  const PlanTexts& texts_;
  const ClassProfile& rows_;
  const DiveTemplate& settings_;
  MixList& mixes_;
  std::int16_t lastUserRow_ = 0;
  std::vector<Breathing> breathing_;  ///< of row 1 in element 0
};

std::chrono::sys_seconds Later(std::chrono::sys_seconds time, double minutes) {
  return time + std::chrono::seconds(static_cast<std::int64_t>(minutes * si::kSecondsPerMinute));
}

}  // namespace

std::string WriteUddf(const std::vector<PlannedDive>& dives, const UddfOrigin& origin) {
  pugi::xml_document file;
  xml_node declaration = file.append_child(pugi::node_declaration);
  declaration.append_attribute("version").set_value("1.0");
  declaration.append_attribute("encoding").set_value("UTF-8");
  xml_node root = file.append_child("uddf");
  root.append_attribute("xmlns").set_value(kNamespace);
  root.append_attribute("version").set_value("3.2.3");
  xml_node generator = Add(root, "generator");
  Add(generator, "name", "TAV");
  Add(generator, "version", origin.version);

  MixList mixes;
  const GasMix air = AirMix();
  mixes.Id(air.Name, air.O2, air.N2, air.He);
  const PlanTexts texts = dives.empty() ? PlanTexts() : dives.front().record.Template.Texts;
  if (!texts.place.empty()) {
    xml_node site = Add(Add(root, "divesite"), "site");
    site.append_attribute("id").set_value(kSite);
    Add(site, "name", XmlText(texts.place));
  }
  xml_node definitions = Add(root, "gasdefinitions");
  xml_node group = Add(Add(root, "profiledata"), "repetitiongroup");
  group.append_attribute("id").set_value("series1");
  std::chrono::sys_seconds start = origin.start;
  for (std::size_t i = 0; i < dives.size(); ++i) {
    const DiveTemplate& settings = dives[i].record.Template;
    if (i > 0) start = Later(start, dives[i].record.SurfaceInterval);
    for (const GasChange& change : settings.ChangeGasMixes) {
      if (FindBlend(change.Name, settings)) mixes.Id(change.Name, change.O2, change.N2, change.He);
    }
    xml_node dive = Add(group, "dive");
    dive.append_attribute("id").set_value(("dive" + std::to_string(i + 1)).c_str());
    DiveWriter(dives[i], texts, mixes).Write(dive, start);
    start = Later(start, dives[i].plan.rows.GetRunTime(dives[i].plan.rows.GetLength()));
  }
  mixes.Write(definitions);
  std::ostringstream out;
  // Without indentation: it would be a third of the file.
  file.save(out, "", pugi::format_default, pugi::encoding_utf8);
  return out.str();
}

}  // namespace tav
