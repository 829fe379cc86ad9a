// What a screen reader says, and what the keyboard reaches.

#include <QAccessible>
#include <QTest>
#include <QtWidgets>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <vector>

#include "desktop/form_binder.h"
#include "desktop/qt_text.h"
#include "support/all_forms.h"
#include "support/windowed_program.h"

namespace tav {
namespace {

using test::Forms;

/// What the user can act on or read in its own right. Fields of results are read, but not stopped at by Tab.
bool IsControl(const QWidget& widget) {
  if (!widget.isVisible() || widget.objectName().startsWith(QLatin1String("qt_"))) return false;
  if (qobject_cast<const QHeaderView*>(&widget) != nullptr) return false;
  return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QProgressBar*>(&widget) != nullptr;
}

/// What a screen reader calls a widget: its name, or for a list of choices the label that leads to it.
QString SpokenName(QWidget& widget) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
  if (qobject_cast<const QComboBox*>(&widget) == nullptr) return face->text(QAccessible::Name);
  for (const auto& [label, kind] : face->relations(QAccessible::Label)) {
    if (label->role() == QAccessible::StaticText) return label->text(QAccessible::Name);
  }
  return widget.accessibleName();
}

TEST(ScreenReader, HearsANameAndADescriptionOfEachControl) {
  for (const char* language : {"TAV_uk.dll", "TAV_de.dll"}) {
    Forms all(language, "rebreather.tav");
    for (const auto& form : all.forms) {
      SCOPED_TRACE(std::string(language) + ", " + form->Name());
      const auto dialog = MakeDialog(*form, nullptr);
      all.Load(*form);
      dialog->show();
      QCoreApplication::processEvents();
      std::set<QString> heard;
      for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (!IsControl(*widget)) continue;
        const QString name = SpokenName(*widget);
        const QString description = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
        EXPECT_FALSE(name.isEmpty()) << FromQt(widget->objectName());
        EXPECT_TRUE(!description.isEmpty() || form->Name() == "frmSplash") << FromQt(widget->objectName());
        EXPECT_TRUE(heard.insert(name + QLatin1Char('/') + description).second)
            << FromQt(widget->objectName()) << ": another is called " << FromQt(name) << ", " << FromQt(description);
      }
      form->Unload();
    }
  }
}

/// The control before the next one in the walk of the Tab key lies behind it for the eye: below it, or further right in
/// the same line. Columns beside each other are read one after the other.
bool FollowsTheEye(const QWidget& from, const QWidget& to) {
  const QRect first(from.mapTo(from.window(), QPoint(0, 0)), from.size());
  const QRect second(to.mapTo(to.window(), QPoint(0, 0)), to.size());
  const bool sameLine = first.top() < second.bottom() && second.top() < first.bottom();
  if (sameLine) return second.left() >= first.left();
  return second.top() >= first.top() || second.left() >= first.right();
}

/// Where Tab stops, one after the other, until it comes round.
std::vector<QWidget*> Walk(const QWidget& window) {
  std::vector<QWidget*> walked;
  for (QWidget* at = window.focusWidget(); at != nullptr; at = window.focusWidget()) {
    if (std::find(walked.begin(), walked.end(), at) != walked.end()) break;
    walked.push_back(at);
    QTest::keyClick(at, Qt::Key_Tab);
  }
  return walked;
}

/// What Tab is to reach. Arrows belong to their field (Up and Down), and of several options only the chosen one counts.
bool IsStop(const QWidget& widget) {
  const auto* field = qobject_cast<const QLineEdit*>(&widget);
  const auto* option = qobject_cast<const QRadioButton*>(&widget);
  return widget.isEnabled() && qobject_cast<const QToolButton*>(&widget) == nullptr &&
         qobject_cast<const QProgressBar*>(&widget) == nullptr && (option == nullptr || option->isChecked()) &&
         (field == nullptr || !field->isReadOnly());
}

TEST(Keyboard, ReachesEachControlInTheOrderOfTheEye) {
  Forms all("", "rebreather.tav");
  for (const auto& form : all.forms) {
    SCOPED_TRACE(form->Name());
    const auto dialog = MakeDialog(*form, nullptr);
    all.Load(*form);
    dialog->show();
    dialog->activateWindow();
    QCoreApplication::processEvents();
    test::OnEachPage(*form, [&] {
      QCoreApplication::processEvents();
      const std::vector<QWidget*> walked = Walk(*dialog);
      // The walk is a ring, so it goes back once.
      std::vector<std::string> back;
      for (std::size_t i = 0; i < walked.size(); ++i) {
        const QWidget& next = *walked[(i + 1) % walked.size()];
        if (!FollowsTheEye(*walked[i], next)) {
          back.push_back(FromQt(walked[i]->objectName() + QStringLiteral(" to ") + next.objectName()));
        }
      }
      EXPECT_LE(back.size(), 1U) << testing::PrintToString(back);
      for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (!IsControl(*widget) || !IsStop(*widget)) continue;
        EXPECT_NE(std::find(walked.begin(), walked.end(), widget), walked.end()) << FromQt(widget->objectName());
      }
    });
    form->Unload();
  }
}

}  // namespace
}  // namespace tav
