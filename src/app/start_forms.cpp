#include "app/start_forms.h"

#include <utility>

#include "controls/localize_form.h"
#include "model/text_id.h"

namespace tav {

bool SoundIsOn(const SettingsStore& settings) {
  const std::string sound = settings.ReadSetting("", "Sound");
  return sound.empty() || sound == "On";
}

frmSplash::frmSplash(Platform platform, std::filesystem::path soundFile)
    : Form("frmSplash"), platform_(std::move(platform)), soundFile_(std::move(soundFile)) {
  AnyInput = [this] { Unload(true); };
}

void frmSplash::Form_Load() {
  Caption = "TAV";
  Picture1.Image = "splash";
  if (SoundIsOn(platform_.settings)) platform_.sound.Play(soundFile_);
}

frmLiability::frmLiability(Platform platform, const TextSource& texts)
    : Form("frmLiability"), platform_(std::move(platform)), texts_(texts) {
  cbAgree.Default = true;
  cbAgree.Click = [this] {
    agreed_ = true;
    Unload();
  };
  cbNoAgree.Cancel = true;
  cbNoAgree.Click = [this] { Unload(); };
  cbSoundOff.Click = [this] { SetSound(false); };
  cbSoundOn.Click = [this] { SetSound(true); };
}

void frmLiability::Form_Load() {
  LocalizeForm(*this, texts_);
  Caption = texts_.GetResString(Text::LiabilityTitle);
  Label1.Caption = texts_.GetResString(Text::LiabilityRisk) + "\r\n" + texts_.GetResString(Text::LiabilityDuty);
  cbAgree.Caption = texts_.GetResString(Text::LiabilityAgree);
  cbNoAgree.Caption = texts_.GetResString(Text::LiabilityDisagree);
  cbSoundOff.Caption = texts_.GetResString(Text::SoundOff);
  cbSoundOff.ToolTipText = texts_.GetResString(Text::SoundOffHelp);
  cbSoundOn.Caption = texts_.GetResString(Text::SoundOn);
  cbSoundOn.ToolTipText = texts_.GetResString(Text::SoundOnHelp);
  ShowSoundButtons(SoundIsOn(platform_.settings));
  cbAgree.SetFocus();
}

void frmLiability::SetSound(bool on) {
  platform_.settings.WriteSetting("", "Sound", on ? "On" : "Off");
  ShowSoundButtons(on);
}

void frmLiability::ShowSoundButtons(bool soundOn) {
  // The button that shows is the one that would change the present state.
  cbSoundOff.Visible = soundOn;
  cbSoundOn.Visible = !soundOn;
}

}  // namespace tav
