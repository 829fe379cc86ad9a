#pragma once

#include <QMainWindow>
#include <filesystem>

#include "platform/text_source.h"

class QLineEdit;
class QTextBrowser;
class QTreeWidget;
class QListWidget;
class QTabWidget;

namespace tav {

/// The user guide: contents at the left, or the places where searched words stand, and the page at the right.
class HelpWindow : public QMainWindow {
  Q_OBJECT
 public:
  /// Throws std::runtime_error when the file can't be read.
  HelpWindow(const std::filesystem::path& file, const TextSource& texts, QWidget* parent);

  [[nodiscard]] const std::filesystem::path& File() const { return file_; }
  /// Shows the window, with the contents or with the search field ready.
  void Open(bool search);

 private:
  [[nodiscard]] QString T(int id) const;
  void FillContents(const QString& html);
  void Search(const QString& words);

  std::filesystem::path file_;
  const TextSource& texts_;
  QTabWidget* tabs_;
  QTreeWidget* contents_;
  QLineEdit* words_;
  QListWidget* found_;
  QTextBrowser* page_;
};

}  // namespace tav
