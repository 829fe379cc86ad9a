#include "desktop/qt_services.h"

#include <QtWidgets>
#include <pwd.h>
#include <unistd.h>

#include "controls/controls.h"
#include "controls/form.h"
#include "desktop/form_binder.h"
#include "desktop/help_window.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "model/not_copied.h"
#include "model/text_id.h"

#ifdef TAV_SOUND
#include <QSoundEffect>
#endif

namespace tav {
namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Stop:
      return QMessageBox::Critical;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OKCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::OK:
      break;
  }
  return QMessageBox::Ok;
}

/// Where a dialog starts: in its folder, or in the user's documents.
QString FolderOf(const FileDialogRequest& request) {
  if (!request.folder.empty()) return ToQt(request.folder.string());
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo::exists(documents) ? documents : QDir::homePath();
}

/// A file dialog of the desktop; the answer, or nothing.
std::filesystem::path Ask(const FileDialogRequest& request, bool save) {
  QFileDialog dialog(QApplication::activeWindow(), ToQt(request.title), FolderOf(request), ToQt(request.filter));
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(ToQt(request.extension));
  const QList<QUrl> usual = dialog.sidebarUrls();
  QList<QUrl> places = usual;
  for (const auto& place : request.places) {
    if (std::filesystem::is_directory(place)) places << QUrl::fromLocalFile(ToQt(place.string()));
  }
  dialog.setSidebarUrls(places);
  if (!request.fileName.empty()) dialog.selectFile(ToQt(request.fileName));
  // Another kind of file is saved under a name that ends so.
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, save](const QString& filter) {
    const auto ending = QRegularExpression(QStringLiteral("\\(\\*\\.(\\w+)\\)$")).match(filter);
    if (!save || !ending.hasMatch()) return;
    dialog.setDefaultSuffix(ending.captured(1));
    const QFileInfo name(dialog.selectedFiles().value(0));
    const bool isOfAKind =
        dialog.nameFilters().join(QLatin1Char(' ')).contains(QStringLiteral("(*.%1)").arg(name.suffix()));
    if (isOfAKind && !name.isDir()) dialog.selectFile(name.completeBaseName() + QLatin1Char('.') + ending.captured(1));
  });
  const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  dialog.setSidebarUrls(usual);  // Qt keeps them for all programs
  return chosen ? std::filesystem::path(FromQt(dialog.selectedFiles().constFirst())) : std::filesystem::path();
}

/// The hourglass gives way while the user is asked something.
class PointerBreak : NotCopied {
 public:
  PointerBreak() : had_(QApplication::overrideCursor() != nullptr) {
    if (had_) QApplication::changeOverrideCursor(Qt::ArrowCursor);
  }
  ~PointerBreak() {
    if (had_ && QApplication::overrideCursor() != nullptr) QApplication::changeOverrideCursor(Qt::WaitCursor);
  }

 private:
  bool had_;
};

}  // namespace

BoxAnswer QtBoxes::Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) {
  return Ask(text, title, icon, buttons, nullptr, nullptr);
}

BoxAnswer QtBoxes::ShowWithCheck(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
                                 BoxCheck& check) {
  return Ask(text, title, icon, buttons, &check, nullptr);
}

BoxAnswer QtBoxes::ShowWithChoices(const std::string& text, const std::string& title, BoxIcon icon,
                                   const BoxChoices& choices) {
  return Ask(text, title, icon, BoxButtons::YesNoCancel, nullptr, &choices);
}

void QtBoxes::NameButtons(QMessageBox& box) const {
  if (texts_ == nullptr) return;
  constexpr std::pair<QMessageBox::StandardButton, int> kTexts[] = {{QMessageBox::Ok, Text::OK},
                                                                    {QMessageBox::Cancel, Text::Cancel},
                                                                    {QMessageBox::Yes, Text::Yes},
                                                                    {QMessageBox::No, Text::No}};
  for (const auto& [kind, id] : kTexts) {
    QAbstractButton* button = box.button(kind);
    if (button == nullptr) continue;
    const std::string text = texts_->GetResString(id);
    if (text == texts_->TextSource::GetResString(id)) continue;  // no language is loaded yet
    button->setText(ToQt(text.find('&') == std::string::npos ? "&" + text : text));
  }
}

BoxAnswer QtBoxes::Ask(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
                       BoxCheck* check, const BoxChoices* choices) const {
  const PointerBreak pointer;
  QString lines = ToQt(text);
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
  QMessageBox box(IconOf(icon), title.empty() ? QStringLiteral("TAV") : ToQt(title), lines, ButtonsOf(buttons),
                  QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  NameButtons(box);
  if (choices != nullptr) {
    box.button(QMessageBox::Yes)->setText(ToQt(choices->yes));
    box.button(QMessageBox::No)->setText(ToQt(choices->no));
    box.button(QMessageBox::Cancel)->setText(ToQt(choices->cancel));
    box.setDefaultButton(QMessageBox::Cancel);  // Enter by habit changes nothing
  }
  if (check != nullptr) box.setCheckBox(new QCheckBox(ToQt(check->caption), &box));
  const int button = box.exec();
  if (check != nullptr) check->ticked = box.checkBox()->isChecked();
  switch (button) {
    case QMessageBox::Ok:
      return BoxAnswer::OK;
    case QMessageBox::Yes:
      return BoxAnswer::Yes;
    case QMessageBox::No:
      return BoxAnswer::No;
    default:
      return DismissedAnswer(buttons);
  }
}

std::filesystem::path QtFiles::Open(const FileDialogRequest& request) {
  const PointerBreak pointer;
  return Ask(request, false);
}

std::filesystem::path QtFiles::Save(const FileDialogRequest& request) {
  const PointerBreak pointer;
  return Ask(request, true);
}

void QtWindows::RestorePlace(const Form& form, QWidget& window) const {
  if (!form.RemembersPlace) return;
  const QStringList numbers = ToQt(settings_.ReadSetting("Windows", form.Name())).split(QLatin1Char(','));
  if (numbers.size() != 4) return;
  const QRect place(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt());
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  if (screen == nullptr || place.isEmpty()) return;
  window.resize(place.size().boundedTo(screen->availableSize()));
  window.move(place.topLeft());
}

void QtWindows::KeepPlace(const Form& form, const QWidget& window) {
  if (!form.RemembersPlace) return;
  const QRect place(window.pos(), window.size());
  settings_.WriteSetting(
      "Windows", form.Name(),
      FromQt(QStringLiteral("%1,%2,%3,%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height())));
}

QWidget* QtWindows::WindowInFront() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  auto* active = qobject_cast<QDialog*>(QApplication::activeWindow());
  const bool usable = active != nullptr && active->isVisible() && active->windowType() != Qt::SplashScreen;
  return usable ? active : &owner_;
}

std::unique_ptr<QDialog> QtWindows::Made(Form& form, QWidget* parent) const {
  auto dialog = MakeDialog(form, parent);
  auto* help = new QShortcut(QKeySequence(Qt::Key_F1), dialog.get());
  QObject::connect(help, &QShortcut::activated, [this, &form] {
    if (helpWanted) helpWanted(form);
  });
  return dialog;
}

void QtWindows::ShowModal(Form& form) {
  const PointerBreak pointer;
  QWidget* parent = WindowInFront();
  const auto dialog = Made(form, parent);
  form.Load();
  if (form.IsLoaded()) {
    RestorePlace(form, *dialog);
    dialog->setModal(true);
    dialog->exec();
    KeepPlace(form, *dialog);
  }
  form.Unload(true);
  // Windows that were opened beside it stay.
  for (auto* beside : dialog->findChildren<QDialog*>(Qt::FindDirectChildrenOnly)) MoveWindow(*beside, *parent);
  form.Changed = nullptr;
  form.CloseWanted = nullptr;
  form.FrontWanted = nullptr;
}

void QtWindows::Show(const std::shared_ptr<Form>& form) {
  QDialog* dialog = Made(*form, &owner_).release();
  if (form->Name() == "frmSplash") {
    dialog->setParent(nullptr);
    dialog->setWindowFlags(Qt::SplashScreen | Qt::WindowStaysOnTopHint);
  }
  dialog->setModal(form->Blocks);
  // The dialog carries the form: when it is deleted, after all events under way, so is the form.
  QObject::connect(dialog, &QDialog::finished, dialog, &QObject::deleteLater);
  QObject::connect(dialog, &QObject::destroyed, [form] {
    form->Changed = nullptr;
    form->CloseWanted = nullptr;
    form->FrontWanted = nullptr;
  });
  form->Load();
  if (form->IsLoaded()) {
    RestorePlace(*form, *dialog);
    QObject::connect(dialog, &QDialog::finished, [this, form, dialog] { KeepPlace(*form, *dialog); });
    if (QApplication::activeModalWidget() == nullptr) return form->BringToFront();
    // The modal window may be about to close, and would take it along.
    QTimer::singleShot(0, dialog, [form] { form->BringToFront(); });
  } else {
    dialog->deleteLater();
  }
}

void FillAction(const MenuItem& item, QAction& action) {
  if (item.Caption.Get() == "-") {
    action.setSeparator(true);
  } else {
    action.setText(ToQt(item.Caption));
    // "Ins" and its like act through the key of the window, once.
    if (!item.Shortcut.empty()) action.setShortcut(QKeySequence::fromString(ToQt(item.Shortcut)));
    action.setCheckable(item.Checked);
    action.setChecked(item.Checked);
  }
  action.setEnabled(item.Enabled);
  action.setVisible(item.Visible);
}

void QtWindows::PopupMenu(const std::vector<MenuItem*>& items) { PopupAt(QCursor::pos(), items); }

void QtWindows::PopupMenuAtFocus(const std::vector<MenuItem*>& items) {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) {
    PopupMenu(items);
    return;
  }
  const QRect place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect();
  const auto* area = qobject_cast<const QAbstractScrollArea*>(focus);
  const QWidget* within = area != nullptr ? area->viewport() : focus;
  PopupAt(within->mapToGlobal(place.center()), items);
}

void QtWindows::PopupAt(const QPoint& place, const std::vector<MenuItem*>& items) {
  QMenu menu(&owner_);
  MenuItem* chosen = nullptr;
  for (MenuItem* item : items) {
    auto* action = menu.addAction(QString());
    FillAction(*item, *action);
    QObject::connect(action, &QAction::triggered, [&chosen, item] { chosen = item; });
  }
  menu.exec(place);
  if (chosen != nullptr) chosen->Choose();
}

std::string QtSettings::ReadSetting(const std::string& section, const std::string& name) const {
  constexpr std::size_t kLongest = 255;
  const QString key = section.empty() ? ToQt(name) : ToQt(section + "/" + name);
  std::string value = FromQt(settings_.value(key).toString());
  return value.size() > kLongest ? "" : value;
}

void QtSettings::WriteSetting(const std::string& section, const std::string& name, const std::string& value) {
  settings_.setValue(section.empty() ? ToQt(name) : ToQt(section + "/" + name), ToQt(value));
  settings_.sync();
}

void QtScreen::ShowHourglass(bool on) {
  if (on == hourglass_) return;
  hourglass_ = on;
  if (on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

Screen::Room QtScreen::AvailableRoom() const {
  const QSize room = QGuiApplication::primaryScreen()->availableSize() * kUnitsPerPixel;
  return {room.width(), room.height()};
}

void QtScreen::DoEvents() { QApplication::processEvents(); }

void QtScreen::WaitForEvents() {
  constexpr int kMilliseconds = 20;
  QTimer::singleShot(kMilliseconds, [] {});  // so that waiting for events ends
  QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtSound::Play(const std::filesystem::path& file) {
#ifdef TAV_SOUND
  if (!std::filesystem::exists(file)) return;
  auto* effect = new QSoundEffect(QApplication::instance());
  effect->setSource(QUrl::fromLocalFile(ToQt(file.string())));
  effect->play();
#else
  static_cast<void>(file);
#endif
}

std::string QtClipboard::Text() const { return FromQt(QApplication::clipboard()->text()); }

void QtClipboard::SetText(const std::string& text) { QApplication::clipboard()->setText(ToQt(text)); }

std::string QtEnvironment::UserName() const {
  const passwd* user = ::getpwuid(::geteuid());  // NOLINT(concurrency-mt-unsafe): there is one thread
  return user == nullptr || user->pw_name == nullptr ? std::string() : user->pw_name;
}

std::string QtEnvironment::Locale() const { return FromQt(QLocale::system().uiLanguages().value(0)); }

std::string QtEnvironment::Today() const {
  // A year of two digits could be a day.
  QString form = QLocale().dateFormat(QLocale::ShortFormat);
  if (!form.contains(QLatin1String("yyyy"))) form.replace(QLatin1String("yy"), QLatin1String("yyyy"));
  return FromQt(QLocale().toString(QDate::currentDate(), form));
}

std::filesystem::path QtEnvironment::TemporaryFolder() const { return FromQt(QDir::tempPath()); }

std::string QtEnvironment::Logo() const {
  QFile file(QStringLiteral(":/icons/logo.svg"));
  return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

void QtHelp::ShowHelp(const std::filesystem::path& file, Page page, const std::string& anchor) {
  HelpWindow* window = window_;
  if (window != nullptr && window->File() != file) {
    delete window;
    window = nullptr;
  }
  if (window == nullptr) window_ = window = new HelpWindow(file, *texts_);
  // Beside a modal window only its children can be used; one that closes gives the help back.
  QWidget* const modal = QApplication::activeModalWidget();
  QWidget* const owner = modal != nullptr ? modal : &owner_;
  if (window->parentWidget() != owner) MoveWindow(*window, *owner);
  window->Open(page == Page::Search, ToQt(anchor));
}

}  // namespace tav
