#include <QApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QTimer>
#include <optional>

#include "app/error_report.h"
#include "app/program.h"
#include "desktop/desktop_look.h"
#include "desktop/graph_view.h"
#include "desktop/guarded_application.h"
#include "desktop/main_window.h"
#include "desktop/qt_language.h"
#include "desktop/qt_printer.h"
#include "desktop/qt_services.h"
#include "desktop/qt_text.h"
#include "desktop/silent_pdf.h"
#include "desktop/start_check.h"
#include "pages/arial_measure.h"

namespace {

std::string WindowSystemInformation() {
  const QSize screen = QGuiApplication::primaryScreen()->size();
  const QString text =
      QStringLiteral("%1\nQt %2, %3, %4 x %5 at %6\n")
          .arg(QSysInfo::prettyProductName(), QString::fromLatin1(qVersion()), QGuiApplication::platformName())
          .arg(screen.width())
          .arg(screen.height())
          .arg(QGuiApplication::primaryScreen()->devicePixelRatio());
  return tav::FromQt(text);
}

}  // namespace

int main(int argc, char** argv) {
  if (tav::WantsSilentPdf(argc, argv)) return tav::SilentPdf(argc, argv);
  tav::GuardedApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("TAV"));
  QApplication::setApplicationVersion(QStringLiteral(TAV_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("tav"));  // by which a desktop finds the icon of a window
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setAttribute(Qt::AA_DontShowIconsInMenus);

  std::optional<tav::DesktopLook> look;
  if (tav::DesktopLook::HasBus()) look.emplace(QDBusConnection::sessionBus());

  tav::MainWindow window;
  tav::QtBoxes boxes;
  tav::QtFiles files;
  tav::QtSettings settings;
  tav::QtWindows windows(window, settings);
  tav::QtScreen screen;
  tav::QtSound sound;
  tav::QtHelp help(window);
  tav::QtClipboard clipboard;
  tav::QtPrinter printer;
  tav::ArialMeasure measure;
  tav::QtEnvironment environment;
  const QLocale locale;
  const tav::LocaleSeparators separators{tav::FromQt(locale.decimalPoint()), tav::FromQt(locale.groupSeparator())};
  const tav::Platform platform{boxes, files,     windows, settings, screen,      sound,
                               help,  clipboard, printer, measure,  environment, separators};

  tav::Program program(platform, window, tav::ProgramFolders::OfThisProgram(), WindowSystemInformation());
  help.SetTexts(program.Texts());
  boxes.SetTexts(program.Texts());
  window.makeGraph = [&](std::int16_t document) { return tav::MakeGraphView(program, document); };
  std::vector<std::string> arguments;
  for (const QString& argument : QApplication::arguments().mid(1)) arguments.push_back(tav::FromQt(argument));

  application.onError = [&] {
    tav::ReportRunTimeError(tav::CurrentError("TAV", program.Texts()), boxes, program.Texts());
  };

  std::optional<tav::StartCheck> check;
  if (std::erase(arguments, tav::StartCheck::kOption) > 0) check.emplace(window);

  // Within the event loop, so that what the start shows is handled like everything else.
  QTimer::singleShot(0, [&] {
    if (!program.Main(arguments)) return QApplication::exit(0);
    tav::SpeakLanguageOf(program.LanguageFile());
  });
  QTimer recovery;
  QObject::connect(&recovery, &QTimer::timeout, [&] {
    if (program.HasMainForm()) program.MainForm().Copies().Keep();
  });
  constexpr int kEveryMilliseconds = 30000;
  recovery.start(kEveryMilliseconds);
  return QApplication::exec();
}
