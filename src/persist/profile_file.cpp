#include "persist/profile_file.h"

#include <cmath>
#include <limits>
#include <optional>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "model/tokenizer.h"
#include "persist/line_reader.h"
#include "persist/template_file.h"

namespace tav {
namespace {

constexpr std::string_view kStartOfProfile = "Start of Profile";
constexpr std::string_view kSurfaceTime = "SurfTime";
constexpr std::string_view kEndOfProfile = "End of Profile";
constexpr std::size_t kMostDives = std::numeric_limits<std::int16_t>::max() - 1;

class Reader {
 public:
  Reader(std::string_view text, FormatFaults& faults) : lines_(text), faults_(faults) {}

  ProfileText Run() {
    do {
      if (profile_.dives.size() == kMostDives) {
        faults_.Error(lines_.LineNumber() + 1, Text::SeriesTooLong);
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
    if (!IsMarker(first.Next(), kStartOfBlock)) {
      faults_.Error(lines_.LineNumber() + 1, {Text::DiveBegins, {std::string(kStartOfBlock)}});
      return false;
    }
    DiveRecord& dive = profile_.dives.emplace_back();
    DiveRecordLines& where = profile_.lines.emplace_back();
    where.block = lines_.LineNumber() + 1;
    where.keys = ReadDiveBlock(dive.Template, lines_, faults_);
    JudgeSettings(dive, where);
    if (!IsMarker(lines_.Next(), kStartOfProfile)) {
      Error({Text::LineMissing, {std::string(kStartOfProfile)}});
      return false;
    }
    ReadSurfaceInterval(dive);
    return ReadActions(dive, where);
  }

  /// Nothing stands in for what a dive does not tell: without "Metric=" a plan in metres would be one in feet.
  void JudgeSettings(const DiveRecord& dive, const DiveRecordLines& where) {
    const std::string missing = MissingKeys(where.keys, BlockOf::Dive);
    if (!missing.empty()) faults_.Error(where.block, {Text::SettingsMissing, {missing}});
    ReportTemplateFaults(dive.Template, where.keys, BlockOf::Dive, where.block, faults_);
  }

  void ReadSurfaceInterval(DiveRecord& dive) {
    const std::string_view line = lines_.Next().value_or("");
    const std::size_t equals = line.find('=');
    if (TrimBlanks(line.substr(0, equals)) != kSurfaceTime || equals == std::string_view::npos) {
      Error({Text::NoSurfaceTime, {std::string(kSurfaceTime), std::string(kStartOfProfile)}});
      return;
    }
    const auto minutes = ParseStrict(line.substr(equals + 1));
    if (!minutes || !(*minutes >= 0 && *minutes <= kMaximumSurfaceInterval)) {
      Error({Text::SurfaceTimeOutside,
             {std::string(kSurfaceTime), FormatPlain(kMaximumSurfaceInterval), Shown(line.substr(equals + 1))}});
      return;
    }
    dive.SurfaceInterval = *minutes;
    if (profile_.dives.size() == 1 && dive.SurfaceInterval != 0) {
      faults_.Advise(lines_.LineNumber(), {Text::SurfaceTimeOfFirst, {std::string(kSurfaceTime)}});
    }
    const PlanTexts& texts = dive.Template.Texts;
    if (texts != PlanTexts() && texts != profile_.dives.front().Template.Texts) {
      faults_.Advise(lines_.LineNumber(), {Text::TextsOfLaterDive, {std::to_string(profile_.dives.size())}});
    }
  }

  bool ReadActions(DiveRecord& dive, DiveRecordLines& where) {
    while (const auto line = lines_.Next()) {
      if (IsMarker(line, kEndOfProfile)) return true;
      if (TrimBlanks(*line).empty()) continue;
      if (!ReadAction(*line, dive)) return false;
      where.actions.push_back(lines_.LineNumber());
    }
    Error({Text::FileEnds, {std::string(kEndOfProfile)}});
    return false;
  }

  /// False when the list is full.
  bool ReadAction(std::string_view line, DiveRecord& dive) {
    ClassUseractions& actions = dive.UserActions;
    if (actions.GetLength() == std::numeric_limits<std::int16_t>::max()) {
      Error(Text::TooManyActions);
      return false;
    }
    actions.NewAction();  // also for a line that is wrong: the places of the others stay
    const std::int16_t last = actions.GetLength();
    std::string_view fields = TrimBlanks(line);
    if (fields.ends_with(',')) fields.remove_suffix(1);
    constexpr int kFields = 4;
    if (ClassTokenizer::tokenCount(fields, ",") != kFields) {
      Error({Text::ActionFields, {Shown(line)}});
      return true;
    }
    const Single depth = Number(ClassTokenizer::nextToken(fields, ","), Text::ActionDepth);
    const Single time = Number(ClassTokenizer::nextToken(fields, ","), Text::ActionTime);
    const std::int16_t mix = Integer(ClassTokenizer::nextToken(fields, ","), Text::ActionMix);
    const std::int16_t kind = Integer(fields, Text::ActionKind);
    if (kind != ClassUseractions::kLeg && kind != ClassUseractions::kAscent) Error({Text::ActionKind, {Shown(fields)}});
    const bool isAscent = kind == ClassUseractions::kAscent;
    const Message fault = LegFault(isAscent ? Single(0) : time, isAscent ? Single(0) : depth, mix, dive.Template);
    if (!fault.IsEmpty()) Error(fault);
    if (isAscent && (depth != -1 || time != -1)) {
      faults_.Advise(lines_.LineNumber(), {Text::AscentTakesNothing, {FormatPlain(depth), FormatPlain(time)}});
    }
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
    const auto integer = number && *number == std::floor(*number) ? RoundToInt16(*number) : std::nullopt;
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

std::string WriteProfileText(const std::vector<DiveRecord>& dives) {
  std::string text;
  for (const DiveRecord& dive : dives) text += WriteDiveRecord(dive.Template, dive.SurfaceInterval, dive.UserActions);
  return text;
}

ProfileText ReadProfileText(std::string_view text, FormatFaults& faults) { return Reader(text, faults).Run(); }

ProfileText ReadProfileFile(const std::filesystem::path& file) {
  FormatFaults faults(file, FormatFaults::Mode::StopAtFirstError);
  ProfileText profile = ReadProfileText(ReadTextFile(file), faults);
  profile.advice = faults.List();
  return profile;
}

void ReportSeriesFaults(const ProfileText& profile, FormatFaults& faults) {
  for (std::size_t i = 1; i < profile.dives.size(); ++i) {
    const ClassUseractions& before = profile.dives[i - 1].UserActions;
    if (before.GetLength() > 0 && before.getaction(before.GetLength()) == ClassUseractions::kAscent) continue;
    faults.Error(profile.lines[i].block, {Text::NoAscentBefore, {std::to_string(i + 1), std::to_string(i)}});
  }
}

}  // namespace tav
