// What each control does, as it was when that was last renewed. TAV_WRITE_FIGURES=1 renews it.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "persist/profile_file.h"
#include "support/described.h"
#include "support/kept.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

struct Act {
  std::string name;
  std::function<void()> act;
};
using Acts = std::vector<Act>;

template <class C, class Add>
void IfIs(Control& control, Add add) {
  if (auto* one = dynamic_cast<C*>(&control)) add(*one);
}

/// A user's cell: one of a list, or a number.
void EditCell(Grid& grid, int column) {
  const Grid::Editor editor = grid.EditorOf ? grid.EditorOf(1, column) : Grid::Editor{};
  grid.Edit(1, column, editor.entries.empty() ? "12" : editor.entries.back());
}

void AddGridActs(Grid& grid, Acts& acts) {
  acts.push_back({"select", [&grid] { grid.Select(1, 1); }});
  acts.push_back({"menu", [&grid] { grid.OpenMenu(true); }});
  acts.push_back({"insert", [&grid] { grid.PressInsert(); }});
  for (int column = 0; column < grid.Columns(); ++column) {
    const std::string at = " " + std::to_string(column);
    acts.push_back({"edit" + at, [&grid, column] { EditCell(grid, column); }});
    acts.push_back({"type" + at, [&grid, column] { grid.Type(1, column, "1"); }});
    acts.push_back({"restore" + at, [&grid] { grid.Restore(); }});
  }
  acts.push_back({"tick", [&grid] { grid.Tick(1, false); }});
  acts.push_back({"step", [&grid] {
                    if (grid.Stepped) grid.Type(1, 1, grid.Stepped(grid.Text(1, 1), 1));
                  }});
  for (const Grid::Wish wish :
       {Grid::Wish::Copy, Grid::Wish::Duplicate, Grid::Wish::MoveUp, Grid::Wish::MoveDown, Grid::Wish::Paste}) {
    acts.push_back({"wish " + std::to_string(static_cast<int>(wish)), [&grid, wish] { grid.Ask(wish); }});
  }
  acts.push_back({"delete", [&grid] { grid.PressDelete(); }});
}

/// All that a user can do with a control.
Acts ActsOn(Control& control) {
  Acts acts;
  IfIs<Button>(control, [&](Button& c) { acts = {{"press", [&c] { c.Press(); }}}; });
  IfIs<ToolButton>(control, [&](ToolButton& c) { acts = {{"press", [&c] { c.Press(); }}}; });
  IfIs<MenuItem>(control, [&](MenuItem& c) { acts = {{"choose", [&c] { c.Choose(); }}}; });
  IfIs<CheckBox>(control, [&](CheckBox& c) { acts = {{"set", [&c] { c.Set(!c.Value); }}}; });
  IfIs<OptionButton>(control, [&](OptionButton& c) { acts = {{"choose", [&c] { c.Choose(); }}}; });
  IfIs<SpinButton>(control, [&](SpinButton& c) { acts = {{"up", [&c] { c.Up(); }}, {"down", [&c] { c.Down(); }}}; });
  IfIs<TextBox>(control, [&](TextBox& c) {
    acts = {{"enter", [&c] { c.Enter(); }},         {"type", [&c] { c.Type("7"); }},
            {"up", [&c] { c.PressUp(); }},          {"down", [&c] { c.PressDown(); }},
            {"return", [&c] { c.PressReturn(); }},  {"leave", [&c] { c.Leave(); }},
            {"type nothing", [&c] { c.Type(""); }}, {"leave", [&c] { c.Leave(); }},
            {"escape", [&c] { c.PressEscape(); }}};
  });
  IfIs<ComboBox>(control, [&](ComboBox& c) {
    acts = {{"last", [&c] { c.Select(static_cast<int>(c.Items.Get().size()) - 1); }},
            {"type", [&c] { c.Type("7"); }},
            {"first", [&c] { c.Select(0); }},
            {"return", [&c] { c.PressReturn(); }}};
  });
  IfIs<ListView>(control, [&](ListView& c) { acts = {{"second", [&c] { c.Select(1); }}}; });
  IfIs<CheckList>(control, [&](CheckList& c) { acts = {{"untick", [&c] { c.Tick(0, false); }}}; });
  IfIs<PageView>(control, [&](PageView& c) {
    using Wish = PageView::Wish;
    for (const Wish wish : {Wish::Last, Wish::ZoomIn, Wish::Previous, Wish::Next, Wish::First, Wish::ZoomOut}) {
      acts.push_back({"wish " + std::to_string(static_cast<int>(wish)), [&c, wish] {
                        if (c.Wished) c.Wished(wish);
                      }});
    }
  });
  IfIs<CellMap>(control, [&](CellMap& c) {
    const auto goOn = [&c] {
      for (int i = 0; i < 8; ++i) c.GoOn();
    };
    acts = {{"go on", goOn}, {"step", [&c] { c.Step(1, 1); }}, {"point", [&c] { c.Point(2); }}, {"return", [&c] {
                                                                                                   c.PressReturn();
                                                                                                 }}};
  });
  IfIs<Grid>(control, [&](Grid& c) { AddGridActs(c, acts); });
  IfIs<ResultGrid>(control, [&](ResultGrid& c) {
    acts = {{"select", [&c] { c.Select(2); }}, {"return", [&c] { c.PressReturn(1); }}};
  });
  return acts;
}

/// What a user could see, line by line.
std::string Seen(test::HeadlessProgram& program, const Form& form) {
  HeadlessPlatform& platform = program.platform;
  std::string seen = form.IsLoaded() ? test::Described(form) : "closed\n";
  for (const ShownBox& box : platform.boxes) seen += "box \"" + box.text + "\" " + box.title + "\n";
  for (const std::string& name : platform.modalForms) seen += "modal " + name + "\n";
  for (const auto& window : platform.modeless) seen += "window " + window->Name() + " " + window->Caption.Get() + "\n";
  for (const MenuItem* item : platform.popup) seen += "pop-up " + item->Caption.Get() + "\n";
  for (const FileDialogRequest& request : platform.fileDialogs) seen += "file for " + request.title + "\n";
  for (const auto& help : platform.helpShown) seen += "help " + help.anchor + "\n";
  for (const auto& [key, value] : platform.settings) {
    seen += "setting " + key.first + "/" + key.second + "=" + value + "\n";
  }
  seen += "clipboard " + platform.clipboardText + "\n";
  std::set<std::string> panes;
  for (const PaneForm* pane : program.view.panes) panes.insert(pane->Name());
  for (const std::string& pane : panes) seen += "pane " + pane + "\n";
  if (program.view.focused != nullptr) seen += "pane in focus " + program.view.focused->Name() + "\n";
  seen += "exported " + program.view.exported + "\n";
  for (const Arrangement arrangement : program.view.arrangements) {
    seen += "arrangement " + std::to_string(static_cast<int>(arrangement)) + "\n";
  }
  if (const auto active = program.program.Forms().Active()) {
    const DocumentState& document = program.Document();
    const ClassProfile& rows = program.Editor().InputProfile;
    seen += program.program.Forms().Caption(*active) + ", " + FormatPlain(rows.GetRunTime(rows.GetLength())) +
            " min\n" + WriteDiveRecord(document.Template, document.SurfaceInterval, program.Editor().UserActions);
  }
  return ReplaceAll(ReplaceAll(seen, program.folder.Path().string(), "SCRATCH"), SourceFolder().string(), "");
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// The lines that are gone, and those that are new.
std::string Difference(const std::string& before, const std::string& now) {
  std::vector<std::string> gone = Lines(before);
  std::string added;
  for (const std::string& line : Lines(now)) {
    const auto found = std::ranges::find(gone, line);
    if (found != gone.end()) {
      gone.erase(found);
    } else {
      added += "    + " + line + "\n";
    }
  }
  std::string lost;
  for (const std::string& line : gone) lost += "    - " + line + "\n";
  return lost + added;
}

/// A program with a plan that may be written over.
struct PlanOpened {
  explicit PlanOpened(const std::string& dive) {
    program.Start();
    const std::filesystem::path copy = program.folder.Path() / dive;
    std::filesystem::copy_file(test::HeadlessProgram::Dive(dive), copy);
    program.Main().OpenFile(copy.string());
    program.Main().mnuClearRecent.Choose();  // a search would look into the names of folders
    program.platform.filesChosen = {program.folder.Path() / "chosen"};
  }
  test::HeadlessProgram program;
};

/// Acts on each control of a form in turn; what an act closes opens again.
std::string Driven(test::HeadlessProgram& program, Form& form) {
  std::string lines = form.Name() + "\n";
  for (Control* control : form.Controls()) {
    control->FocusWanted = [&lines, control] { lines += "  focus on " + control->Name() + "\n"; };
  }
  std::string before = Seen(program, form);
  for (Control* control : form.Controls()) {
    for (const auto& [name, act] : ActsOn(*control)) {
      if (!form.IsLoaded()) {
        form.Load();
        before = Seen(program, form);
      }
      lines += control->Name() + " " + name + "\n";
      act();
      const std::string now = Seen(program, form);
      lines += Difference(before, now);
      before = now;
    }
  }
  for (Control* control : form.Controls()) control->FocusWanted = nullptr;
  return lines;
}

TEST(KeptActs, OfPanesDoWhatIsKept) {
  for (const std::string dive : {"wreck.tav", "rebreather.tav"}) {
    for (const std::string pane : {"frmPlanPane", "frmCheckPane"}) {
      PlanOpened opened(dive);
      const auto& panes = opened.program.view.panes;
      const auto found = std::ranges::find(panes, pane, &Form::Name);
      ASSERT_NE(found, panes.end());
      test::ExpectKept("acts/" + dive + "." + pane + ".txt", Driven(opened.program, **found));
    }
  }
}

/// Each entry of the menus and each tool, and all that can be done in the window that it opens.
TEST(KeptActs, OfMenusAndTheirWindowsDoWhatIsKept) {
  for (const std::string dive : {"wreck.tav", "rebreather.tav"}) {
    std::string lines;
    std::set<std::string> driven;
    std::vector<std::string> names;
    PlanOpened first(dive);
    for (const Control* control : first.program.Main().Controls()) names.push_back(control->Name());
    for (const std::string& name : names) {
      PlanOpened opened(dive);
      test::HeadlessProgram& program = opened.program;
      const auto drive = [&](Form& form) {
        if (!driven.insert(form.Name()).second) return;
        // A map of a rebreather takes its time, and the system is another on each machine.
        const bool hasMap = form.Name() == "frmMargins" || form.Name() == "frmPlanSheet";
        if ((hasMap && dive == "rebreather.tav") || form.Name() == "frmSystemInformation") return;
        test::ExpectKept("acts/" + dive + "." + form.Name() + ".txt", Driven(program, form));
      };
      program.platform.onModal = {drive};
      for (const auto& [does, act] : ActsOn(*program.Main().Find(name))) {
        const std::string before = Seen(program, program.Main());
        const std::size_t windows = program.platform.modeless.size();
        act();
        lines += name + "\n" + Difference(before, Seen(program, program.Main()));
        if (program.platform.modeless.size() > windows) drive(*program.platform.modeless.back());
      }
    }
    test::ExpectKept("acts/" + dive + ".txt", lines);
  }
}

}  // namespace
}  // namespace tav
