// Every window in every language: all texts have room, each letter of a key leads to one control.

#include <QtWidgets>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>

#include "desktop/form_binder.h"
#include "desktop/qt_language.h"
#include "desktop/qt_services.h"
#include "desktop/qt_text.h"
#include "desktop/text_room.h"
#include "support/all_forms.h"
#include "support/windowed_program.h"

namespace tav {
namespace {

using test::Forms;

std::vector<std::string> Languages() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "lang")) {
    if (entry.path().extension() == ".dll") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// Letters that two controls of a window share, which are shown together.
std::vector<std::string> SharedLetters(const QWidget& window) {
  std::map<QChar, QString> taken;
  std::vector<std::string> faults;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    if (!widget->isVisible() || (label == nullptr && button == nullptr)) continue;
    if (label != nullptr && label->buddy() == nullptr) continue;
    const QString text = label != nullptr ? label->text() : button->text();
    const QString key = QKeySequence::mnemonic(text).toString();
    if (key.isEmpty()) continue;
    const auto [other, free] = taken.emplace(key.back(), text);
    if (!free) faults.push_back(FromQt(text) + " and " + FromQt(other->second) + " share a letter");
  }
  return faults;
}

/// To look at them: a picture of each window goes to the folder that TAV_TEST_PICTURES names.
void Keep(QWidget& window, const std::string& name) {
  const QString folder = qEnvironmentVariable("TAV_TEST_PICTURES");
  if (!folder.isEmpty()) window.grab().save(folder + QLatin1Char('/') + ToQt(name) + QStringLiteral(".png"));
}

void LookAtWindows(const std::string& language, const std::string& dive) {
  Forms all(language, dive);
  for (const auto& form : all.forms) {
    SCOPED_TRACE(language + ", " + form->Name() + ", " + dive);
    const auto dialog = MakeDialog(*form, nullptr);
    all.Load(*form);
    dialog->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(dialog->size().boundedTo(dialog->screen()->availableSize()), dialog->size());
    int page = 0;
    const QSize size = dialog->size();
    test::OnEachPage(*form, [&] {
      QCoreApplication::processEvents();
      EXPECT_EQ(dialog->size(), size) << "on page " << page;
      Keep(*dialog, language + "-" + form->Name() + "-" + dive + "-" + std::to_string(page++));
      for (const std::string& fault : test::ReadingFaults(*dialog)) ADD_FAILURE() << fault;
      for (const std::string& fault : SharedLetters(*dialog)) ADD_FAILURE() << fault;
    });
    form->Unload();
  }
}

TEST(EveryLanguage, HasRoomForItsTextsInEveryWindow) {
  for (const std::string& language : Languages()) {
    for (const char* dive : {"trimix-100.tav", "rebreather.tav", "lake-series.tav"}) LookAtWindows(language, dive);
  }
}

TEST(EveryLanguage, HasRoomForItsTextsInTheMainWindow) {
  for (const std::string& language : Languages()) {
    SCOPED_TRACE(language + ", frmMain");
    test::WindowedProgram p;
    p.headless.platform.settings[{"", "Language"}] = language;
    ASSERT_TRUE(p.Start());
    p.program.MainForm().OpenFile(test::HeadlessProgram::Dive("trimix-100.tav").string());
    QCoreApplication::processEvents();
    Keep(p.window, language + "-frmMain");
    for (const std::string& fault : test::ReadingFaults(p.window)) ADD_FAILURE() << fault;
    for (const std::string& fault : SharedLetters(p.window)) ADD_FAILURE() << fault;
    // The smallest that it can be made still has its menu in one line.
    EXPECT_LE(p.window.menuBar()->sizeHint().width(), p.window.width());
  }
}

TEST(EveryLanguage, IsSpokenByMessageBoxesAndQtsOwnWindows) {
  test::Forms all("TAV_de.dll");
  QtBoxes boxes;
  boxes.SetTexts(all.program.program.Texts());
  QString buttons;
  QTimer::singleShot(0, [&buttons] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (const QAbstractButton* button : box->buttons()) buttons += button->text() + QLatin1Char(' ');
    box->reject();
  });
  EXPECT_EQ(boxes.Show("Ende?", "", BoxIcon::None, BoxButtons::YesNoCancel), BoxAnswer::Cancel);
  EXPECT_EQ(FromQt(buttons), "&Abbrechen &Ja &Nein ");
  SpeakLanguageOf(all.program.program.LanguageFile());
  EXPECT_EQ(FromQt(QCoreApplication::translate("QFileDialog", "File &name:")), "Datei&name:");
  for (auto* translator : qApp->findChildren<QTranslator*>()) delete translator;
}

}  // namespace
}  // namespace tav
