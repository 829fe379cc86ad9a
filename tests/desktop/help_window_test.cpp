#include "desktop/help_window.h"

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "app/help_pages.h"
#include "desktop/qt_services.h"
#include "desktop/qt_text.h"
#include "model/text_id.h"
#include "support/all_forms.h"
#include "support/english.h"

namespace tav {
namespace {

const std::filesystem::path kGuide = SourceFolder() / "lang/TAV_uk.hlp";

template <typename Widget>
Widget& Part(const HelpWindow& help, const char* name) {
  return *help.findChild<Widget*>(QLatin1String(name));
}

HelpWindow* Shown() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* help = qobject_cast<HelpWindow*>(window);
    if (help != nullptr && help->isVisible()) return help;
  }
  return nullptr;
}

TEST(HelpWindow, FindsWordsInAnyOrderAndGoesBackAndForward) {
  QWidget owner;
  QtHelp viewer(owner);
  viewer.SetTexts(test::English());
  viewer.ShowHelp(kGuide, HelpViewer::Page::Search, "");
  HelpWindow* help = Shown();
  ASSERT_NE(help, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(help));
  auto& words = Part<QLineEdit>(*help, "helpWords");
  auto& found = Part<QListWidget>(*help, "helpFound");
  const auto headsFor = [&](const char* text) {
    words.setText(QString::fromUtf8(text));
    QStringList heads;
    for (int i = 0; i < found.count(); ++i) heads.push_back(found.item(i)->text().section(u'\n', 0, 0));
    return heads;
  };
  const QStringList heads = headsFor("minimum turn pressure");
  EXPECT_TRUE(heads.contains(QStringLiteral("Turn pressure"))) << FromQt(heads.join(u','));
  EXPECT_EQ(heads, headsFor("pressure TURN minimum"));
  EXPECT_TRUE(headsFor("buhlmann").contains(QStringLiteral("No-stop limits on air"))) << "without its accent";
  EXPECT_EQ(headsFor("nosuchwordanywhere"), QStringList{ToQt(test::English().GetResString(Text::HelpNothing))});

  const QScrollBar& bar = *Part<QTextBrowser>(*help, "helpPage").verticalScrollBar();
  const auto turn = [&](Qt::Key key) { QTest::keyClick(help, key, Qt::AltModifier); };
  auto& contents = Part<QTreeWidget>(*help, "helpContents");
  std::vector<int> places;
  for (const char* anchor : {"bailout", "gf", "validation"}) {
    help->Open(false, QLatin1String(anchor));
    EXPECT_EQ(contents.currentItem()->data(0, Qt::UserRole).toString(), QLatin1String(anchor));
    places.push_back(bar.value());
  }
  EXPECT_LT(places[1], places[0]);
  EXPECT_LT(places[0], places[2]);
  constexpr int kLine = 40;  // pixels
  turn(Qt::Key_Left);
  EXPECT_NEAR(bar.value(), places[1], kLine);
  turn(Qt::Key_Left);
  EXPECT_NEAR(bar.value(), places[0], kLine);
  turn(Qt::Key_Right);
  EXPECT_NEAR(bar.value(), places[1], kLine);
  // Three levels: gradient factors, below conservatism, below the models.
  EXPECT_NE(contents.findItems(QStringLiteral("Gradient factors"), Qt::MatchRecursive).front()->parent()->parent(),
            nullptr);
}

// In a modal window F1 opens the page of that window, which can be read there; it stays when that one closes.
TEST(HelpWindow, BelongsToTheModalWindowThatAskedForIt) {
  test::Forms all;
  QWidget owner;
  QtHelp viewer(owner);
  viewer.SetTexts(test::English());
  QtWindows windows(owner, all.program.platform.Services().settings);
  windows.helpWanted = [&](const Form& form) {
    viewer.ShowHelp(kGuide, HelpViewer::Page::Contents, HelpPageOf(form.Name()));
  };
  bool asked = false;
  QTimer::singleShot(0, [&asked] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;
    asked = QTest::qWaitForWindowActive(dialog);
    QTest::keyClick(dialog, Qt::Key_F1);
    const HelpWindow* help = Shown();
    EXPECT_TRUE(help != nullptr && help->parentWidget() == dialog);
    if (help != nullptr) {
      EXPECT_EQ(Part<QTreeWidget>(*help, "helpContents").currentItem()->data(0, Qt::UserRole).toString(),
                QLatin1String("conservatism"));
    }
    dialog->close();
  });
  windows.ShowModal(all.Of<frmConservatism>());
  EXPECT_TRUE(asked);
  ASSERT_NE(Shown(), nullptr);
  EXPECT_EQ(Shown()->parentWidget(), &owner);
}

}  // namespace
}  // namespace tav
