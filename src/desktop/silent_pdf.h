#pragma once

namespace tav {

/// Whether the program was started to turn a page file into a PDF and end, without a window or a display:
/// `tav --pages FILE --pdf OUT --title TITLE`.
bool WantsSilentPdf(int argc, char** argv);

/// Does that. Returns 0, or 2 with one line on the standard error output.
int SilentPdf(int argc, char** argv);

}  // namespace tav
