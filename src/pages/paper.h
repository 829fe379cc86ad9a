#pragma once

#include <string_view>

#include "platform/page_size.h"

namespace tav {

/// The paper that people have in their printers.
enum class Paper { A4, Letter };

/// An upright page of it.
PageSize UprightPage(Paper paper);

/// The usual paper where a locale such as "en_US.UTF-8" is at home; A4 for one without a country.
Paper PaperOfLocale(std::string_view locale);

}  // namespace tav
