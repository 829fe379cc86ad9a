#include "persist/profile_file.h"

#include <cmath>
#include <limits>
#include <optional>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/tokenizer.h"
#include "persist/line_reader.h"

namespace tav {
namespace {

constexpr std::string_view kStartOfProfile = "Start of Profile";
constexpr std::string_view kSurfaceTime = "SurfTime";
constexpr std::string_view kEndOfProfile = "End of Profile";
constexpr std::size_t kMostDives = std::numeric_limits<std::int16_t>::max() - 1;

// Texts by number.
constexpr int kTooManyDives = 7912;
constexpr int kNoBeginning = 7913;
constexpr int kLineMissing = 7914;
constexpr int kNoSurfaceTime = 7915;
constexpr int kSurfaceTimeOutside = 7916;
constexpr int kSurfaceTimeOfFirst = 7917;
constexpr int kNoAction = 7918;
constexpr int kFileEnds = 7919;
constexpr int kTooManyActions = 7920;
constexpr int kShouldBeAction = 7921;
constexpr int kDepthNoNumber = 7922;
constexpr int kTimeNoNumber = 7923;
constexpr int kMixNoNumber = 7924;
constexpr int kKindNoNumber = 7925;
constexpr int kNoAscentBefore = 7926;

class Reader {
 public:
  Reader(std::string_view text, FormatFaults& faults) : lines_(text), faults_(faults) {}

  ProfileText Run() {
    do {
      if (profile_.dives.size() == kMostDives) {
        faults_.Error(lines_.LineNumber() + 1, kTooManyDives);
        break;
      }
      if (!ReadDive()) break;
    } while (!lines_.SkipBlankLines());
    return std::move(profile_);
  }

 private:
  void Error(const Message& text) { faults_.Error(lines_.LineNumber(), text); }

  /// False when the text is not even a dive record, so that reading on makes no sense.
  bool ReadDive() {
    LineReader first = lines_;
    if (first.Next() != "Start Template Block") {
      faults_.Error(lines_.LineNumber() + 1, {kNoBeginning, {"Start Template Block"}});
      return false;
    }
    DiveRecord& dive = profile_.dives.emplace_back();
    DiveRecordLines& where = profile_.lines.emplace_back();
    where.block = lines_.LineNumber() + 1;
    where.keys = ReadTemplateBlock(dive.Template, lines_, faults_);
    // An open-circuit dive has no loop to tell of. Should it be made one on a rebreather, that is a new plan.
    if (dive.Template.OpenCircuit) SetUpNewPlan(dive.Template);
    if (lines_.Next() != kStartOfProfile) {
      Error({kLineMissing, {std::string(kStartOfProfile)}});
      return false;
    }
    ReadSurfaceInterval(dive);
    return ReadActions(dive, where);
  }

  void ReadSurfaceInterval(DiveRecord& dive) {
    const std::string_view line = lines_.Next().value_or("");
    const std::size_t equals = line.find('=');
    if (TrimBlanks(line.substr(0, equals)) != kSurfaceTime || equals == std::string_view::npos) {
      Error({kNoSurfaceTime, {std::string(kSurfaceTime), std::string(kStartOfProfile)}});
      return;
    }
    const auto minutes = ParseStrict(line.substr(equals + 1));
    if (!minutes || !(*minutes >= 0 && *minutes <= kMaximumSurfaceInterval)) {
      Error({kSurfaceTimeOutside,
             {std::string(kSurfaceTime), FormatPlain(kMaximumSurfaceInterval), Shown(line.substr(equals + 1))}});
      return;
    }
    dive.SurfaceInterval = *minutes;
    if (profile_.dives.size() == 1 && dive.SurfaceInterval != 0) {
      faults_.Advise(lines_.LineNumber(), {kSurfaceTimeOfFirst, {std::string(kSurfaceTime)}});
    }
  }

  bool ReadActions(DiveRecord& dive, DiveRecordLines& where) {
    while (const auto line = lines_.Next()) {
      if (ClassTokenizer::hastokens(*line, ",")) {
        if (!ReadAction(*line, dive)) return false;
        where.actions.push_back(lines_.LineNumber());
      } else if (*line == kEndOfProfile) {
        return true;
      } else if (!TrimBlanks(*line).empty()) {
        faults_.Advise(lines_.LineNumber(), {kNoAction, {Shown(*line)}});
      }
    }
    Error({kFileEnds, {std::string(kEndOfProfile)}});
    return false;
  }

  /// False when the list is full.
  bool ReadAction(std::string_view line, DiveRecord& dive) {
    ClassUseractions& actions = dive.UserActions;
    if (actions.GetLength() == std::numeric_limits<std::int16_t>::max()) {
      Error(kTooManyActions);
      return false;
    }
    if (ClassTokenizer::tokenCount(line, ",") != 5 || !line.ends_with(',')) {
      faults_.Advise(lines_.LineNumber(), kShouldBeAction);
    }
    // A line with fewer fields gives its last one again for those that are missing.
    const Single depth = Number(ClassTokenizer::nextToken(line, ","), kDepthNoNumber);
    const Single time = Number(ClassTokenizer::nextToken(line, ","), kTimeNoNumber);
    const std::int16_t mix = Integer(ClassTokenizer::nextToken(line, ","), kMixNoNumber);
    const bool isAscent = Integer(ClassTokenizer::nextToken(line, ","), kKindNoNumber) != 0;
    if (!isAscent) {
      const Message fault = LegFault(time, depth, mix, dive.Template);
      if (!fault.IsEmpty()) Error(fault);
    }
    actions.NewAction();
    const std::int16_t last = actions.GetLength();
    actions.setuser(last, depth, time, mix);
    if (isAscent) actions.setdeco(last);
    return true;
  }

  Single Number(std::string_view text, int complaint) {
    const auto number = ParseStrict(text);
    if (number && std::fabs(*number) <= static_cast<double>(std::numeric_limits<float>::max())) return *number;
    Error({complaint, {Shown(text)}});
    return 0;
  }

  std::int16_t Integer(std::string_view text, int complaint) {
    const auto number = ParseStrict(text);
    const auto integer = number ? RoundToInt16(*number) : std::nullopt;
    if (!integer) Error({complaint, {Shown(text)}});
    return integer.value_or(0);
  }

  LineReader lines_;
  FormatFaults& faults_;
  ProfileText profile_;
};

}  // namespace

std::string WriteDiveRecord(const DiveTemplate& diveTemplate, Single surfaceInterval, const ClassUseractions& actions) {
  std::string text = WriteTemplateBlock(diveTemplate);
  (text += kStartOfProfile) += "\r\n";
  text += "SurfTime = " + FormatPlain(surfaceInterval) + "\r\n";
  for (int n = 1; n <= actions.GetLength(); ++n) {
    const auto i = static_cast<std::int16_t>(n);
    text += FormatPlain(actions.getDepth(i)) + "," + FormatPlain(actions.gettime(i)) + "," +
            std::to_string(actions.getmixnumber(i)) + "," + std::to_string(actions.getaction(i)) + ",\r\n";
  }
  return (text += kEndOfProfile) += "\r\n";
}

ProfileText ReadProfileText(std::string_view text, FormatFaults& faults) { return Reader(text, faults).Run(); }

ProfileText ReadProfileFile(const std::filesystem::path& file) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  return ReadProfileText(ReadTextFile(file), faults);
}

void ReportSeriesFaults(const ProfileText& profile, FormatFaults& faults) {
  for (std::size_t i = 1; i < profile.dives.size(); ++i) {
    const ClassUseractions& before = profile.dives[i - 1].UserActions;
    if (before.GetLength() > 0 && before.getaction(before.GetLength()) == ClassUseractions::kAscent) continue;
    faults.Error(profile.lines[i].block, {kNoAscentBefore, {std::to_string(i + 1), std::to_string(i)}});
  }
}

}  // namespace tav
