#pragma once

#include <string>
#include <vector>

#include "controls/text_form.h"
#include "pages/page_player.h"
#include "pages/print_preview.h"

namespace tav {

/// Prints a range of pages: which, where, how often. Modal to the preview. A cancel lets the page that has begun
/// finish.
class PrintPrint : public TextForm {
 public:
  /// `title` names the job.
  PrintPrint(const PrintPreview& report, Platform platform, std::string title);

  Label Label1{*this, "Label1"};
  ComboBox sPag{*this, "sPag"};  ///< first page
  Label Label2{*this, "Label2"};
  ComboBox ePag{*this, "ePag"};  ///< last page
  Label Label3{*this, "Label3"};
  TextBox tPag{*this, "tPag"};  ///< number of pages
  Label lbPrinter{*this, "lbPrinter"};
  ComboBox cmbPrinter{*this, "cmbPrinter"};
  Label lbCopies{*this, "lbCopies"};
  ComboBox cmbCopies{*this, "cmbCopies"};
  CheckBox ckBothSides{*this, "ckBothSides"};  ///< acts where the printer can
  Label Label4{*this, "Label4"};               ///< the page that is printed
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Button Command1{*this, "Command1"};  ///< print
  Button Command2{*this, "Command2"};  ///< cancel
  Button Command3{*this, "Command3"};  ///< printer set-up

  void Command1_Click();
  void Command2_Click();

 protected:
  void Form_Load() override;

 private:
  void PrinterChosen();
  void PrintRange(int first, int last);
  void SistemaBarra(int last, int page);

  const PrintPreview& report_;
  std::string title_;
  std::vector<InstalledPrinter> printers_;
  bool cancelPrint_ = false;
};

}  // namespace tav
