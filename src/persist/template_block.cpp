#include "persist/template_block.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "model/tokenizer.h"
#include "persist/comment_lines.h"
#include "persist/template_fields.h"

namespace tav {
namespace {

constexpr std::string_view kBlends = "Blends Available";
constexpr std::string_view kChanges = "Change Gas Mixes";
constexpr std::size_t kMostEntries = std::numeric_limits<std::int16_t>::max();

std::string Quoted(std::string_view key) { return '"' + std::string(key) + '"'; }

class Reader {
 public:
  Reader(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults)
      : template_(diveTemplate), lines_(lines), faults_(faults), comments_(diveTemplate, faults) {}

  KeyLines Run() {
    if (template_.Blends.empty()) template_.Blends.assign(1, AirMix());
    lines_.Next();
    bool atEnd = false;
    while (!atEnd) {
      const auto line = lines_.Next();
      if (!line) {
        faults_.Error(lines_.LineNumber(), {Text::FileEnds, {std::string(kEndOfBlock)}});
        break;
      }
      // A comment is told by its first column alone. Blanks may stand behind the end marker, but not ahead of it.
      if (line->starts_with('#')) {
        const std::string_view name = comments_.Read(*line, lines_.LineNumber());
        if (!name.empty()) keyLines_["# " + std::string(name)].push_back(lines_.LineNumber());
        continue;
      }
      const std::size_t equals = line->find('=');
      const std::string_view rest = equals == std::string_view::npos ? *line : line->substr(equals + 1);
      key_ = TrimBlanks(line->substr(0, equals));
      atEnd = IsMarker(rest, kEndOfBlock);
      if (!atEnd || equals != std::string_view::npos) Store(TrimBlanks(rest));
    }
    // Files written before the separate breathing rate of the decompression existed lack it alone, or hold 0.
    const bool older = MissingKeys(keyLines_, BlockOf::Template) == Quoted(kDecoRMV);
    if (older) keyLines_[std::string(kDecoRMV)];
    if (older || template_.DecoRMV == 0) template_.DecoRMV = template_.RMV;
    FinishGases();
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
      if (lines.size() == 2 && key_ != kBlends) Advise(Text::KeyTwice);
    } else if (key_ != "CeilingOverride" && !key_.empty()) {
      faults_.Advise(lines_.LineNumber(), {Text::KeyUnknown, {Shown(key_)}});
    }
  }

  bool StoreKnown(std::string_view value) {
    const auto* const known = std::ranges::find(kTemplateFields, key_, &TemplateField::key);
    if (known != std::end(kTemplateFields)) {
      std::visit([&](auto field) { Take(value, template_.*field); }, known->field);
      return true;
    }
    if (key_ == "TimeToHeight") return StoreTimeToHeight(value), true;
    if (key_ == "GF") return StoreGradientFactors(value), true;
    if (key_ == "AscendRates") return StoreRates(value, template_.AscendRates), true;
    if (key_ == "DescendRates") return StoreRates(value, template_.DescendRates), true;
    if (key_ == kBlends) return StoreBlend(value), true;
    if (key_ == kChanges) return StoreChanges(value), true;
    if (key_ == "Templatename") return (template_.Templatename = value), true;
    return false;
  }

  /// A number must fit the 32 bits of its field.
  Single Fitting(double value, std::string_view text) {
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
      Error(Text::KeyTooLarge, {Shown(text)});
      return 0;
    }
    return value;
  }

  Single Lenient(std::string_view text) {
    if (!BeginsWithNumber(text)) {
      Error(Text::KeyHoldsNoNumber, {Shown(text)});
      return 0;
    }
    const std::size_t comma = text.find(',');
    if (IsNumber(text.substr(0, comma)) && comma != std::string_view::npos &&
        BeginsWithNumber(text.substr(comma + 1))) {
      Error(Text::DecimalComma, {Shown(text)});
    }
    if (!IsNumber(text)) Advise(Text::KeyShouldBeNumber, {Shown(text), FormatPlain(Single(ParseLenient(text)))});
    return Fitting(ParseLenient(text), text);
  }

  bool Flag(std::string_view text) {
    const auto number = ParseStrict(text);
    if (!number) {
      Error(Text::KeyNoFlag, {Shown(text)});
      return false;
    }
    if (*number != 0 && *number != 1) Advise(Text::KeyShouldBeFlag, {Shown(text)});
    return *number == 1;
  }

  void Take(std::string_view value, Single& field) { field = Lenient(value); }
  void Take(std::string_view value, bool& field) { field = Flag(value); }

  void StoreTimeToHeight(std::string_view value) {
    const auto minutes = RoundToInt16(Lenient(value));
    if (!minutes) Error(Text::KeyNot16Bits, {Shown(value)});
    template_.TimeToHeight = minutes.value_or(0);
  }

  void StoreGradientFactors(std::string_view value) {
    // A fourth value is the half of a number with a comma for its point.
    const int count = ClassTokenizer::tokenCount(value, ",");
    const bool commaBehind = count == 4 && ClassTokenizer::nthToken(value, 4, ",").empty();
    if (count != 3 && !commaBehind) {
      Error(Text::KeyThreeFactors, {Shown(value)});
      return;
    }
    template_.UseGF = Flag(ClassTokenizer::nthToken(value, 1, ","));
    template_.GFHigh = Lenient(ClassTokenizer::nthToken(value, 2, ","));
    template_.GFLow = Lenient(ClassTokenizer::nthToken(value, 3, ","));
    if (template_.UseGF && template_.GFLow > template_.GFHigh) {
      Advise(Text::KeyFactorsSwapped);
    }
  }

  /// Hands each item that ends in a comma to `store`, as (text before ":", text behind).
  template <class Store>
  void ForEachItem(std::string_view value, Store store) {
    for (std::size_t count = 0; ClassTokenizer::hastokens(value, ","); ++count) {
      if (count == kMostEntries) {
        Error(Text::KeyTooManyEntries);
        return;
      }
      std::string_view item = ClassTokenizer::nextToken(value, ",");
      const bool pair = ClassTokenizer::hastokens(item, ":");
      if (!pair) {
        Error(Text::KeyNoColon, {Shown(item)});
        continue;
      }
      const std::string_view before = ClassTokenizer::nextToken(item, ":");
      store(before, item);
    }
    if (!TrimBlanks(value).empty()) Advise(Text::KeyNoComma, {Shown(value)});
  }

  void StoreRates(std::string_view value, std::vector<RateEntry>& rates) {
    rates.clear();
    ForEachItem(value, [&](std::string_view depth, std::string_view rate) {
      RateEntry& entry = rates.emplace_back();
      entry.Depth = Lenient(depth);
      entry.Rate = Lenient(rate);
    });
  }

  void StoreBlend(std::string_view value) {
    if (!keyLines_.contains(kBlends)) template_.Blends.assign(1, AirMix());
    if (template_.Blends.size() > kMostEntries) {
      Error(Text::KeyTooManyBlends);
      return;
    }
    GasMix mix;
    if (!ClassTokenizer::hastokens(value, ":")) {
      Error(Text::KeyShouldBeBlend);
      return;
    }
    mix.Name = ClassTokenizer::nextToken(value, ":");
    const auto percentage = [&] {
      if (!ClassTokenizer::hastokens(value, "/")) Advise(Text::KeyShouldGiveShares, {Shown(mix.Name)});
      return Lenient(ClassTokenizer::nextToken(value, "/"));
    };
    mix.O2 = percentage();
    mix.N2 = percentage();
    const bool closed = ClassTokenizer::hastokens(value, "/");
    mix.He = percentage();
    if (closed && !TrimBlanks(value).empty()) Advise(Text::KeyShouldGiveShares, {Shown(mix.Name)});
    template_.Blends.push_back(std::move(mix));
  }

  void StoreChanges(std::string_view value) {
    template_.ChangeGasMixes.clear();
    ForEachItem(value, [&](std::string_view depth, std::string_view name) {
      const auto number = ParseStrict(depth);
      if (!number) Error(Text::KeyNoDepth, {Shown(depth)});
      template_.ChangeGasMixes.push_back({std::string(name), 0, 0, 0, Fitting(number.value_or(0), depth)});
    });
    ResolveChanges();
  }

  void ResolveChanges() {
    for (const std::string& name : ResolveGasChanges(template_)) {
      faults_.Advise(lines_.LineNumber(), {Text::KeyNoSuchGas, {std::string(kChanges), Shown(name)}});
    }
  }

  /// The gases of a block that tells none are those of the record, unless it tells all else: so a record that has Air
  /// alone is written.
  void FinishGases() {
    const auto isAir = [](const GasChange& change) { return change.Name == AirMix().Name; };
    if (!keyLines_.contains(kBlends)) {
      const bool complete = MissingKeys(keyLines_, BlockOf::Template) == Quoted(kBlends);
      if (complete && std::ranges::all_of(template_.ChangeGasMixes, isAir)) {
        template_.Blends.assign(1, AirMix());
        keyLines_[std::string(kBlends)];
      }
    } else if (!keyLines_.contains(kChanges)) {
      ResolveChanges();
    }
  }

  DiveTemplate& template_;
  LineReader& lines_;
  FormatFaults& faults_;
  CommentLines comments_;
  std::string_view key_;
  KeyLines keyLines_;
};

}  // namespace

KeyLines ReadTemplateBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults) {
  return Reader(diveTemplate, lines, faults).Run();
}

KeyLines ReadDiveBlock(DiveTemplate& diveTemplate, LineReader& lines, FormatFaults& faults) {
  KeyLines told = ReadTemplateBlock(diveTemplate, lines, faults);
  if (diveTemplate.OpenCircuit) {
    DiveTemplate asNew;
    SetUpNewPlan(asNew);
    if (!told.contains("# Loop")) diveTemplate.KeepsDiluent = asNew.KeepsDiluent;
    if (!told.contains("# Surface interval")) diveTemplate.IntervalOnAir = asNew.IntervalOnAir;
  }
  return told;
}

std::string MissingKeys(const KeyLines& told, BlockOf block) {
  std::vector<std::string_view> keys;
  for (const TemplateField& field : kTemplateFields) keys.push_back(field.key);
  for (const std::string_view key : {"TimeToHeight", "GF", "AscendRates", "DescendRates"}) keys.push_back(key);
  keys.push_back(kBlends);
  keys.push_back(kChanges);
  std::string missing;
  for (const std::string_view key : keys) {
    if (told.contains(key) || key == "AutoDecoGas") continue;
    if (block == BlockOf::Dive && (key == kBlends || key == kDecoRMV)) continue;
    missing += (missing.empty() ? "" : ", ") + Quoted(key);
  }
  return missing;
}

int LineOfFault(const TemplateFault& fault, const KeyLines& lines, int blockLine) {
  const auto found = lines.find(fault.key);
  if (found == lines.end() || found->second.empty()) return blockLine;
  const bool counted = fault.occurrence >= 0 && static_cast<std::size_t>(fault.occurrence) < found->second.size();
  return counted ? found->second[static_cast<std::size_t>(fault.occurrence)] : found->second.back();
}

}  // namespace tav
