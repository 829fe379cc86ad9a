// Runs of tables in real dialogs, ended from within: what works while its own window goes must not fall over it.

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "desktop/qt_services.h"
#include "dialogs/bailout_start.h"
#include "plans/profile_commands.h"
#include "support/dialog_fixture.h"
#include "support/source_folder.h"

namespace tav {
namespace {

struct Preview : PreviewWindow {
  void ShowPreview(const std::string& /*caption*/) override { shown = true; }
  bool shown = false;
};

class TableRun : public testing::Test {
 protected:
  TableRun() {
    OpenProfile(dialogs.forms, SourceFolder() / "dives/trimix-100.tav");
    report.window = &preview;
  }
  [[nodiscard]] DialogServices Services() {
    const Platform headless = dialogs.platform.Services();
    return {dialogs.forms,
            {headless.boxes, headless.files, windows, headless.settings, screen, headless.sound, headless.help,
             headless.clipboard, headless.printer, headless.environment, headless.separators},
            dialogs.texts,
            false,
            {}};
  }
  /// The button of a dialog that stands.
  QPushButton* ButtonOf(const char* name) {
    const auto* dialog = owner.findChild<QDialog*>();
    return dialog == nullptr ? nullptr : dialog->findChild<QPushButton*>(QString::fromLatin1(name));
  }
  /// Starts a run of every minute; `act` comes with the first events that the run lets through.
  void Run(const std::shared_ptr<frmBailoutStart>& form, const std::function<void()>& act) {
    form->tbTime.Type("1");
    QTimer::singleShot(0, [&] {
      EXPECT_TRUE(form->cbCancel.Bold) << "within the run";
      ++acted;
      act();
    });
    QTest::mouseClick(ButtonOf("cbOK"), Qt::LeftButton);
  }

  test::Dialogs dialogs;
  QWidget owner;
  QtScreen screen;
  QtWindows windows{owner, dialogs.platform.Services().settings};
  PrintPreview report{dialogs.platform, dialogs.texts};
  Preview preview;
  LongRuns host;
  int acted = 0;
};

TEST_F(TableRun, IsEndedByItsOwnButtonOrByClosingItsWindow) {
  const std::function<void()> ways[] = {
      [this] { QTest::mouseClick(ButtonOf("cbCancel"), Qt::LeftButton); },
      [this] { QTest::keyClick(owner.findChild<QDialog*>(), Qt::Key_Escape); },
      [this] { owner.findChild<QDialog*>()->close(); },
  };
  for (const auto& act : ways) {
    auto form = std::make_shared<frmBailoutStart>(Services(), report, host);
    const std::weak_ptr<frmBailoutStart> left = form;
    windows.Show(form);
    Run(form, act);
    EXPECT_FALSE(form->IsLoaded());
    EXPECT_FALSE(preview.shown);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    form.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    EXPECT_TRUE(left.expired()) << "the window is gone";
  }
  EXPECT_EQ(acted, 3);
}

TEST_F(TableRun, OutlivesItsWindow) {
  auto form = std::make_shared<frmBailoutStart>(Services(), report, host);
  windows.Show(form);
  Run(form, [this] { owner.findChild<QDialog*>()->deleteLater(); });
  EXPECT_EQ(acted, 1);
}

TEST_F(TableRun, IsDoneInAModalWindow) {
  frmBailoutStart form(Services(), report, host);
  QTimer::singleShot(0, [&] {
    form.tbTime.Type("10");
    QTest::mouseClick(ButtonOf("cbOK"), Qt::LeftButton);
  });
  windows.ShowModal(form);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_TRUE(preview.shown);
}

}  // namespace
}  // namespace tav
