#include <algorithm>
#include <utility>

#include "cli/computed_dive.h"
#include "cli/terminal_text.h"
#include "model/number_text.h"

namespace tav {
namespace {

/// Minutes or depth with a decimal only where there is one: "25", "22.2".
std::string Short(Single value) {
  std::string text = FormatFixed(value, 1);
  if (text.ends_with(".0")) text.resize(text.size() - 2);
  return text;
}

std::string Percent(Single fraction) { return FormatFixed(Single(fraction * 100), 0); }

class Slate {
 public:
  explicit Slate(const ComputedDive& dive)
      : dive_(dive), template_(dive.document->Template), rows_(*dive.rows), lastUserRow_(LastUserRow(rows_)) {
    for (int i = 1; i <= rows_.GetLength(); ++i) gasWidth_ = std::max(gasWidth_, Row(i).GasMixName.size());
  }

  std::string Text(bool why, const TextSource& texts) {
    Title();
    Settings();
    Rows();
    Totals();
    if (why) Reasons(AdviceWords(texts, {".", ""}, template_.Metric));
    for (const Finding& finding : dive_.findings) text_ += FindingLine(finding);
    return std::move(text_);
  }

 private:
  [[nodiscard]] const Waypoint& Row(int i) const { return rows_.Row(static_cast<std::int16_t>(i)); }
  [[nodiscard]] std::string LengthUnit() const { return template_.Metric ? " m" : " ft"; }
  [[nodiscard]] std::string PressureUnit() const { return template_.Metric ? " bar" : " atm"; }

  void Line(const std::string& text) { (text_ += text) += "\n"; }

  void Title() {
    std::string title = dive_.file;
    if (dive_.ofDives > 1) {
      title += ", dive " + std::to_string(dive_.number) + " of " + std::to_string(dive_.ofDives);
      if (dive_.number > 1) title += " after " + Short(dive_.document->SurfaceInterval) + " min at the surface";
    }
    Line(title);
  }

  void Settings() {
    std::string text = dive_.model;
    if (template_.UseGF) text += ", GF " + Percent(template_.GFLow) + "/" + Percent(template_.GFHigh);
    if (template_.DepthAdjust) text += ", depths adjusted";
    if (template_.OpenCircuit) {
      text += ", open circuit";
    } else {
      text += ", rebreather " + FormatFixed(template_.Setpoint, 2) + "/" + FormatFixed(template_.DecoSetpoint, 2) +
              PressureUnit();
      if (template_.OCDeco) text += ", stops on open circuit";
    }
    text += ", " + Place(template_.StartAltitude, template_.StartPressure);
    if (!template_.AdeptedToHeight) text += " (not adapted)";
    if (template_.EndPressure != template_.StartPressure) {
      text += ", ends at " + Place(template_.EndAltitude, template_.EndPressure);
    }
    Line(text + ", stops every " + Short(template_.StepSize) + LengthUnit() + ", last " + Short(template_.LastStop) +
         LengthUnit());
  }

  [[nodiscard]] std::string Place(Single altitude, Single pressure) const {
    return altitude == 0 ? "sea level"
                         : Short(altitude) + LengthUnit() + " (" + FormatFixed(pressure, 3) + PressureUnit() + ")";
  }

  void Rows() {
    const std::string unit = template_.Metric ? "m" : "ft";
    Line("");
    Line("  " + Left("", 8) + Right("Depth", 7) + Right("Time", 7) + Right("Run", 7) + "  " + Left("Gas", gasWidth_) +
         Right("PPO2", 7));
    Line("  " + Left("", 8) + Right(unit, 7) + Right("min", 7) + Right("min", 7) + "  " + Left("", gasWidth_) +
         Right(template_.Metric ? "bar" : "atm", 7));
    for (int i = 1; i <= rows_.GetLength(); ++i) {
      const std::string kind = Kind(i);
      if (!kind.empty()) RowLine(kind, Row(i));
    }
    Line("");
  }

  /// What a row is to the diver; empty for the moves between stops, which the slate leaves out.
  [[nodiscard]] std::string Kind(int i) const {
    const Waypoint& row = Row(i);
    if (row.Status == RowStatus::kStop) return "stop";
    if (i <= lastUserRow_) return row.Rate > 0 ? "descent" : row.Rate < 0 ? "ascent" : "level";
    return i == rows_.GetLength() ? "surface" : "";
  }

  void RowLine(const std::string& kind, const Waypoint& row) {
    const bool stop = row.Status == RowStatus::kStop && row.StopTime > 0;
    const Single time = stop ? row.StopTime : row.SegmentTime;
    Line("  " + Left(kind, 8) + Right(Short(row.Depth), 7) + Right(kind == "surface" ? "" : Short(time), 7) +
         Right(Short(row.RunTime), 7) + "  " + Left(row.GasMixName, gasWidth_) + Right(FormatFixed(row.PPO2, 2), 7));
  }

  void Totals() {
    const Waypoint& last = Row(rows_.GetLength());
    double stopTime = 0;
    std::vector<std::pair<std::string, double>> gases;
    for (int i = 1; i <= rows_.GetLength(); ++i) {
      const Waypoint& row = Row(i);
      stopTime += row.StopTime;
      auto gas = std::find_if(gases.begin(), gases.end(), [&](const auto& g) { return g.first == row.GasMixName; });
      if (gas == gases.end()) gas = gases.insert(gases.end(), {row.GasMixName, 0.0});
      gas->second += row.GasUsed;
    }
    Line("  Run time " + Short(last.RunTime) + " min, stops " + Short(stopTime) + " min, CNS " +
         Percent(last.TotalCNS) + " %, OTU " + FormatFixed(last.TotalOTU, 0));
    std::string used;
    for (const auto& [name, volume] : gases) {
      if (volume <= 0) continue;
      used += (used.empty() ? "  Gas " : ", ") + name + " " + FormatFixed(Single(volume), template_.Metric ? 0 : 1) +
              (template_.Metric ? " l" : " cu ft");
    }
    if (!used.empty()) Line(used);
    if (lastUserRow_ == rows_.GetLength()) Line("  No ascent has been asked for.");
  }

  void Reasons(const AdviceWords& words) {
    Line("");
    for (const StopReason& reason : dive_.reasons) {
      const std::string stop = "  stop " + Right(words.Depth(rows_.getDepth(reason.row)), 6) + "  ";
      text_ += Wrapped(stop + TextOf(reason, words), stop.size());
    }
  }

  const ComputedDive& dive_;
  const DiveTemplate& template_;
  const ClassProfile& rows_;
  int lastUserRow_;
  std::size_t gasWidth_ = 3;
  std::string text_;
};

}  // namespace

std::string FindingLine(const Finding& finding) {
  return Wrapped((finding.severity == Severity::Note ? "- " : "! ") + finding.text, 2);
}

std::string DiveSlate(const ComputedDive& dive, bool why, const TextSource& texts) {
  return Slate(dive).Text(why, texts);
}

}  // namespace tav
