#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

#include "dialogs/plan_pane.h"
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

TEST(PaneDocks, ComeBackInTheSizesThatTheyHad) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  frmMain& form = p.program.MainForm();
  QDockWidget* plan = PlanDock(p);
  auto* check = p.window.findChild<QDockWidget*>(QStringLiteral("frmCheckPane"));
  const auto sizes = [&] {
    QCoreApplication::processEvents();
    return std::pair(plan->size(), check->size());
  };
  const auto first = sizes();
  p.window.resizeDocks({plan, check}, {first.first.height() - 60, first.second.height() + 60}, Qt::Vertical);
  p.window.resizeDocks({plan}, {first.first.width() + 40}, Qt::Horizontal);
  const auto wanted = sizes();
  ASSERT_NE(wanted, first);
  const std::vector<std::vector<MenuItem*>> ways = {
      {&form.mnuPlanPane, &form.mnuPlanPane},
      {&form.mnuCheckPane, &form.mnuCheckPane},
      {&form.mnuPlanPane, &form.mnuCheckPane, &form.mnuPlanPane, &form.mnuCheckPane},
      {&form.mnuPlanPane, &form.mnuCheckPane, &form.mnuCheckPane, &form.mnuPlanPane}};
  for (const auto& way : ways) {
    for (const MenuItem* entry : way) {
      entry->Choose();
      QCoreApplication::processEvents();
    }
    EXPECT_EQ(sizes(), wanted) << &way - ways.data();
  }
  p.window.addDockWidget(Qt::LeftDockWidgetArea, plan);
  form.mnuDefaultLayout.Choose();
  const auto again = sizes();
  constexpr int kRounding = 2;
  EXPECT_EQ(again.first.width(), first.first.width());
  EXPECT_NEAR(again.first.height(), first.first.height(), kRounding);
  EXPECT_NEAR(again.second.height(), first.second.height(), kRounding);
  EXPECT_EQ(p.window.dockWidgetArea(plan), Qt::RightDockWidgetArea);
}

TEST(PaneDocks, GoWithTheWindowWhichIsNoChoiceOfTheUser) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  p.window.hide();
  EXPECT_TRUE(p.program.MainForm().mnuPlanPane.Checked);
  p.window.show();
  EXPECT_TRUE(PlanDock(p)->isVisible());
}

TEST(PlanPane, TabVisitsItFromTheDiveToItsSchedule) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  p.program.MainForm().OpenFile(test::HeadlessProgram::Dive("rebreather.tav").string());
  QCoreApplication::processEvents();
  const auto* dock = PlanDock(p);
  const auto* first = dock->findChild<QWidget*>(QStringLiteral("cbCircuit"));
  QStringList visited;
  const QWidget* at = first;
  do {
    const bool stops = (at->focusPolicy() & Qt::TabFocus) != 0 && at->isVisible() && at->isEnabled();
    if (stops && dock->isAncestorOf(at) && at->focusProxy() == nullptr) visited << at->objectName();
    at = at->nextInFocusChain();
  } while (at != first);
  EXPECT_EQ(FromQt(visited.join(QLatin1Char(' '))),
            "cbCircuit cbModel tbLowGF tbHighGF tbSetpoint cbKeepsDiluent tbAltitude tbLastStop cbOpenForDeco "
            "cbAddGas cbEditTemplate fgGases tbQuickDepth tbQuickTime cbQuickGas cbQuick fgLegs ckAscent cbLegs "
            "cbCopySchedule "
            "fgSchedule");
}

TEST(PlanPane, SpaceTicksAGasOfTheWayUpAndTheNextOneByKey) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  p.program.MainForm().OpenFile(test::HeadlessProgram::Dive("air-deco.tav").string());
  QCoreApplication::processEvents();
  p.window.activateWindow();
  auto* gases = PlanDock(p)->findChild<QTableWidget*>(QStringLiteral("fgGases"));
  const auto& changes = p.program.Forms().Services().documents(*p.program.Forms().Active()).Template.ChangeGasMixes;
  const std::size_t before = changes.size();
  gases->setFocus();
  gases->setCurrentCell(0, 0);
  ASSERT_EQ(gases->item(0, 0)->checkState(), Qt::Unchecked) << "air is breathed on the way up unless another gas is";
  QTest::keyClick(gases, Qt::Key_Space);
  QCoreApplication::processEvents();
  EXPECT_EQ(changes.size(), before + 1);
  EXPECT_EQ(gases->item(0, 0)->checkState(), Qt::Checked);
  QTest::keyClick(gases, Qt::Key_Space);
  QCoreApplication::processEvents();
  EXPECT_EQ(changes.size(), before);
}

TEST(PlanPane, TakesALineAndALegByKeysAlone) {
  WindowedProgram p;
  ASSERT_TRUE(p.Start());
  QDockWidget* dock = PlanDock(p);
  ASSERT_NE(dock, nullptr);
  p.window.activateWindow();
  const auto type = [&](const char* field, const char* text) {
    auto* edit = dock->findChild<QLineEdit*>(QLatin1String(field));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QLatin1String(text));
  };
  type("tbQuickDepth", "30");
  type("tbQuickTime", "20");
  auto* gas = dock->findChild<QComboBox*>(QStringLiteral("cbQuickGas"));
  gas->setFocus();
  QTest::keyClick(gas, Qt::Key_Return);
  frmWaypointEditor& plan = p.program.Forms()(1);
  ASSERT_EQ(plan.UserActions.GetLength(), 2) << "the leg and the ascent";

  // Return in the time of the last leg leads to the depth of the next one.
  auto* legs = dock->findChild<QTableWidget*>(QStringLiteral("fgLegs"));
  legs->setFocus();
  legs->setCurrentCell(0, PlanPaneLegs::kTime);
  QTest::keyClicks(legs->viewport(), QStringLiteral("2"));
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, QStringLiteral("5"));
  QTest::keyClick(editor, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(plan.UserActions.gettime(1), 25);
  EXPECT_EQ(legs->currentRow(), 1);
  EXPECT_EQ(legs->currentColumn(), PlanPaneLegs::kDepth);

  // The copy is selected, and not the leg with it.
  legs->setCurrentCell(0, PlanPaneLegs::kDepth);
  QTest::keyClick(legs, Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(plan.UserActions.GetLength(), 3);
  QTest::keyClick(legs, Qt::Key_Delete);
  EXPECT_EQ(plan.UserActions.GetLength(), 2);

  // An open cell is a change when the window is closed.
  p.program.Forms().Services().documents(1).Modified = false;
  p.headless.platform.boxes.clear();
  legs->setCurrentCell(0, PlanPaneLegs::kTime);
  QTest::keyClicks(legs->viewport(), QStringLiteral("8"));
  EXPECT_FALSE(p.window.close());
  EXPECT_EQ(p.headless.platform.boxes.size(), 1U);
  EXPECT_EQ(plan.UserActions.gettime(1), 8);
}

}  // namespace
}  // namespace tav
