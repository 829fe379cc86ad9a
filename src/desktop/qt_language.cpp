#include "desktop/qt_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

#include "desktop/qt_text.h"

namespace tav {

void SpeakLanguageOf(const std::filesystem::path& table) {
  const std::string name = table.stem().string();
  const QString language = ToQt(name.substr(name.find('_') + 1));
  static QPointer<QTranslator> translator;
  delete translator;
  if (language == QLatin1String("uk")) return;  // the English of the program and of Qt
  translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace tav
