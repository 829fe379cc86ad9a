// Prints the text that another program has put on the clipboard of the screen; or offers a text there, given as the
// argument, until it is ended.

#include <QClipboard>
#include <QGuiApplication>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc > 1) {
    QGuiApplication::clipboard()->setText(QString::fromUtf8(argv[1]));
    return QGuiApplication::exec();
  }
  // The clipboard is asked once the events run, or it would answer nothing.
  QTimer::singleShot(0, [] {
    std::puts(QGuiApplication::clipboard()->text().toUtf8().constData());
    QCoreApplication::quit();
  });
  return QGuiApplication::exec();
}
