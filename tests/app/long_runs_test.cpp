#include "dialogs/long_runs.h"

#include <gtest/gtest.h>
#include <set>

#include "dialogs/bailout_start.h"
#include "dialogs/table_expert.h"
#include "model/text_id.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

/// A program with a plan of which a bail-out can be made.
struct Planned : HeadlessProgram {
  Planned() {
    EXPECT_TRUE(Start());
    Editor().AddUserWaypoint(40, 20, 0);
    Main().StartAscent();
    Document().Modified = false;  // nobody is asked whether to save it
  }
  /// Starts the bail-out beside the program; `act` works at each look at the events.
  void RunBailout(const std::function<void()>& act) {
    Main().toolBailout.Press();
    const auto dialog = std::dynamic_pointer_cast<frmBailoutStart>(platform.modeless.back());
    ASSERT_NE(dialog, nullptr);
    platform.onEvents = act;
    dialog->cbOK.Press();
    platform.onEvents = nullptr;
    EXPECT_FALSE(dialog->IsLoaded());
  }
};

TEST(LongRun, HoldsTheCommandsOfItsPlanBackAndNoOthers) {
  Planned p;
  frmMain& main = p.Main();
  const std::int16_t plan = p.Active();
  main.LoadNewDoc();
  const std::int16_t other = p.Active();
  p.Main().Activate(plan);
  const std::vector<Control*> commands{
      &main.mnuUndo,     &main.mnucleardecopoints, &main.mnuclearlastwaypoint, &main.mnuAddWaypoint,
      &main.mnuOC,       &main.toolOpenCircuit,    &main.mnuConservatism,      &main.toolConservatism,
      &main.mnuTemplate, &main.mnuLoadTemplate,    &main.mnuSurface,           &main.toolMultilevel};
  for (const Control* command : commands) EXPECT_TRUE(command->Enabled) << command->Name();
  int turns = 0;
  p.RunBailout([&] {
    if (++turns != 2) return;
    for (const Control* command : commands) EXPECT_FALSE(command->Enabled) << command->Name();
    EXPECT_FALSE(main.mnuBailoutReport.Enabled || main.toolBailout.Enabled || main.mnuGenerateTables.Enabled);
    const std::int16_t length = p.Editor().UserActions.GetLength();
    main.Dialogs().EnterWaypoint(30, 10);  // a release of the mouse on the graph
    const auto legs = main.GraphEditsOf(plan);
    EXPECT_FALSE(legs->BeginMove(p.Editor().LastRowOf(1)));
    EXPECT_EQ(legs->Refusal(), p.program.Texts().GetResString(Text::HeldPlan)) << "a hand on the graph is told";
    EXPECT_EQ(legs->Remove(p.Editor().LastRowOf(1)), legs->Refusal());
    EXPECT_EQ(p.Editor().UserActions.GetLength(), length);
    p.platform.boxes.clear();
    main.OpenFile(SourceFolder() / "template/Imperial.tpl");  // dropped on the window
    EXPECT_TRUE(p.Document().Template.Metric);
    EXPECT_EQ(p.platform.boxes.size(), 1U);
    p.Main().Activate(other);
    EXPECT_TRUE(main.mnuConservatism.Enabled && main.mnuAddWaypoint.Enabled);
    EXPECT_FALSE(main.mnuBailoutReport.Enabled) << "one run at a time";
    p.Main().Activate(plan);
  });
  EXPECT_GT(turns, 2);
  for (const Control* command : commands) EXPECT_TRUE(command->Enabled) << command->Name();
  EXPECT_TRUE(main.mnuBailoutReport.Enabled && main.toolBailout.Enabled && main.mnuGenerateTables.Enabled);
}

TEST(LongRun, EndsWithTheProgramAndOutlivesItsPlan) {
  Planned p;
  int turns = 0;
  p.RunBailout([&] {
    if (++turns == 2) {
      EXPECT_TRUE(p.Main().CloseDocument(p.Active()));
    }
  });
  EXPECT_GT(turns, 3);
  Planned q;
  turns = 0;
  q.RunBailout([&] {
    if (++turns == 2) {
      EXPECT_TRUE(q.Main().Form::Unload(true));
    }
  });
  EXPECT_EQ(turns, 2);
}

TEST(LongRun, WarnsOfAThingOnceAndOfAKindUntilItIsSilenced) {
  Planned p;
  DiveTemplate& settings = p.Document().Template;
  settings.PPO2High = true;
  settings.MaxPPO2 = 0.5;
  p.platform.boxes.clear();
  p.RunBailout([] {});
  ASSERT_FALSE(p.platform.boxes.empty());
  std::set<std::string> texts;
  for (const ShownBox& box : p.platform.boxes) {
    EXPECT_EQ(box.check, p.program.Texts().GetResString(Text::WarnNoMore));
    EXPECT_TRUE(texts.insert(box.text).second) << box.text;
  }
}

TEST(LongRun, ASilencedKindIsHeardAgainAfterIt) {
  HeadlessPlatform platform;
  const TextSource texts;
  DocumentStore documents;
  EngineWarnings warnings(platform.Services().boxes, texts, documents, {});
  const auto end = [&](double value) { warnings.WarnEND({0, value, 30, 40, "Air", true}); };
  const auto ppo2 = [&](double value) { warnings.WarnPPO2High({0, value, 1.4, 40, "Air", true}); };
  warnings.CommandBegins();
  platform.ticks = {false, true, false};
  end(31);    // shown
  ppo2(1.5);  // shown, silenced
  end(32);    // shown
  ppo2(1.6);
  EXPECT_EQ(platform.boxes.size(), 3U);
  warnings.CommandEnds();
  ppo2(1.6);
  EXPECT_EQ(platform.boxes.size(), 4U);
  EXPECT_EQ(platform.LastBox().check, "");
}

TEST(LongRun, TablesAreMadeWithoutAPlanToo) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Main().CloseDocument(p.Active());
  p.Main().mnuGenerateTables.Choose();
  const auto dialog = std::dynamic_pointer_cast<frmTableExpert>(p.platform.modeless.back());
  ASSERT_NE(dialog, nullptr);
  dialog->cbStart.Press();
  // The preview has taken its place.
  EXPECT_EQ(p.platform.modeless.back()->Name(), "PrintPrev");
}

}  // namespace
}  // namespace tav
