#include "app/program.h"

#include <system_error>
#include <utility>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "persist/profile_file.h"
#include "persist/template_file.h"
#include "persist/text_file.h"
#include "start/start_up.h"
#include "start/user_texts.h"
#include "supply/supply_settings.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

/// A number of a setting, or the default when there is none that can be used.
int Twips(const SettingsStore& settings, const std::string& name, int otherwise) {
  const auto number = ParseStrict(settings.ReadSetting("Settings", name));
  constexpr double kMost = 1000000;
  return number && *number > -kMost && *number < kMost ? static_cast<int>(*number) : otherwise;
}

}  // namespace

Program::Program(Platform platform, MainView& view, ProgramFolders folders, std::string systemInformation)
    : windows_(platform.windows),
      teller_(platform, [this](int text, const std::string& file) { ShowStatus(texts_.Filled(text, {file})); }),
      platform_(teller_.Services(windows_)),
      view_(view),
      folders_(std::move(folders)),
      systemInformation_(std::move(systemInformation)),
      warnings_(platform_.boxes, texts_, documents_, platform_.separators),
      forms_({documents_, model_, warnings_, *this, platform_.boxes, texts_}),
      history_(forms_),
      recent_(platform_.settings),
      recovery_(SettingsFolder()),
      report_(platform_, texts_),
      tables_(platform_, texts_) {
  warnings_.returning = [this] { return history_.Restoring() || history_.Held(); };
  warnings_.elsewhere = [this](std::int16_t document) {
    return forms_.Active() == document ? std::string() : forms_.Caption(document);
  };
}

Program::~Program() = default;

bool Program::LoadLanguageOfUser() {
  std::string name = platform_.settings.ReadSetting("", "Language");
  if (name.empty()) name = TableOfLocale(folders_.ProgramFolder(), platform_.environment.Locale());
  language_ = LoadLanguage(folders_.ProgramFolder(), name, texts_, platform_.boxes);
  return language_.loaded;
}

void Program::SpeakAnew() {
  if (!LoadLanguageOfUser()) return;
  mainForm_->TextsChanged();
  windows_.TextsChanged();
  if (languageChanged) languageChanged();
}

void Program::ReadCommandLine(const std::vector<std::string>& arguments) {
  constexpr std::size_t kMostSwitches = 10;
  std::vector<std::string> words = arguments;
  if (words.size() > kMostSwitches) words.resize(kMostSwitches);
  switches_ = ParseCommandLine(words);
  if (!switches_.PhiLogOn) return;
  try {
    warnings_.OpenTrace(folders_.ToWrite("phi.log"));
  } catch (const FileError& error) {
    platform_.boxes.Show(texts_.Words(error), "", BoxIcon::Exclamation, BoxButtons::OK);
  }
}

void Program::StaySplash(const Form& splash, double until) {
  while (splash.IsLoaded() && platform_.screen.Timer() < until) platform_.screen.WaitForEvents();
}

bool Program::Main(const std::vector<std::string>& arguments) {
  if (!LoadLanguageOfUser()) return false;
  const StartFaults faults = InitDocuments(documents_, folders_);
  if (faults.broken) {
    platform_.boxes.Show(texts_.Filled(Text::TemplateIgnored, {texts_.Words(*faults.broken)}), "", BoxIcon::Stop,
                         BoxButtons::OK);
  }
  const std::string advice = AdviceText(texts_, faults.file, faults.advice);
  if (!advice.empty()) platform_.boxes.Show(advice, "", BoxIcon::Information, BoxButtons::OK);
  DiveTemplate& ofNewPlans = documents_(DocumentStore::DefaultDocument).Template;
  if (!ofNewPlans.Team) ofNewPlans.Team = ReadSupplyChoice(platform_.settings);
  if (ofNewPlans.Team && !ofNewPlans.OpenCircuit) ofNewPlans.Team = ForCircuit(*ofNewPlans.Team, false);
  ReadCommandLine(arguments);

  const auto splash = std::make_shared<frmSplash>(platform_, folders_.Find("Tav.wav"));
  platform_.windows.Show(splash);
  const double until = platform_.screen.Timer() + 1;
  platform_.screen.DoEvents();  // it is seen while the rest is loaded
  frmLiability notice(platform_, texts_);
  mainForm_ = std::make_unique<frmMain>(MainServices{forms_, platform_, texts_, model_, folders_, switches_, language_,
                                                     history_, recent_, recovery_, view_, report_, tables_, runs_,
                                                     systemInformation_, [this] { SpeakAnew(); },
                                                     [this](const std::string& text) { ShowStatus(text); }});
  view_.Attach(*mainForm_);
  const SettingsStore& settings = platform_.settings;
  const Placement usual;
  view_.Place({Twips(settings, "MainLeft", usual.left), Twips(settings, "MainTop", usual.top),
               Twips(settings, "MainWidth", usual.width), Twips(settings, "MainHeight", usual.height)});
  mainForm_->Load();
  StaySplash(*splash, until);
  splash->Unload();
  platform_.windows.ShowModal(notice);
  if (!notice.Agreed()) {
    mainForm_->Unload();
    return false;
  }
  view_.ShowWindow();
  platform_.screen.ShowHourglass(false);
  mainForm_->Copies().Offer();
  std::vector<fs::path> files;
  for (const std::string& argument : arguments) {
    std::error_code error;
    const fs::path word(argument);
    const bool named = word.extension() == kProfileExtension || word.extension() == kTemplateExtension;
    if (named || fs::is_regular_file(word, error)) files.push_back(word);
  }
  mainForm_->OpenAtStart(files);
  return true;
}

void Program::StateChanged(std::int16_t document) {
  if (documents_(document).SlotFree) {
    recovery_.Drop(document);
    history_.Forget(document);
    warnings_.Memory().PlanClosed(document);
    evaluations_.erase(document);
  } else {
    const int evaluation = forms_(document).Evaluation();
    if (std::exchange(evaluations_[document], evaluation) != evaluation) {
      history_.Record(document);
      warnings_.Memory().EvaluationEnded(document);
    }
  }
  if (mainForm_) mainForm_->StateChanged(document);
}

void Program::ShowStatus(const std::string& text) {
  if (mainForm_) mainForm_->sbStatusBar.Caption = text;
}

}  // namespace tav
