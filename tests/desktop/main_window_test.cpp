#include "desktop/main_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QDropEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "app/error_report.h"
#include "desktop/graph_view.h"
#include "desktop/guarded_application.h"
#include "desktop/qt_text.h"
#include "persist/text_file.h"
#include "support/english.h"
#include "support/source_folder.h"
#include "support/windowed_program.h"

namespace tav {
namespace {

using test::WindowedProgram;

TEST(MainWindow, ATableThatIsMarkedKeepsItsMarkWhenItIsChosenAgain) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  QAction* b = p.Action("mnuBulhmannB");
  QAction* c = p.Action("mnuBulhmannC");
  ASSERT_TRUE(b != nullptr && c != nullptr);
  for (QAction* chosen : {b, b, c, c, b}) {
    chosen->trigger();
    EXPECT_EQ(b->isChecked(), chosen == b);
    EXPECT_EQ(c->isChecked(), chosen == c);
  }
  QAction* fit = p.Action("FitPlan");
  for (const bool on : {false, true, false}) {
    fit->trigger();
    EXPECT_EQ(fit->isChecked(), on);
    EXPECT_EQ(p.Action("mnuFitPlan")->isChecked(), on);
  }
}

TEST(MainWindow, NamesThePlanInFrontHoweverItIsShown) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_EQ(p.Title(), "TAV - [Plan 1 [Default.tpl][*]]") << "from the first moment";
  ASSERT_TRUE(p.program.Forms()(1).AddUserWaypoint(20, 20, 0));
  EXPECT_EQ(p.Title(), "TAV - [Plan 1 [Default.tpl][*]] modified");
  p.program.MainForm().mnuNewProfile.Choose();
  auto* area = p.window.findChild<QMdiArea*>();
  for (const bool maximised : {true, false, true}) {
    for (QMdiSubWindow* window : area->subWindowList()) maximised ? window->showMaximized() : window->showNormal();
    for (const std::int16_t document : {std::int16_t{1}, std::int16_t{2}}) {
      p.program.MainForm().Activate(document);
      QCoreApplication::processEvents();
      EXPECT_EQ(p.Title(),
                document == 1 ? "TAV - [Plan 1 [Default.tpl][*]] modified" : "TAV - [Plan 2 [Default.tpl][*]]")
          << maximised;
    }
  }
  p.program.MainForm().CloseDocument(2);
  p.headless.platform.answers = {BoxAnswer::No};
  p.program.MainForm().CloseDocument(1);
  QCoreApplication::processEvents();
  EXPECT_EQ(p.Title(), "TAV");
}

/// What is dropped would change the plan under a report that is being written, or under a question about it.
TEST(MainWindow, TakesNoFileThatIsDroppedUnderAModalWindow) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  const auto drop = [&] {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(ToQt((SourceFolder() / "dives/wreck.tav").string()))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&p.window, &enter);
    QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&p.window, &event);
    QCoreApplication::processEvents();
    return p.Title();
  };
  QDialog wait;
  wait.setModal(true);
  wait.show();
  EXPECT_THAT(drop(), testing::Not(testing::HasSubstr("wreck.tav")));
  wait.hide();
  EXPECT_THAT(drop(), testing::HasSubstr("wreck.tav"));
}

// A window is dear, and a series may be long.
TEST(MainWindow, MakesTheWindowOfAPlanWhenItIsFirstInFront) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& main = p.program.MainForm();
  const std::string dives = ReadTextFile(SourceFolder() / "dives/lake-series.tav");
  const auto file = p.headless.folder.Path() / "long.tav";
  WriteTextFile(file, dives);
  std::string text = dives;
  constexpr std::size_t kDives = 50;
  const std::string second = dives.substr(dives.find("Start Template Block", 1));
  for (std::size_t dive = 2; dive < kDives; ++dive) text += second;
  WriteTextFile(file, text);
  const auto windows = [&] { return p.window.findChild<QMdiArea*>()->subWindowList().size(); };
  const auto inFront = [&] {
    QCoreApplication::processEvents();
    return p.window.findChild<QMdiArea*>()->currentSubWindow()->windowTitle().toStdString();
  };
  ASSERT_TRUE(main.OpenFile(file));
  ASSERT_EQ(main.OpenDocuments().size(), kDives + 1);
  EXPECT_EQ(windows(), 2) << "the empty plan and the last dive";
  EXPECT_EQ(p.Title(), "TAV - [" + p.program.Forms().Caption(kDives + 1) + "[*]]");
  QCoreApplication::processEvents();
  std::size_t listed = 0;
  for (const MenuEntry& entry : main.Menu()) listed += entry.item->Name() == "plan" ? 1U : 0U;
  EXPECT_EQ(listed, kDives + 1);

  main.Activate(10);
  EXPECT_EQ(windows(), 3);
  EXPECT_THAT(inFront(), testing::HasSubstr("Dive:9"));
  main.mnuWindowCascade.Choose();
  EXPECT_EQ(windows(), 3) << "none could be read beside so many";
  // A change of the first dive reaches the others, and their marks, without a window.
  frmWaypointEditor& first = p.program.Forms()(2);
  first.MarkModified();
  first.ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(windows(), 3);
  EXPECT_EQ(p.Title(), "TAV - [" + p.program.Forms().Caption(10) + "[*]] modified");
  p.headless.platform.answers = {BoxAnswer::No};
  EXPECT_TRUE(main.CloseDocument(2));
  EXPECT_EQ(windows(), 1);
  EXPECT_THAT(inFront(), testing::StartsWith("Plan 1"));
}

TEST(MainWindow, ArrangesAllPlansOfAShortSeries) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  ASSERT_TRUE(p.program.MainForm().OpenFile(SourceFolder() / "dives/lake-series.tav"));
  auto* area = p.window.findChild<QMdiArea*>();
  EXPECT_EQ(area->subWindowList().size(), 2);
  p.program.MainForm().mnuWindowTileVertical.Choose();
  EXPECT_EQ(area->subWindowList().size(), 3);
  EXPECT_EQ(p.program.MainForm().Active(), 3);
  // The keys that turn plans reach those without a window, too.
  WindowedProgram q;
  ASSERT_TRUE(q.Start());
  ASSERT_TRUE(q.program.MainForm().OpenFile(SourceFolder() / "dives/lake-series.tav"));
  const std::pair<QKeySequence::StandardKey, std::int16_t> turns[] = {
      {QKeySequence::NextChild, 1}, {QKeySequence::NextChild, 2}, {QKeySequence::PreviousChild, 1}};
  for (const auto& [keys, document] : turns) {
    QTest::keySequence(&q.window, keys);
    EXPECT_EQ(q.program.MainForm().Active(), document);
  }
}

TEST(MainWindow, ShowsAndExportsTheTissuesWhileTheyAreOn) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  ASSERT_TRUE(p.program.Forms()(1).AddUserWaypoint(45, 30, 0));
  const auto* tissues = p.window.findChild<QWidget*>(QStringLiteral("pbTissues"));
  ASSERT_NE(tissues, nullptr);
  const std::filesystem::path file = p.headless.folder.Path() / "graph.svg";
  std::size_t without = 0;
  for (const bool on : {false, true, false}) {
    SCOPED_TRACE(on);
    EXPECT_EQ(tissues->isVisible(), on);
    ASSERT_TRUE(p.window.ExportGraph(1, file.string(), true));
    const std::size_t length = ReadTextFile(file).size();
    if (on) {
      EXPECT_GT(length, without + 16 * 100U);
    } else {
      without = length;
    }
    p.Action("mnuViewTissues")->trigger();
    EXPECT_EQ(p.Action("mnuViewTissues")->isChecked(), !on);
    EXPECT_TRUE(p.Action("mnuViewCeiling")->isChecked());
  }
}

TEST(MainWindow, ComesBackInTheSizeThatItHad) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  for (const Placement& place : {Placement{1500, 1200, 9000, 7500}, {0, 0, 11250, 9000}}) {
    p.window.Place(place);
    EXPECT_EQ(p.window.PlaceNow().width, place.width);
    EXPECT_EQ(p.window.PlaceNow().height, place.height);
  }
  p.window.Place({0, 0, 100, 100});
  EXPECT_GE(p.window.width(), 480) << "what nobody could use";
}

TEST(Application, TellsAnErrorThatACommandLetThroughAndGoesOn) {
  auto& application = dynamic_cast<GuardedApplication&>(*QCoreApplication::instance());
  std::string told;
  application.onError = [&told] { told = CurrentError("TAV", test::English()).description; };
  QAction command;
  QObject::connect(&command, &QAction::triggered, [] { throw std::runtime_error("no room"); });
  QTimer::singleShot(0, &command, &QAction::trigger);
  QCoreApplication::processEvents();
  application.onError = nullptr;
  EXPECT_EQ(told, "no room");
}

}  // namespace
}  // namespace tav
