#include "app/information_boxes.h"

#include <sys/utsname.h>
#include <utility>

#include "controls/localize_form.h"
#include "model/text_id.h"

namespace tav {

std::string ProgramVersion() { return TAV_VERSION; }

std::string SystemInformation(const ProgramFolders& folders, const Language& language,
                              const std::string& windowSystem) {
  utsname system{};
  std::string text = "TAV " + ProgramVersion() + "\n";
  if (::uname(&system) == 0) {
    text += std::string(system.sysname) + " " + system.release + ", " + system.machine + "\n";
  }
  text += windowSystem;
  text += folders.ProgramFolder().string() + "\n" + folders.UserFolder().string() + "\n" + language.library.string();
  return text;
}

frmAbout::frmAbout(const TextSource& texts, std::function<void()> showProgramPage) : Form("frmAbout"), texts_(texts) {
  cbPage.Click = std::move(showProgramPage);
  cbOK.Default = true;
  cbOK.Cancel = true;
  cbOK.Click = [this] { Unload(); };
}

void frmAbout::Form_Load() {
  LocalizeForm(*this, texts_);
  Caption = texts_.GetResString(Text::AboutTitle);
  Picture1.Image = "tav";
  lbTitle.Caption = "TAV";
  lbTitle.Bold = true;
  lbVersion.Caption = texts_.GetResString(Text::AboutVersion) + " " + ProgramVersion();
  lbDescription.Caption = texts_.GetResString(Text::AboutProgram);
  lbDisclaimer.Caption = texts_.GetResString(Text::AboutRisk);
  cbPage.Caption = texts_.GetResString(Text::Help);
  cbOK.Caption = texts_.GetResString(Text::OK);
}

frmContributers::frmContributers(const TextSource& texts) : Form("frmContributers"), texts_(texts) {
  cbOK.Default = true;
  cbOK.Cancel = true;
  cbOK.Click = [this] { Unload(); };
}

void frmContributers::Form_Load() {
  LocalizeForm(*this, texts_);
  Caption = texts_.GetResString(Text::ContributorsTitle);
  lbNames.Caption = texts_.GetResString(Text::ContributorsNames);
  cbOK.Caption = texts_.GetResString(Text::OK);
}

frmSystemInformation::frmSystemInformation(Platform platform, const TextSource& texts, std::string information)
    : Form("frmSystemInformation"),
      platform_(std::move(platform)),
      texts_(texts),
      information_(std::move(information)) {
  cbCopy.Click = [this] { platform_.clipboard.SetText(information_); };
  cbOK.Default = true;
  cbOK.Cancel = true;
  cbOK.Click = [this] { Unload(); };
}

void frmSystemInformation::Form_Load() {
  LocalizeForm(*this, texts_);
  Caption = texts_.GetResString(Text::SystemTitle);
  tvInformation.Text = information_;
  cbCopy.Caption = texts_.GetResString(Text::SystemCopy);
  cbOK.Caption = texts_.GetResString(Text::OK);
}

}  // namespace tav
