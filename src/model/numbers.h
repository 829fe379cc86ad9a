#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "model/message.h"
#include "model/single.h"

/// Rounding in the program's own senses. Each is used where it is named, because minutes of a schedule depend on it.
namespace tav {

/// The larger and the smaller of two values, as stored in 32 bits.
inline Single MaxSingle(Single a, Single b) { return a > b ? a : b; }
inline Single MinSingle(Single a, Single b) { return a < b ? a : b; }

/// value rounded to `places` decimals: Int(value * 10^places + 0.5) / 10^places, where Int rounds toward minus
/// infinity, so that -1.5 with 0 places gives -1.
Single RoundSingle(Single value, int places);

/// Whole minutes, never less than 1: 0.2 gives 1, 2.4 gives 2, 2.5 gives 3.
Single RoundMinutes(Single minutes);

/// value rounded to a 16-bit integer, halves to even; nothing when it does not fit or is no number.
std::optional<std::int16_t> RoundToInt16(double value);

/// Minutes as "2 hrs :5 min".
Message FormatMinutes(Single minutes);

}  // namespace tav
