// Prints the text that another program has put on the clipboard of the screen.

#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  // The clipboard is asked once the events run, or it would answer nothing.
  QTimer::singleShot(0, [] {
    std::puts(QGuiApplication::clipboard()->text().toUtf8().constData());
    QCoreApplication::quit();
  });
  return QGuiApplication::exec();
}
