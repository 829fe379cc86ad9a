#include "cli/setting_edits.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "cli/gas_edits.h"
#include "cli/option_values.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "persist/template_block.h"
#include "persist/template_fields.h"

namespace tav {
namespace {

/// "Name" of "# Name=value"; empty for another line.
std::string NameOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  const bool isNamed = line.starts_with("# ") && equals != std::string_view::npos;
  return isNamed ? std::string(TrimBlanks(line.substr(2, equals - 2))) : std::string();
}

/// Of "# Name=".
bool TakesAway(const std::string& line) {
  return !NameOf(line).empty() && line.find('=') == line.find_last_not_of(' ');
}

/// Writes the settings and reads them again without the comment lines of these names.
void TakeAway(const std::set<std::string>& names, DiveTemplate& settings) {
  const std::string block = WriteTemplateBlock(settings);
  std::string kept;
  LineReader each(block);
  while (const auto line = each.Next()) {
    if (!names.contains(NameOf(*line))) kept.append(*line).append("\n");
  }
  DiveTemplate read;
  FormatFaults faults("", FormatFaults::Mode::Collect);  // which the whole plan is asked for in the end
  LineReader lines(kept);
  ReadDiveBlock(read, lines, faults);
  read.TemplateFolder = settings.TemplateFolder;
  settings = std::move(read);
}

/// What can't stand as one line of a block, or would end it.
bool IsLine(const std::string& line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos || line.find_first_of("\r\n") != std::string::npos) return false;
  const bool isComment = line.starts_with('#');
  if (isComment ? NameOf(line).empty() : TrimBlanks(std::string_view(line).substr(0, equals)).empty()) return false;
  return !IsMarker(std::string_view(line).substr(equals + 1), kEndOfBlock);
}

/// Takes out the lines that a later one of their name stands in place of. Cylinders are told in a line each.
void KeepLast(std::vector<std::string>& lines) {
  std::set<std::string> met;
  std::vector<std::string> kept;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    const std::string name = NameOf(*line);
    if (met.contains(name)) continue;
    if (!name.empty() && (name != "Cylinder" || TakesAway(*line))) met.insert(name);
    kept.push_back(*line);
  }
  lines.assign(kept.rbegin(), kept.rend());
}

/// Lines of a template block, over the settings.
void Set(std::vector<std::string> lines, DiveRecord& dive) {
  for (const std::string& line : lines) {
    if (!IsLine(line)) throw OptionError({Text::OptionMustBe, {"--set", line, "KEY=VALUE, # NAME=VALUE"}});
    // Kept in files, but nothing reads it.
    if (TrimBlanks(std::string_view(line).substr(0, line.find('='))) == "CeilingOverride")
      throw OptionError({Text::UsageNotExpected, {"--set " + line}});
  }
  KeepLast(lines);
  std::set<std::string> takenAway;
  for (const std::string& line : lines) {
    // Further on there may be cylinders.
    if (TakesAway(line) && std::ranges::count(lines, NameOf(line), NameOf) == 1) takenAway.insert(NameOf(line));
  }
  std::erase_if(lines, TakesAway);
  // A gas change names one of the list, which must be read by then.
  std::stable_partition(lines.begin(), lines.end(), [](const std::string& line) {
    return TrimBlanks(std::string_view(line).substr(0, line.find('='))) == kBlendsKey;
  });
  std::string block(kStartOfBlock);
  for (const std::string& line : lines) block += "\n" + line;
  (block += "\n").append(kEndOfBlock);

  DiveTemplate& settings = dive.Template;
  const std::vector<GasMix> before = settings.Blends;
  const Single decoRMV = settings.DecoRMV;
  FormatFaults faults("", FormatFaults::Mode::Collect);
  LineReader reader(block);
  KeyLines told = ReadTemplateBlock(settings, reader, faults);
  // A block of all keys but one of these is a file that says so by leaving it out; lines typed say nothing of it.
  if (told[std::string(kBlendsKey)].empty()) settings.Blends = before;
  if (told[std::string(kDecoRMV)].empty()) settings.DecoRMV = decoRMV;
  // What a file may hold all the same is a slip where it was typed just now.
  for (const FormatFault& fault : faults.List()) {
    if (fault.text.text == Text::KeyFactorsSwapped) continue;
    const auto line = static_cast<std::size_t>(fault.line) - 2;  // behind the start of the block
    const std::string option = line < lines.size() ? "--set " + lines[line] : "--set";
    if (fault.text.text == Text::KeyUnknown) throw OptionError({Text::UsageNotExpected, {option}});
    const bool isPassedOver = fault.text.text == Text::PassedOver;
    throw OptionError(option, isPassedOver ? fault.text.values.front() : fault.text);
  }
  for (const Cylinder& cylinder : settings.Cylinders) {
    const bool was = std::ranges::find(before, cylinder.Gas, &GasMix::Name) != before.end();
    if (was && !FindBlend(cylinder.Gas, settings)) throw OptionError({Text::EditGasBreathed, {cylinder.Gas}});
  }
  KeepGasesOfLegs(before, dive);
  if (!takenAway.empty()) TakeAway(takenAway, settings);
}

void ChangeCircuit(const std::string& circuit, DiveTemplate& settings) {
  const bool open = circuit == kOpenCircuit;
  if (!open && circuit != kClosedCircuit) {
    const std::string words = std::string(kOpenCircuit) + ", " + kClosedCircuit;
    throw OptionError({Text::UsageNoneOf, {"--circuit", circuit, words}});
  }
  SetCircuit(settings, open);
}

void PutAltitude(const std::string& text, const char* option, void (*set)(DiveTemplate&, Single),
                 DiveTemplate& settings) {
  if (text.empty()) return;
  const std::string told = option + (" " + text);
  set(settings, NumberOf(text, told));
  for (const TemplateFault& fault : TemplateFaults(settings)) {
    if (fault.key.ends_with("Altitude")) throw OptionError(told, fault.text);
  }
}

/// What a loop does can't be told of a dive without one.
void RefuseLinesOfLoop(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    const std::string name = NameOf(line);
    if (name == "Loop" || name == "Surface interval") throw OptionError({Text::EditNoLoop, {"--set " + line}});
  }
}

}  // namespace

void EditSettings(const PlanEdits& edits, DiveRecord& dive) {
  DiveTemplate& settings = dive.Template;
  if (!edits.circuit.empty()) ChangeCircuit(edits.circuit, settings);
  if (!edits.settings.empty()) Set(edits.settings, dive);
  if (settings.OpenCircuit) RefuseLinesOfLoop(edits.settings);
  PutAltitude(edits.altitude, "--altitude", SetAltitude, settings);
  PutAltitude(edits.endAltitude, "--end-altitude", SetEndAltitude, settings);
}

}  // namespace tav
