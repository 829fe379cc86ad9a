#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "start/program_folders.h"

namespace tav {

namespace ExitStatus {
constexpr int kFine = 0;
constexpr int kDoesNotDecompress = 1;  ///< a stop never clears
constexpr int kUnusableInput = 2;      ///< or an output that can't be written
constexpr int kInterrupted = 130;      ///< by Ctrl+C
}  // namespace ExitStatus

/// The whole program `tavplan`. Results go to `out`, errors as lines "FILE:LINE: REASON" to `err`. With `progress`,
/// which needs a terminal behind `err`, long work shows how far it is. Returns the exit status.
int RunTavplan(const std::vector<std::string>& arguments, const ProgramFolders& folders, std::ostream& out,
               std::ostream& err, bool progress = false);

}  // namespace tav
