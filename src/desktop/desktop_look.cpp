#include "desktop/desktop_look.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFileInfo>
#include <QPalette>
#include <algorithm>

namespace tav {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kLetters = QStringLiteral("org.gnome.desktop.interface");
constexpr double kSmallestPoints = 6;
constexpr double kLargestPoints = 32;

bool IsLight(const QPalette& palette) { return palette.color(QPalette::Window).lightness() >= 128; }

/// KDE's letters come through Qt's own theme.
bool TakesLetters() { return !qEnvironmentVariable("XDG_CURRENT_DESKTOP").contains(QLatin1String("KDE")); }

}  // namespace

QPalette DarkPalette() {
  const QColor window(45, 45, 48);
  const QColor text(232, 232, 232);
  const QColor dimmed(128, 128, 128);
  QPalette dark(QColor(60, 60, 64), window);
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
  dark.setColor(QPalette::Highlight, QColor(32, 96, 160));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Link, QColor(110, 180, 255));
  dark.setColor(QPalette::LinkVisited, QColor(200, 160, 255));
  dark.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, dimmed);
  }
  return dark;
}

bool DesktopLook::HasBus() {
  if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

DesktopLook::DesktopLook(const QDBusConnection& bus)
    : lightAtFirst_(IsLight(QApplication::palette())), fontAtFirst_(QApplication::font()) {
  qDBusRegisterMetaType<Settings>();
  // From whoever serves it: the service may be started anew.
  QDBusConnection(bus).connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
                               SLOT(SettingChanged(QDBusMessage)));
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("ReadAll"));
  question << QStringList{kAppearance, kLetters};
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<Settings> settings = *answer;
    if (!settings.isError()) Read(settings.value());
    answer->deleteLater();
  });
}

void DesktopLook::SettingChanged(const QDBusMessage& message) {
  const QVariantList told = message.arguments();
  if (told.size() != 3) return;
  Set(told[0].toString(), told[1].toString(), told[2].value<QDBusVariant>().variant());
  Apply();
}

void DesktopLook::Read(const Settings& settings) {
  for (auto group = settings.begin(); group != settings.end(); ++group) {
    for (auto key = group->begin(); key != group->end(); ++key) Set(group.key(), key.key(), key.value());
  }
  Apply();
}

void DesktopLook::Set(const QString& group, const QString& key, const QVariant& value) {
  if (group == kAppearance && key == QLatin1String("color-scheme")) {
    constexpr uint kPrefersDark = 1;
    wantsDark_ = value.toUInt() == kPrefersDark;
  }
  if (group != kLetters || !TakesLetters()) return;
  if (key == QLatin1String("font-name")) {
    // "Cantarell 11": the size is the last word.
    const double points = value.toString().section(QLatin1Char(' '), -1).toDouble();
    points_ = points > 0 ? std::clamp(points, kSmallestPoints, kLargestPoints) : 0;
  }
  // Under X11 the same factor comes as the resolution of the screen, and Qt has it in all sizes.
  const bool told = QGuiApplication::platformName() == QLatin1String("xcb");
  if (key == QLatin1String("text-scaling-factor") && value.toDouble() > 0 && !told) scale_ = value.toDouble();
}

void DesktopLook::Apply() const {
  // A theme that is dark by itself knows its colours better.
  if (lightAtFirst_ && IsLight(QApplication::palette()) == wantsDark_) {
    QApplication::setPalette(wantsDark_ ? DarkPalette() : QPalette());
  }
  QFont font = fontAtFirst_;
  const double points = points_ > 0 ? points_ : fontAtFirst_.pointSizeF();
  font.setPointSizeF(std::clamp(points * scale_, kSmallestPoints, kLargestPoints));
  if (font.pointSizeF() != QApplication::font().pointSizeF()) QApplication::setFont(font);
}

}  // namespace tav
