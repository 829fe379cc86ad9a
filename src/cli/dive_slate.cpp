#include <utility>

#include "cli/computed_dive.h"
#include "cli/terminal_text.h"
#include "model/number_text.h"
#include "report/schedule.h"

namespace tav {
namespace {

std::string Short(Single value) { return ScheduleText::ShortNumber(value); }

std::string Percent(Single fraction) { return FormatFixed(Single(fraction * 100), 0); }

class Slate {
 public:
  explicit Slate(const ComputedDive& dive)
      : dive_(dive), template_(dive.document->Template), schedule_(*dive.rows, template_) {}

  std::string Text(bool why, const TextSource& texts) {
    Title();
    Settings();
    text_ += "\n" + schedule_.Aligned() + "\n";
    for (const std::string& total : schedule_.Totals()) Line("  " + total);
    if (why) Reasons(AdviceWords(texts, {".", ""}, template_.Metric));
    text_ += SupplyLines(dive_, texts);
    for (const Finding& finding : dive_.findings) text_ += FindingLine(finding);
    return std::move(text_);
  }

 private:
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

  void Reasons(const AdviceWords& words) {
    Line("");
    for (const StopReason& reason : dive_.reasons) {
      const std::string depth = words.Depth(dive_.rows->getDepth(reason.row));
      const std::string stop = "  stop " + std::string(depth.size() < 6 ? 6 - depth.size() : 0, ' ') + depth + "  ";
      text_ += Wrapped(stop + TextOf(reason, words), stop.size());
    }
  }

  const ComputedDive& dive_;
  const DiveTemplate& template_;
  ScheduleText schedule_;
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
