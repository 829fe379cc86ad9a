#pragma once

#include "start/language_table.h"
#include "support/source_folder.h"

namespace tav::test {

/// The English texts, for tests of what a user reads.
inline const LanguageTable& English() {
  static const LanguageTable table = DefaultTexts(SourceFolder());
  return table;
}

}  // namespace tav::test
