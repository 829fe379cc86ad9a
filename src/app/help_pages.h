#pragma once

#include <string>
#include <string_view>

namespace tav {

/// The anchor of the page of the guide that tells of a form; empty for one that no page tells of.
std::string HelpPageOf(std::string_view form);

}  // namespace tav
