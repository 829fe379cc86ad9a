#include "desktop/control_binding.h"

#include <QtWidgets>
#include <algorithm>
#include <stdexcept>

#include "controls/form.h"
#include "controls/grid.h"
#include "desktop/cell_map_view.h"
#include "desktop/grid_binding.h"
#include "desktop/icons.h"
#include "desktop/page_area.h"
#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "desktop/result_grid_binding.h"
#include "desktop/spin_arrows.h"
#include "desktop/text_colour.h"

namespace tav {
namespace {

/// Calls functions on events of a widget.
class EventHook : public QObject {
 public:
  EventHook(QWidget& widget, std::function<bool(QEvent*)> act)
      : QObject(&widget), kind_(widget.metaObject()), act_(std::move(act)) {
    widget.installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // A field that has the focus loses it while it is destroyed, when no more than a QWidget is left of it.
    return watched->metaObject() == kind_ && act_(event);
  }

 private:
  const QMetaObject* kind_;
  std::function<bool(QEvent*)> act_;
};

template <class W>
W& As(const Control& control, QWidget& widget) {
  auto* right = qobject_cast<W*>(&widget);
  if (right == nullptr) throw std::runtime_error("the widget " + control.Name() + " is of the wrong kind");
  return *right;
}

void ShowCommon(const Control& control, QWidget& widget) {
  widget.setEnabled(control.Enabled);
  if (widget.isVisibleTo(widget.parentWidget()) != control.Visible) widget.setVisible(control.Visible);
  widget.setToolTip(ToQt(control.ToolTipText));
  widget.setProperty("spokenName", ToQt(control.SpokenName));
  // A text in red is told apart without colours, too: it is bold.
  const bool bold = control.Bold || control.ForeColor == kRed;
  QFont font = widget.font();
  if (font.bold() != bold) {
    font.setBold(bold);
    widget.setFont(font);
  }
  QPalette palette;
  if (control.ForeColor >= 0) {
    const QPalette desktop = QApplication::palette();
    const QColor text = TextColour(control.ForeColor, {desktop.color(QPalette::Window), desktop.color(QPalette::Base)});
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
  }
  widget.setPalette(palette);
}

/// Colours of texts follow a desktop that becomes dark or light.
void FollowPalette(QWidget& widget, const std::function<void()>& refresh) {
  new EventHook(widget, [&widget, refresh](QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) QTimer::singleShot(0, &widget, refresh);
    return false;
  });
}

template <class C, class Show>
void Follow(C& control, QWidget& widget, Show show) {
  const auto refresh = [&control, &widget, show] {
    ShowCommon(control, widget);
    show();
  };
  control.Changed = refresh;
  FollowPalette(widget, refresh);
  control.FocusWanted = [&widget] { widget.setFocus(Qt::OtherFocusReason); };
  QObject::connect(&widget, &QObject::destroyed, [&control] {
    control.Changed = nullptr;
    control.FocusWanted = nullptr;
  });
  refresh();
}

/// A caption in place of a text that may have a letter to reach it by: the letter stays, if the caption has it.
QString KeepingMnemonic(const std::string& caption, const QString& before) {
  QString text = ToQt(caption);
  const auto at = before.indexOf(QLatin1Char('&'));
  if (at < 0 || at + 1 >= before.size() || text.contains(QLatin1Char('&'))) return text;
  const auto letter = text.indexOf(before[at + 1], 0, Qt::CaseInsensitive);
  return letter < 0 ? text : text.insert(letter, QLatin1Char('&'));
}

/// A field that takes no typing looks like the result that it is, and Tab passes it over; the mouse can still mark its
/// text to copy it.
void ShowAsResult(QLineEdit& edit) {
  edit.setFrame(false);
  edit.setFocusPolicy(Qt::ClickFocus);
  QPalette palette = edit.palette();
  palette.setColor(QPalette::Base, Qt::transparent);
  edit.setPalette(palette);
}

void Bind(TextBox& box, QLineEdit& edit) {
  Follow(box, edit, [&box, &edit] {
    edit.setReadOnly(box.Locked);
    if (box.Locked) ShowAsResult(edit);
    if (edit.text() != ToQt(box.Text)) edit.setText(ToQt(box.Text));
    // Words in place of a number, where the form asks for room for them.
    if (edit.property("showsAll").toBool()) {
      constexpr int kAround = 16;  // pixels
      edit.setMinimumWidth(edit.fontMetrics().horizontalAdvance(edit.text()) + kAround);
    }
  });
  box.SelectWanted = [&edit] { edit.selectAll(); };
  QObject::connect(&edit, &QObject::destroyed, [&box] { box.SelectWanted = nullptr; });
  QObject::connect(&edit, &QLineEdit::textEdited, [&box](const QString& text) { box.Type(FromQt(text)); });
  new EventHook(edit, [&box, &edit](QEvent* event) {
    if (event->type() == QEvent::FocusIn) box.Enter();
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
      box.Leave();
    }
    // A field in which nothing was typed leaves the keys of undo to the menu.
    if (event->type() == QEvent::ShortcutOverride && !edit.isUndoAvailable()) {
      return static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo);
    }
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (box.Pasting && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste) && box.Pasting()) return true;
    // Ahead of the move: what the field does when it is left may show the very button that Tab goes to.
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) box.Leave();
    if (box.KeyUp && key == Qt::Key_Up) return box.PressUp(), true;
    if (box.KeyDown && key == Qt::Key_Down) return box.PressDown(), true;
    if (box.KeyEscape && key == Qt::Key_Escape) {
      box.PressEscape();
      return true;
    }
    if (!box.KeyReturn || (key != Qt::Key_Return && key != Qt::Key_Enter)) return false;
    box.PressReturn();
    return true;
  });
}

/// A text in lines: Return begins the next one, Tab leaves it.
void Bind(TextBox& box, QPlainTextEdit& edit) {
  edit.setTabChangesFocus(true);
  Follow(box, edit, [&box, &edit] {
    if (edit.toPlainText() != ToQt(box.Text)) edit.setPlainText(ToQt(box.Text));
  });
  box.SelectWanted = [&edit] { edit.selectAll(); };
  QObject::connect(&edit, &QObject::destroyed, [&box] { box.SelectWanted = nullptr; });
  QObject::connect(&edit, &QPlainTextEdit::textChanged, [&box, &edit] {
    if (FromQt(edit.toPlainText()) != box.Text.Get()) box.Type(FromQt(edit.toPlainText()));
  });
}

void Bind(ComboBox& box, QComboBox& combo) {
  combo.setFocusPolicy(Qt::StrongFocus);
  if (box.TakesText) {
    combo.setEditable(true);
    combo.setInsertPolicy(QComboBox::NoInsert);
    combo.setCompleter(nullptr);  // EAN3 is no EAN32
    // A part of the list, which has the focus for it, as Qt names the parts of its own widgets.
    combo.lineEdit()->setObjectName(QStringLiteral("qt_typed"));
  }
  Follow(box, combo, [&box, &combo] {
    const QSignalBlocker quiet(&combo);
    QStringList items;
    for (const std::string& item : box.Items.Get()) items << ToQt(item);
    QStringList shown;
    for (int i = 0; i < combo.count(); ++i) shown << combo.itemText(i);
    if (shown != items) {
      combo.clear();
      combo.addItems(items);
    }
    if (combo.currentIndex() != box.ListIndex) combo.setCurrentIndex(box.ListIndex);
    if (combo.isEditable() && combo.currentText() != ToQt(box.Text())) combo.setEditText(ToQt(box.Text()));
  });
  QObject::connect(&combo, &QComboBox::activated, [&box](int index) { box.Select(index); });
  // A wheel that scrolls what is around a list does not choose in passing.
  new EventHook(combo, [&combo](QEvent* event) {
    if (event->type() != QEvent::Wheel || combo.hasFocus()) return false;
    event->ignore();
    return true;
  });
  if (combo.isEditable()) {
    QObject::connect(combo.lineEdit(), &QLineEdit::textEdited, [&box](const QString& text) { box.Type(FromQt(text)); });
  }
  if (!box.KeyReturn) return;
  new EventHook(combo, [&box](QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    box.PressReturn();
    return true;
  });
}

void Bind(ListView& view, QListWidget& list) {
  Follow(view, list, [&view, &list] {
    const QSignalBlocker quiet(&list);
    if (list.count() != static_cast<int>(view.Items.Get().size())) {
      list.clear();
      for (const std::string& item : view.Items.Get()) list.addItem(ToQt(item));
    }
    list.setCurrentRow(view.SelectedItem);
  });
  QObject::connect(&list, &QListWidget::currentRowChanged, [&view](int row) { view.Select(row); });
}

/// A list that flows in lines is as high as its lines, up to three of them.
void FitLines(QListWidget& list) {
  constexpr int kMostLines = 3;
  if (!list.isWrapping()) return;
  list.doItemsLayout();
  const int first = list.count() == 0 ? list.fontMetrics().height() : list.visualItemRect(list.item(0)).height();
  const int all = list.count() == 0 ? first
                                    : list.visualItemRect(list.item(list.count() - 1)).bottom() -
                                          list.visualItemRect(list.item(0)).top();
  const int line = first + 2 * list.spacing();
  list.setFixedHeight(std::min(all + 2 * list.spacing(), kMostLines * line) + 2 * list.frameWidth() + 2);
}

void Bind(CheckList& ticks, QListWidget& list) {
  Follow(ticks, list, [&ticks, &list] {
    const QSignalBlocker quiet(&list);
    const auto& items = ticks.Items.Get();
    while (list.count() > static_cast<int>(items.size())) delete list.takeItem(list.count() - 1);
    for (std::size_t i = 0; i < items.size(); ++i) {
      const int row = static_cast<int>(i);
      if (row == list.count()) list.addItem(QString());
      list.item(row)->setText(ToQt(items[i].text));
      list.item(row)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
      list.item(row)->setCheckState(items[i].on ? Qt::Checked : Qt::Unchecked);
    }
    FitLines(list);
  });
  new EventHook(list, [&list](QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) {
      QTimer::singleShot(0, &list, [&list] { FitLines(list); });
    }
    return false;
  });
  QObject::connect(&list, &QListWidget::itemChanged, [&ticks, &list](const QListWidgetItem* item) {
    ticks.Tick(list.row(item), item->checkState() == Qt::Checked);
  });
}

void Bind(TabStrip& strip, QTabBar& bar) {
  Follow(strip, bar, [&strip, &bar] {
    const QSignalBlocker quiet(&bar);
    const auto& tabs = strip.Tabs.Get();
    while (bar.count() > static_cast<int>(tabs.size())) bar.removeTab(bar.count() - 1);
    for (std::size_t i = 0; i < tabs.size(); ++i) {
      const int at = static_cast<int>(i);
      if (at == bar.count()) bar.addTab(QString());
      bar.setTabText(at, ToQt(tabs[i]));
    }
    bar.setCurrentIndex(strip.SelectedItem);
  });
  QObject::connect(&bar, &QTabBar::currentChanged, [&strip](int index) { strip.Select(index); });
}

/// The innermost frame around a widget, or the frame itself; nullptr when it lies in none.
QGroupBox* FrameOf(QWidget* widget) {
  while (widget != nullptr && qobject_cast<QGroupBox*>(widget) == nullptr && !widget->isWindow()) {
    widget = widget->parentWidget();
  }
  return qobject_cast<QGroupBox*>(widget);
}

/// Calls `act` when the pointer moves over the widget or anything in it of which this is the innermost frame.
void WatchPointer(QWidget& within, const QGroupBox* frame, const std::function<void()>& act) {
  QList<QWidget*> watched = within.findChildren<QWidget*>();
  watched << &within;
  for (QWidget* widget : watched) {
    if (FrameOf(widget) != frame) continue;
    widget->setMouseTracking(true);
    new EventHook(*widget, [act](QEvent* event) {
      if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) act();
      return false;
    });
  }
}

void Bind(Frame& frame, QGroupBox& box) {
  Follow(frame, box, [&frame, &box] { box.setTitle(ToQt(frame.Caption)); });
  if (!frame.MouseMove) return;
  WatchPointer(box, &box, [&frame] { frame.MoveMouse(); });
}

void Bind(Button& button, QPushButton& widget) {
  Follow(button, widget, [&button, &widget] { widget.setText(KeepingMnemonic(button.Caption, widget.text())); });
  widget.setAutoDefault(button.Default);
  widget.setDefault(button.Default);
  // The record outlives the click only if nothing ends the form before Press returns; the event works on a copy.
  QObject::connect(&widget, &QPushButton::clicked, [&button] { button.Press(); });
}

}  // namespace

void BindControl(Control& control, QWidget& widget) {
  if (auto* frame = dynamic_cast<Frame*>(&control)) {
    Bind(*frame, As<QGroupBox>(control, widget));
  } else if (auto* label = dynamic_cast<Label*>(&control)) {
    auto& view = As<QLabel>(control, widget);
    Follow(*label, view, [label, &view] {
      view.setText(KeepingMnemonic(label->Caption, view.buddy() == nullptr ? QString() : view.text()));
    });
  } else if (auto* picture = dynamic_cast<Picture*>(&control)) {
    auto& view = As<QLabel>(control, widget);
    Follow(*picture, view, [picture, &view] {
      view.setPixmap(IconNamed(picture->Image).pixmap(view.maximumSize(), view.devicePixelRatioF()));
    });
  } else if (auto* map = dynamic_cast<CellMap*>(&control)) {
    auto& view = As<CellMapView>(control, widget);
    view.Bind(*map);
    Follow(*map, view, [&view] { view.Follow(); });
  } else if (auto* button = dynamic_cast<Button*>(&control)) {
    Bind(*button, As<QPushButton>(control, widget));
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    auto& view = As<QCheckBox>(control, widget);
    Follow(*check, view, [check, &view] {
      view.setText(KeepingMnemonic(check->Caption, view.text()));
      view.setChecked(check->Value);
    });
    QObject::connect(&view, &QCheckBox::clicked, [check](bool on) { check->Set(on); });
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    auto& view = As<QRadioButton>(control, widget);
    Follow(*option, view, [option, &view] {
      view.setText(KeepingMnemonic(option->Caption, view.text()));
      view.setAutoExclusive(false);
      view.setChecked(option->Value);
      view.setAutoExclusive(true);
    });
    QObject::connect(&view, &QRadioButton::clicked, [option] { option->Choose(); });
  } else if (auto* text = dynamic_cast<TextBox*>(&control)) {
    if (auto* lines = qobject_cast<QPlainTextEdit*>(&widget)) return Bind(*text, *lines);
    Bind(*text, As<QLineEdit>(control, widget));
  } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    Bind(*combo, As<QComboBox>(control, widget));
  } else if (auto* spin = dynamic_cast<SpinButton*>(&control)) {
    auto& view = As<SpinArrows>(control, widget);
    Follow(*spin, view, [] {});
    QObject::connect(&view, &SpinArrows::Up, [spin] { spin->Up(); });
    QObject::connect(&view, &SpinArrows::Down, [spin] { spin->Down(); });
  } else if (auto* progress = dynamic_cast<ProgressBar*>(&control)) {
    auto& view = As<QProgressBar>(control, widget);
    Follow(*progress, view, [progress, &view] {
      view.setMaximum(progress->Maximum);
      view.setValue(progress->Value);
    });
  } else if (auto* list = dynamic_cast<ListView*>(&control)) {
    Bind(*list, As<QListWidget>(control, widget));
  } else if (auto* ticks = dynamic_cast<CheckList*>(&control)) {
    Bind(*ticks, As<QListWidget>(control, widget));
  } else if (auto* textView = dynamic_cast<TextView*>(&control)) {
    auto& view = As<QPlainTextEdit>(control, widget);
    view.setReadOnly(true);
    Follow(*textView, view, [textView, &view] { view.setPlainText(ToQt(textView->Text)); });
  } else if (auto* tabs = dynamic_cast<TabStrip*>(&control)) {
    Bind(*tabs, As<QTabBar>(control, widget));
  } else if (auto* page = dynamic_cast<PageView*>(&control)) {
    As<PageArea>(control, widget).Bind(*page);
  } else if (auto* results = dynamic_cast<ResultGrid*>(&control)) {
    BindResultGrid(*results, As<QTableWidget>(control, widget));
    FollowPalette(widget, [results] { results->Changed(); });
  } else if (auto* grid = dynamic_cast<Grid*>(&control)) {
    auto& view = As<QTableWidget>(control, widget);
    BindGrid(*grid, view);
    Follow(*grid, view, [grid, &view] { ShowGrid(*grid, view); });
  }
}

void BindPointer(Form& form, QWidget& window) {
  if (!form.MouseMove) return;
  WatchPointer(window, nullptr, [&form] {
    if (const auto act = form.MouseMove) act();
  });
}

void BindSpinKeys(Form& form, QWidget& window) {
  for (Control* control : form.Controls()) {
    auto* spin = dynamic_cast<SpinButton*>(control);
    if (spin == nullptr || spin->Buddy.empty()) continue;
    auto* edit = window.findChild<QLineEdit*>(ToQt(spin->Buddy));
    if (edit == nullptr) continue;
    if (auto* arrows = window.findChild<QWidget*>(ToQt(spin->Name()))) arrows->setProperty("field", ToQt(spin->Buddy));
    new EventHook(*edit, [spin](QEvent* event) {
      if (event->type() != QEvent::KeyPress) return false;
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Up) spin->Up();
      if (key == Qt::Key_Down) spin->Down();
      return key == Qt::Key_Up || key == Qt::Key_Down;
    });
  }
}

}  // namespace tav
