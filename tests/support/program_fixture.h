#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "app/program.h"
#include "headless/headless_platform.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav::test {

/// The main window of a program without a screen.
struct HeadlessMainView : MainView {
  void Attach(frmMain& form) override { attached = &form; }
  void Detach() override { attached = nullptr; }
  void Place(const Placement& placement) override { place = placement; }
  [[nodiscard]] Placement PlaceNow() const override { return place; }
  [[nodiscard]] bool IsMinimised() const override { return minimised; }
  void ShowWindow() override { shown = true; }
  void MenuChanged() override {}
  void ShowPane(PaneForm& pane, bool on) override {
    if (on) {
      panes.insert(&pane);
    } else {
      panes.erase(&pane);
    }
  }
  void FocusPane(PaneForm& pane) override { focused = &pane; }
  [[nodiscard]] const PaneForm* FocusedPane() const override { return focused; }
  [[nodiscard]] std::string PanesNow() const override { return panesNow; }
  std::optional<std::vector<PaneForm*>> RestorePanes(const std::string& text) override {
    if (text != panesNow) return std::nullopt;
    return std::vector<PaneForm*>(panes.begin(), panes.end());
  }
  void PlacePanes() override {}
  void StateChanged(std::int16_t document) override { ++changes[document]; }
  void Arrange(Arrangement arrangement) override { arrangements.push_back(arrangement); }
  bool ResetZoom(std::int16_t /*document*/) override { return std::exchange(zoomed, false); }
  bool ExportGraph(std::int16_t /*document*/, const std::string& file, bool /*svg*/) override {
    exported = file;
    return true;
  }

  bool SavePicture(const std::string& file, const FilePicture& /*picture*/, bool /*svg*/) override {
    exported = file;
    return true;
  }

  frmMain* attached = nullptr;
  Placement place;
  bool minimised = false;
  bool shown = false;
  bool zoomed = false;                  ///< a graph, that of the plan in front
  std::map<std::int16_t, int> changes;  ///< how often each document was told to be another
  std::vector<Arrangement> arrangements;
  std::string exported;
  std::set<PaneForm*> panes;  ///< shown
  PaneForm* focused = nullptr;
  std::string panesNow = "no panes";
};

/// The whole program on the headless platform, with the shipped data and a user's folder of its own.
struct HeadlessProgram {
  explicit HeadlessProgram(const LocaleSeparators& separators = {})
      : settingsFolder(folder.Path() / "config"), program(With(separators), view, Folders(), "no window system\n") {}

  /// Starts it, and agrees to the notice.
  bool Start(const std::vector<std::string>& arguments = {}) {
    platform.onModal.emplace_back([](Form& form) { dynamic_cast<frmLiability&>(form).cbAgree.Press(); });
    return program.Main(arguments);
  }

  /// Switches the boxes on that warn of PPO2 and END, for a plan and for new ones.
  void WarnByBoxes() {
    for (DiveTemplate* t : {&Document(DocumentStore::DefaultDocument).Template, &Document().Template}) {
      t->PPO2Low = t->PPO2High = t->MaxEnd = true;
    }
  }

  frmMain& Main() { return program.MainForm(); }
  std::int16_t Active() { return program.Forms().Active().value_or(-1); }
  /// What the window of a plan shows.
  PlanLook Look(std::int16_t n) { return Main().Looks().Of(n); }
  PlanLook Look() { return Look(Active()); }
  frmWaypointEditor& Editor() { return program.Forms()(Active()); }
  DocumentState& Document(std::int16_t n) { return program.Forms().Services().documents(n); }
  DocumentState& Document() { return Document(Active()); }
  static std::filesystem::path Dive(const std::string& name) { return SourceFolder() / "dives" / name; }

  /// Copies for recovery lie beside the settings; set before the program asks where that is.
  struct SettingsFolder {
    explicit SettingsFolder(const std::filesystem::path& path) {
      ::setenv("XDG_CONFIG_HOME", path.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
    }
  };

  ScratchFolder folder;
  SettingsFolder settingsFolder;
  HeadlessPlatform platform;
  HeadlessMainView view;
  Program program;

 private:
  /// The program keeps the separators that it finds at its start.
  Platform With(const LocaleSeparators& separators) {
    platform.separators = separators;
    return platform;
  }
  [[nodiscard]] ProgramFolders Folders() const { return {SourceFolder(), folder.Path() / "data"}; }
};

inline std::string FileText(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tav::test
