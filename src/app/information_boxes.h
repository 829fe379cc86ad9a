#pragma once

#include <functional>
#include <string>

#include "controls/form.h"
#include "platform/platform.h"
#include "platform/text_source.h"
#include "start/language_table.h"
#include "start/program_folders.h"

namespace tav {

/// The program's version, "0.1.0".
std::string ProgramVersion();

/// Lines about the program and its machine, for reports of faults. `windowSystem` adds the lines of the window system.
std::string SystemInformation(const ProgramFolders& folders, const Language& language, const std::string& windowSystem);

class frmAbout : public Form {
 public:
  frmAbout(const TextSource& texts, std::function<void()> showProgramPage);

  Picture Picture1{*this, "Picture1"};
  Label lbTitle{*this, "lbTitle"};
  Label lbVersion{*this, "lbVersion"};
  Label lbDescription{*this, "lbDescription"};
  Label lbDisclaimer{*this, "lbDisclaimer"};
  Button cbPage{*this, "cbPage"};  ///< the program's own page
  Button cbOK{*this, "cbOK"};

 protected:
  void Form_Load() override;

 private:
  const TextSource& texts_;
};

class frmContributers : public Form {
 public:
  explicit frmContributers(const TextSource& texts);

  Label lbNames{*this, "lbNames"};
  Button cbOK{*this, "cbOK"};

 protected:
  void Form_Load() override;

 private:
  const TextSource& texts_;
};

class frmSystemInformation : public Form {
 public:
  frmSystemInformation(Platform platform, const TextSource& texts, std::string information);

  TextView tvInformation{*this, "tvInformation"};
  Button cbCopy{*this, "cbCopy"};
  Button cbOK{*this, "cbOK"};

 protected:
  void Form_Load() override;

 private:
  Platform platform_;
  const TextSource& texts_;
  std::string information_;
};

}  // namespace tav
