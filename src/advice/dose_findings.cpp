#include "advice/passing.h"
#include "advice/plan_check.h"
#include "engine/oxygen_dose.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

/// One kind of dose over a dive.
struct Dose {
  double (*ofRow)(const Waypoint& row);
  double (*total)(const Waypoint& row);
  Single (*onRamp)(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool metric);
};

const Dose kCNS{[](const Waypoint& row) { return double{row.CNS}; },
                [](const Waypoint& row) { return double{row.TotalCNS}; }, CNSOnRamp};
const Dose kOTUs{[](const Waypoint& row) { return double{row.OTU}; },
                 [](const Waypoint& row) { return double{row.TotalOTU}; }, OTUOnRamp};

class Doses {
 public:
  Doses(const Context& context, const Dose& dose)
      : context_(context), dose_(dose), rows_(context.dive.rows), carried_(dose.ofRow(rows_.Row(0))) {
    // The running totals of a plan without its ascent leave out what the dives before it left.
    constexpr double kNoise = 1e-6;
    const double counted = dose.total(rows_.Row(1)) - dose.ofRow(rows_.Row(1));
    if (carried_ - counted > kNoise) leftOut_ = carried_ - counted;
  }

  [[nodiscard]] double AtEnd() const { return Total(rows_.GetLength()); }
  [[nodiscard]] double Carried() const { return carried_; }

  struct Found {
    std::int16_t row = 1;
    Passing at;
  };
  /// Where a limit that the dive comes to is passed.
  [[nodiscard]] Found Passed(double limit) const {
    std::int16_t row = 1;
    while (row < rows_.GetLength() && Total(row) < limit) ++row;
    const BreathedSegment& segment = context_.segments[static_cast<std::size_t>(row) - 1];
    const Waypoint& before = context_.dive.Before(row);
    const double whole = dose_.ofRow(*segment.end);
    const double wanted = limit - (Total(row) - whole);
    const double ramp = OnRamp(segment, segment.end->Depth);
    const auto partOf = [&](double share) {
      // A loop at its setpoint gives as much in every minute.
      if (!segment.openCircuit || segment.end->Rate == 0 || !(ramp > 0)) return share * whole;
      return OnRamp(segment, segment.from + (segment.end->Depth - segment.from) * share) / ramp * whole;
    };
    return {row, PassingIn(before, *segment.end, wanted, partOf)};
  }

 private:
  [[nodiscard]] double Total(std::int16_t row) const { return leftOut_ + dose_.total(rows_.Row(row)); }
  [[nodiscard]] double OnRamp(const BreathedSegment& segment, double to) const {
    if (segment.end->Rate == 0 || to == segment.from) return 0;
    return dose_.onRamp(segment.from, to, segment.end->Rate, segment.end->GasMixO2 / 100, segment.surface,
                        context_.dive.settings.Metric);
  }

  const Context& context_;
  const Dose& dose_;
  const ClassProfile& rows_;
  double carried_;
  double leftOut_ = 0;
};

struct DoseTexts {
  int passed;   ///< the limit is passed on the dive
  int carried;  ///< it was passed when the dive began
};

/// `limit` is in `unit`s, which the texts tell.
void Check(const Context& context, Rule rule, Severity severity, const Doses& doses, double limit, double unit,
           const DoseTexts& texts) {
  const AdviceWords& words = context.words;
  const std::int16_t last = context.dive.rows.GetLength();
  const auto told = [&](double dose) { return words.Fixed(dose / unit, 0); };
  if (doses.Carried() >= limit) {
    context.findings.push_back(
        {rule, severity, 1, last, words.T(texts.carried, {told(doses.AtEnd()), told(doses.Carried()), told(limit)})});
    return;
  }
  const Doses::Found found = doses.Passed(limit);
  context.findings.push_back(
      {rule, severity, found.row, last,
       words.T(texts.passed, {told(doses.AtEnd()), words.Short(found.at.time), words.Depth(found.at.depth),
                              context.dive.rows.GetGasMixName(found.row)})});
}

}  // namespace

/// CNS: the single-exposure limits of the NOAA Diving Manual are 100 %; 80 % is the usual margin. OTU: 300 a day is
/// what R. Hamilton's REPEX allows on dives of many days.
void CheckDoses(const Context& context) {
  constexpr double kPercent = 0.01;
  constexpr double kCNSMargin = 0.8;
  constexpr double kCNSLimit = 1.0;
  constexpr double kOTUADay = 300;
  const Doses cns(context, kCNS);
  if (cns.AtEnd() >= kCNSLimit) {
    Check(context, Rule::CNS, Severity::Danger, cns, kCNSLimit, kPercent, {Text::CNSBeyond, Text::CNSCarried});
  } else if (cns.AtEnd() >= kCNSMargin) {
    Check(context, Rule::CNS, Severity::Caution, cns, kCNSMargin, kPercent, {Text::CNSHigh, Text::CNSCarried});
  }
  const Doses otu(context, kOTUs);
  if (otu.AtEnd() >= kOTUADay) {
    Check(context, Rule::OTU, Severity::Caution, otu, kOTUADay, 1, {Text::OTUHigh, Text::OTUCarried});
  }
}

}  // namespace tav::plan_check
