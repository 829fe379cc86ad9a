#include "controls/grid.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "controls/form.h"
#include "desktop/form_binder.h"
#include "desktop/qt_text.h"

namespace tav {
namespace {

/// A table of numbers with a column of gases, beside the controls by which one leaves it.
class GridForm : public Form {
 public:
  GridForm() : Form("frmProperties") {
    fgDescend.EditorOf = [](int row, int column) {
      if (row == 0 || (row == 1 && column == 0)) return Grid::Editor{};
      if (column == 2) return Grid::Editor{Grid::Editor::Kind::List, {"Air", "EAN32", "EAN50", "Oxygen"}};
      return Grid::Editor{Grid::Editor::Kind::Text, {}};
    };
    fgDescend.Commit = [this](int row, int column, const std::string& text) {
      ++commits;
      if (onCommit) onCommit();
      fgDescend.SetText(row, column, text);
    };
    cbOK.Default = true;
    cbOK.Click = [this] { atOK = fgDescend.Text(2, 1) + " " + fgDescend.Text(2, 2); };
  }
  TextBox tbStepSize{*this, "tbStepSize"};
  Grid fgDescend{*this, "fgDescend"};
  Button cbOK{*this, "cbOK"};
  int commits = 0;
  std::function<void()> onCommit;
  std::string atOK = "not pressed";

 protected:
  void Form_Load() override {
    cbOK.Caption = "&Keep";
    fgDescend.SetRows({{"Depth", "Rate", "Gas"}, {"0", "18", "Air"}, {"20", "15", "EAN50"}, {"40", "10", "Oxygen"}});
  }
};

struct GridWindow : testing::Test {
  GridWindow() : dialog(MakeDialog(form, nullptr)) {
    form.Load();
    dialog->show();
    dialog->activateWindow();
    table->setFocus();
    QCoreApplication::processEvents();
  }
  /// Opens a cell for typing and types into it.
  QLineEdit* TypeInto(int row, int column, const QString& text) {
    table->setCurrentCell(row, column);
    QTest::keyClick(table, Qt::Key_F2);
    auto* edit = table->findChild<QLineEdit*>();
    if (edit != nullptr) QTest::keyClicks(edit, text);
    return edit;
  }
  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  GridForm form;
  std::unique_ptr<QDialog> dialog;
  QTableWidget* table = dialog->findChild<QTableWidget*>(QStringLiteral("fgDescend"));
  QPushButton* ok = dialog->findChild<QPushButton*>(QStringLiteral("cbOK"));
};

TEST_F(GridWindow, ACellIsStoredByWhateverLeavesItButEscape) {
  struct {
    const char* way;
    std::function<void(QLineEdit*)> leave;
    std::string rate;
    bool pressesOK;
  } const cases[] = {
      {"Return", [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Return); }, "25", false},
      {"Up", [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Up); }, "25", false},
      {"Tab", [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Tab); }, "25", false},
      {"Escape", [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_Escape); }, "15", false},
      {"the letter of OK", [](QLineEdit* edit) { QTest::keyClick(edit, Qt::Key_K, Qt::AltModifier); }, "25", true},
      {"the mouse on OK", [this](QLineEdit*) { QTest::mouseClick(ok, Qt::LeftButton); }, "25", true},
      {"the mouse on a button without focus",
       [this](QLineEdit*) {
         ok->setFocusPolicy(Qt::NoFocus);
         QTest::mouseClick(ok, Qt::LeftButton);
       },
       "25", true},
      {"another field", [this](QLineEdit*) { dialog->findChild<QLineEdit*>(QStringLiteral("tbStepSize"))->setFocus(); },
       "25", false},
      {"another cell",
       [this](QLineEdit*) {
         QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualItemRect(table->item(0, 0)).center());
       },
       "25", false}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.way);
    form.fgDescend.SetText(2, 1, "15");
    form.atOK = "not pressed";
    form.commits = 0;
    table->setFocus();
    QLineEdit* edit = TypeInto(1, 1, QStringLiteral("25"));
    ASSERT_NE(edit, nullptr);
    each.leave(edit);
    QTest::qWait(150);  // the key of a button shows it pressed for a while
    EXPECT_EQ(form.fgDescend.Text(2, 1), each.rate);
    EXPECT_EQ(form.atOK, each.pressesOK ? "25 EAN50" : "not pressed");
    EXPECT_LE(form.commits, 1);
    if (auto* open = QApplication::focusWidget(); qobject_cast<QLineEdit*>(open) != nullptr) {
      QTest::keyClick(open, Qt::Key_Escape);  // Tab has opened the next cell
    }
    Settle();
  }
}

TEST_F(GridWindow, AMessageAboutACellLeavesItOnce) {
  form.onCommit = [] {
    QDialog box;
    QTimer::singleShot(50, &box, [&box] { QTest::keyClick(&box, Qt::Key_Escape); });
    box.exec();
  };
  QLineEdit* edit = TypeInto(1, 1, QStringLiteral("25"));
  ASSERT_NE(edit, nullptr);
  QTest::keyClick(edit, Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.commits, 1);
}

TEST_F(GridWindow, TabGoesOnToTheNextCellThatTakesTyping) {
  QLineEdit* edit = TypeInto(0, 1, QStringLiteral("17"));
  ASSERT_NE(edit, nullptr);
  QTest::keyClick(edit, Qt::Key_Tab);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("21"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("19"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(form.fgDescend.Text(1, 1) + " " + form.fgDescend.Text(2, 0), "19 21") << "past a list and a fixed cell";
}

TEST_F(GridWindow, TabReachesAListThatTakesTypingAndOneIsTakenAsItIsTyped) {
  form.fgDescend.EditorOf = [](int row, int column) {
    if (row == 0) return Grid::Editor{};
    const auto kind = column == 2 ? Grid::Editor::Kind::TypedList : Grid::Editor::Kind::Text;
    return Grid::Editor{kind, {"Air", "EAN32", "EAN50", "Oxygen"}};
  };
  QLineEdit* edit = TypeInto(0, 1, QStringLiteral("17"));
  ASSERT_NE(edit, nullptr);
  QTest::keyClick(edit, Qt::Key_Tab);
  Settle();
  auto* list = table->findChild<QComboBox*>();
  ASSERT_NE(list, nullptr);
  EXPECT_FALSE(list->view()->isVisible());
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("EAN5"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(form.fgDescend.Text(1, 2), "EAN5") << "not the longer name of another gas";
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("21"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(form.fgDescend.Text(2, 0), "21") << "the next row follows the gas";

  Settle();
  table->setFocus();
  table->setCurrentCell(1, 2);
  QTest::keyClicks(table, QStringLiteral("a"));
  list = table->findChild<QComboBox*>();
  ASSERT_NE(list, nullptr);
  Settle();
  EXPECT_FALSE(list->view()->isVisible());
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_EQ(form.fgDescend.Text(2, 2), "EAN50") << "called off";
  Settle();
  QTest::keyClick(table, Qt::Key_F2);
  Settle();
  list = table->findChild<QComboBox*>();
  ASSERT_NE(list, nullptr);
  ASSERT_TRUE(list->view()->isVisible());
  QTest::keyClick(list->view(), Qt::Key_Down);
  QTest::keyClick(list->view(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(form.fgDescend.Text(2, 2), "Oxygen");
}

TEST_F(GridWindow, EscapeTakesBackNoMoreThanTheEntryOfItsCell) {
  int restored = 0;
  form.fgDescend.Restored = [&] { ++restored; };
  form.fgDescend.Typed = [](int, int, const std::string&) {};
  QLineEdit* edit = TypeInto(1, 1, QString());
  ASSERT_NE(edit, nullptr);
  QTest::keyClick(edit, Qt::Key_Escape);
  EXPECT_EQ(restored, 0) << "nothing was entered";
  QTest::keyClick(table, Qt::Key_Escape);
  EXPECT_EQ(restored, 1) << "without an open cell all marked ones are given up";
}

TEST_F(GridWindow, KeysOfRowsAndMenuReachTheGridWhileNoCellIsOpen) {
  std::string told;
  form.fgDescend.InsertKey = [&] { told += "insert "; };
  form.fgDescend.DeleteKey = [&] { told += "delete "; };
  form.fgDescend.RowMenu = [&] {
    told +=
        std::string(form.fgDescend.MenuByKey ? "key" : "pointer") + std::to_string(form.fgDescend.SelectedRow) + " ";
  };
  table->setCurrentCell(1, 1);
  QTest::keyClick(table, Qt::Key_Insert);
  QTest::keyClick(table, Qt::Key_Delete);
  EXPECT_EQ(table->findChild<QLineEdit*>(), nullptr);
  const QPoint cell = table->visualItemRect(table->item(2, 1)).center();
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, cell, table->viewport()->mapToGlobal(cell));
  QApplication::sendEvent(table, &byKey);
  QContextMenuEvent byMouse(QContextMenuEvent::Mouse, cell, table->viewport()->mapToGlobal(cell));
  QApplication::sendEvent(table->viewport(), &byMouse);
  EXPECT_EQ(told, "insert delete key2 pointer3 ");
  form.fgDescend.SelectCell(1, 1);
  EXPECT_EQ(table->currentRow(), 0) << "the view follows what the form selects";
  QLineEdit* edit = TypeInto(1, 1, QStringLiteral("2"));
  ASSERT_NE(edit, nullptr);
  QTest::keyClick(edit, Qt::Key_Delete);
  EXPECT_EQ(told, "insert delete key2 pointer3 ") << "in an open cell they edit its text";
}

TEST_F(GridWindow, AListOfACellShowsItselfAndTakesOnlyWhatIsChosen) {
  struct {
    const char* keys;  ///< typed into the table, then into its list
    Qt::Key last;
    std::string gas;
  } const cases[] = {{"E", Qt::Key_Escape, "EAN50"}, {"E", Qt::Key_Return, "EAN32"}, {"O", Qt::Key_Return, "Oxygen"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.keys) + " " + std::to_string(each.last));
    form.fgDescend.SetText(2, 2, "EAN50");
    form.atOK = "not pressed";
    table->setFocus();
    table->setCurrentCell(1, 2);
    QTest::keyClicks(table, QString::fromLatin1(each.keys));
    auto* list = table->findChild<QComboBox*>();
    ASSERT_NE(list, nullptr);
    QWheelEvent wheel({5, 5}, list->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &wheel);
    EXPECT_EQ(form.fgDescend.Text(2, 2), "EAN50") << "nothing is taken unseen";
    Settle();
    ASSERT_TRUE(list->view()->isVisible());
    QTest::keyClick(list->view(), each.last);
    Settle();
    EXPECT_EQ(form.fgDescend.Text(2, 2), each.gas);
    EXPECT_EQ(form.atOK, "not pressed");
    EXPECT_EQ(table->findChild<QComboBox*>(), nullptr) << "the list is gone";
    EXPECT_EQ(QApplication::focusWidget(), table);
  }
}

}  // namespace
}  // namespace tav
