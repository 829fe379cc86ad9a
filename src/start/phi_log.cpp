#include "start/phi_log.h"

#include <cerrno>

#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/text_file.h"

namespace tav {
namespace {

std::string Item(const std::string& text) { return "\"" + text + "\""; }

}  // namespace

std::string TraceBlock(const TraceSegment& segment) {
  const std::string blanks(17, ' ');
  const auto number = [](Single value) { return FormatPlain(value) + "\t"; };
  std::string names = blanks + "\t";
  std::string values = segment.constantPPO2 ? "CC ascent/descent\t" : "OC ascent/descent\t";
  if (segment.constantDepth) {
    names += "Depth\tSTime";
    values += number(segment.to) + number(segment.time);
  } else {
    names += "SDepth\tFDepth\tSTime\tRate";
    values += number(segment.from) + number(segment.to) + number(segment.time) + number(segment.rate);
  }
  std::string block;
  if (segment.setpointAboveStart) block += Item("Setpoint > then startAmbient pressure") + "\r\n";
  block += Item(names) + "\r\n" + Item(values) + "\r\n";
  block += Item("End of this segment compartments are") + "\r\n" + Item("Cpmt\tN2\tHe") + "\r\n";
  for (std::size_t i = 0; i < kCompartments; ++i) {
    block += Item(std::to_string(i + 1) + "\t" + FormatPlain(segment.loads->N2[i])) + "," +
             Item(FormatPlain(segment.loads->He[i])) + "\r\n";
  }
  return block;
}

PhiLog::PhiLog(const std::filesystem::path& file) : file_(file), out_(file, std::ios::binary | std::ios::trunc) {
  if (!out_) throw FileError(file, 0, {Text::NotOpened, {ErrorText(errno)}});
}

void PhiLog::Write(const TraceSegment& segment) {
  if (!fault_ && !(out_ << TraceBlock(segment) << std::flush))
    fault_.emplace(file_, 0, Message{Text::NotWritten, {ErrorText(errno)}});
}

}  // namespace tav
