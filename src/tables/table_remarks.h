#pragma once

#include <string>
#include <vector>

#include "model/number_texts.h"
#include "platform/text_source.h"
#include "tables/small_tables.h"

namespace tav {

/// The words of the remarks, so that a window and a terminal can each have their own.
struct RemarkWords {
  std::string column = "Column";
  std::string columns = "Columns";
  std::string to = "to";  ///< between the first and the last head of neighbouring columns
  std::string alsoStop = "also stop at";
  std::string minutes = "min";
  std::string breathe = "breathe";
  std::string at = "at";
  std::string lowPPO2 = "PPO2 too low to breathe";
  std::string highPPO2 = "PPO2 too high";
  std::string lostGas = "STILL ON THE LOST GAS";
  std::string noDecompression = "DECO NEVER ENDS";
  std::string unit = "m";
  std::string longDescent = "the descent alone takes %1 min, the bottom time is as long";
  std::string oneOfHead = "%1 (%2 of %3)";  ///< a column whose head others have, too
  std::string on = "on";                    ///< before the gas of a stop
  std::string insteadOf = "stop at %1 instead of %2";
  std::string narcotic = "END %1 at the bottom, limit %2";
  std::string dense = "gas density %1 g/l at the bottom, limit %2 g/l";
  NumberTexts numbers = {};
};

/// The words in the language of the texts, with metres or feet.
RemarkWords RemarkWordsOf(const TextSource& texts, bool metric, const NumberTexts& numbers = {});

/// "PPO2 too low to breathe at 6 m to 0 m": the same words in tables, on cards and in comparisons.
std::string WarningText(const GasWarning& warning, const RemarkWords& words);

/// What a small table does not tell as it is, in words, for the lines right below it. Columns that need the same words
/// share a line: "Columns 6 to 39: breathe 50/0 at 6 m, 3 m". On paper row 1, the bottom, has no cells, and what stands
/// in them is told, too. Of the columns from `firstDive` to before `endDive`, counted from 0.
std::vector<std::string> TableRemarks(const SmallTable& table, const RemarkWords& words, bool onPaper,
                                      std::size_t firstDive = 0, std::size_t endDive = static_cast<std::size_t>(-1));

}  // namespace tav
