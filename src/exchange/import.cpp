#include "exchange/import.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "exchange/control_characters.h"
#include "exchange/log_plan.h"
#include "exchange/plan_samples.h"
#include "exchange/uddf_reader.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/text_file.h"

namespace tav {
namespace {

class UddfImport {
 public:
  UddfImport(const std::filesystem::path& file, const UddfDocument& document, const DiveTemplate& settings)
      : file_(file), document_(document), texts_(document.Texts()), log_(ReadDiveLog(document)), settings_(settings) {}

  ImportedDives Run(int dive) {
    const int dives = static_cast<int>(log_.dives.size());
    if (dive < 0 || dive > dives) {
      document_.Fail(0, Text::ImportNoSuchDive, {std::to_string(dive), std::to_string(dives)});
    }
    ReadPlans(dive == 0 ? dives : dive);
    for (const LoggedDive& logged : log_.dives) {
      if (dive == 0 || logged.number == dive) Add(logged);
    }
    if (imported_.profile.dives.empty()) document_.Fail(document_.Root(), Text::ImportNoDive);
    if (onSettings_) imported_.remarks.push_back(texts_.GetResString(Text::ImportFromSettings));
    FormatFaults faults(file_, FormatFaults::Mode::StopAtFirstError);
    ReportSeriesFaults(imported_.profile, faults);
    return std::move(imported_);
  }

 private:
  /// The plans of the dives up to one. A log book may have kept a plan beside other depths: then the dive is logged.
  void ReadPlans(int last) {
    for (const LoggedDive& logged : log_.dives) {
      if (!logged.plan.empty() && logged.number <= last) plans_.emplace(logged.number, Plan(logged));
    }
    contradicted_ = ContradictedPlans(log_, plans_);
    if (!contradicted_.empty()) log_ = ReadDiveLog(document_, contradicted_);
  }

  void Add(const LoggedDive& logged) {
    if (contradicted_.contains(logged.number)) {
      imported_.remarks.push_back(texts_.Filled(Text::ImportPlanContradicted, {std::to_string(logged.number)}));
    }
    DiveRecord record;
    if (!logged.plan.empty()) {
      record = std::move(plans_.at(logged.number));
    } else if (!PlanOfLog(logged, record)) {
      return;
    }
    imported_.profile.dives.push_back(std::move(record));
    DiveRecordLines& lines = imported_.profile.lines.emplace_back();
    lines.block = logged.line;
    before_ = &logged;
  }

  /// The plan that stands in the file.
  [[nodiscard]] DiveRecord Plan(const LoggedDive& logged) const {
    FormatFaults faults(file_, FormatFaults::Mode::StopAtFirstError);
    try {
      ProfileText text = ReadProfileText(logged.plan, faults);
      if (text.dives.size() != 1) throw FileError(file_, 1, texts_.GetResString(Text::ImportNoDive));
      return std::move(text.dives.front());
    } catch (const FileError& error) {
      throw FileError(file_, logged.planLine + std::max(0, error.Line() - 1),
                      WithoutControl(texts_.Words(error.Reason())));
    }
  }

  bool PlanOfLog(const LoggedDive& logged, DiveRecord& record) {
    if (logged.samples.empty()) {
      LeaveOut(logged);
      return false;
    }
    const LogFault fault = LogPlanner(log_, settings_, texts_).Plan(logged, record, imported_.remarks);
    if (fault.text == Text::ImportNoDepths) {
      LeaveOut(logged);
      return false;
    }
    if (fault.text != 0) document_.Fail(logged.line, fault.text);
    if (before_ == nullptr) {
      record.Template.Texts = logged.texts;
    } else {
      record.SurfaceInterval = Interval(logged);
      KeepTexts(logged, record);
    }
    onSettings_ = true;
    return true;
  }

  /// Those of a later dive, in so far as the first has not got them.
  void KeepTexts(const LoggedDive& logged, DiveRecord& record) {
    const PlanTexts& ofSeries = imported_.profile.dives.front().Template.Texts;
    const auto isNew = [](const std::string& text, const std::string& first) { return !text.empty() && text != first; };
    if (!isNew(logged.texts.notes, ofSeries.notes) && !isNew(logged.texts.place, ofSeries.place)) return;
    record.Template.Texts = logged.texts;
    imported_.remarks.push_back(texts_.Filled(Text::TextsOfLaterDive, {std::to_string(logged.number)}));
  }

  void LeaveOut(const LoggedDive& logged) {
    imported_.remarks.push_back(texts_.Filled(Text::ImportNoDepths, {std::to_string(logged.number)}));
  }

  /// Minutes at the surface after the dive before: as told, else by the clock. Where the two do not agree it is told.
  double Interval(const LoggedDive& logged) {
    const auto tell = [&](int text, double byClock, double taken) {
      imported_.remarks.push_back(texts_.Filled(
          text, {std::to_string(logged.number), FormatFixed(Single(byClock), 0), FormatFixed(Single(taken), 0)}));
      return taken;
    };
    constexpr double kRounding = 1;  // minutes
    const bool clock = logged.startMinute && before_->startMinute && !before_->samples.empty();
    const double gap = clock ? *logged.startMinute - *before_->startMinute - before_->samples.back().minutes : 0;
    const double told = logged.surfaceInterval.value_or(logged.longInterval ? kMaximumSurfaceInterval : 0);
    if (clock && *logged.startMinute < *before_->startMinute) return tell(Text::ImportBackwards, 0, told);
    if (gap < -kRounding) return tell(Text::ImportOverlaps, -gap, told);
    if (logged.surfaceInterval) {
      const bool agree = !clock || std::fabs(gap - told) <= kRounding;
      return agree ? told : tell(Text::ImportIntervalContradicted, gap, told);
    }
    if (!clock) return tell(Text::ImportIntervalAssumed, told, told);
    const double taken = std::clamp(gap, 0.0, kMaximumSurfaceInterval);
    return tell(Text::ImportInterval, taken, taken);
  }

  const std::filesystem::path& file_;
  const UddfDocument& document_;
  const TextSource& texts_;
  DiveLog log_;
  const DiveTemplate& settings_;
  std::map<int, DiveRecord> plans_;  // by the number of the dive
  std::set<int> contradicted_;       // the numbers of dives whose plans are left out
  const LoggedDive* before_ = nullptr;
  bool onSettings_ = false;  // a dive was logged
  ImportedDives imported_;
};

}  // namespace

ImportedDives ImportUddf(const std::filesystem::path& file, std::string text, const DiveTemplate& settings, int dive,
                         const TextSource& texts) {
  const UddfDocument document(file, std::move(text), texts);
  return UddfImport(file, document, settings).Run(dive);
}

ImportedDives ImportFile(const std::filesystem::path& file, const DiveTemplate& settings, int dive,
                         const TextSource& texts) {
  std::string text = ReadTextFile(file, UddfDocument::kLargestFile);
  std::string extension = file.extension().string();
  const auto small = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  std::transform(extension.begin(), extension.end(), extension.begin(), small);
  DiveTemplate ofNewPlans = settings;
  SetUpNewPlan(ofNewPlans);
  if (extension == kCsvExtension) {
    // Waypoints are those of one dive.
    if (dive > 1) throw FileError(file, 0, {Text::ImportNoSuchDive, {std::to_string(dive), "1"}});
    return ImportCsv(file, text, ofNewPlans, texts);
  }
  return ImportUddf(file, std::move(text), ofNewPlans, dive, texts);
}

}  // namespace tav
