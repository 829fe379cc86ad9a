#pragma once

#include "controls/form.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// Stands before the program while a report is written: tells how far it is, and ends it.
class frmWait : public Form {
 public:
  frmWait(Platform platform, const TextSource& texts);

  Label Label1{*this, "Label1"};
  Button cbCancel{*this, "cbCancel"};

  /// Tells a step of the report, and lets the user act. False when the report is to end.
  [[nodiscard]] bool GoOn(const std::string& step);

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  Platform platform_;
  const TextSource& texts_;
};

}  // namespace tav
