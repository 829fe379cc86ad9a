#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "engine/model_choice.h"
#include "start/program_folders.h"
#include "supply/supply_choice.h"

/// The commands of tavplan. Each writes its result to `out`, its errors as lines "FILE:LINE: REASON" to `err`, and
/// returns the exit status.
namespace tav {

namespace ExitStatus {
constexpr int kFine = 0;
constexpr int kDoesNotDecompress = 1;  ///< a stop never clears
constexpr int kUnusableInput = 2;
}  // namespace ExitStatus

enum class OutputForm { Slate, Json, Csv };

struct OutputOptions {
  OutputForm form = OutputForm::Slate;
  bool vpm = false;
  bool hybrid = false;
  bool zhl16c = false;
  bool why = false;     ///< tell why each stop lasts as long as it does
  std::string phi;      ///< trace file; empty for none
  SupplyChoice supply;  ///< how the gas for the way up is reckoned

  [[nodiscard]] ModelChoice Model() const { return {vpm, hybrid, zhl16c}; }
};

/// Prints the schedules of profile files.
int PlanCommand(const std::vector<std::string>& files, const OutputOptions& options, const ProgramFolders& folders,
                std::ostream& out, std::ostream& err);

struct NewPlanOptions {
  std::vector<std::string> legs;       ///< DEPTH:TIME or DEPTH:TIME@GAS
  std::string gas;                     ///< of the legs that name none; empty for Air
  std::string templateName;            ///< a file, or a name in the template folder; empty for the default
  std::vector<std::string> cylinders;  ///< "GAS:COUNT/SIZE/FILL/RESERVE", in place of those of the template
  std::string output;                  ///< profile file to write; empty for none
};

/// Makes a plan from legs, computes its ascent, prints it and saves it where asked to.
int NewCommand(const NewPlanOptions& plan, const OutputOptions& options, const ProgramFolders& folders,
               std::ostream& out, std::ostream& err);

struct ReportOptions {
  std::string file;
  std::string pdf;
  std::string dive;    ///< from 1; empty for all
  bool slate = false;  ///< the slates to dive by, in place of the report
};

/// Writes the long report of a profile file, or its slates, as a PDF.
int ReportCommand(const ReportOptions& report, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& err);

struct GraphOptions {
  std::string file;
  std::string svg;
  std::string dive;           ///< number from 1; empty for the last
  std::string width, height;  ///< "1000px", "180mm"; empty for the usual size
  bool tissues = false;       ///< with the map of the loads
};

/// Writes the graph of a plan as an SVG picture.
int GraphCommand(const GraphOptions& options, const OutputOptions& model, const ProgramFolders& folders,
                 std::ostream& err);

struct BailoutOptions {
  std::string file;
  std::string dive;            ///< number from 1; empty for the last
  std::string interval = "5";  ///< minutes
  std::string pdf;             ///< file for the tables and cards on paper, in place of the text; empty for none
};

/// Prints the ascents from regular moments of a plan on open circuit, once for the loss of each deco gas and once with
/// all of them.
int BailoutCommand(const BailoutOptions& bailout, const OutputOptions& options, const ProgramFolders& folders,
                   std::ostream& out, std::ostream& err);

struct WhatIfOptions {
  std::string file;
  std::string dive;    ///< number from 1; empty for the last
  std::string longer;  ///< minutes; empty for 5
  std::string deeper;  ///< depth units; empty for 3 m or 10 ft
  std::string pdf;     ///< file for the columns as slates, in place of the text; empty for none
};

/// Prints a plan beside what becomes of it when it gets longer or deeper, or a gas or the loop is lost.
int WhatIfCommand(const WhatIfOptions& whatIf, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& out, std::ostream& err);

struct TablesOptions {
  std::string templateName;    ///< a file, or a name in the template folder; empty for the default
  std::string gas;             ///< of the dives
  std::string depths;          ///< FROM:TO:STEP
  std::string times;           ///< FROM:TO:STEP, minutes
  std::string pdf;             ///< file for the tables on paper, in place of the text; empty for none
  bool descentCounts = false;  ///< the time counts from leaving the surface, else from the bottom
};

/// Prints deco tables: square dives on a grid of depths and bottom times.
int TablesCommand(const TablesOptions& tables, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& out, std::ostream& err);

/// Lists all faults of templates and profiles, with line numbers.
int CheckCommand(const std::vector<std::string>& files, const ProgramFolders& folders, std::ostream& out,
                 std::ostream& err);

struct MixOptions {
  std::string have;         ///< O2/HE@PRESSURE, the cylinder as it is
  std::string want;         ///< the same, as it shall be
  std::string top;          ///< O2/HE, the gas on top; air for an empty text
  std::string temperature;  ///< degrees Celsius at which the gauge is read; 20 for an empty text
  std::string warm;         ///< degrees Celsius of the cylinder while it is filled; empty for none
  std::string steps;        ///< a fill as it was done, "he@67 o2@86 air@220"; empty for none
  bool imperial = false;    ///< pressures in psi, not in bar
  bool json = false;
};

/// Prints what to fill into a cylinder: both results of the mixer and the list to fill by; or what came out of a fill,
/// and what mends it.
int MixCommand(const MixOptions& options, const ProgramFolders& folders, std::ostream& out, std::ostream& err);

struct ExportOptions {
  std::string file;
  std::string uddf;
  std::string dive;  ///< from 1; empty for all
};

/// Writes a plan, or one of its dives, as UDDF.
int ExportCommand(const ExportOptions& options, const OutputOptions& model, const ProgramFolders& folders,
                  std::ostream& err);

struct ImportOptions {
  std::string file;
  std::string output;
  std::string templateName;  ///< a file, or a name in the template folder; empty for the default
  int dive = 0;              ///< from 1; 0 for all
};

/// Turns a dive log (UDDF) or waypoints (CSV) into a profile file, and tells on `err` what was simplified.
int ImportCommand(const ImportOptions& options, const ProgramFolders& folders, std::ostream& err);

/// The whole program.
int RunTavplan(const std::vector<std::string>& arguments, const ProgramFolders& folders, std::ostream& out,
               std::ostream& err);

}  // namespace tav
