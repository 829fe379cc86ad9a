#pragma once

#include "platform/page_size.h"

/// The page of all reports unless they say another size: landscape A4, origin at the top left corner, x to the right,
/// y down. Reports give centimetres; the page file holds page units.
namespace tav::page {

constexpr double kUnitsPerCm = 567.0;
constexpr double kWidth = PageSize().width;
constexpr double kHeight = PageSize().height;

}  // namespace tav::page
