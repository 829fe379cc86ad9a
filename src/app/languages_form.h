#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// Chooses the language: one entry for each table in the language folder.
class frmLanguages : public Form {
 public:
  /// `changed` when another one has been chosen and stored.
  frmLanguages(Platform platform, const TextSource& texts, std::filesystem::path folder,
               std::function<void()> changed = {});

  Label Label1{*this, "Label1"};
  Frame Frame1{*this, "Frame1"};
  ListView Option1{*this, "Option1"};  ///< the languages by their own names; a list, so that any number fits
  Button Command1{*this, "Command1"};  ///< OK
  Button Command2{*this, "Command2"};  ///< cancel

 protected:
  void Form_Load() override;

 private:
  void Command1_Click();

  Platform platform_;
  const TextSource& texts_;
  std::filesystem::path folder_;
  std::function<void()> changed_;
  std::vector<std::string> files_;
  int current_ = -1;
};

}  // namespace tav
