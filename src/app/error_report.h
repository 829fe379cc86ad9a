#pragma once

#include <string>

#include "platform/message_boxes.h"
#include "platform/text_source.h"

namespace tav {

/// An unexpected error that an operation caught.
struct RunTimeError {
  int number = 0;  ///< 0: no error
  std::string source;
  std::string description;
};

/// The error that is being handled, for the end of a catch block.
RunTimeError CurrentError(const std::string& source, const TextSource& texts);

/// Shows an error in one box; nothing for error number 0.
void ReportRunTimeError(const RunTimeError& error, MessageBoxes& boxes, const TextSource& texts);

}  // namespace tav
