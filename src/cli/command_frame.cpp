#include "cli/command_frame.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <ostream>
#include <utility>

#include "cli/command_words.h"
#include "cli/long_work.h"
#include "cli/option_values.h"
#include "model/text_id.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"
#include "start/start_up.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr const char* kTrace = "phi.log";

}  // namespace

CommandFrame::CommandFrame(const Command& command, const ProgramFolders& folders, std::ostream& out, std::ostream& err,
                           bool progress)
    : command_(command),
      folders_(folders),
      out_(out),
      err_(err),
      progress_(progress),
      texts_(folders.ProgramFolder(), LazyTexts::Language::User, command.common->language),
      dataTexts_(folders.ProgramFolder(), LazyTexts::Language::Default, command.common->language) {}

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
  if (trace_.Fault() != nullptr) Tell(*trace_.Fault());
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
  if (const std::string& code = Common().language; !code.empty()) {
    const std::vector<std::string> codes = LanguageCodes(folders_.ProgramFolder());
    if (std::ranges::find(codes, code) == codes.end()) {
      std::string known;
      for (const std::string& other : codes) known += (known.empty() ? "" : ", ") + other;
      throw OptionError({Text::UsageNoneOf, {kLanguageOption, code, known}});
    }
  }
  for (const std::string& file : ValuesOf(command_, Option::Role::FileToRead)) inputs_.emplace_back(file);
  for (const std::string& name : ValuesOf(command_, Option::Role::Template)) inputs_.push_back(TemplateFile(name));
  for (const std::string& file : ValuesOf(command_, Option::Role::FileToWrite)) RefuseInput(file);
  if (!Common().phi) return;
  RefuseInput(kTrace);
  trace_.Open(kTrace);
  // The trace is open from here on: nothing else may be written over it.
  for (const std::string& file : ValuesOf(command_, Option::Role::FileToWrite)) {
    std::error_code error;
    if (fs::equivalent(kTrace, file, error)) throw FileError(file, 0, Text::OutputIsTrace);
  }
}

fs::path CommandFrame::TemplateFile(const std::string& name) const {
  std::error_code error;
  if (fs::exists(name, error)) return name;
  const std::string fileName = name.ends_with(kTemplateExtension) ? name : name + std::string(kTemplateExtension);
  const auto found = folders_.Find(fs::path("template") / fileName);
  return fs::exists(found, error) ? found : fs::path(name);
}

DiveTemplate CommandFrame::Settings(const std::string& templateName) {
  DiveTemplate settings = ShippedDefaultTemplate();
  if (templateName.empty()) {
    const StartFaults faults = LoadDefaultTemplate(settings, folders_);
    if (faults.broken) err_ << texts_.Filled(Text::BuiltInSettings, {texts_.Words(*faults.broken)}) << "\n";
    TellFaults(faults.file.string(), faults.advice);
    inputs_.push_back(faults.file);
  } else {
    const fs::path file = TemplateFile(templateName);
    TellFaults(file.string(), LoadTemplateFile(settings, file));
  }
  return settings;
}

std::vector<DiveRecord> CommandFrame::ReadPlan(const std::string& file) {
  std::vector<FormatFault> odd;
  std::vector<DiveRecord> dives = ReadPlan(file, odd);
  TellFaults(file, odd);
  return dives;
}

std::vector<DiveRecord> CommandFrame::ReadPlan(const std::string& file, std::vector<FormatFault>& odd) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  ReportSeriesFaults(profile, faults);
  odd = faults.List();
  return std::move(profile.dives);
}

OpenedPlan& CommandFrame::OpenPlan(const std::string& file) { return Compute(file, ReadPlan(file)); }

OpenedPlan& CommandFrame::Compute(const std::string& file, std::vector<DiveRecord> records) {
  OpenedPlan& plan = opened_.emplace_back();
  plan.file = file;
  plan.records = std::move(records);
  for (DiveRecord& dive : plan.records) Common().supply.On(dive.Template);
  plan.plans.reserve(plan.Dives());
  LongWork work(Terminal());
  for (const DiveRecord& dive : plan.records) {
    plan.plans.push_back(
        tav::Compute(dive, Model(), plan.plans.empty() ? nullptr : &plan.plans.back().end, Observer()));
    work.Step(static_cast<int>(plan.plans.size()), static_cast<int>(plan.Dives()));
  }
  return plan;
}

std::size_t CommandFrame::OneDive(const std::string& number, const OpenedPlan& plan) {
  if (number.empty()) return plan.Dives() - 1;
  const Single place = NumberOf(number, "--dive");
  if (place != std::floor(place) || place < 1 || place > static_cast<double>(plan.Dives())) {
    throw OptionError({Text::OptionNoSuchDive, {"--dive", number, std::to_string(plan.Dives())}});
  }
  return static_cast<std::size_t>(place) - 1;
}

std::vector<std::size_t> CommandFrame::Dives(const std::string& number, const OpenedPlan& plan) {
  if (!number.empty()) return {OneDive(number, plan)};
  std::vector<std::size_t> all(plan.Dives());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return all;
}

void CommandFrame::CheckComputed(const OpenedPlan& plan, std::size_t dive) {
  const ComputedPlan& computed = plan.plans[dive];
  if (!computed.fault.IsEmpty()) throw FileError(plan.file, 0, computed.fault);
  MarkDecompression(computed.end.Decompresses);
}

void CommandFrame::Save(const std::string& file, const std::function<SaveNotes()>& save) {
  RefuseInput(file);
  for (const Message& note : save()) Tell(file, texts_.Words(note));
}

void CommandFrame::RefuseInput(const fs::path& output) const {
  for (const fs::path& input : inputs_) {
    std::error_code error;
    if (fs::equivalent(input, output, error)) throw FileError(output, 0, Text::OutputIsInput);
  }
}

void CommandFrame::Tell(const std::exception& error) {
  FlushOut();
  Mark(ExitStatus::kUnusableInput);
  std::string words = texts_.Words(error);
  const std::string program = command_.name.empty() ? "tavplan" : "tavplan " + command_.name;
  if (dynamic_cast<const UsageError*>(&error) != nullptr)
    words = texts_.Filled(Text::UsageIsToldBy, {words, program + " --help"});
  if (dynamic_cast<const OptionError*>(&error) != nullptr) words.insert(0, program + ": ");
  err_ << words << "\n";
}

void CommandFrame::Tell(const std::string& file, const std::string& words) {
  FlushOut();
  err_ << file << ": " << words << "\n";
}

std::string CommandFrame::FaultWords(const std::string& file, const FormatFault& fault) const {
  return file + ":" + std::to_string(fault.line) + ": " +
         texts_.Words(fault.error ? fault.text : Message(Text::Advice, {fault.text}));
}

void CommandFrame::TellFaults(const std::string& file, const std::vector<FormatFault>& faults) {
  for (const FormatFault& fault : faults) err_ << FaultWords(file, fault) << "\n";
}

}  // namespace tav
