#include "model/number_text.h"
#include "persist/comment_lines.h"
#include "persist/template_block.h"

namespace tav {
namespace {

/// Collects the lines of a block.
class Writer {
 public:
  void Line(std::string_view text) { (text_ += text) += "\r\n"; }
  void Number(std::string_view key, Single value) { Line(std::string(key) + "=" + FormatPadded(value)); }
  void Flag(std::string_view key, bool value) { Line(std::string(key) + (value ? "=1" : "=0")); }
  void Rates(std::string_view key, const std::vector<RateEntry>& rates) {
    std::string line = std::string(key) + "=";
    for (const RateEntry& entry : rates) line += FormatPadded(entry.Depth) + ":" + FormatPadded(entry.Rate) + ",";
    Line(line);
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

std::string WriteTemplateBlock(const DiveTemplate& diveTemplate) {
  const DiveTemplate& t = diveTemplate;
  Writer out;
  out.Line(kStartOfBlock);
  out.Line("# Constant PPO2 settings");
  out.Number("Setpoint", t.Setpoint);
  out.Number("DecoSetpoint", t.DecoSetpoint);
  out.Flag("OCDeco", t.OCDeco);
  out.Flag("AutoDecoGas", t.AutoDecoGas);
  out.Flag("Open Circuit", t.OpenCircuit);
  out.Flag("O2Narcotic", t.O2Narcotic);
  out.Number("MinPPO2", t.MinPPO2);
  out.Number("Maximal END", t.MaximalEND);
  out.Number("MaxPPO2", t.MaxPPO2);
  out.Number("DecoPPO2", t.DecoPPO2);
  out.Line("# Altitude settings");
  out.Flag("AdeptedToHeight", t.AdeptedToHeight);
  out.Number("TimeToHeight", static_cast<double>(t.TimeToHeight));
  out.Number("StartAltitude", t.StartAltitude);
  out.Number("StartPressure", t.StartPressure);
  out.Number("EndAltitude", t.EndAltitude);
  out.Number("EndPressure", t.EndPressure);
  out.Line("# Warning section");
  out.Flag("PPO2Low", t.PPO2Low);
  out.Flag("PPO2High", t.PPO2High);
  out.Flag("MaxEnd", t.MaxEnd);
  out.Line(t.CeilingOverride ? "CeilingOverride= 1" : "CeilingOverride= 0");
  out.Line("# Properties");
  out.Number("RMV", t.RMV);
  out.Number("DecoRMV", t.DecoRMV);
  out.Number("StepSize", t.StepSize);
  out.Number("LastStop", t.LastStop);
  out.Flag("Metric", t.Metric);
  out.Line("# Conservatism");
  out.Flag("DepthAdjust", t.DepthAdjust);
  out.Line((t.UseGF ? "GF=1," : "GF=0,") + FormatPadded(t.GFHigh) + "," + FormatPadded(t.GFLow));
  out.Line("# Ascend Descend Rates");
  out.Rates("AscendRates", t.AscendRates);
  out.Rates("DescendRates", t.DescendRates);
  out.Line("# Gas Mixes");
  for (std::size_t i = 1; i < t.Blends.size(); ++i) {
    const GasMix& mix = t.Blends[i];
    out.Line("Blends Available=" + mix.Name + ":" + FormatPadded(mix.O2) + "/" + FormatPadded(mix.N2) + "/" +
             FormatPadded(mix.He) + "/");
  }
  out.Line("# ChangeGasMix");
  std::string changes = "Change Gas Mixes=";
  for (const GasChange& change : t.ChangeGasMixes) changes += FormatPadded(change.Depth) + ":" + change.Name + ",";
  out.Line(changes);
  for (const std::string& line : WriteCommentLines(t)) out.Line(line);
  // A value that reads as the end marker would end the block early; behind a blank it is a name like any other.
  out.Line((t.Templatename == kEndOfBlock ? "Templatename= " : "Templatename=") + t.Templatename);
  out.Line(kEndOfBlock);
  return out.Take();
}

}  // namespace tav
