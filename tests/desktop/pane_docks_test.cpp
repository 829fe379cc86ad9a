#include <QApplication>
#include <QDockWidget>
#include <QTest>
#include <gtest/gtest.h>

#include "support/windowed_program.h"

namespace tav {
namespace {

using test::WindowedProgram;

QDockWidget* PlanDock(const WindowedProgram& p) {
  return p.window.findChild<QDockWidget*>(QStringLiteral("frmPlanPane"));
}

TEST(PaneDocks, AreShownHiddenAndRemembered) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  QDockWidget* dock = PlanDock(p);
  ASSERT_NE(dock, nullptr);
  EXPECT_TRUE(dock->isVisible() && p.program.MainForm().mnuPlanPane.Checked) << "at first";
  dock->close();
  EXPECT_FALSE(p.program.MainForm().mnuPlanPane.Checked) << "closed by its own control";
  p.program.MainForm().mnuPlanPane.Choose();
  EXPECT_TRUE(dock->isVisible());

  struct Choice {
    Qt::DockWidgetArea area;
    bool shown;
  };
  for (const auto& [area, shown] : {Choice{Qt::LeftDockWidgetArea, true}, Choice{Qt::RightDockWidgetArea, false}}) {
    WindowedProgram first;
    ASSERT_TRUE(first.Start());
    first.window.addDockWidget(area, PlanDock(first));
    if (!shown) first.program.MainForm().mnuPlanPane.Choose();
    ASSERT_TRUE(first.program.MainForm().Unload());
    WindowedProgram second;
    second.headless.platform.settings = first.headless.platform.settings;
    ASSERT_TRUE(second.Start());
    EXPECT_EQ(second.window.dockWidgetArea(PlanDock(second)), area);
    EXPECT_EQ(PlanDock(second)->isVisible(), shown);
    EXPECT_EQ(second.program.MainForm().mnuPlanPane.Checked, shown);
  }
}

TEST(PaneDocks, GoWithTheWindowWhichIsNoChoiceOfTheUser) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  p.window.hide();
  EXPECT_TRUE(p.program.MainForm().mnuPlanPane.Checked);
  p.window.show();
  EXPECT_TRUE(PlanDock(p)->isVisible());
}

}  // namespace
}  // namespace tav
