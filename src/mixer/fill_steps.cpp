#include "mixer/fill_steps.h"

#include <algorithm>
#include <cctype>

#include "mixer/gas_words.h"
#include "model/gas_name.h"
#include "model/number_texts.h"
#include "model/text_id.h"

namespace tav {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::vector<std::string> Parted(const std::string& text, const LocaleSeparators& separators) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool decimal = text[i] == ',' && separators.decimal == "," && i > 0 && IsDigit(text[i - 1]) &&
                         i + 1 < text.size() && IsDigit(text[i + 1]);
    if (std::string_view(" \t,;").find(text[i]) == std::string_view::npos || decimal) {
      parts.back() += text[i];
    } else if (!parts.back().empty()) {
      parts.emplace_back();
    }
  }
  if (parts.back().empty()) parts.pop_back();
  return parts;
}

std::optional<MixShares> GasNamed(const std::string& name, const FillRequest& request, const TextSource& texts,
                                  const LocaleSeparators& separators) {
  std::string lower = name;
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) {
    return c < 0x80 ? static_cast<char>(std::tolower(c)) : static_cast<char>(c);
  });
  const auto is = [&](const char* symbol, int word) { return lower == symbol || name == texts.GetResString(word); };
  if (is("he", Text::Helium) || lower == "helium") return MixShares{0, 100, 0};
  if (is("o2", Text::Oxygen) || lower == "oxygen") return MixShares{100, 0, 0};
  if (is("air", Text::Air)) return kAir;
  if (lower == "top") return request.top;
  std::string usual = name;
  if (lower.starts_with("ean")) usual.replace(0, 3, "EAN");
  if (lower.starts_with("tx")) usual.replace(0, 2, "Tx");
  if (const auto mix = MixOfName(usual)) return MixOf(mix->O2, mix->He);
  const std::size_t slash = name.find('/');
  if (slash == std::string::npos) return std::nullopt;
  const auto o2 = ParseLocaleNumber(name.substr(0, slash), separators);
  const auto he = ParseLocaleNumber(name.substr(slash + 1), separators);
  if (!o2 || !he || !(*o2 >= 0 && *he >= 0 && *o2 + *he <= 100)) return std::nullopt;
  return MixOf(*o2, *he);
}

}  // namespace

std::vector<DoneStep> ParseSteps(const std::string& text, const FillRequest& request, const TextSource& texts,
                                 const LocaleSeparators& separators) {
  std::vector<DoneStep> steps;
  double last = request.currentFill;
  for (const std::string& part : Parted(text, separators)) {
    const std::size_t at = part.find('@');
    const std::string name = part.substr(0, at);
    const auto gas = at == std::string::npos ? std::nullopt : GasNamed(name, request, texts, separators);
    const auto to = gas ? ParseLocaleNumber(part.substr(at + 1), separators) : std::nullopt;
    if (!to) throw MessageError("", {Text::StepsForm, {part}});
    const double highest = HighestFill(request.metric);
    if (!(*to > last && *to <= highest)) {
      const NumberTexts numbers(separators);
      throw MessageError("", {Text::StepsMustRise, {part, numbers.Plain(last), numbers.Plain(highest)}});
    }
    steps.push_back({name, *gas, *to});
    last = *to;
  }
  if (steps.empty()) throw MessageError("", {Text::StepsForm, {text}});
  return steps;
}

std::vector<MixShares> MixesAfter(const std::vector<DoneStep>& steps, const FillRequest& request) {
  const Filling filling(request);
  Contents contents = filling.At(request.current, request.currentFill);
  std::vector<MixShares> mixes;
  for (const DoneStep& step : steps) {
    const Contents gas = FractionsOf(step.gas);
    contents = contents + filling.AmountUntil(contents, gas, step.to) * gas;
    mixes.push_back(MixOf(contents));
  }
  return mixes;
}

}  // namespace tav
