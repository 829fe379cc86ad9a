#pragma once

#include <QDialog>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/text_source.h"

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;
class QToolButton;
class QTreeWidget;

namespace tav {

/// The user guide: contents at the left, or the pages that searched words stand on, and the page at the right.
class HelpWindow : public QDialog {
  Q_OBJECT
 public:
  /// Throws std::runtime_error when the file can't be read.
  HelpWindow(const std::filesystem::path& file, const TextSource& texts);

  [[nodiscard]] const std::filesystem::path& File() const { return file_; }
  /// Shows the window, with the contents or with the search field ready; and the page of the anchor, if it has one.
  void Open(bool search, const QString& anchor);

 private:
  /// A heading and what stands below it, as places in the document.
  struct Section {
    QString title;
    int from = 0;
    int to = 0;
  };

  [[nodiscard]] QString T(int id) const;
  QToolButton* MakeTurn(int text, Qt::ArrowType arrow, const QKeySequence& key);
  void FillContents(const QString& html);
  void FindSections();
  /// Pages that hold all words, in any order, the first place of them in the best of their paragraphs.
  void Search(const QString& words);
  /// The words that are searched, in the paragraph at a place.
  void MarkFound(int place);

  /// The place at the head of the view.
  [[nodiscard]] int Place() const;
  void GoTo(int place);
  /// Goes elsewhere, and keeps where the reader was.
  void Leave(const std::function<void()>& go);
  /// To the place that was left last.
  void Turn(std::vector<int>& from, std::vector<int>& to);
  void ShowTurns();

  std::filesystem::path file_;
  const TextSource& texts_;
  QTabWidget* tabs_;
  QTreeWidget* contents_;
  QLineEdit* words_;
  QListWidget* found_;
  QTextBrowser* page_;
  QToolButton* back_ = nullptr;
  QToolButton* forward_ = nullptr;
  std::vector<Section> sections_;
  std::vector<int> behind_;  ///< places that were left
  std::vector<int> ahead_;   ///< and those that Back came from
};

}  // namespace tav
