#include "pages/paper.h"

#include <algorithm>

#include "pages/page_units.h"

namespace tav {

PageSize UprightPage(Paper paper) {
  if (paper == Paper::A4) return {page::kHeight, page::kWidth};
  return {12241.53, 15841.98};  // 21.59 x 27.94 cm, 8.5 x 11 inches
}

Paper PaperOfLocale(std::string_view locale) {
  // By the common locale data of the Unicode consortium.
  constexpr std::string_view kLetter[] = {"BZ", "CA", "CL", "CO", "CR", "GT", "MX",
                                          "NI", "PA", "PH", "PR", "SV", "US", "VE"};
  const std::size_t line = locale.find('_');
  const std::string_view country = line == std::string_view::npos ? "" : locale.substr(line + 1, 2);
  return std::ranges::find(kLetter, country) == std::end(kLetter) ? Paper::A4 : Paper::Letter;
}

}  // namespace tav
