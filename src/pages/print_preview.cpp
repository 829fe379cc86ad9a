#include "pages/print_preview.h"

#include <cmath>
#include <utility>

#include "model/text_id.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr Colour kMidGrey = RGB(160, 160, 160);
const std::string kArial = "Arial";

}  // namespace

PrintPreview::PrintPreview(PageServices services, const TextSource& texts)
    : services_(std::move(services)), texts_(texts) {}

PrintPreview::~PrintPreview() = default;

void PrintPreview::InitPreview() {
  if (window != nullptr) window->ClosePreview();
  // With the folder go the pictures of earlier reports.
  folder_.Renew(services_.environment.TemporaryFolder());
  pictures_ = 0;
  documentName.clear();
  file_.Begin(folder_.Path().empty() ? std::filesystem::path() : folder_.Path() / "_$$_TEMP.TMP", folder_.Fault());
}

void PrintPreview::TemPrint(std::string_view line) {
  file_.Append(line);
  if (batches_ == 0) file_.Flush();
}

void PrintPreview::Lines(std::initializer_list<std::string_view> lines) {
  for (const std::string_view line : lines) file_.AppendArgument(line);
  if (batches_ == 0) file_.Flush();
}

void PrintPreview::CountPages() {
  if (window != nullptr) window->setPageMax(file_.Pages());
}

void PrintPreview::StartPlainPage(const PageSize& size) {
  TemPrint(PageFile::kStartPage);
  if (!(size == PageSize())) Lines({PageFile::kPaper, FormatPlain(size.width), FormatPlain(size.height)});
}

void PrintPreview::CloseBarePage() {
  TemPrint(PageFile::kEndPage);
  CountPages();
}

void PrintPreview::PrintHeader(const std::string& left, const std::string& centre, const std::string& right) {
  StartPlainPage();
  PrintFilledBox(1.0, 1.0, 28.5, 2.9, kMidGrey);
  PrintBoxOutline(1.0, 1.0, 28.5, 2.9);
  // A long name goes below the title, in letters as high as is left there.
  constexpr double kToDate = 20.0;
  const TextFont font{kArial, 15, true};
  const double toTitle = 11.0 * page::kUnitsPerCm - services_.measure.TextWidth(centre, TextFont()) / 2;
  const bool beside = 1.3 * page::kUnitsPerCm + services_.measure.TextWidth(left, font) < toTitle;
  beside ? PrintTextLeft(1.3, 2.2, left, kArial, 15, 1) : PrintTextFitted(1.3, 2.4, left, kToDate, kArial, 10, 1);
  PrintInCen(11.0, 1.2, centre, kArial, 30, 1);
  PrintTextRight(28.0, 2.2, right, kArial, 15, 1);
}

void PrintPreview::PrintFooter(const std::string& left, const std::string& line1, const std::string& line2,
                               const std::string& right) {
  PrintFilledBox(1.0, 17.3, 28.5, 19.2, kMidGrey);
  PrintBoxOutline(1.0, 17.3, 28.5, 19.2);
  PrintTextLeft(1.3, 18.5, left, kArial, 15, 1);
  PrintTextLeft(6.0, 17.4, line1, kArial, 10, 1);
  PrintTextLeft(6.0, 17.9, line2, kArial, 10, 1);
  PrintTextRight(27.0, 18.5, right, kArial, 15, 1);
  CloseBarePage();
}

void PrintPreview::PrintPlainFooter(const std::string& line1, const std::string& line2) {
  SetForeColor(kRed);
  PrintTextLeft(1.3, 19.5, line1, kArial, 9, 0);
  PrintTextLeft(1.3, 19.8, line2, kArial, 9, 0);
  SetForeColor(kBlack);
  CloseBarePage();
}

void PrintPreview::EndReport(const std::string& caption) {
  file_.Flush();  // also within a Batch: the window reads the file
  if (file_.Fault()) {
    services_.boxes.Show(texts_.GetResString(Text::ReportNotWritten) + "\r\n" + texts_.Words(*file_.Fault()), caption,
                         BoxIcon::Stop, BoxButtons::OK);
    return;
  }
  if (window != nullptr) window->ShowPreview(caption);
}

std::string PrintPreview::Units(Single cm) const { return services_.numbers.Plain(cm * page::kUnitsPerCm); }

void PrintPreview::Text(std::string_view keyword, Single left, Single y, const std::string& text,
                        const std::string& fontName, int fontSize, int bold) {
  Lines({"#fn", fontName, "#fs", std::to_string(fontSize), "#fb", std::to_string(bold), "#y", Units(y), "#x",
         services_.numbers.Plain(left), keyword, text});
}

void PrintPreview::PrintTextLeft(Single x, Single y, const std::string& text, const std::string& fontName, int fontSize,
                                 int bold) {
  Text("#txt_l", x * page::kUnitsPerCm, y, text, fontName, fontSize, bold);
}

void PrintPreview::PrintTextFitted(Single x, Single y, const std::string& text, double width,
                                   const std::string& fontName, int fontSize, int bold, int smallest) {
  constexpr double kAscent = 0.9;
  constexpr double kCmPerPoint = 2.54 / 72;
  TextFont font{fontName, static_cast<double>(fontSize), bold != 0};
  int size = fontSize;
  while (size > smallest && services_.measure.TextWidth(text, font) > width * page::kUnitsPerCm) font.points = --size;
  PrintTextLeft(x, y + kAscent * (fontSize - size) * kCmPerPoint, FittedText(text, width, font, services_.measure),
                fontName, size, bold);
}

void PrintPreview::PrintTextRight(Single x, Single y, const std::string& text, const std::string& fontName,
                                  int fontSize, int bold) {
  Text("#txt_r", x * page::kUnitsPerCm, y, text, fontName, fontSize, bold);
}

void PrintPreview::PrintInCen(Single x, Single y, const std::string& text, const std::string& fontName, int fontSize,
                              int bold) {
  const double width = services_.measure.TextWidth(text, TextFont());
  const Single left = x * page::kUnitsPerCm - std::floor(width / 2);
  if (left < 0) {
    services_.boxes.Show(texts_.GetResString(Text::PrintTooWide), "PrintInCen", BoxIcon::Stop, BoxButtons::OK);
    return;
  }
  Text("#txt_c", left, y, text, fontName, fontSize, bold);
}

void PrintPreview::Box(Single x1, Single y1, Single x2, Single y2, std::string_view fill, const std::string& colour,
                       std::string_view style) {
  Lines({"#fill", "1", "#color", fill, "#line", Units(x1), Units(y1), Units(x2), Units(y2), colour, style});
}

void PrintPreview::PrintFilledBox(Single x1, Single y1, Single x2, Single y2, Colour colour) {
  Box(x1, y1, x2, y2, "0", std::to_string(colour), "BF");
}

void PrintPreview::PrintBoxOutline(Single x1, Single y1, Single x2, Single y2) { Box(x1, y1, x2, y2, "FF", "", "B"); }

void PrintPreview::SetForeColor(Colour colour) { Lines({"#ForeColor", std::to_string(colour)}); }

void PrintPreview::PrintPicture(const std::string& picture, Single x, Single y, Single width, Single height) {
  if (folder_.Path().empty()) return;  // its fault is told at the end
  // Numbered and not drawn by lot: no two pictures of a report share a file.
  constexpr int kFirst = 100000;
  const fs::path path = folder_.Path() / ("_$$_" + FormatZeroFilled(kFirst + pictures_++, 6) + ".tmp");
  std::ofstream out(path, std::ios::binary);
  out.write(picture.data(), static_cast<std::streamsize>(picture.size()));
  if (!out.flush()) file_.Blame(path);
  Lines({"#img", path.string(), Units(x), Units(y), Units(width), Units(height)});
}

}  // namespace tav
