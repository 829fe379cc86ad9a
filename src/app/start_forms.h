#pragma once

#include <filesystem>
#include <functional>

#include "controls/form.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// The picture shown while the program starts, with its sound.
class frmSplash : public Form {
 public:
  frmSplash(Platform platform, std::filesystem::path soundFile);
  Picture Picture1{*this, "Picture1"};

 protected:
  void Form_Load() override;

 private:
  Platform platform_;
  std::filesystem::path soundFile_;
};

/// The notice that the user must agree to at every start, with the switch for the sound of the next one.
class frmLiability : public Form {
 public:
  frmLiability(Platform platform, const TextSource& texts);

  Label Label1{*this, "Label1"};
  Button cbAgree{*this, "cbAgree"};
  Button cbNoAgree{*this, "cbNoAgree"};
  Button cbSoundOff{*this, "cbSoundOff"};
  Button cbSoundOn{*this, "cbSoundOn"};

  [[nodiscard]] bool Agreed() const { return agreed_; }

 protected:
  void Form_Load() override;

 private:
  void ShowSoundButtons(bool soundOn);
  void SetSound(bool on);

  Platform platform_;
  const TextSource& texts_;
  bool agreed_ = false;
};

/// Whether the splash sounds: the setting is on unless it says otherwise.
bool SoundIsOn(const SettingsStore& settings);

}  // namespace tav
