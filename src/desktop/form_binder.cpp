#include "desktop/form_binder.h"

#include <QFile>
#include <QUiLoader>
#include <QtWidgets>
#include <cmath>
#include <map>
#include <set>
#include <stdexcept>

#include "controls/form.h"
#include "desktop/cell_map_view.h"
#include "desktop/control_binding.h"
#include "desktop/page_area.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "desktop/row_table.h"
#include "desktop/spin_arrows.h"
#include "desktop/spoken_names.h"

namespace tav {
namespace {

/// Knows the program's own widgets beside those of Qt.
class Loader : public QUiLoader {
 public:
  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    if (className == QLatin1String("QDialog")) {
      // The window is the program's own; a dialog within it would take Escape for itself.
      auto* content = new QWidget(parent);
      content->setObjectName(name);
      return content;
    }
    QWidget* own = nullptr;
    if (className == QLatin1String("SpinArrows")) own = new SpinArrows(parent);
    if (className == QLatin1String("PageArea")) own = new PageArea(parent);
    if (className == QLatin1String("RowTable")) own = new RowTable(parent);
    if (className == QLatin1String("CellMapView")) own = new CellMapView(parent);
    if (className == QLatin1String("QTabBar")) own = new QTabBar(parent);
    if (own == nullptr) return QUiLoader::createWidget(className, parent, name);
    own->setObjectName(name);
    return own;
  }
};

/// Gives each button, check box and labelled field that has none a letter to reach it by: the first of its text that is
/// still free. In a pane of the main window those of the menu bar are not.
void AssignMnemonics(QWidget& dialog) {
  std::set<QChar> taken;
  const auto mnemonic = [](const QString& text) {
    const auto at = text.indexOf(QLatin1Char('&'));
    return at < 0 || at + 1 >= text.size() || text[at + 1] == QLatin1Char('&') ? QChar() : text[at + 1].toLower();
  };
  if (const auto* window = qobject_cast<QMainWindow*>(dialog.window())) {
    for (const QAction* menu : window->menuBar()->actions()) taken.insert(mnemonic(menu->text()));
  }
  const auto assign = [&](const QString& text) {
    if (text.contains(QLatin1Char('&'))) return text;
    for (int i = 0; i < text.size(); ++i) {
      if (!text[i].isLetter() || taken.contains(text[i].toLower())) continue;
      taken.insert(text[i].toLower());
      return text.left(i) + QLatin1Char('&') + text.mid(i);
    }
    return text;
  };
  const auto buttons = dialog.findChildren<QAbstractButton*>();
  for (const auto* button : buttons) taken.insert(mnemonic(button->text()));
  for (const auto* label : dialog.findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) taken.insert(mnemonic(label->text()));
  }
  for (auto* button : buttons) {
    // Letters are few: what has a key of its own is designed to do without.
    const QVariant wanted = button->property("mnemonic");
    if (qobject_cast<QToolButton*>(button) != nullptr || (wanted.isValid() && !wanted.toBool())) continue;
    button->setText(assign(button->text()));
  }
  for (auto* label : dialog.findChildren<QLabel*>()) {
    if (label->buddy() != nullptr) label->setText(assign(label->text()));
  }
}

/// A dialog whose close control asks the form.
class FormDialog : public QDialog {
 public:
  FormDialog(Form& form, QWidget* parent) : QDialog(parent), form_(&form) {
    form.Changed = [this] { ShowForm(); };
    form.FrontWanted = [this] { ToFront(); };
    form.CloseWanted = [this] {
      form_ = nullptr;
      hide();
      QDialog::done(0);
    };
  }

  void ToFront() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != this && !modal->isAncestorOf(this)) {
      if (dynamic_cast<FormDialog*>(modal) == nullptr) {  // a message, which takes all that belongs to it with it
        connect(modal, &QObject::destroyed, this, &FormDialog::ToFront, Qt::QueuedConnection);
        return;
      }
      // Only what belongs to the modal window can be used while that is open.
      MoveWindow(*this, *modal);
    }
    if (form_ == nullptr) return;
    show();
    raise();
    activateWindow();
  }

  void ShowForm() {
    setWindowTitle(ToQt(form_->Caption));
    const QSize wanted = QSize(form_->Width, form_->Height) / kUnitsPerPixel;
    if (!following_ && !wanted.isEmpty() && wanted != size()) resize(wanted);
  }

  void reject() override {
    // Escape is the cancel button's, where there is one.
    if (form_ == nullptr) return;
    for (Control* control : form_->Controls()) {
      auto* button = dynamic_cast<Button*>(control);
      if (button != nullptr && button->Cancel && button->Enabled && button->Visible) {
        button->Press();
        return;
      }
    }
    form_->Unload(true);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (form_ != nullptr && form_->AnyInput) return form_->AnyInput();
    QDialog::keyPressEvent(event);
  }
  void mousePressEvent(QMouseEvent* event) override {
    if (form_ != nullptr && form_->AnyInput) return form_->AnyInput();
    QDialog::mousePressEvent(event);
  }
  void resizeEvent(QResizeEvent* event) override {
    QDialog::resizeEvent(event);
    if (form_ == nullptr || form_->Width == 0 || isMaximized()) return;
    const QSize units = size() * kUnitsPerPixel;
    following_ = true;
    form_->Width = units.width();
    form_->Height = units.height();
    following_ = false;
  }
  void contextMenuEvent(QContextMenuEvent* event) override {
    if (form_ == nullptr || !form_->ContextMenu) return;
    event->accept();
    form_->ContextMenu();
  }
  void closeEvent(QCloseEvent* event) override {
    reject();
    event->setAccepted(form_ == nullptr);  // one that stays open would call off the end of the program
  }
  void showEvent(QShowEvent* event) override {
    if (form_ != nullptr) setWindowTitle(ToQt(form_->Caption));
    if (form_ != nullptr && form_->FitsContent) adjustSize();
    AssignMnemonics(*this);
    FitScreen();
    QDialog::showEvent(event);
  }

 private:
  /// A window is no larger than the screen; what it can't do without then scrolls.
  void FitScreen() {
    const QSize room = screen()->availableSize() - QSize(kFrameWidth, kTitleHeight);
    QLayoutItem* content = layout() == nullptr ? nullptr : layout()->itemAt(0);
    QWidget* designed = content == nullptr ? nullptr : content->widget();
    if (designed == nullptr) return;
    QSize needed = minimumSizeHint();
    const bool fits = needed.boundedTo(room) == needed;
    // Lines that wrap need more of them in another language, or in larger letters.
    if (layout()->hasHeightForWidth()) {
      const int width = std::min(std::max(size().width(), needed.width()), room.width());
      needed.setHeight(std::max(needed.height(), layout()->totalHeightForWidth(width)));
    }
    const bool scrolls = qobject_cast<QScrollArea*>(designed) != nullptr;
    if (!scrolls && needed.boundedTo(room) != needed) {
      auto* area = new QScrollArea(this);
      area->setObjectName(QStringLiteral("qt_scroll_area"));
      area->setFrameShape(QFrame::NoFrame);
      area->setWidgetResizable(true);
      layout()->removeWidget(designed);
      if (fits) designed->setMinimumHeight(needed.height());  // else the area would make its lines too few
      area->setWidget(designed);
      layout()->addWidget(area);
      layout()->activate();  // the window may be smaller than the content now
    }
    if (!isMaximized()) resize(size().expandedTo(needed).boundedTo(room));
  }

  // Of the window's own frame; what it really is shows only when it stands.
  static constexpr int kFrameWidth = 10;
  static constexpr int kTitleHeight = 40;

  Form* form_;
  bool following_ = false;  ///< the record takes the size of the window, not the reverse
};

/// Fields are designed in the pixels of letters of the usual size; on a desktop of larger letters they grow with them.
void GrowFields(const QWidget& window) {
  constexpr int kDesignedHeight = 14;  // of a line in the letters that the designs were made in
  const double factor = static_cast<double>(window.fontMetrics().height()) / kDesignedHeight;
  if (factor <= 1) return;
  const auto grown = [factor](int width) {
    return width == 0 || width == QWIDGETSIZE_MAX ? width : static_cast<int>(std::ceil(width * factor));
  };
  for (auto* widget : window.findChildren<QWidget*>()) {
    if (qobject_cast<QLineEdit*>(widget) == nullptr && qobject_cast<QComboBox*>(widget) == nullptr) continue;
    widget->setMaximumWidth(grown(widget->maximumWidth()));
    widget->setMinimumWidth(grown(widget->minimumWidth()));
  }
}

/// An underlined letter is drawn by itself, without kerning: "Ta" is wider then than a label reckons that kerns.
void DropKerning(const QWidget& window) {
  for (auto* label : window.findChildren<QLabel*>()) {
    if (label->buddy() == nullptr) continue;
    QFont font = label->font();
    font.setKerning(false);
    label->setFont(font);
  }
}

/// Of pages that lie one over the other each has the room of the largest, seen or not: the window keeps its size.
void RetainPages(const QWidget& window) {
  for (auto* widget : window.findChildren<QWidget*>()) {
    if (!widget->property("page").toBool()) continue;
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
}

bool ShowsText(const QWidget* widget) {
  return qobject_cast<const QLabel*>(widget) != nullptr || qobject_cast<const QGroupBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractButton*>(widget) != nullptr || qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(widget) != nullptr || qobject_cast<const SpinArrows*>(widget) != nullptr;
}

}  // namespace

QWidget* MakePane(Form& form, QWidget* parent) {
  QFile file(QStringLiteral(":/forms/") + ToQt(form.Name()) + QStringLiteral(".ui"));
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("the form " + form.Name() + " has no window");
  Loader loader;
  QWidget* designed = loader.load(&file, parent);
  if (designed == nullptr) throw std::runtime_error(form.Name() + ": " + FromQt(loader.errorString()));
  GrowFields(*designed);
  RetainPages(*designed);
  DropKerning(*designed);
  for (Control* control : form.Controls()) {
    if (auto* widget = designed->findChild<QWidget*>(ToQt(control->Name()))) BindControl(*control, *widget);
  }
  BindPointer(form, *designed);
  BindSpinKeys(form, *designed);
  if (qobject_cast<QMainWindow*>(designed->window()) != nullptr) {
    AssignMnemonics(*designed);
    for (auto* arrows : designed->findChildren<SpinArrows*>()) arrows->MakeCompact();
  }
  NameControls(*designed);
  return designed;
}

void MoveWindow(QDialog& dialog, QWidget& parent) {
  const bool shown = dialog.isVisible();
  const QPoint place = dialog.pos();
  dialog.setParent(&parent, dialog.windowFlags());  // hides it
  // A window manager may miss that a window goes and comes back at once: it comes back as another one.
  if (QWindow* window = dialog.windowHandle(); shown && window != nullptr) window->destroy();
  if (shown) dialog.move(place);
  dialog.setVisible(shown);
}

std::unique_ptr<QDialog> MakeDialog(Form& form, QWidget* parent) {
  auto dialog = std::make_unique<FormDialog>(form, parent);
  // The file describes a dialog; it becomes the content of the one that asks the form before it closes.
  QWidget* designed = MakePane(form, dialog.get());
  auto* layout = new QVBoxLayout(dialog.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(designed);
  dialog->setObjectName(ToQt(form.Name()));
  dialog->resize(designed->size());
  dialog->setWindowTitle(ToQt(form.Caption));
  if (form.RemembersPlace) dialog->setWindowFlag(Qt::WindowMaximizeButtonHint);
  return dialog;
}

std::vector<std::string> BindingFaults(const Form& form, const QWidget& window) {
  std::vector<std::string> faults;
  for (const Control* control : form.Controls()) {
    const bool missing = window.findChild<QWidget*>(ToQt(control->Name())) == nullptr;
    if (missing && dynamic_cast<const MenuItem*>(control) == nullptr) {
      faults.push_back(form.Name() + ": the control " + control->Name() + " has no widget");
    }
  }
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) || !ShowsText(widget)) continue;
    if (qobject_cast<const QTabBar*>(widget->parentWidget()) != nullptr) continue;  // its scroll buttons
    if (form.Find(FromQt(name)) == nullptr && qobject_cast<const QDialog*>(widget) == nullptr) {
      faults.push_back(form.Name() + ": the widget " + FromQt(name) + " has no control");
    }
  }
  return faults;
}

}  // namespace tav
