#include "tables/table_remarks.h"

#include <algorithm>

#include "compute/breathed_gas.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// The remark of one column, or the same one of several.
struct Remark {
  std::string text;
  std::vector<std::size_t> columns;  ///< dives from 0, rising
};

class Remarks {
 public:
  Remarks(const SmallTable& table, const RemarkWords& words, bool onPaper)
      : table_(table), words_(words), onPaper_(onPaper) {}

  std::vector<std::string> Lines(std::size_t firstDive, std::size_t endDive) {
    for (std::size_t dive = firstDive; dive < std::min(endDive, table_.totals.size()); ++dive) {
      Add(dive, AlsoStops(dive));
      Add(dive, OtherGases(dive));
      OtherDepths(dive);
      Bottoms(dive);
      for (const TableWarning& found : table_.warnings) {
        if (found.dive == dive) Add(dive, WarningText(found.warning, words_));
      }
      for (const StopRemark& slow : table_.long_descent) {
        if (slow.dive != dive) continue;
        Add(dive, ReplaceAll(words_.longDescent, "%1", words_.numbers.Written(slow.what)));
      }
      for (const StopRemark& never : table_.no_decompression) {
        if (never.dive == dive) Add(dive, words_.noDecompression);
      }
    }
    std::vector<std::string> lines;
    for (const Remark& remark : remarks_) lines.push_back(ColumnsOf(remark) + ": " + remark.text);
    return lines;
  }

 private:
  /// The head of a column, and which it is of several with this head: a plan that ends between two minutes is cut at
  /// its end, too.
  [[nodiscard]] std::string Head(std::size_t dive) const {
    const auto first = table_.cells[0].begin() + TableColumn::kFirstDive;
    const auto here = first + static_cast<std::ptrdiff_t>(dive);
    const auto count = [&](auto end) { return std::count(first, end, *here); };
    const auto of = count(table_.cells[0].end());
    if (of == 1) return *here;
    return ReplaceAll(
        ReplaceAll(ReplaceAll(words_.oneOfHead, "%2", std::to_string(count(here + 1))), "%3", std::to_string(of)), "%1",
        *here);
  }

  void Add(std::size_t dive, const std::string& text) {
    if (text.empty()) return;
    const auto same = std::find_if(remarks_.begin(), remarks_.end(), [&](const Remark& r) { return r.text == text; });
    if (same == remarks_.end()) {
      remarks_.push_back({text, {dive}});
    } else if (same->columns.back() != dive) {
      same->columns.push_back(dive);
    }
  }

  [[nodiscard]] std::string AlsoStops(std::size_t dive) const {
    std::vector<StopRemark> stops = onPaper_ ? table_.bottom : std::vector<StopRemark>();
    stops.insert(stops.end(), table_.left_out.begin(), table_.left_out.end());
    std::string text;
    for (const StopRemark& stop : stops) {
      if (stop.dive != dive) continue;
      text += text.empty() ? words_.alsoStop + " " : ", ";
      text += Depth(stop.exact) + " " + stop.what + " " + words_.minutes + " " + words_.on + " " + stop.mix;
    }
    return text;
  }

  [[nodiscard]] std::string OtherGases(std::size_t dive) const {
    std::string text;
    std::string mix;
    for (const StopRemark& stop : table_.other_gas) {
      if (stop.dive != dive) continue;
      if (stop.what == mix) {
        text += ", ";
      } else {
        text += (text.empty() ? "" : "; ") + words_.breathe + " " + stop.what + " " + words_.at + " ";
        mix = stop.what;
      }
      text += Depth(stop.exact);
    }
    return text;
  }

  void OtherDepths(std::size_t dive) {
    for (const StopRemark& stop : table_.other_depth) {
      if (stop.dive != dive) continue;
      Add(dive, ReplaceAll(ReplaceAll(words_.insteadOf, "%1", Depth(stop.exact)), "%2", Depth(stop.what)));
    }
  }

  void Bottoms(std::size_t dive) {
    const auto filled = [](const std::string& text, const std::string& found, const std::string& limit) {
      return ReplaceAll(ReplaceAll(text, "%1", found), "%2", limit);
    };
    for (const BottomRemark& bottom : table_.bottoms) {
      if (bottom.dive != dive) continue;
      if (bottom.end > 0) {
        Add(dive, filled(words_.narcotic, Depth(FormatPlain(RoundSingle(bottom.end, 1))),
                         Depth(FormatPlain(RoundSingle(table_.maximalEND, 1)))));
      }
      if (bottom.density > 0) {
        const double limit = bottom.density > kDensityHighest ? kDensityHighest : kDensityRecommended;
        Add(dive, filled(words_.dense, words_.numbers.Fixed(bottom.density, 2), words_.numbers.Fixed(limit, 1)));
      }
    }
  }

  [[nodiscard]] std::string Depth(const std::string& number) const {
    return words_.numbers.Written(number) + " " + words_.unit;
  }

  /// "Column 12", "Columns 6 to 39, 45".
  [[nodiscard]] std::string ColumnsOf(const Remark& remark) const {
    const std::vector<std::size_t>& columns = remark.columns;
    std::string text = columns.size() == 1 ? words_.column : words_.columns;
    for (std::size_t first = 0; first < columns.size();) {
      std::size_t last = first;
      while (last + 1 < columns.size() && columns[last + 1] == columns[last] + 1) ++last;
      text += (first == 0 ? " " : ", ") + Head(columns[first]);
      if (last > first) text += (last > first + 1 ? " " + words_.to + " " : ", ") + Head(columns[last]);
      first = last + 1;
    }
    return text;
  }

  const SmallTable& table_;
  const RemarkWords& words_;
  bool onPaper_;
  std::vector<Remark> remarks_;
};

}  // namespace

RemarkWords RemarkWordsOf(const TextSource& texts, bool metric, const NumberTexts& numbers) {
  const auto t = [&](int id) { return texts.GetResString(id); };
  return {t(Text::TableColumn),
          t(Text::TableColumns),
          t(Text::TableTo),
          t(Text::TableStopAlso),
          t(Text::Minutes),
          t(Text::TableBreathe),
          t(Text::TableAt),
          t(Text::TablePPO2Low),
          t(Text::TablePPO2High),
          t(Text::TableStillOnLostGas),
          t(Text::TableDoesNotDecompress),
          t(metric ? Text::Metres : Text::Feet),
          t(Text::DescentTakesTime),
          t(Text::TableFaultOf),
          t(Text::TableOn),
          t(Text::TableStopInstead),
          t(Text::TableBottomEND),
          t(Text::TableBottomDense),
          numbers};
}

std::string WarningText(const GasWarning& warning, const RemarkWords& words) {
  const auto depth = [&](Single value) { return words.numbers.Short(value) + " " + words.unit; };
  const auto what = [&]() -> const std::string& {
    switch (warning.kind) {
      case GasWarning::Kind::LowPPO2:
        return words.lowPPO2;
      case GasWarning::Kind::HighPPO2:
        return words.highPPO2;
      case GasWarning::Kind::LostGas:
        break;
    }
    return words.lostGas;
  };
  const std::string from = depth(warning.from);
  const std::string to = depth(warning.to);
  return what() + " " + words.at + " " + from + (to == from ? "" : " " + words.to + " " + to);
}

std::vector<std::string> TableRemarks(const SmallTable& table, const RemarkWords& words, bool onPaper,
                                      std::size_t firstDive, std::size_t endDive) {
  return Remarks(table, words, onPaper).Lines(firstDive, endDive);
}

}  // namespace tav
