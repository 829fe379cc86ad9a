#include "pages/preview_form.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "model/text_id.h"
#include "pages/print_form.h"
#include "platform/used_folder.h"

namespace tav {
namespace {

const std::string kSection = "Preview";
const std::string kPdfFolder = "PdfFolder";
constexpr double kUsualZoom = 0.65;
constexpr double kLargestZoom = 1.5;
constexpr double kSmallestZoom = 0.1;
constexpr double kStep = 0.9;

/// A size from the settings in twips, as far as the screen has it; or what is left of the screen.
int SizeIn(const SettingsStore& settings, const std::string& name, int room, int left) {
  const auto stored = ParseStrict(settings.ReadSetting(kSection, name));
  constexpr double kSmallest = 3000;
  return stored && *stored >= kSmallest ? static_cast<int>(std::min<double>(*stored, room)) : left;
}

}  // namespace

PrintPrev::PrintPrev(const PrintPreview& report, Platform platform)
    : TextForm("PrintPrev", std::move(platform), report.Texts()), report_(report) {
  const std::pair<Button*, Command> buttons[] = {{&cmdZoomIn, ZoomIn}, {&cmdZoomOut, ZoomOut}, {&cmdPrint, Print},
                                                 {&cmdSetUp, SetUp},   {&cmdFirst, First},     {&cmdPrevious, Previous},
                                                 {&cmdNext, Next},     {&cmdLast, Last},       {&cmdClose, Close}};
  for (const auto& [button, command] : buttons) {
    button->Click = [this, command = command] { Cmd_Click(command); };
  }
  cmdClose.Cancel = true;
  cbPdf.Click = [this] { SavePdf(); };
  Prv.Draw = [this](DrawingSurface& page, double scale) { PagePlayer(report_.Pages()).tempshow(page_, page, scale); };
  Prv.Wished = [this](PageView::Wish wish) {
    constexpr Command kOf[] = {ZoomIn, ZoomOut, First, Previous, Next, Last};
    Cmd_Click(kOf[static_cast<std::size_t>(wish)]);
  };
}

void PrintPrev::Form_Load() {
  Localize();
  cmdClose.Caption = T(Text::PreviewClose);
  const std::pair<Button*, int> captions[] = {
      {&cmdZoomIn, Text::PreviewZoomIn}, {&cmdZoomOut, Text::PreviewZoomOut}, {&cmdPrint, Text::PreviewPrint},
      {&cmdSetUp, Text::PreviewSetUp},   {&cmdFirst, Text::PreviewFirst},     {&cmdPrevious, Text::PreviewPrevious},
      {&cmdNext, Text::PreviewNext},     {&cmdLast, Text::PreviewLast},       {&cbPdf, Text::PreviewPdf}};
  for (const auto& [button, text] : captions) button->Caption = T(text);
  const SettingsStore& settings = platform_.settings;
  const Screen::Room room = platform_.screen.AvailableRoom();
  constexpr int kBesideWindow = 300;
  constexpr int kBelowWindow = 1500;
  Width = SizeIn(settings, "Width", room.width, room.width - kBesideWindow);
  Height = SizeIn(settings, "Height", room.height, room.height - kBelowWindow);
  const std::string zoom = settings.ReadSetting(kSection, "ZoomFactor");
  zoomFactor_ = zoom.empty() ? kUsualZoom : ParseLenient(zoom);
  if (!(zoomFactor_ > 0 && zoomFactor_ <= kLargestZoom)) zoomFactor_ = kUsualZoom;
  page_ = 1;
  setPageMax(report_.Pages().Pages());
  MostraPagina();
}

void PrintPrev::Form_Unload() {
  SettingsStore& settings = platform_.settings;
  settings.WriteSetting(kSection, "ZoomFactor", FormatFixed(zoomFactor_, 2));
  settings.WriteSetting(kSection, "Width", std::to_string(Width));
  settings.WriteSetting(kSection, "Height", std::to_string(Height));
}

void PrintPrev::setPageMax(int pages) {
  pageMax_ = pages;
  ShowLabel();
}

void PrintPrev::ShowLabel() {
  lbPage.Caption = T(Text::PreviewPage) + getPageNr() + T(Text::PreviewOf) + getPageMax();
  cmdFirst.Enabled = cmdPrevious.Enabled = page_ > 1;
  cmdNext.Enabled = cmdLast.Enabled = page_ < pageMax_;
}

void PrintPrev::MostraPagina() {
  Prv.Size = PagePlayer(report_.Pages()).SizeOf(page_);
  Prv.Zoom = zoomFactor_;
  Prv.Page = ++drawn_;
}

void PrintPrev::Cmd_Click(Command index) {
  switch (index) {
    case Refresh:
      MostraPagina();
      break;
    case ZoomIn:
      if (zoomFactor_ < 1.0) zoomFactor_ = zoomFactor_ / kStep;
      MostraPagina();
      break;
    case ZoomOut:
      if (zoomFactor_ > kSmallestZoom) zoomFactor_ = zoomFactor_ * kStep;
      MostraPagina();
      break;
    case Print: {
      PrintPrint dialog(report_, platform_, Title());
      platform_.windows.ShowModal(dialog);
      break;
    }
    case SetUp:
      platform_.printer.SetUp("");
      break;
    case First:
    case Previous:
    case Next:
    case Last:
      if (index == First) page_ = 1;
      if (index == Previous && page_ >= 2) --page_;
      if (index == Next && page_ < pageMax_) ++page_;
      if (index == Last) page_ = std::max(1, pageMax_);
      ShowLabel();
      MostraPagina();
      break;
    case Nothing:
      break;
    case Close:
      Unload();
      break;
  }
}

std::string PrintPrev::Title() const {
  return report_.documentName.empty() ? Caption.Get() : report_.documentName + " - " + Caption.Get();
}

void PrintPrev::SavePdf() {
  const std::string name = report_.documentName.empty() ? Caption.Get() : report_.documentName;
  const std::filesystem::path file = platform_.files.Save({T(Text::PdfTitle),
                                                           T(Text::PdfFilter),
                                                           FolderUsedLast(platform_.settings, kPdfFolder),
                                                           std::filesystem::path(name).stem().string() + ".pdf",
                                                           ".pdf",
                                                           {}});
  if (file.empty()) return;
  KeepFolder(platform_.settings, kPdfFolder, file);
  platform_.screen.ShowHourglass(true);
  std::string fault;
  try {
    const PagePlayer player(report_.Pages());
    player.PrintPages(1, pageMax_, *platform_.printer.StartPdf(file, Title(), player.SizeOf(1)),
                      {[](int) {}, [] { return false; }});
  } catch (const std::runtime_error& error) {
    fault = report_.Texts().Words(error);
  }
  platform_.screen.ShowHourglass(false);
  if (!fault.empty())
    platform_.boxes.Show(T(Text::PdfNotWritten) + "\r\n" + fault, Caption, BoxIcon::Stop, BoxButtons::OK);
}

void PreviewWindows::ClosePreview() {
  if (const auto shown = shown_.lock()) shown->Unload();
  shown_.reset();
}

void PreviewWindows::setPageMax(int pages) {
  if (const auto shown = shown_.lock()) shown->setPageMax(pages);
}

void PreviewWindows::ShowPreview(const std::string& caption) {
  const auto window = std::make_shared<PrintPrev>(report_, platform_);
  window->Caption = caption;
  shown_ = window;
  platform_.windows.Show(window);
}

}  // namespace tav
