#include "persist/template_block.h"

#include <cmath>
#include <limits>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/tokenizer.h"
#include "persist/comment_lines.h"

namespace tav {
namespace {

constexpr std::string_view kEndMarker = "End Template Block";
constexpr std::size_t kMostEntries = std::numeric_limits<std::int16_t>::max();

// Texts by number.
constexpr int kFileEnds = 7919;
constexpr int kTwice = 7927;
constexpr int kNoKey = 7928;
constexpr int kNumberTooLarge = 7929;
constexpr int kShouldBeNumber = 7930;
constexpr int kNoFlag = 7931;
constexpr int kShouldBeFlag = 7932;
constexpr int kNot16Bits = 7933;
constexpr int kFactorsSwapped = 7934;
constexpr int kTooManyEntries = 7935;
constexpr int kNoColon = 7936;
constexpr int kNoComma = 7937;
constexpr int kTooManyBlends = 7938;
constexpr int kShouldBeBlend = 7939;
constexpr int kShouldGiveShares = 7940;
constexpr int kSumOfShares = 7941;
constexpr int kNoDepth = 7942;
constexpr int kNoSuchGas = 7943;

struct NumberField {
  std::string_view key;
  Single DiveTemplate::*field;
};

constexpr NumberField kNumberFields[] = {{"Setpoint", &DiveTemplate::Setpoint},
                                         {"DecoSetpoint", &DiveTemplate::DecoSetpoint},
                                         {"MinPPO2", &DiveTemplate::MinPPO2},
                                         {"MaxPPO2", &DiveTemplate::MaxPPO2},
                                         {"Maximal END", &DiveTemplate::MaximalEND},
                                         {"DecoPPO2", &DiveTemplate::DecoPPO2},
                                         {"StartAltitude", &DiveTemplate::StartAltitude},
                                         {"EndAltitude", &DiveTemplate::EndAltitude},
                                         {"StartPressure", &DiveTemplate::StartPressure},
                                         {"EndPressure", &DiveTemplate::EndPressure},
                                         {"RMV", &DiveTemplate::RMV},
                                         {"DecoRMV", &DiveTemplate::DecoRMV},
                                         {"StepSize", &DiveTemplate::StepSize},
                                         {"LastStop", &DiveTemplate::LastStop}};

struct FlagField {
  std::string_view key;
  bool DiveTemplate::*field;
};

constexpr FlagField kFlagFields[] = {{"OCDeco", &DiveTemplate::OCDeco},
                                     {"AutoDecoGas", &DiveTemplate::AutoDecoGas},
                                     {"Open Circuit", &DiveTemplate::OpenCircuit},
                                     {"O2Narcotic", &DiveTemplate::O2Narcotic},
                                     {"AdeptedToHeight", &DiveTemplate::AdeptedToHeight},
                                     {"PPO2Low", &DiveTemplate::PPO2Low},
                                     {"PPO2High", &DiveTemplate::PPO2High},
                                     {"MaxEnd", &DiveTemplate::MaxEnd},
                                     {"Metric", &DiveTemplate::Metric},
                                     {"DepthAdjust", &DiveTemplate::DepthAdjust}};

class Reader {
 public:
  Reader(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults)
      : template_(diveTemplate), lines_(lines), faults_(faults), comments_(diveTemplate, faults) {}

  KeyLines Run() {
    template_.Blends.assign(1, AirMix());
    lines_.Next();
    std::string_view rest;
    while (rest != kEndMarker) {
      const auto line = lines_.Next();
      if (!line) {
        faults_.Error(lines_.LineNumber(), {kFileEnds, {std::string(kEndMarker)}});
        break;
      }
      // A comment is told by its first column alone. The end marker is looked for in the untrimmed rest of a line.
      if (line->starts_with('#')) {
        comments_.Read(*line, lines_.LineNumber());
        continue;
      }
      const std::size_t equals = line->find('=');
      rest = equals == std::string_view::npos ? *line : line->substr(equals + 1);
      key_ = TrimBlanks(line->substr(0, equals));
      if (rest != kEndMarker || equals != std::string_view::npos) Store(TrimBlanks(rest));
    }
    // Files written before the separate breathing rate of the decompression existed.
    if (template_.DecoRMV == 0) template_.DecoRMV = template_.RMV;
    comments_.Finish();
    return std::move(keyLines_);
  }

 private:
  /// A text that begins with the key, and the values behind it.
  [[nodiscard]] Message OfKey(int text, std::vector<Message> values) const {
    values.insert(values.begin(), std::string(key_));
    return {text, std::move(values)};
  }
  void Error(int text, std::vector<Message> values = {}) {
    faults_.Error(lines_.LineNumber(), OfKey(text, std::move(values)));
  }
  void Advise(int text, std::vector<Message> values = {}) {
    faults_.Advise(lines_.LineNumber(), OfKey(text, std::move(values)));
  }

  void Store(std::string_view value) {
    if (StoreKnown(value)) {
      auto& lines = keyLines_[std::string(key_)];
      lines.push_back(lines_.LineNumber());
      if (lines.size() == 2 && key_ != "Blends Available") Advise(kTwice);
    } else if (key_ != "CeilingOverride" && !key_.empty()) {
      faults_.Advise(lines_.LineNumber(), {kNoKey, {Shown(key_)}});
    }
  }

  bool StoreKnown(std::string_view value) {
    for (const NumberField& number : kNumberFields) {
      if (number.key == key_) return (template_.*number.field = Lenient(value)), true;
    }
    for (const FlagField& flag : kFlagFields) {
      if (flag.key == key_) return (template_.*flag.field = Flag(value)), true;
    }
    if (key_ == "TimeToHeight") return StoreTimeToHeight(value), true;
    if (key_ == "GF") return StoreGradientFactors(value), true;
    if (key_ == "AscendRates") return StoreRates(value, template_.AscendRates), true;
    if (key_ == "DescendRates") return StoreRates(value, template_.DescendRates), true;
    if (key_ == "Blends Available") return StoreBlend(value), true;
    if (key_ == "Change Gas Mixes") return StoreChanges(value), true;
    if (key_ == "Templatename") return (template_.Templatename = value), true;
    return false;
  }

  /// A number must fit the 32 bits of its field.
  Single Fitting(double value, std::string_view text) {
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
      Error(kNumberTooLarge, {Shown(text)});
      return 0;
    }
    return value;
  }

  Single Lenient(std::string_view text) {
    if (!IsNumber(text)) Advise(kShouldBeNumber, {Shown(text), FormatPlain(Single(ParseLenient(text)))});
    return Fitting(ParseLenient(text), text);
  }

  bool Flag(std::string_view text) {
    const auto number = ParseStrict(text);
    if (!number) {
      Error(kNoFlag, {Shown(text)});
      return false;
    }
    if (*number != 0 && *number != 1) Advise(kShouldBeFlag, {Shown(text)});
    return *number == 1;
  }

  void StoreTimeToHeight(std::string_view value) {
    const auto minutes = RoundToInt16(Lenient(value));
    if (!minutes) Error(kNot16Bits, {Shown(value)});
    template_.TimeToHeight = minutes.value_or(0);
  }

  void StoreGradientFactors(std::string_view value) {
    template_.UseGF = Flag(ClassTokenizer::nthToken(value, 1, ","));
    template_.GFHigh = Lenient(ClassTokenizer::nthToken(value, 2, ","));
    template_.GFLow = Lenient(ClassTokenizer::nthToken(value, 3, ","));
    if (template_.UseGF && template_.GFLow > template_.GFHigh) {
      Advise(kFactorsSwapped);
    }
  }

  /// Hands each item that ends in a comma to `store`, as (number of the item, text before ":", text behind).
  template <class Store>
  void ForEachItem(std::string_view value, Store store) {
    for (std::size_t count = 0; ClassTokenizer::hastokens(value, ","); ++count) {
      if (count == kMostEntries) {
        Error(kTooManyEntries);
        return;
      }
      std::string_view item = ClassTokenizer::nextToken(value, ",");
      const bool pair = ClassTokenizer::hastokens(item, ":");
      if (!pair) Advise(kNoColon, {Shown(item)});
      const std::string_view before = ClassTokenizer::nextToken(item, ":");
      store(count, before, item);
    }
    if (!TrimBlanks(value).empty()) Advise(kNoComma, {Shown(value)});
  }

  void StoreRates(std::string_view value, std::vector<RateEntry>& rates) {
    ForEachItem(value, [&](std::size_t count, std::string_view depth, std::string_view rate) {
      rates.resize(count + 1);
      rates[count].Depth = Lenient(depth);
      rates[count].Rate = Lenient(rate);
    });
  }

  void StoreBlend(std::string_view value) {
    if (template_.Blends.size() > kMostEntries) {
      Error(kTooManyBlends);
      return;
    }
    GasMix mix;
    if (!ClassTokenizer::hastokens(value, ":")) Advise(kShouldBeBlend);
    mix.Name = ClassTokenizer::nextToken(value, ":");
    const auto percentage = [&] {
      if (!ClassTokenizer::hastokens(value, "/")) Advise(kShouldGiveShares, {Shown(mix.Name)});
      return Lenient(ClassTokenizer::nextToken(value, "/"));
    };
    mix.O2 = percentage();
    mix.N2 = percentage();
    mix.He = percentage();
    const double sum = mix.O2 + mix.N2 + mix.He;
    if (std::fabs(sum - 100) > 0.5) Advise(kSumOfShares, {Shown(mix.Name), FormatPlain(sum)});
    template_.Blends.push_back(std::move(mix));
  }

  void StoreChanges(std::string_view value) {
    ForEachItem(value, [&](std::size_t count, std::string_view depth, std::string_view name) {
      template_.ChangeGasMixes.resize(count + 1);
      GasChange& change = template_.ChangeGasMixes[count];
      const auto number = ParseStrict(depth);
      if (!number) Error(kNoDepth, {Shown(depth)});
      change = {std::string(name), 0, 0, 0, Fitting(number.value_or(0), depth)};
    });
    for (const std::string& name : ResolveGasChanges(template_)) {
      Advise(kNoSuchGas, {Shown(name)});
    }
  }

  DiveTemplate& template_;
  LineReader& lines_;
  FormatFaults& faults_;
  CommentLines comments_;
  std::string_view key_;
  KeyLines keyLines_;
};

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
  out.Line("Start Template Block");
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
  out.Line((t.Templatename == kEndMarker ? "Templatename= " : "Templatename=") + t.Templatename);
  out.Line(kEndMarker);
  return out.Take();
}

KeyLines ReadTemplateBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults) {
  return Reader(diveTemplate, lines, faults).Run();
}

int LineOfFault(const TemplateFault& fault, const KeyLines& lines, int blockLine) {
  const auto found = lines.find(fault.key);
  if (found == lines.end()) return blockLine;
  const bool counted = fault.occurrence >= 0 && static_cast<std::size_t>(fault.occurrence) < found->second.size();
  return counted ? found->second[static_cast<std::size_t>(fault.occurrence)] : found->second.back();
}

}  // namespace tav
