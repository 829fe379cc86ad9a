#include <utility>

#include "cli/computed_dive.h"
#include "cli/surfacing_output.h"
#include "cli/terminal_text.h"
#include "figures/dive_figures.h"
#include "figures/schedule.h"
#include "figures/settings_words.h"
#include "model/number_texts.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

std::string Short(Single value) { return NumberTexts().Short(value); }

class Slate {
 public:
  Slate(const ComputedDive& dive, const TextSource& texts)
      : dive_(dive),
        texts_(texts),
        template_(dive.dive.record.Template),
        schedule_(dive.dive.plan.rows, template_, ScheduleWordsOf(texts)) {}

  std::string Text(bool why) {
    Title();
    Line(SettingsLine(template_, dive_.dive.plan.model, dive_.dive.before != nullptr, texts_));
    if (const auto notice = NoticeOf(dive_.dive.plan.rows, dive_.dive.plan.end.Decompresses)) Line("! " + T(*notice));
    const AdviceWords words(texts_, {}, template_.Metric);
    text_ += "\n";
    text_ += dive_.surfacing.empty() ? schedule_.Aligned() : WithSurfacing(schedule_, dive_.surfacing, words);
    text_ += "\n";
    for (const std::string& total : schedule_.Totals()) Line("  " + total);
    if (why) Reasons(words);
    text_ += SupplyLines(dive_, texts_);
    for (const Finding& finding : dive_.findings) text_ += FindingLine(finding);
    return std::move(text_);
  }

 private:
  void Line(const std::string& text) { (text_ += text) += "\n"; }

  void Title() {
    if (dive_.ofDives == 1) return Line(dive_.file);
    Line(T(dive_.number > 1 ? Text::HeadDiveAfter : Text::HeadDiveOf,
           {dive_.file, std::to_string(dive_.number), std::to_string(dive_.ofDives),
            Short(dive_.dive.record.SurfaceInterval)}));
  }

  void Reasons(const AdviceWords& words) {
    Line("");
    for (const StopReason& reason : dive_.reasons) {
      const std::string stop = "  " + T(Text::ScheduleStop) + " " +
                               AtRight(words.Depth(dive_.dive.plan.rows.getDepth(reason.row)), 6) + "  ";
      text_ += Wrapped(stop + TextOf(reason, words), Letters(stop));
    }
  }

  [[nodiscard]] std::string T(int id, std::initializer_list<std::string> values = {}) const {
    return texts_.Filled(id, values);
  }

  const ComputedDive& dive_;
  const TextSource& texts_;
  const DiveTemplate& template_;
  ScheduleText schedule_;
  std::string text_;
};

}  // namespace

std::string FindingLine(const Finding& finding) {
  return Wrapped((finding.severity == Severity::Note ? "- " : "! ") + finding.text, 2);
}

std::string DiveSlate(const ComputedDive& dive, bool why, const TextSource& texts) {
  return Slate(dive, texts).Text(why);
}

}  // namespace tav
