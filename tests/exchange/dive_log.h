#pragma once

#include <string>

#include "exchange/import.h"
#include "model/number_text.h"
#include "persist/template_file.h"
#include "start/language_table.h"
#include "support/source_folder.h"

/// Dive logs as other programs write them, and what the import makes of them.
namespace tav::test {

inline const LanguageTable& Texts() {
  static const LanguageTable texts = DefaultTexts(SourceFolder());
  return texts;
}

inline std::string Sample(double seconds, double metres, const std::string& more = "") {
  return "<waypoint><depth>" + FormatFixed(metres, 2) + "</depth><divetime>" + FormatFixed(seconds, 0) + "</divetime>" +
         more + "</waypoint>\n";
}

inline std::string Dive(const std::string& samples, const std::string& before = "", const std::string& tanks = "") {
  return "<dive id='d'><informationbeforedive><datetime>2026-05-01T09:30:00</datetime>" + before +
         "</informationbeforedive>" + tanks + "\n<samples>\n" + samples + "</samples></dive>\n";
}

inline std::string Log(const std::string& dives,
                       const std::string& mixes = "<mix id='air'><name>Luft</name><o2>0.209</o2></mix>") {
  return "<?xml version='1.0'?>\n<uddf version='3.2.0'>\n<gasdefinitions>" + mixes +
         "</gasdefinitions>\n<profiledata><repetitiongroup id='r'>\n" + dives +
         "</repetitiongroup></profiledata></uddf>\n";
}

inline const std::string kSquare = Sample(0, 0) + Sample(100, 30) + Sample(1200, 30) + Sample(1400, 0);

inline ImportedDives Import(const std::string& uddf, const DiveTemplate& settings = ShippedDefaultTemplate(),
                            int dive = 0) {
  return ImportUddf("log.uddf", uddf, settings, dive, Texts());
}

}  // namespace tav::test
