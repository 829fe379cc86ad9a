#include <algorithm>
#include <filesystem>
#include <ostream>
#include <thread>

#include "cli/command_frame.h"
#include "cli/limit_options.h"
#include "cli/long_work.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "cli/shown.h"
#include "model/text_id.h"
#include "persist/text_file.h"
#include "picture/svg_surface.h"
#include "reports/margin_map.h"
#include "reports/margin_picture.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints a map of the dives round a plan: one leg longer and shorter from left to right, deeper and shallower from "
    "top to bottom. Each cell is a whole plan, computed again with every single gas of the change list lost, or on a "
    "rebreather with a bail-out at every whole minute. Its letter names the first limit that it breaks, in the order "
    "of the legend; a point stands where all hold. The dive itself must leave the reserve of its "
    "cylinders; who has lost a gas may go into the reserve. Without cylinders in the plan gas is not "
    "judged.\n"
    "In --json each cell has \"longer\", \"deeper\", \"run_time\", \"stops\", \"cns\" as a fraction, \"otu\", the "
    "\"limit\" that it breaks (null, does_not_decompress, ceiling, ppo2, gas NAME, lost NAME, bail-out, cns, run, "
    "stops; impossible for no dive at all) and \"by\" how much.";

constexpr const char* kExamples = R"(
  tavplan margins dives/wreck.tav            10 min less to 20 more, 6 m less to 12 more
  tavplan margins a.tav --longer 0:30:2 --deeper 0:9:3 --max-run 90
  tavplan margins a.tav --pdf a.pdf          a page with the map and the longest stay
)";

struct Given {
  std::string file;
  std::string dive;
  std::string longer;
  std::string deeper;
  std::string pdf;
  std::string svg;
  LimitWish limits;
};

MarginRange RangeOf(const std::string& text, const char* option, const MarginRange& usual) {
  if (text.empty()) return usual;
  const std::size_t first = text.find(':');
  const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
  if (second == std::string::npos) throw OptionError({Text::MarginsRange, {option, text}});
  constexpr double kMost = 999;
  const MarginRange range{NumberOf(text.substr(0, first), option, -kMost, kMost),
                          NumberOf(text.substr(first + 1, second - first - 1), option, -kMost, kMost),
                          NumberOf(text.substr(second + 1), option, -kMost, kMost)};
  if (!range.Count()) throw OptionError({Text::MarginsRange, {option, text}});
  return range;
}

void WriteCell(JsonWriter& json, const MarginCell& cell) {
  json.Member("longer", cell.longer);
  json.Member("deeper", cell.deeper);
  json.Member("run_time", cell.runTime);
  json.Member("stops", cell.stops);
  json.Member("cns", cell.cns);
  json.Member("otu", cell.otu);
  if (cell.limit.IsBroken()) {
    json.Member("limit", cell.limit.Id());
    json.Member("by", cell.limit.by);
  } else {
    json.Member("limit", std::nullopt);
    json.Member("by", std::nullopt);
  }
}

void WriteJson(const Margins& margins, const std::vector<MarginCell>& cells, const ShownOutput& shown,
               std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.Object("leg", [&] {
      json.Member("action", int{margins.Leg()});
      json.Member("depth", margins.LegDepth());
      json.Member("time", margins.LegTime());
    });
    WriteLimits(json, margins);
    json.List("cells", [&] {
      for (const MarginCell& cell : cells) json.Object([&] { WriteCell(json, cell); });
    });
    shown.Write(json);
  });
  out << "\n";
}

void ShowMap(const LetteredMap& map, ShownOutput& shown) {
  ShownOutput::Table table{"map", {{map.title}}, {}};
  table.heads[0].insert(table.heads[0].end(), map.columns.begin(), map.columns.end());
  for (std::size_t row = 0; row < map.rows.size(); ++row) {
    ShownOutput::Row& to = table.rows.emplace_back();
    to.cells = {map.rows[row]};
    to.marks = {""};
    for (std::size_t column = 0; column < map.columns.size(); ++column) {
      to.cells.emplace_back(1, map.letters[row][column]);
      to.marks.emplace_back(map.IsPlanned(row, column) ? "planned" : "");
    }
  }
  shown.Put(table, MapLines(map));
  shown.BlankLine();
  for (const std::string& line : map.legend) shown.Line(line, "  ");
}

void Run(const Given& given, CommandFrame& frame) {
  OpenedPlan& opened = frame.OpenPlan(given.file);
  const std::size_t dive = CommandFrame::OneDive(given.dive, opened);
  const PlannedDive planned = opened.Planned(dive);
  const DiveTemplate& settings = planned.record.Template;
  const AdviceWords words(frame.Texts(), {}, settings.Metric);
  const Margins margins(planned, given.limits.On(settings), words, LegOf(given.limits, planned.record.UserActions));
  if (!margins.Fault().IsEmpty()) throw FileError(given.file, 0, margins.Fault());
  const MarginGrid usual = MarginGrid::Usual(settings.Metric);
  const MarginGrid grid{RangeOf(given.longer, "--longer", usual.longer),
                        RangeOf(given.deeper, "--deeper", usual.deeper)};
  if (!grid.IsSound())
    throw OptionError(given.longer.empty() ? Message(Text::MarginsRange, {"--deeper", given.deeper})
                                           : Message(Text::MarginsRange, {"--longer", given.longer}));
  frame.MarkDecompression(margins.Decompresses());
  LongWork work(frame.Terminal());
  const std::vector<MarginCell> cells =
      margins.Cells(grid, static_cast<int>(std::max(1U, std::thread::hardware_concurrency())),
                    [&](std::size_t done) { work.Step(static_cast<int>(done), grid.Columns() * grid.Rows()); });
  const std::string name = std::filesystem::path(given.file).filename().string();
  if (!given.pdf.empty()) {
    PageOutput pdf(frame, given.pdf);
    PrintMargins(pdf.Pages(), name, margins, grid, cells, margins.Longest(), words);
    pdf.WritePdf(words.T(Text::MarginsTitle), work);
  }
  if (!given.svg.empty()) {
    constexpr double kPixel = 15;  // drawing units
    const FilePicture picture = MarginPicture(name, margins, grid, cells, words);
    SvgSurface surface(picture.width * kPixel, picture.height * kPixel);
    picture.draw(surface);
    frame.Save(given.svg, [&] {
      return WriteTextFile(given.svg, surface.File(picture.title, picture.description, SvgSurface::Unit::Pixel));
    });
  }
  ShownOutput shown(frame.Common());
  shown.Heading(MarginHead(given.file, margins, words));
  shown.BlankLine();
  ShowMap(Lettered(grid, cells, words), shown);
  shown.BlankLine();
  for (const std::string& note : MarginNotes(margins, words)) shown.Text(note);
  if (frame.Common().json) {
    WriteJson(margins, cells, shown, frame.Out());
  } else if (given.pdf.empty() && given.svg.empty()) {
    frame.Out() << shown.TakeText();
  }
}

}  // namespace

Command MarginsCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"margins", "Print a map of how far a dive may go wrong", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      DiveOption(given->dive, "the last"),
      {"--longer", "FROM:TO:STEP", "Minutes that the leg is longer, -10:20:1 if not given", &given->longer},
      {"--deeper", "FROM:TO:STEP", "Depth units that it is deeper, -6:12:1 in metres and -20:40:5 in feet if not given",
       &given->deeper},
      PdfOption(given->pdf, "Write the map to this file, and no text"),
      {.name = "--svg",
       .value = "FILE",
       .text = "Write the map to this file as a picture, and no text",
       .place = &given->svg,
       .role = Option::Role::FileToWrite,
       .offers = "svg"},
  };
  AddLimits(command, given->limits);
  command.AddJson("Print the cells as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
