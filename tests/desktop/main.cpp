#include <QFont>
#include <gtest/gtest.h>

#include "desktop/guarded_application.h"
#include "support/source_folder.h"

/// On Qt's platform without a screen, as if on the one that TAV_TEST_SCREEN names ("laptop", or "sharp" for 200 %),
/// with the desktop's letters in the size of TAV_TEST_POINTS.
int main(int argc, char** argv) {
  const QByteArray screen = qEnvironmentVariable("TAV_TEST_SCREEN", QStringLiteral("laptop")).toUtf8();
  const std::string config = tav::SourceFolder() / "tests/desktop/screens" / (screen.toStdString() + ".json");
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + config));
  const tav::GuardedApplication application(argc, argv);
  if (const int points = qEnvironmentVariableIntValue("TAV_TEST_POINTS"); points > 0) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
