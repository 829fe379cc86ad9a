#include "desktop/help_window.h"

#include <QtWidgets>

#include "desktop/qt_text.h"
#include "model/text_id.h"
#include "persist/text_file.h"

namespace tav {

HelpWindow::HelpWindow(const std::filesystem::path& file, const TextSource& texts, QWidget* parent)
    : QMainWindow(parent), file_(file), texts_(texts) {
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
  words_->setAccessibleName(T(Text::HelpSearch));
  found_->setAccessibleName(T(Text::HelpSearch));
  searchLayout->addWidget(words_);
  searchLayout->addWidget(found_);
  tabs_->addTab(searchPage, T(Text::HelpSearch));
  page_ = new QTextBrowser;
  page_->setObjectName(QStringLiteral("helpPage"));
  page_->setAccessibleName(T(Text::Help));
  page_->document()->setDocumentMargin(16);
  page_->setSearchPaths({ToQt(file.parent_path().string())});  // of the pictures
  page_->setHtml(html);

  auto* split = new QSplitter;
  split->addWidget(tabs_);
  split->addWidget(page_);
  split->setStretchFactor(1, 1);
  split->setSizes({260, 860});
  setCentralWidget(split);
  resize(1120, 720);
  FillContents(html);
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) page_->scrollToAnchor(item->data(0, Qt::UserRole).toString());
  });
  connect(words_, &QLineEdit::textChanged, this, &HelpWindow::Search);
  connect(found_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (item == nullptr || !item->data(Qt::UserRole).isValid()) return;
    QTextCursor cursor(page_->document());
    cursor.setPosition(item->data(Qt::UserRole).toInt());
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, static_cast<int>(words_->text().size()));
    page_->setTextCursor(cursor);
    page_->ensureCursorVisible();
  });
  auto* close = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(close, &QShortcut::activated, this, &QWidget::close);
}

QString HelpWindow::T(int id) const {
  QString text = ToQt(texts_.GetResString(id));
  return text.remove(QLatin1Char('&'));
}

void HelpWindow::Open(bool search) {
  tabs_->setCurrentIndex(search ? 1 : 0);
  show();
  raise();
  activateWindow();
  if (search) {
    words_->setFocus();
    words_->selectAll();
  } else {
    contents_->setFocus();
  }
}

void HelpWindow::FillContents(const QString& html) {
  // Chapters are <h1>, sections <h2>, each around the anchor that it is reached by.
  static const QRegularExpression heading(QStringLiteral("<h([12])[^>]*>\\s*<a name=\"([^\"]+)\">(.*?)</a>\\s*</h\\1>"),
                                          QRegularExpression::DotMatchesEverythingOption);
  QTreeWidgetItem* chapter = nullptr;
  for (auto match = heading.globalMatch(html); match.hasNext();) {
    const QRegularExpressionMatch found = match.next();
    const QString title = QTextDocumentFragment::fromHtml(found.captured(3)).toPlainText();
    const bool section = found.captured(1) == QLatin1String("2") && chapter != nullptr;
    auto* item = section ? new QTreeWidgetItem(chapter) : new QTreeWidgetItem(contents_);
    item->setText(0, title);
    item->setData(0, Qt::UserRole, found.captured(2));
    if (!section) chapter = item;
  }
}

void HelpWindow::Search(const QString& words) {
  constexpr int kShortest = 2;
  constexpr int kMost = 200;
  constexpr qsizetype kAround = 35;
  found_->clear();
  if (words.trimmed().size() < kShortest) return;
  const QString text = page_->document()->toPlainText();
  for (qsizetype at = text.indexOf(words, 0, Qt::CaseInsensitive); at >= 0 && found_->count() < kMost;
       at = text.indexOf(words, at + words.size(), Qt::CaseInsensitive)) {
    const qsizetype from = std::max<qsizetype>(0, at - kAround);
    auto* item = new QListWidgetItem(
        QStringLiteral("\u2026") + text.mid(from, words.size() + 2 * kAround).simplified() + QStringLiteral("\u2026"));
    item->setData(Qt::UserRole, static_cast<int>(at));
    found_->addItem(item);
  }
  if (found_->count() == 0) {
    auto* nothing = new QListWidgetItem(T(Text::HelpNothing));
    nothing->setFlags(Qt::NoItemFlags);
    found_->addItem(nothing);
  }
}

}  // namespace tav
