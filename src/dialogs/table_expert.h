#pragma once

#include <array>
#include <memory>
#include <optional>

#include "compute/square_dives.h"
#include "dialogs/dialog_form.h"
#include "dialogs/long_run.h"
#include "pages/print_preview.h"

namespace tav {

/// Prints deco tables: square dives on one gas, for a grid of depths and bottom times, with the settings of the active
/// document. The template is copied at the start of a run and never changed.
class frmTableExpert : public DialogForm, public std::enable_shared_from_this<frmTableExpert> {
 public:
  /// `report` and `runs` outlive the dialog.
  frmTableExpert(const DialogServices& services, PrintPreview& report, LongRuns& runs);

  Frame Frame1{*this, "Frame1"};  ///< depths and times
  Label Label1{*this, "Label1"};
  TextBox tbSD{*this, "tbSD"};
  Label Label2{*this, "Label2"};
  TextBox tbED{*this, "tbED"};
  Label Label3{*this, "Label3"};
  TextBox tbDI{*this, "tbDI"};
  Label Label11{*this, "Label11"};  ///< unit of the depths
  Label Label4{*this, "Label4"};
  TextBox tbST{*this, "tbST"};
  Label Label5{*this, "Label5"};
  TextBox tbET{*this, "tbET"};
  Label Label6{*this, "Label6"};
  TextBox tbTI{*this, "tbTI"};
  Label Label10{*this, "Label10"};  ///< unit of the times
  Frame Frame2{*this, "Frame2"};    ///< gas
  Label Label8{*this, "Label8"};
  ComboBox Combo1{*this, "Combo1"};
  Label Label7{*this, "Label7"};      ///< O2/He of the gas
  Frame Frame3{*this, "Frame3"};      ///< deco gases
  CheckList ckDeco{*this, "ckDeco"};  ///< those of the template, each with a tick
  CheckBox Check1{*this, "Check1"};   ///< the descent is left out
  Label Label14{*this, "Label14"};    ///< what that means
  Label Label12{*this, "Label12"};
  Label Label13{*this, "Label13"};  ///< name of the template
  Label Label9{*this, "Label9"};
  ProgressBar pbProgress{*this, "pbProgress"};
  Button cbStart{*this, "cbStart"};
  Button cbCancel{*this, "cbCancel"};

  void cbStart_Click();
  void cbCancel_Click();
  void ShowMixDetails();

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;

 private:
  struct Field {
    Label& label;
    TextBox& box;
    const char* metricKey;
    const char* imperialKey;
    const char* metricDefault;
    const char* imperialDefault;
  };

  [[nodiscard]] std::array<Field, 6> Fields();
  void ShowGases();
  /// The template without the deco gases whose tick is away; the list must be that of the template.
  [[nodiscard]] DiveTemplate Chosen() const;
  /// The depths and times used last in the unit of the template.
  void ShowFields();
  void SaveTableSettings();
  /// Whether tables can be made now; says why not.
  bool CanStart();
  /// The grid, in whole numbers; nothing while a field holds no number.
  std::optional<TableAxes> Axes();
  /// The same when it has no fault; says what is wrong with which field, and what was rounded.
  std::optional<TableAxes> ReadAxes();
  void GenerateTables(SquareDives& dives);
  [[nodiscard]] std::int16_t TableDocument() const { return plan_ ? plan_->Number() : DocumentStore::DefaultDocument; }
  void SetRunning(bool running);

  PrintPreview& report_;
  LongRuns& runs_;
  std::vector<GasChange> deco_;         ///< the deco gases that are listed
  bool metric_ = true;                  ///< unit of the depths that are shown
  std::optional<OpenedDocument> plan_;  ///< without one the settings are those of the default document
  LongRun* run_ = nullptr;              ///< while one lasts
};

}  // namespace tav
