#include "pages/print_form.h"

#include <stdexcept>

namespace tav {
namespace {

constexpr int kTitle = 2214;
constexpr int kNoPrinter = 7201;
constexpr int kPrinterFailed = 7202;

}  // namespace

PrintPrint::PrintPrint(const PrintPreview& report, Platform platform, std::string title)
    : TextForm("PrintPrint", std::move(platform), report.Texts()), report_(report), title_(std::move(title)) {
  Command1.Default = true;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { platform_.printer.SetUp(); };
}

void PrintPrint::Form_Load() {
  Caption = T(kTitle);
  Label1.Caption = T(2217);
  Label2.Caption = T(2218);
  Label3.Caption = T(2219);
  Command1.Caption = T(2220);
  Command2.Caption = T(2222);
  Command3.Caption = T(2221);
  ProgressBar1.SpokenName = T(2604);
  std::vector<std::string> pages;
  for (int page = 1; page <= report_.Pages().Pages(); ++page) pages.push_back(std::to_string(page));
  tPag.Text = std::to_string(pages.size());
  tPag.Locked = true;
  const int last = static_cast<int>(pages.size()) - 1;
  sPag.Items = pages;
  sPag.ListIndex = 0;
  ePag.Items = pages;
  ePag.ListIndex = last;
}

void PrintPrint::Command1_Click() {
  const int first = sPag.ListIndex + 1;
  int last = ePag.ListIndex + 1;
  std::string question = T(2215) + "\t" + std::to_string(first) + "\n" + T(2216) + "\t" + std::to_string(last) + "?";
  if (first > last) {
    last = first;
    question = T(2211) + std::to_string(first) + "?";
  }
  const BoxAnswer answer = platform_.boxes.Show(question, T(kTitle), BoxIcon::Question, BoxButtons::YesNo);
  if (answer == BoxAnswer::Yes) PrintRange(first, last);
  Unload();
}

void PrintPrint::Command2_Click() {
  cancelPrint_ = true;
  Unload();
}

void PrintPrint::PrintRange(int first, int last) {
  if (!platform_.printer.HasPrinter()) {
    platform_.boxes.Show(T(kNoPrinter), T(kTitle), BoxIcon::Exclamation, BoxButtons::OK);
    return;
  }
  cancelPrint_ = false;
  Command2.Bold = true;
  Command1.Enabled = false;
  Command3.Enabled = false;
  try {
    const auto job = platform_.printer.Start(title_);
    if (job) {
      platform_.screen.ShowHourglass(true);
      PagePlayer(report_.Pages())
          .PrintPages(first, last, *job,
                      {[&](int page) {
                         SistemaBarra(last, page);
                         platform_.screen.DoEvents();
                       },
                       [&] { return cancelPrint_; }});
    }
  } catch (const std::runtime_error& error) {
    platform_.boxes.Show(T(kPrinterFailed) + "\r\n" + report_.Texts().Words(error), T(kTitle), BoxIcon::Stop,
                         BoxButtons::OK);
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
