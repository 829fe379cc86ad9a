#include "desktop/pdf_labels.h"

#include <regex>

namespace tav {
namespace {

/// The number behind a key like "/Root" in the trailer; empty when there is none.
std::string NumberBehind(const std::string& text, const std::string& key) {
  std::smatch found;
  return std::regex_search(text, found, std::regex(key + "\\s+(\\d+)")) ? found[1].str() : std::string();
}

}  // namespace

std::string WithPageLabels(std::string pdf) {
  const std::size_t trailerAt = pdf.rfind("trailer");
  if (trailerAt == std::string::npos) return pdf;
  const std::string trailer = pdf.substr(trailerAt);
  const std::string root = NumberBehind(trailer, "/Root");
  const std::string info = NumberBehind(trailer, "/Info");
  const std::string size = NumberBehind(trailer, "/Size");
  const std::string previous = NumberBehind(trailer, "startxref");
  const std::size_t catalogAt = pdf.find("\n" + root + " 0 obj\n<<");
  const std::size_t catalogEnd = pdf.find(">>\nendobj", catalogAt);
  if (root.empty() || info.empty() || size.empty() || previous.empty() || catalogAt == std::string::npos ||
      catalogEnd == std::string::npos) {
    return pdf;
  }
  const std::string catalog = pdf.substr(catalogAt + 1, catalogEnd - catalogAt - 1);
  if (!pdf.ends_with('\n')) pdf += '\n';
  const std::size_t newCatalogAt = pdf.size();
  pdf += catalog +
         "/PageLabels << /Nums [ 0 << /S /D >> ] >>\n/ViewerPreferences << /DisplayDocTitle true >>\n>>\nendobj\n";
  const std::size_t table = pdf.size();
  std::string offset = std::to_string(newCatalogAt);
  constexpr std::size_t kDigits = 10;
  offset.insert(0, kDigits - std::min(kDigits, offset.size()), '0');
  pdf += "xref\n" + root + " 1\n" + offset + " 00000 n \ntrailer\n<<\n/Size " + size + "\n/Info " + info +
         " 0 R\n/Root " + root + " 0 R\n/Prev " + previous + "\n>>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
  return pdf;
}

}  // namespace tav
