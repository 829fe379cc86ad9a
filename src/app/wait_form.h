#pragma once

#include "controls/form.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// Stands beside the main window while a report is written, and tells how far it is.
class frmWait : public Form {
 public:
  frmWait(Platform platform, const TextSource& texts);

  Label Label1{*this, "Label1"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  Platform platform_;
  const TextSource& texts_;
};

}  // namespace tav
