#pragma once

#include <QAction>
#include <QCoreApplication>
#include <string>

#include "desktop/graph_view.h"
#include "desktop/main_window.h"
#include "desktop/qt_text.h"
#include "support/program_fixture.h"

namespace tav::test {

/// The program in its real main window; its boxes, files and settings are the headless ones.
struct WindowedProgram {
  bool Start() {
    window.makeGraph = [this](std::int16_t document) { return MakeGraphView(program, document); };
    headless.platform.onModal.emplace_back([](Form& form) { dynamic_cast<frmLiability&>(form).cbAgree.Press(); });
    const bool started = program.Main({});
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return started;
  }
  QAction* Action(const char* name) { return window.findChild<QAction*>(QLatin1String(name)); }
  [[nodiscard]] std::string Title() const {
    return FromQt(window.windowTitle()) + (window.isWindowModified() ? " modified" : "");
  }

  HeadlessProgram headless;  // for its folders
  MainWindow window;
  Program program{headless.platform.Services(), window, ProgramFolders(SourceFolder(), headless.folder.Path() / "data"),
                  ""};
};

}  // namespace tav::test
