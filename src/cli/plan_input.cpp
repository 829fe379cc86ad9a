#include "cli/plan_input.h"

#include <cmath>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "model/gas_name.h"
#include "model/number_text.h"
#include "persist/template_file.h"
#include "start/start_up.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kNoNumber = 7957;
constexpr int kUnknownGas = 7958;
constexpr int kOutside = 7960;
constexpr int kNoSuchDive = 7961;
constexpr int kNotWhole = 7849;
constexpr int kAdvice = 7955;
constexpr int kBuiltIn = 7954;

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

void RefuseOwnInput(const std::string& input, const std::string& output) {
  constexpr int kOwnInput = 7786;
  std::error_code error;
  if (std::filesystem::equivalent(input, output, error)) throw FileError(output, 0, Message(kOwnInput));
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

void TellFaults(const std::string& file, const std::vector<FormatFault>& faults, const TextSource& texts,
                std::ostream& out) {
  for (const FormatFault& fault : faults) {
    out << file << ":" << fault.line << ": "
        << (fault.error ? texts.Words(fault.text) : texts.Words({kAdvice, {fault.text}})) << "\n";
  }
}

ProfileText ReadPlannable(const std::string& file, const TextSource& texts, std::ostream& err) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  ReportSeriesFaults(profile, faults);
  TellFaults(file, faults.List(), texts, err);
  return profile;
}

void StartSettings(DocumentStore& documents, const std::string& name, const ProgramFolders& folders,
                   const TextSource& texts, std::ostream& err) {
  if (name.empty()) {
    const StartFaults faults = InitDocuments(documents, folders);
    if (faults.broken) err << texts.Filled(kBuiltIn, {texts.Words(*faults.broken)}) << "\n";
    TellFaults(faults.file.string(), faults.advice, texts, err);
    return;
  }
  const std::filesystem::path file = TemplateFile(name, folders);
  DiveTemplate& settings = documents(DocumentStore::DefaultDocument).Template;
  settings = ShippedDefaultTemplate();
  TellFaults(file.string(), LoadTemplateFile(settings, file), texts, err);
}

std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate) {
  if (const auto found = GasNamed(name, diveTemplate)) return *found;
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
