#pragma once

#include <functional>
#include <string>
#include <vector>

#include "figures/dive_figures.h"
#include "model/dive_template.h"
#include "model/profile.h"
#include "pages/print_preview.h"
#include "supply/supply_tables.h"

namespace tav {

/// The long report: settings, every row, bottom segments, stops, summary and gas of one dive, or of each dive of a
/// series in turn, on landscape pages.
class GeneralReport {
 public:
  /// One dive as the report takes it.
  struct Dive {
    const ClassProfile& profile;
    DiveTemplate& diveTemplate;  ///< `EndAltitude` becomes that of `EndPressure`
    bool showSeries = false;     ///< a band tells number and surface interval
    int diveNumber = 1;
    Single surfaceInterval;  ///< minutes
    bool decompresses = true;
    SupplyTables supply = {};  ///< told after the gas table; nothing without rows
    std::string title = {};    ///< of the plan, in a series with its number; stands beside the program's name
  };

  /// `step` is told how far the report is, as a text for the wait window.
  GeneralReport(PrintPreview& out, const ModelChoice& model, std::function<void(const std::string&)> step);

  [[nodiscard]] const TextSource& Texts() const { return out_.Texts(); }
  void InitLongReport();
  /// Appends all pages of one dive.
  void LongReport(const Dive& dive);
  /// Shows the report.
  void ShowLongReport();

 private:
  // long_report.cpp: pages, and the parts that texts are made of.
  void Step(int textId);
  void ReportHeader();
  void ReportFooter();
  void NewPage();
  [[nodiscard]] std::string T(int id) const { return out_.Texts().GetResString(id); }
  void Left(Single x, Single y, const std::string& text, int size = 10, bool bold = false);
  void Right(Single x, Single y, const std::string& text, bool bold = false);
  void InWhite(const std::function<void()>& write);
  void TitleBand(Single y, Single height, const std::string& title, Single titleX);
  void TitleBand(Single y, Single height, int title, Single titleX) { TitleBand(y, height, T(title), titleX); }
  /// A row of a table: the light band of every second one, then the black boxes behind the white figures.
  void RowBand(Single y, int index, const std::vector<std::pair<double, double>>& blackBoxes);
  void Outline(Single top, Single bottom) { out_.PrintBoxOutline(1.9, top, 27.1, bottom); }
  /// The text, smaller or cut where it would run into the next column.
  void Fitted(Single x, Single y, const std::string& text, double cm, bool bold = false);

  // report_settings.cpp
  void PrintInfoHeader();
  void SeriesBand();
  void SettingsTable();
  void PrintDiveInfoHeader();
  void GasTable();
  void GasHead();

  // report_supply.cpp
  void SupplyBlock();
  void SupplyTable(const SupplyTables::Table& table, const std::string& title, bool twoLines);
  void SupplyHead(const SupplyTables::Table& table, const std::string& title);
  void SupplyRow(const std::vector<GridCell>& row, int index, bool twoLines);

  // report_tables.cpp
  void ProfileHead();
  void ProfileTable();
  void ProfileRow(std::int16_t index);
  void PrintCellRight(int cell, Single y, const std::string& text, bool bold = false);
  void PrintCellLeft(int cell, Single y, const std::string& text, bool bold = false);
  enum class DecoTable { Bottom, Stops };
  void DecoHead(DecoTable table);
  void DecoRows(DecoTable table, int step);
  void DecoRow(DecoTable table, const Waypoint& row);

  [[nodiscard]] const ClassProfile& Profile() const { return dive_->profile; }
  [[nodiscard]] DiveTemplate& Template() const { return dive_->diveTemplate; }
  /// The factor of a row in per cent; "--" where it is 1 or does not act.
  [[nodiscard]] std::string FactorOf(const Waypoint& row) const;

  PrintPreview& out_;
  ModelChoice model_;
  NumberTexts numbers_;
  std::function<void(const std::string&)> step_;
  int ReportPage_ = 1;
  Single SectionY_;  ///< the write positions of settings and gas, profile table, and the two stop tables
  Single TableY_;
  Single DecoY_;
  Single TableTop_;  ///< top of the table that is open on the page
  const Dive* dive_ = nullptr;
};

}  // namespace tav
