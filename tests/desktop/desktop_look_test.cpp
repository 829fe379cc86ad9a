// Dark and light, contrast, and letters as the desktop tells them.

#include "desktop/desktop_look.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusServer>
#include <QtWidgets>
#include <gtest/gtest.h>
#include <optional>

#include "desktop/form_binder.h"
#include "desktop/qt_text.h"
#include "desktop/text_colour.h"
#include "support/all_forms.h"

using Settings = QMap<QString, QVariantMap>;

/// What a desktop answers.
class Portal : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  Settings settings;

 public Q_SLOTS:
  Settings ReadAll(const QStringList& /*groups*/) { return settings; }
};

namespace tav {
namespace {

/// The colours and letters of before come back.
struct LookKeeper {
  ~LookKeeper() {
    QApplication::setPalette(QPalette());
    QApplication::setFont(font);
  }
  LookKeeper() = default;
  LookKeeper(const LookKeeper&) = delete;
  LookKeeper& operator=(const LookKeeper&) = delete;
  QFont font = QApplication::font();
};

bool WaitFor(const std::function<bool()>& fact) {
  QElapsedTimer timer;
  timer.start();
  while (!fact() && timer.elapsed() < 5000) QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  return fact();
}

TEST(Look, FollowsTheDesktop) {
  const LookKeeper keeper;
  qDBusRegisterMetaType<Settings>();
  Portal portal;
  portal.settings[QStringLiteral("org.freedesktop.appearance")][QStringLiteral("color-scheme")] = 1U;
  portal.settings[QStringLiteral("org.gnome.desktop.interface")][QStringLiteral("font-name")] =
      QStringLiteral("Cantarell 11");
  portal.settings[QStringLiteral("org.gnome.desktop.interface")][QStringLiteral("text-scaling-factor")] = 1.5;
  QDBusServer server(QStringLiteral("unix:tmpdir=/tmp"));
  server.setAnonymousAuthenticationAllowed(true);
  const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
  std::optional<QDBusConnection> desktop;
  QObject::connect(&server, &QDBusServer::newConnection, [&](const QDBusConnection& connection) {
    desktop = connection;
    desktop->registerObject(path, &portal, QDBusConnection::ExportAllSlots);
  });
  const auto tell = [&](const char* group, const char* key, const QVariant& value) {
    QDBusMessage signal = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.Settings"),
                                                     QStringLiteral("SettingChanged"));
    signal << QString::fromLatin1(group) << QString::fromLatin1(key) << QVariant::fromValue(QDBusVariant(value));
    desktop->send(signal);
  };
  const QDBusConnection peer = QDBusConnection::connectToPeer(server.address(), QStringLiteral("peer"));
  ASSERT_TRUE(WaitFor([&] { return desktop.has_value() && peer.isConnected(); }));
  const DesktopLook look(peer);
  const auto dark = [] { return QApplication::palette().color(QPalette::Window).lightness() < 128; };
  EXPECT_TRUE(WaitFor(dark));
  EXPECT_DOUBLE_EQ(QApplication::font().pointSizeF(), 16.5);
  tell("org.freedesktop.appearance", "color-scheme", 0U);
  EXPECT_TRUE(WaitFor([&] { return !dark(); }));
  tell("org.gnome.desktop.interface", "font-name", QStringLiteral("nonsense"));
  EXPECT_TRUE(WaitFor([&] { return QApplication::font().pointSizeF() == keeper.font.pointSizeF() * 1.5; }));
}

QColor Over(const QVariant& brush, const QColor& otherwise) {
  const QColor colour = brush.value<QBrush>().color();
  return brush.isValid() && colour.alpha() == 255 ? colour : otherwise;
}

/// Texts of a window that are hard to read on their ground. What is disabled does not count (WCAG 2.1, 1.4.3).
std::vector<std::string> FaintTexts(const QWidget& window) {
  std::vector<std::string> faint;
  const auto look = [&](const QWidget& widget, const QString& text, const QColor& ink, const QColor& ground) {
    if (text.isEmpty() || Contrast(ink, ground) >= kReadable) return;
    faint.push_back(FromQt(widget.objectName() + QStringLiteral(" \"") + text + QStringLiteral("\" ") + ink.name() +
                           QStringLiteral(" on ") + ground.name()));
  };
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !widget->isEnabled()) continue;
    const QPalette& palette = widget->palette();
    const QColor ground = QApplication::palette().color(QPalette::Window);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
      look(*label, label->text(), palette.color(QPalette::WindowText), ground);
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
      const QColor base = palette.color(QPalette::Base);
      look(*edit, edit->text(), palette.color(QPalette::Text), base.alpha() == 255 ? base : ground);
    } else if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
      look(*button, button->text(), palette.color(QPalette::ButtonText), palette.color(QPalette::Button));
    } else if (const auto* table = qobject_cast<const QTableWidget*>(widget)) {
      for (int i = 0; i < table->rowCount() * table->columnCount(); ++i) {
        const auto* item = table->item(i / table->columnCount(), i % table->columnCount());
        if (item == nullptr) continue;
        const QColor ink = Over(item->data(Qt::ForegroundRole), palette.color(QPalette::Text));
        for (const auto role : {QPalette::Base, QPalette::AlternateBase}) {
          look(*table, item->text(), ink, Over(item->data(Qt::BackgroundRole), palette.color(role)));
        }
      }
    }
  }
  return faint;
}

TEST(Look, KeepsEachTextReadableOnALightAndOnADarkDesktop) {
  const LookKeeper keeper;
  for (const bool dark : {false, true}) {
    QApplication::setPalette(dark ? DarkPalette() : QPalette());
    test::Forms all("", "trimix-100.tav");
    for (const auto& form : all.forms) {
      SCOPED_TRACE(form->Name() + (dark ? ", dark" : ", light"));
      const auto dialog = MakeDialog(*form, nullptr);
      all.Load(*form);
      dialog->show();
      // What can't be taken is shown in red.
      for (Control* control : form->Controls()) {
        auto* field = dynamic_cast<TextBox*>(control);
        if (field != nullptr && !field->Locked && form->IsLoaded()) field->Type("x");
      }
      QCoreApplication::processEvents();
      test::OnEachPage(*form, [&] {
        for (const std::string& text : FaintTexts(*dialog)) ADD_FAILURE() << text;
      });
      form->Unload();
    }
  }
}

}  // namespace
}  // namespace tav

#include "desktop_look_test.moc"
