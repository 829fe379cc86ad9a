#include "pages/print_form.h"

#include <stdexcept>

#include "model/text_id.h"

namespace tav {
namespace {

std::vector<std::string> CountedTo(int last) {
  std::vector<std::string> numbers;
  for (int number = 1; number <= last; ++number) numbers.push_back(std::to_string(number));
  return numbers;
}

}  // namespace

PrintPrint::PrintPrint(const PrintPreview& report, Platform platform, std::string title)
    : TextForm("PrintPrint", std::move(platform), report.Texts()), report_(report), title_(std::move(title)) {
  Command1.Default = true;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { platform_.printer.SetUp(cmbPrinter.Text()); };
  cmbPrinter.Click = [this] { PrinterChosen(); };
}

void PrintPrint::Form_Load() {
  Caption = T(Text::PrintTitle);
  Label1.Caption = T(Text::PrintFrom);
  Label2.Caption = T(Text::PrintTo);
  Label3.Caption = T(Text::PrintPages);
  Command1.Caption = T(Text::Print);
  Command2.Caption = T(Text::PrintCancel);
  Command3.Caption = T(Text::PrintSetUp);
  lbPrinter.Caption = T(Text::PrintPrinter);
  lbCopies.Caption = T(Text::PrintCopies);
  ckBothSides.Caption = T(Text::PrintBothSides);
  ProgressBar1.SpokenName = T(Text::Progress);
  constexpr int kMostCopies = 50;
  const std::vector<std::string> pages = CountedTo(report_.Pages().Pages());
  tPag.Text = std::to_string(pages.size());
  tPag.Locked = true;
  const int last = static_cast<int>(pages.size()) - 1;
  sPag.Items = pages;
  sPag.ListIndex = 0;
  ePag.Items = pages;
  ePag.ListIndex = last;
  printers_ = platform_.printer.Installed();
  std::vector<std::string> names;
  for (const InstalledPrinter& printer : printers_) names.push_back(printer.name);
  cmbPrinter.Items = names;
  cmbPrinter.ListIndex = names.empty() ? -1 : 0;
  cmbPrinter.Enabled = !names.empty();
  cmbCopies.Items = CountedTo(kMostCopies);
  cmbCopies.ListIndex = 0;
  PrinterChosen();
}

void PrintPrint::PrinterChosen() {
  const int printer = cmbPrinter.ListIndex;
  ckBothSides.Enabled = printer >= 0 && printers_[static_cast<std::size_t>(printer)].bothSides;
}

void PrintPrint::Command1_Click() {
  const int first = sPag.ListIndex + 1;
  int last = ePag.ListIndex + 1;
  std::string question = T(Text::PrintFromPage) + "\t" + std::to_string(first) + "\n" + T(Text::PrintToPage) + "\t" +
                         std::to_string(last) + "?";
  if (first > last) {
    last = first;
    question = T(Text::PrintOnePage, {std::to_string(first)});
  }
  const BoxAnswer answer = platform_.boxes.Show(question, T(Text::PrintTitle), BoxIcon::Question, BoxButtons::YesNo);
  if (answer == BoxAnswer::Yes) PrintRange(first, last);
  Unload();
}

void PrintPrint::Command2_Click() {
  cancelPrint_ = true;
  Unload();
}

void PrintPrint::PrintRange(int first, int last) {
  if (printers_.empty()) {
    platform_.boxes.Show(T(Text::NoPrinter), T(Text::PrintTitle), BoxIcon::Exclamation, BoxButtons::OK);
    return;
  }
  cancelPrint_ = false;
  Command2.Bold = true;
  Command1.Enabled = false;
  Command3.Enabled = false;
  try {
    const PrintOrder order{title_, cmbPrinter.Text(), cmbCopies.ListIndex + 1,
                           ckBothSides.Value && ckBothSides.Enabled};
    const auto job = platform_.printer.Start(order, PagePlayer(report_.Pages()).SizeOf(first));
    platform_.screen.ShowHourglass(true);
    PagePlayer(report_.Pages())
        .PrintPages(first, last, *job,
                    {[&](int page) {
                       SistemaBarra(last, page);
                       platform_.screen.DoEvents();
                     },
                     [&] { return cancelPrint_; }});
  } catch (const std::runtime_error& error) {
    platform_.boxes.Show(T(Text::PrinterFailed) + "\r\n" + report_.Texts().Words(error), T(Text::PrintTitle),
                         BoxIcon::Stop, BoxButtons::OK);
  }
  platform_.screen.ShowHourglass(false);
  Command2.Bold = false;
}

void PrintPrint::SistemaBarra(int last, int page) {
  constexpr int kWhole = 100;
  ProgressBar1.Value = page * kWhole / last;
  Label4.Caption = std::to_string(page);
}

}  // namespace tav
