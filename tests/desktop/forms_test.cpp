#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

#include "desktop/form_binder.h"
#include "desktop/graph_view.h"
#include "desktop/picture_file.h"
#include "desktop/qt_services.h"
#include "desktop/qt_text.h"
#include "support/all_forms.h"

namespace tav {
namespace {

using test::Forms;
using test::HeadlessProgram;

/// What a widget needs for its text, and what it has.
std::string ClippedText(const QWidget& widget) {
  if (widget.isHidden() || !widget.isVisible()) return {};
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label != nullptr && label->pixmap().isNull() && !label->wordWrap() &&
      label->width() < label->sizeHint().width()) {
    return FromQt(label->text());
  }
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (button != nullptr && !button->text().isEmpty() && button->width() < button->minimumSizeHint().width()) {
    return FromQt(button->text());
  }
  return {};
}

TEST(Windows, EachControlHasItsWidgetAndEachTextItsRoom) {
  Forms all;
  for (const auto& form : all.forms) {
    SCOPED_TRACE(form->Name());
    const auto dialog = MakeDialog(*form, nullptr);
    form->Load();
    for (const std::string& fault : BindingFaults(*form, *dialog)) ADD_FAILURE() << fault;
    dialog->show();
    QCoreApplication::processEvents();
    EXPECT_FALSE(dialog->windowTitle().isEmpty());
    EXPECT_LE(dialog->minimumSizeHint().width(), 1000);
    for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
      EXPECT_EQ(ClippedText(*widget), "") << FromQt(widget->objectName());
      const auto* label = qobject_cast<const QLabel*>(widget);
      EXPECT_FALSE(label != nullptr && label->text().contains(QStringLiteral("*StringID")))
          << FromQt(widget->objectName());
    }
    form->Unload();
    EXPECT_FALSE(dialog->isVisible());
  }
}

TEST(Windows, WhatTheUserDoesReachesTheForm) {
  Forms all;
  auto& form = all.Of<frmConservatism>();
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  auto* low = dialog->findChild<QLineEdit*>(QStringLiteral("Text1"));
  low->selectAll();
  QTest::keyClicks(low, QStringLiteral("0.20"));
  EXPECT_EQ(form.Text1.Text.Get(), "0.20");
  QTest::keyClick(dialog->findChild<QCheckBox*>(QStringLiteral("Check1")), Qt::Key_Space);
  EXPECT_FALSE(form.Check1.Value || low->isEnabled());
  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_FALSE(form.IsLoaded() || dialog->isVisible());
}

TEST(Windows, OneThatWasOpenedBesideAModalOneCanBeUsedAndStaysWhenThatCloses) {
  // One that opens while the modal one closes, as a preview does, never belongs to it.
  for (const bool closing : {false, true}) {
    SCOPED_TRACE(closing);
    Forms all;
    QWidget owner;
    owner.show();
    QtWindows qt(owner, all.program.platform.Services().settings);
    Windows& windows = qt;
    const auto mixer =
        std::make_shared<frmPartialMix>(all.program.platform, all.reports, all.program.Document().Template);
    Form& modal = all.Of<frmGasBlend>();
    QTimer::singleShot(0, &owner, [&] {
      windows.Show(mixer);
      if (closing) return static_cast<void>(modal.Unload());
      QCoreApplication::processEvents();
      const QWidget* inFront = QApplication::activeModalWidget();
      ASSERT_NE(inFront, nullptr);
      EXPECT_NE(inFront->findChild<QDialog*>(QStringLiteral("frmPartialMix")), nullptr);
      modal.Unload();
    });
    windows.ShowModal(modal);
    auto* dialog = owner.findChild<QDialog*>(QStringLiteral("frmPartialMix"));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->isVisible(), !closing);
    QCoreApplication::processEvents();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(mixer->IsLoaded());
    EXPECT_EQ(dialog->parentWidget(), &owner);
    EXPECT_TRUE(dialog->close()) << "it does not hold up the end of the program";
    EXPECT_FALSE(dialog->isVisible());
  }
}

TEST(Windows, AButtonKeepsItsLetterWhenItsCaptionIsSetAgain) {
  Forms all;
  frmPartialMix mixer(all.program.platform, all.reports, all.program.Document().Template);
  const auto dialog = MakeDialog(mixer, nullptr);
  mixer.Load();
  dialog->show();
  auto* print = dialog->findChild<QPushButton*>(QStringLiteral("Command1"));
  const QString before = print->text();
  EXPECT_TRUE(before.contains(QLatin1Char('&')));
  mixer.setmix(8, 50);
  EXPECT_EQ(print->text().remove(QLatin1Char('&')), QStringLiteral("Not possible"));
  mixer.setmix(32, 0);
  EXPECT_EQ(print->text(), before);
}

TEST(Windows, ReturnAgreesToTheNotice) {
  Forms all;
  auto& notice = all.Of<frmLiability>();
  const auto dialog = MakeDialog(notice, nullptr);
  notice.Load();
  dialog->show();
  dialog->activateWindow();
  QCoreApplication::processEvents();
  EXPECT_TRUE(dialog->findChild<QPushButton*>(QStringLiteral("cbAgree"))->hasFocus());
  QTest::keyClick(dialog.get(), Qt::Key_Return);
  EXPECT_TRUE(notice.Agreed());
  EXPECT_FALSE(notice.IsLoaded());
}

TEST(Windows, AnyKeyOrClickEndsTheSplash) {
  for (const bool byKey : {true, false}) {
    Forms all;
    auto& splash = all.Of<frmSplash>();
    const auto dialog = MakeDialog(splash, nullptr);
    splash.Load();
    dialog->show();
    if (byKey) {
      QTest::keyClick(dialog.get(), Qt::Key_Space);
    } else {
      QTest::mouseClick(dialog->findChild<QLabel*>(QStringLiteral("Picture1")), Qt::LeftButton);
    }
    EXPECT_FALSE(splash.IsLoaded() || dialog->isVisible()) << byKey;
  }
}

TEST(Windows, TabReachesEachButtonThatAddsAMixAndNoFieldOfAResult) {
  Forms all;
  auto& form = all.Of<frmWaypointForm>();
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  dialog->activateWindow();
  dialog->findChild<QLineEdit*>(QStringLiteral("tbDepth"))->setFocus();
  std::string order;
  for (int i = 0; i < 14; ++i) {
    order += FromQt(dialog->focusWidget()->objectName()) + " ";
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            "tbDepth tbTime Combo1 Text1 Text2 cbNitroxAdd Text6 Text4 cbTrimixAdd Text9 Text7 cbHelioxAdd cbOK "
            "cbCancel ");
}

TEST(Windows, ThePointerIsOverTheInnermostFrame) {
  Forms all;
  auto& form = all.Of<frmWaypointForm>();
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  const std::pair<const char*, bool> places[] = {{"Frame4", true},  {"Frame3", false}, {"Text1", true},
                                                 {"tbTime", false}, {"Frame6", true},  {"Label3", false}};
  for (const auto& [name, told] : places) {
    auto* widget = dialog->findChild<QWidget*>(QString::fromLatin1(name));
    QEnterEvent enter({3, 3}, {3, 3}, widget->mapToGlobal(QPointF(3, 3)));
    QApplication::sendEvent(widget, &enter);
    EXPECT_EQ(form.Text10.Visible.Get(), told) << name;
  }
}

TEST(Windows, AFieldIsNotLeftWhenItIsDestroyed) {
  Forms all;
  auto& form = all.Of<frmWaypointForm>();
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("Text1"));
  dialog->activateWindow();
  field->setFocus();
  QCoreApplication::processEvents();
  ASSERT_TRUE(field->hasFocus());
  ASSERT_EQ(form.Text1.Text.Get(), "") << "it is cleared to be overtyped";
  delete field;  // as its window does when it goes
  EXPECT_EQ(form.Text1.Text.Get(), "");
}

TEST(Windows, AGridIsEditedInPlace) {
  Forms all;
  auto& form = all.Of<frmProperties>();
  const auto dialog = MakeDialog(form, nullptr);
  form.Load();
  dialog->show();
  auto* table = dialog->findChild<QTableWidget*>(QStringLiteral("fgAscend"));
  table->setCurrentCell(1, 1);
  table->edit(table->currentIndex());
  auto* editor = table->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, QStringLiteral("12"));
  QTest::keyClick(editor, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_EQ(form.rates.fgAscend.Text(2, 1), "12");
}

TEST(GraphWindow, ADragAsksForItsWaypoint) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  Single depth = -1;
  Single time = -1;
  int popups = 0;
  GraphView view(p.program.Forms(), p.Active(),
                 {[&](Single d, Single t) {
                    depth = d;
                    time = t;
                  },
                  [](std::int16_t) {}, [&] { ++popups; }});
  view.resize(1000, 700);
  view.show();
  QCoreApplication::processEvents();
  QWidget* grid = nullptr;
  for (QWidget* widget : view.findChildren<QWidget*>()) {
    if (widget->hasMouseTracking()) grid = widget;
  }
  ASSERT_NE(grid, nullptr);
  const QImage before = grid->grab().toImage();
  QTest::mousePress(grid, Qt::LeftButton, Qt::NoModifier, QPoint(30, 120));
  EXPECT_NE(grid->grab().toImage(), before) << "a click without a drag shows its leg, too";
  QTest::mouseMove(grid, QPoint(200, 200));
  EXPECT_NE(grid->grab().toImage(), before) << "the preview shows";
  QTest::mouseRelease(grid, Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
  EXPECT_GT(depth, 20);
  EXPECT_GT(time, 10);
  EXPECT_EQ(grid->grab().toImage(), before) << "and is gone again";
  QTest::keyClick(&view, Qt::Key_F10);
  EXPECT_EQ(popups, 0);
  QTest::keyClick(&view, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(popups, 1);
}

TEST(GraphWindow, APictureAndAScreenReaderHaveThePlanInWords) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  ASSERT_TRUE(p.Editor().AddUserWaypoint(42.3, 25, 0));
  GraphView view(p.program.Forms(), p.Active(), {[](Single, Single) {}, [](std::int16_t) {}, [] {}});
  view.Redraw();
  const QString words = QStringLiteral("Depth: 42.3 m, Run time: 25.0 min, Gas: Air, PPO2: 1.10 bar");
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&view)->text(QAccessible::Description).contains(words));
  const auto svg = p.folder.Path() / "graph.svg";
  EXPECT_TRUE(SavePicture(ToQt(svg.string()), view.Picture(), true));
  EXPECT_NE(test::FileText(svg).find(FromQt(words)), std::string::npos);
  const QString png = ToQt((p.folder.Path() / "graph.png").string());
  EXPECT_TRUE(SavePicture(png, view.Picture(), false));
  EXPECT_TRUE(QImage(png).text(QStringLiteral("Description")).contains(words));
  EXPECT_FALSE(SavePicture(QStringLiteral("/nowhere/at/all.png"), view.Picture(), false));
}

}  // namespace
}  // namespace tav
