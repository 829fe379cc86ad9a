#pragma once

#include <memory>
#include <optional>

#include "compute/bailout_cuts.h"
#include "dialogs/dialog_form.h"
#include "dialogs/long_run.h"
#include "tables/table_print.h"

namespace tav {

/// Cuts the plan of the active document at regular moments, or at the ends of its legs, and prints the ascents as
/// tables and cards.
///
/// The document is never changed: what a run needs of it is copied at its start. While a run lasts the dialog answers
/// to Cancel alone, and a window that is closed goes when the run has ended, which it does at its next look at the
/// events.
class frmBailoutStart : public DialogForm, public std::enable_shared_from_this<frmBailoutStart> {
 public:
  /// `report` and `runs` outlive the dialog.
  frmBailoutStart(const DialogServices& services, PrintPreview& report, LongRuns& runs);

  Frame Frame2{*this, "Frame2"};
  Frame Frame1{*this, "Frame1"};
  Label lbtime{*this, "lbtime"};
  TextBox tbTime{*this, "tbTime"};
  Label Label1{*this, "Label1"};
  Label Label2{*this, "Label2"};
  Label Label3{*this, "Label3"};     ///< name of the template
  CheckBox Check1{*this, "Check1"};  ///< tables
  CheckBox Check2{*this, "Check2"};  ///< cards
  CheckBox Check3{*this, "Check3"};  ///< the ends of legs alone, in place of regular moments
  Label Label4{*this, "Label4"};
  ProgressBar pbProgress{*this, "pbProgress"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  void cbOK_Click();
  void cbCancel_Click();

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  void SetRunning(bool running);
  void ChooseParts();
  void ChooseMoments();
  /// Whole minutes; says what is wrong with the entry.
  std::optional<Single> ReadInterval();
  /// The whole generation.
  void Bailoutproc(const BailoutCuts& cuts);

  std::optional<OpenedDocument> plan_;
  PrintPreview& report_;
  LongRuns& runs_;
  LongRun* run_ = nullptr;  ///< while one lasts
};

}  // namespace tav
