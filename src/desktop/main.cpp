#include <QApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
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
#include "model/text_id.h"
#include "start/command_line.h"
#include "start/standard_streams.h"
#include "start/user_texts.h"

namespace {

namespace Text = tav::Text;

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

constexpr int kNotStarted = 2;

/// What Qt says before there is an application: it ends the process where it finds no display to open windows on.
void TellLackOfDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  const tav::LazyTexts texts(tav::ProgramFolders::OfThisProgram().ProgramFolder(), tav::LazyTexts::Language::User);
  std::fprintf(stderr, "tav: %s\n", texts.GetResString(Text::NoDisplay).c_str());
  std::_Exit(kNotStarted);
}

/// Prints help or version. The exit status.
int Print(const std::string& text) {
  const bool printed = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
  if (!printed) std::perror("tav");
  return printed ? 0 : kNotStarted;
}

}  // namespace

int main(int argc, char** argv) {
  tav::FillStandardStreams();
  if (tav::WantsSilentPdf(argc, argv)) return tav::SilentPdf(argc, argv);
  const std::string about = tav::AboutProgram({argv + 1, argv + argc}, TAV_VERSION);
  if (!about.empty()) return Print(about);
  qInstallMessageHandler(TellLackOfDisplay);
  tav::GuardedApplication application(argc, argv);
  qInstallMessageHandler(nullptr);
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
  tav::QtEnvironment environment;
  const QLocale locale;
  const tav::LocaleSeparators separators{tav::FromQt(locale.decimalPoint()), tav::FromQt(locale.groupSeparator())};
  const tav::Platform platform{boxes, files,     windows, settings,    screen,    sound,
                               help,  clipboard, printer, environment, separators};

  tav::Program program(platform, window, tav::ProgramFolders::OfThisProgram(), WindowSystemInformation());
  help.SetTexts(program.Texts());
  boxes.SetTexts(program.Texts());
  windows.helpWanted = [&program](const tav::Form& form) {
    if (program.HasMainForm()) program.MainForm().ShowHelpOf(form);
  };
  window.makeGraph = [&](std::int16_t document) { return tav::MakeGraphView(program, document); };
  std::vector<std::string> arguments;
  for (const QString& argument : QApplication::arguments().mid(1)) arguments.push_back(tav::FromQt(argument));

  program.languageChanged = [&program] { tav::SpeakLanguageOf(program.LanguageFile()); };
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
    if (program.HasMainForm()) program.MainForm().KeepForNextStart();
  });
  constexpr int kEveryMilliseconds = 30000;
  recovery.start(kEveryMilliseconds);
  return QApplication::exec();
}
