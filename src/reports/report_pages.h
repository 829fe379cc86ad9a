#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "figures/dive_figures.h"
#include "model/dive_template.h"
#include "model/profile.h"
#include "pages/print_preview.h"
#include "supply/gas_supply.h"

namespace tav {

/// One dive as the long report takes it.
struct ReportDive {
  const ClassProfile& profile;
  DiveTemplate& diveTemplate;  ///< `EndAltitude` becomes that of `EndPressure`
  const ModelChoice& model;    ///< that made the rows
  bool repetitive = false;
  bool showSeries = false;  ///< a band tells number and surface interval
  int diveNumber = 1;
  Single surfaceInterval;  ///< minutes
  bool decompresses = true;
  GasSupply supply = {};   ///< told after the gas table; nothing without gases
  std::string title = {};  ///< of the plan, in a series with its number; stands beside the program's name
};

/// The pages of one dive in the long report, and the pieces that its blocks are made of. Lengths are cm; places count
/// from the top left corner of the page.
class ReportPages {
 public:
  /// Opens page `number`. All that is handed over must outlive the object.
  ReportPages(PrintPreview& out, const ReportDive& dive, int number);

  /// Closes the page and opens the next one.
  void NewPage();
  /// Closes the last page; returns the number of the next.
  [[nodiscard]] int Close();

  [[nodiscard]] std::string T(int id) const { return out_.Texts().GetResString(id); }
  void Left(Single x, Single y, const std::string& text, int size = 10, bool bold = false);
  void Right(Single x, Single y, const std::string& text, bool bold = false, int size = 10);
  /// The text, smaller or cut where it would run into the next column.
  void Fitted(Single x, Single y, const std::string& text, double cm, bool bold = false);
  /// A figure with its right edge at x, smaller where it would run into the column before: it has `cm`.
  void Figure(Single x, Single y, const std::string& text, double cm, bool bold = false);
  void InWhite(const std::function<void()>& write);
  void Band(Single y, Single height);
  void TitleBand(Single y, Single height, const std::string& title, Single titleX);
  void Outline(Single top, Single bottom) { out_.PrintBoxOutline(1.9, top, 27.1, bottom); }
  /// A head with its unit on the line below it.
  struct Head {
    double x;
    int head;
    int unit = 0;          ///< 0: none
    bool right = false;    ///< as the figures under it
    double unitShift = 0;  ///< of the unit against its head
  };
  void Heads(const std::vector<Head>& heads, Single y, Single unitY);
  /// A small text that ends before the one at `next`, in cm.
  void SmallHead(Single x, Single y, const std::string& text, double next, bool bold);

  using Boxes = std::vector<std::pair<double, double>>;  ///< from, to
  /// A row of a table: the light band of every second one, then the black boxes behind the white figures.
  void RowBand(Single y, int index, const Boxes& blackBoxes);
  static constexpr double kRow = 0.5;    ///< its height
  static constexpr double kEnd = 17.25;  ///< the lowest edge of a row, clear of the foot
  [[nodiscard]] static bool OnBlack(const Boxes& boxes, double x);

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] PrintPreview& Out() { return out_; }
  [[nodiscard]] const ReportDive& Dive() const { return dive_; }
  [[nodiscard]] const ClassProfile& Profile() const { return dive_.profile; }
  [[nodiscard]] const DiveTemplate& Template() const { return dive_.diveTemplate; }
  [[nodiscard]] const ModelChoice& Model() const { return dive_.model; }
  [[nodiscard]] const NumberTexts& Numbers() const { return out_.Services().numbers; }
  /// The factor of a row in per cent; "--" where it is 1 or does not act.
  [[nodiscard]] std::string FactorOf(const Waypoint& row) const;
  /// How wide a text of a row is, cm.
  [[nodiscard]] double WidthOf(const std::string& text, bool bold = false) const;

 private:
  void Header();
  void Footer();

  PrintPreview& out_;
  const ReportDive& dive_;
  int number_;
};

}  // namespace tav
