#include "desktop/help_window.h"

#include <QtWidgets>
#include <array>

#include "desktop/qt_text.h"
#include "model/text_id.h"
#include "persist/text_file.h"

namespace tav {
namespace {

/// As it is compared: small letters without their accents, each at the place that it has in the text.
QString Plain(const QString& text) {
  QString plain = text;
  for (QChar& letter : plain) {
    if (letter.decompositionTag() == QChar::Canonical) letter = letter.decomposition().front();
    letter = letter.toLower();
  }
  return plain;
}

qsizetype CountIn(const QString& text, const QStringList& words) {
  return std::count_if(words.begin(), words.end(), [&](const QString& word) { return text.contains(word); });
}

}  // namespace

HelpWindow::HelpWindow(const std::filesystem::path& file, const TextSource& texts)
    : QDialog(nullptr, Qt::Window), file_(file), texts_(texts) {
  const QString html = ToQt(ReadTextFile(file));
  setWindowTitle(T(Text::Help));
  tabs_ = new QTabWidget;
  contents_ = new QTreeWidget;
  contents_->setHeaderHidden(true);
  contents_->setObjectName(QStringLiteral("helpContents"));
  contents_->setAccessibleName(T(Text::HelpContents));
  tabs_->addTab(contents_, T(Text::HelpContents));
  auto* searchPage = new QWidget;
  auto* searchLayout = new QVBoxLayout(searchPage);
  words_ = new QLineEdit;
  words_->setObjectName(QStringLiteral("helpWords"));
  words_->setPlaceholderText(T(Text::HelpSearch));
  words_->setClearButtonEnabled(true);
  found_ = new QListWidget;
  found_->setObjectName(QStringLiteral("helpFound"));
  found_->setWordWrap(true);
  found_->setAlternatingRowColors(true);
  words_->setAccessibleName(T(Text::HelpSearch));
  found_->setAccessibleName(T(Text::HelpSearch));
  searchLayout->addWidget(words_);
  searchLayout->addWidget(found_);
  tabs_->addTab(searchPage, T(Text::HelpSearch));
  page_ = new QTextBrowser;
  page_->setObjectName(QStringLiteral("helpPage"));
  page_->setAccessibleName(T(Text::Help));
  page_->setOpenLinks(false);
  page_->document()->setDocumentMargin(16);
  page_->setSearchPaths({ToQt(file.parent_path().string())});  // of the pictures
  page_->setHtml(html);

  auto* turns = new QHBoxLayout;
  back_ = MakeTurn(Text::HelpBack, Qt::LeftArrow, QKeySequence(Qt::ALT | Qt::Key_Left));
  connect(back_, &QToolButton::clicked, this, [this] { Turn(behind_, ahead_); });
  forward_ = MakeTurn(Text::HelpForward, Qt::RightArrow, QKeySequence(Qt::ALT | Qt::Key_Right));
  connect(forward_, &QToolButton::clicked, this, [this] { Turn(ahead_, behind_); });
  turns->addWidget(back_);
  turns->addWidget(forward_);
  turns->addStretch();
  auto* reading = new QWidget;
  auto* readingLayout = new QVBoxLayout(reading);
  readingLayout->setContentsMargins(0, 0, 0, 0);
  readingLayout->addLayout(turns);
  readingLayout->addWidget(page_);

  auto* split = new QSplitter;
  split->addWidget(tabs_);
  split->addWidget(reading);
  split->setStretchFactor(1, 1);
  split->setSizes({280, 840});
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addWidget(split);
  resize(1120, 720);
  FillContents(html);
  FindSections();
  ShowTurns();
  const auto showPage = [this](const QTreeWidgetItem* item) {
    if (item != nullptr) Leave([&] { page_->scrollToAnchor(item->data(0, Qt::UserRole).toString()); });
  };
  connect(contents_, &QTreeWidget::currentItemChanged, this, showPage);
  connect(contents_, &QTreeWidget::itemClicked, this, showPage);  // the one that is marked, too
  connect(page_, &QTextBrowser::anchorClicked, this,
          [this](const QUrl& link) { Leave([&] { page_->scrollToAnchor(link.fragment()); }); });
  connect(words_, &QLineEdit::textChanged, this, &HelpWindow::Search);
  const auto showFound = [this](const QListWidgetItem* item) {
    if (item == nullptr || !item->data(Qt::UserRole).isValid()) return;
    const int place = item->data(Qt::UserRole).toInt();
    Leave([&] { GoTo(place); });
    MarkFound(place);
  };
  connect(found_, &QListWidget::currentItemChanged, this, showFound);
  connect(found_, &QListWidget::itemClicked, this, showFound);
}

QString HelpWindow::T(int id) const {
  QString text = ToQt(texts_.GetResString(id));
  return text.remove(QLatin1Char('&'));
}

QToolButton* HelpWindow::MakeTurn(int text, Qt::ArrowType arrow, const QKeySequence& key) {
  auto* button = new QToolButton;
  button->setArrowType(arrow);
  button->setAutoRaise(true);
  button->setAccessibleName(T(text));
  button->setToolTip(T(text) + QStringLiteral(" (") + key.toString(QKeySequence::NativeText) + QLatin1Char(')'));
  // The shortcut of a button acts after a tenth of a second alone.
  connect(new QShortcut(key, this), &QShortcut::activated, button, &QAbstractButton::click);
  return button;
}

void HelpWindow::Open(bool search, const QString& anchor) {
  tabs_->setCurrentIndex(search ? 1 : 0);
  show();
  raise();
  activateWindow();
  if (search) {
    words_->setFocus();
    words_->selectAll();
    return;
  }
  contents_->setFocus();
  if (anchor.isEmpty()) return;
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, Qt::UserRole).toString() != anchor) continue;
    if (contents_->currentItem() == *item) page_->scrollToAnchor(anchor);
    return contents_->setCurrentItem(*item);
  }
  Leave([&] { page_->scrollToAnchor(anchor); });
}

void HelpWindow::FillContents(const QString& html) {
  // Chapters are <h1>, sections <h2> and <h3>, each around the anchor that it is reached by.
  static const QRegularExpression heading(
      QStringLiteral("<h([123])[^>]*>\\s*<a name=\"([^\"]+)\">(.*?)</a>\\s*</h\\1>"),
      QRegularExpression::DotMatchesEverythingOption);
  std::array<QTreeWidgetItem*, 4> above = {contents_->invisibleRootItem()};
  for (auto match = heading.globalMatch(html); match.hasNext();) {
    const QRegularExpressionMatch found = match.next();
    auto level = found.captured(1).toULongLong();
    while (above[level - 1] == nullptr) --level;
    auto* item = new QTreeWidgetItem(above[level - 1]);
    item->setText(0, QTextDocumentFragment::fromHtml(found.captured(3)).toPlainText().simplified());
    item->setData(0, Qt::UserRole, found.captured(2));
    above[level] = item;
    std::fill(above.begin() + static_cast<std::ptrdiff_t>(level) + 1, above.end(), nullptr);
  }
}

void HelpWindow::FindSections() {
  for (QTextBlock block = page_->document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0) {
      sections_.push_back({block.text().simplified(), block.position(), block.position()});
    }
    if (!sections_.empty()) sections_.back().to = block.position() + block.length();
  }
}

void HelpWindow::Search(const QString& words) {
  constexpr int kShortest = 2;
  constexpr qsizetype kBefore = 30;
  constexpr qsizetype kBehind = 70;
  found_->clear();
  const QString wanted = Plain(words).simplified();
  if (wanted.size() < kShortest) return;
  const QStringList all = wanted.split(u' ');
  const QTextDocument& document = *page_->document();
  for (const Section& section : sections_) {
    QString text;
    QTextBlock best;
    qsizetype most = 0;
    for (QTextBlock block = document.findBlock(section.from); block.isValid() && block.position() < section.to;
         block = block.next()) {
      const QString plain = Plain(block.text());
      text += plain + u' ';
      const qsizetype count = CountIn(plain, all);
      if (count > most) best = block;
      most = std::max(most, count);
    }
    if (CountIn(text, all) < all.size()) continue;
    const QString line = best.text();
    qsizetype at = line.size();
    for (const QString& word : all) {
      const qsizetype place = Plain(line).indexOf(word);
      if (place >= 0) at = std::min(at, place);
    }
    // Whole words of the paragraph around the first one that is searched.
    const qsizetype from = at <= kBefore ? 0 : line.indexOf(u' ', at - kBefore) + 1;
    const qsizetype to = line.lastIndexOf(u' ', std::min(at + kBehind, line.size() - 1));
    const bool whole = at + kBehind >= line.size();
    const QString around = (from > 0 ? QStringLiteral("\u2026 ") : QString()) +
                           line.mid(from, whole ? -1 : to - from).simplified() +
                           (whole ? QString() : QStringLiteral(" \u2026"));
    auto* item = new QListWidgetItem(around == section.title ? section.title : section.title + u'\n' + around);
    item->setData(Qt::UserRole, best.position());
    found_->addItem(item);
  }
  if (found_->count() == 0) {
    auto* nothing = new QListWidgetItem(T(Text::HelpNothing));
    nothing->setFlags(Qt::NoItemFlags);
    found_->addItem(nothing);
  }
}

void HelpWindow::MarkFound(int place) {
  const QStringList words = Plain(words_->text()).simplified().split(u' ');
  const QTextBlock block = page_->document()->findBlock(place);
  QList<QTextEdit::ExtraSelection> marks;
  const QString plain = Plain(block.text());
  for (const QString& word : words) {
    const qsizetype at = plain.indexOf(word);
    if (at < 0) continue;
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(page_->document());
    mark.cursor.setPosition(place + static_cast<int>(at));
    mark.cursor.setPosition(place + static_cast<int>(at + word.size()), QTextCursor::KeepAnchor);
    mark.format.setBackground(palette().highlight());
    mark.format.setForeground(palette().highlightedText());
    marks.push_back(mark);
  }
  page_->setExtraSelections(marks);
}

int HelpWindow::Place() const { return page_->cursorForPosition(QPoint(1, 1)).position(); }

void HelpWindow::GoTo(int place) {
  const QTextBlock block = page_->document()->findBlock(place);
  const QRectF room = page_->document()->documentLayout()->blockBoundingRect(block);
  page_->verticalScrollBar()->setValue(static_cast<int>(room.top()));
}

void HelpWindow::Leave(const std::function<void()>& go) {
  page_->setExtraSelections({});
  const int from = Place();
  go();
  if (Place() == from) return;
  behind_.push_back(from);
  ahead_.clear();
  ShowTurns();
}

void HelpWindow::Turn(std::vector<int>& from, std::vector<int>& to) {
  if (from.empty()) return;
  page_->setExtraSelections({});
  to.push_back(Place());
  GoTo(from.back());
  from.pop_back();
  ShowTurns();
}

void HelpWindow::ShowTurns() {
  back_->setEnabled(!behind_.empty());
  forward_->setEnabled(!ahead_.empty());
}

}  // namespace tav
