#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFont>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantMap>

class QPalette;

namespace tav {

/// The colours of the windows on a dark desktop.
QPalette DarkPalette();

/// Lets the windows look as the user's desktop wants them: dark or light, and in letters of its size. Desktops tell
/// that over the session's bus (XDG desktop portal, interface org.freedesktop.portal.Settings); the answer comes while
/// the program loads, and changes are followed while it runs. Without a bus or an answer all stays as Qt found it.
class DesktopLook : public QObject {
  Q_OBJECT

 public:
  explicit DesktopLook(const QDBusConnection& bus);

  /// There is a session's bus to be asked. Looking for one where there is none may start one.
  static bool HasBus();

 private Q_SLOTS:
  void SettingChanged(const QDBusMessage& message);

 private:  // NOLINT(readability-redundant-access-specifiers): those above are slots
  using Settings = QMap<QString, QVariantMap>;

  void Read(const Settings& settings);
  void Set(const QString& group, const QString& key, const QVariant& value);
  void Apply() const;

  bool lightAtFirst_;
  bool wantsDark_ = false;
  QFont fontAtFirst_;
  double points_ = 0;  ///< of the desktop's letters; 0 when it tells none
  double scale_ = 1;   ///< of texts, where the screen's resolution does not tell it already
};

}  // namespace tav
