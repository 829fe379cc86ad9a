#include "cli/plan_input.h"

#include <cmath>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "persist/template_file.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kNoNumber = 7957;
constexpr int kUnknownGas = 7958;
constexpr int kOutside = 7960;
constexpr int kNoSuchDive = 7961;
constexpr int kNotWhole = 7849;

std::filesystem::path TemplateFile(const std::string& name, const ProgramFolders& folders) {
  std::error_code error;
  if (std::filesystem::exists(name, error)) return name;
  const std::string fileName = name.ends_with(kTemplateExtension) ? name : name + std::string(kTemplateExtension);
  const auto found = folders.Find(std::filesystem::path("template") / fileName);
  return std::filesystem::exists(found, error) ? found : std::filesystem::path(name);
}

}  // namespace

int Refused(const std::exception& error, std::string_view command, const TextSource& texts, std::ostream& err) {
  if (dynamic_cast<const OptionError*>(&error) != nullptr) err << "tavplan " << command << ": ";
  err << texts.Words(error) << "\n";
  return ExitStatus::kUnusableInput;
}

void TellNotes(const std::filesystem::path& file, const SaveNotes& notes, const TextSource& texts, std::ostream& err) {
  for (const Message& note : notes) err << file.string() << ": " << texts.Words(note) << "\n";
}

Single NumberOf(const std::string& text, const std::string& option) {
  const auto number = ParseStrict(text);
  if (!number) throw OptionError({kNoNumber, {option, text}});
  return *number;
}

Single NumberOf(const std::string& text, const std::string& option, double least, double most) {
  const Single number = NumberOf(text, option);
  if (number >= least && number <= most) return number;
  throw OptionError({kOutside, {option, text, FormatPlain(least), FormatPlain(most)}});
}

int WholeNumberOf(const std::string& text, const std::string& option, int least, int most) {
  const auto number = ParseStrict(text);
  if (number && *number == std::floor(*number) && *number >= least && *number <= most) return static_cast<int>(*number);
  throw OptionError({kNotWhole, {option, text, std::to_string(least), std::to_string(most)}});
}

std::int16_t ChosenDive(const std::string& text, const std::vector<std::int16_t>& documents) {
  if (text.empty()) return documents.back();
  const Single number = NumberOf(text, "--dive");
  if (number != std::floor(number) || number < 1 || number > static_cast<double>(documents.size())) {
    throw OptionError({kNoSuchDive, {"--dive", text, std::to_string(documents.size())}});
  }
  return documents[static_cast<std::size_t>(number) - 1];
}

std::vector<std::int16_t> ChosenDives(const std::string& text, const std::vector<std::int16_t>& documents) {
  if (text.empty()) return documents;
  return {ChosenDive(text, documents)};
}

ProfileText ReadPlannable(const std::string& file) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  for (std::size_t i = 0; i < profile.dives.size(); ++i) {
    const auto found = TemplateFaults(profile.dives[i].Template);
    if (!found.empty()) {
      faults.Error(LineOfFault(found.front(), profile.lines[i].keys, profile.lines[i].block), JoinFaults(found));
    }
  }
  ReportSeriesFaults(profile, faults);
  return profile;
}

void LoadPlannable(DiveTemplate& diveTemplate, const std::string& name, const ProgramFolders& folders) {
  LoadPlannableTemplate(diveTemplate, TemplateFile(name, folders));
}

std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate) {
  if (const auto found = FindBlend(name, diveTemplate)) return *found;
  const auto mix = MixOfName(name);
  if (!mix) {
    std::string known;
    for (const GasMix& blend : diveTemplate.Blends) known += (known.empty() ? "" : ", ") + blend.Name;
    throw OptionError({kUnknownGas, {name, known}});
  }
  diveTemplate.Blends.push_back(*mix);
  return static_cast<std::int16_t>(diveTemplate.Blends.size() - 1);
}

}  // namespace tav
