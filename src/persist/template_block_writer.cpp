#include <algorithm>
#include <sstream>

#include "model/number_text.h"
#include "persist/comment_lines.h"
#include "persist/template_block.h"
#include "persist/template_fields.h"

namespace tav {
namespace {

/// Collects the lines of a block.
class Writer {
 public:
  void Line(std::string_view text) { (text_ += text) += "\r\n"; }
  void Value(std::string_view key, Single value) { Line(std::string(key) + "=" + FormatPadded(value)); }
  void Value(std::string_view key, bool value) { Line(std::string(key) + (value ? "=1" : "=0")); }
  void Fields(BlockSection section, const DiveTemplate& t) {
    for (const TemplateField& field : kTemplateFields) {
      if (field.section == section) std::visit([&](auto member) { Value(field.key, t.*member); }, field.field);
    }
  }
  void Rates(std::string_view key, const std::vector<RateEntry>& rates) {
    std::string line = std::string(key) + "=";
    for (const RateEntry& entry : rates) line += FormatPadded(entry.Depth) + ":" + FormatPadded(entry.Rate) + ",";
    Line(line);
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

/// " .85, .3" as people write it: "0.85,0.3".
std::string WithoutPadding(std::string_view value) {
  std::string text;
  bool begins = true;  // a number or a name
  for (const char c : value) {
    if (begins && c == ' ') continue;
    if (begins && c == '.') text += '0';
    text += c;
    begins = c == ':' || c == ',' || c == '/' || (begins && c == '-');
  }
  return text;
}

}  // namespace

std::string WriteTemplateBlock(const DiveTemplate& diveTemplate) {
  const DiveTemplate& t = diveTemplate;
  Writer out;
  out.Line(kStartOfBlock);
  out.Line("# Constant PPO2 settings");
  out.Fields(BlockSection::Setpoints, t);
  out.Line("# Altitude settings");
  out.Fields(BlockSection::Travel, t);
  out.Value("TimeToHeight", Single(t.TimeToHeight));
  out.Fields(BlockSection::Altitude, t);
  out.Line("# Warning section");
  out.Fields(BlockSection::Warnings, t);
  out.Line(t.CeilingOverride ? "CeilingOverride= 1" : "CeilingOverride= 0");
  out.Line("# Properties");
  out.Fields(BlockSection::Properties, t);
  out.Line("# Conservatism");
  out.Fields(BlockSection::Conservatism, t);
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

std::vector<BlockValue> BlockValues(const DiveTemplate& diveTemplate) {
  constexpr std::string_view kWithoutBearing[] = {"AutoDecoGas", "CeilingOverride", "Templatename", "# Plan name",
                                                  "# Place",     "# Notes",         "# Team stays"};
  std::vector<BlockValue> values;
  std::istringstream block(WriteTemplateBlock(diveTemplate));
  for (std::string line; std::getline(block, line);) {
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    const std::string key = line.substr(0, equals);
    if (std::ranges::find(kWithoutBearing, key) != std::end(kWithoutBearing)) continue;
    if (diveTemplate.OpenCircuit && (key == "# Loop" || key == "# Surface interval")) continue;
    std::string value = line.substr(equals + 1);
    std::erase(value, '\r');
    // Of a comment, the blanks are its own.
    if (!key.starts_with('#')) value = WithoutPadding(value);
    if (!values.empty() && values.back().key == key) {
      values.back().value += " " + value;
    } else {
      values.push_back({key, value});
    }
  }
  return values;
}

}  // namespace tav
