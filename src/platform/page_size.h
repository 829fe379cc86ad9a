#pragma once

namespace tav {

/// The size of a page in 1/567 cm: landscape A4 unless told otherwise.
struct PageSize {
  double width = 16839.9;   ///< 29.7 cm
  double height = 11907.0;  ///< 21.0 cm
  friend bool operator==(const PageSize&, const PageSize&) = default;
};

}  // namespace tav
