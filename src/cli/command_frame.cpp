#include "cli/command_frame.h"

#include <cmath>
#include <ostream>

#include "cli/command_words.h"
#include "cli/long_work.h"
#include "cli/option_values.h"
#include "persist/template_file.h"
#include "start/start_up.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

// Texts by number.
constexpr int kNoSuchDive = 7961;
constexpr int kAdvice = 7955;
constexpr int kBuiltIn = 7954;
constexpr int kOwnInput = 7786;
constexpr int kUsage = 7995;

constexpr const char* kTrace = "phi.log";

}  // namespace

CommandFrame::CommandFrame(const Command& command, const ProgramFolders& folders, std::ostream& out, std::ostream& err,
                           bool progress)
    : command_(command),
      folders_(folders),
      out_(out),
      err_(err),
      progress_(progress),
      texts_(folders.ProgramFolder(), LazyTexts::Language::User),
      dataTexts_(folders.ProgramFolder(), LazyTexts::Language::Default),
      session_(texts_) {}

int CommandFrame::Run() {
  try {
    Begin();
    command_.run(*this);
  } catch (const Interrupted&) {
    return ExitStatus::kInterrupted;
  } catch (const std::exception& error) {
    Tell(error);
  }
  FlushOut();
  if (session_.Trace().Fault()) Tell(*session_.Trace().Fault());
  return status_;
}

void CommandFrame::FlushOut() {
  if (!out_) return;  // it has been told that it fails
  try {
    out_.flush();
  } catch (const MessageError& lost) {
    Mark(ExitStatus::kUnusableInput);
    err_ << texts_.Words(lost) << "\n";
  }
}

void CommandFrame::Begin() {
  for (const std::string& file : ValuesOf(command_, Option::Role::FileToRead)) inputs_.emplace_back(file);
  for (const std::string& name : ValuesOf(command_, Option::Role::Template)) inputs_.push_back(TemplateFile(name));
  for (const std::string& file : ValuesOf(command_, Option::Role::FileToWrite)) RefuseInput(file);
  session_.Model() = Common().model;
  if (!Common().phi) return;
  RefuseInput(kTrace);
  session_.Trace().Open(kTrace);
}

fs::path CommandFrame::TemplateFile(const std::string& name) const {
  std::error_code error;
  if (fs::exists(name, error)) return name;
  const std::string fileName = name.ends_with(kTemplateExtension) ? name : name + std::string(kTemplateExtension);
  const auto found = folders_.Find(fs::path("template") / fileName);
  return fs::exists(found, error) ? found : fs::path(name);
}

DiveTemplate& CommandFrame::Settings(const std::string& templateName) {
  DocumentStore& documents = session_.Documents();
  DiveTemplate& settings = documents(DocumentStore::DefaultDocument).Template;
  if (templateName.empty()) {
    const StartFaults faults = InitDocuments(documents, folders_);
    if (faults.broken) err_ << texts_.Filled(kBuiltIn, {texts_.Words(*faults.broken)}) << "\n";
    TellFaults(faults.file.string(), faults.advice, err_);
    inputs_.push_back(faults.file);
  } else {
    const fs::path file = TemplateFile(templateName);
    settings = ShippedDefaultTemplate();
    TellFaults(file.string(), LoadTemplateFile(settings, file), err_);
  }
  return settings;
}

std::vector<std::int16_t> CommandFrame::OpenPlan(const std::string& file) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  const ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  ReportSeriesFaults(profile, faults);
  TellFaults(file, faults.List(), err_);
  LongWork work(Terminal());
  int done = 0;
  return OpenProfile(session_.Forms(), file, profile,
                     [&](std::int16_t) { work.Step(++done, static_cast<int>(profile.dives.size())); });
}

std::int16_t CommandFrame::OneDive(const std::string& number, const std::vector<std::int16_t>& documents) {
  if (number.empty()) return documents.back();
  const Single place = NumberOf(number, "--dive");
  if (place != std::floor(place) || place < 1 || place > static_cast<double>(documents.size())) {
    throw OptionError({kNoSuchDive, {"--dive", number, std::to_string(documents.size())}});
  }
  return documents[static_cast<std::size_t>(place) - 1];
}

std::vector<std::int16_t> CommandFrame::Dives(const std::string& number, const std::vector<std::int16_t>& documents) {
  if (number.empty()) return documents;
  return {OneDive(number, documents)};
}

void CommandFrame::CheckComputed(const std::string& file, std::int16_t document) {
  const std::string& fault = session_.Forms()(document).EvaluationFault();
  if (!fault.empty()) throw FileError(file, 0, fault);
  MarkDecompression(session_.Documents()(document).Decompresses);
}

void CommandFrame::Save(const std::string& file, const std::function<SaveNotes()>& save) {
  RefuseInput(file);
  for (const Message& note : save()) Tell(file, texts_.Words(note));
}

void CommandFrame::RefuseInput(const fs::path& output) const {
  for (const fs::path& input : inputs_) {
    std::error_code error;
    if (fs::equivalent(input, output, error)) throw FileError(output, 0, kOwnInput);
  }
}

void CommandFrame::Tell(const std::exception& error) {
  FlushOut();
  Mark(ExitStatus::kUnusableInput);
  std::string words = texts_.Words(error);
  const std::string program = command_.name.empty() ? "tavplan" : "tavplan " + command_.name;
  if (dynamic_cast<const UsageError*>(&error) != nullptr) words = texts_.Filled(kUsage, {words, program + " --help"});
  if (dynamic_cast<const OptionError*>(&error) != nullptr) words.insert(0, program + ": ");
  err_ << words << "\n";
}

void CommandFrame::Tell(const std::string& file, const std::string& words) {
  FlushOut();
  err_ << file << ": " << words << "\n";
}

void CommandFrame::TellFaults(const std::string& file, const std::vector<FormatFault>& faults, std::ostream& out) {
  for (const FormatFault& fault : faults) {
    out << file << ":" << fault.line << ": "
        << (fault.error ? texts_.Words(fault.text) : texts_.Words({kAdvice, {fault.text}})) << "\n";
  }
}

}  // namespace tav
