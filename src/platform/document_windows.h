#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tav {

/// The child windows of the main window, one for each open document, by document number.
class DocumentWindows {
 public:
  enum class Arrangement { Cascade, TileHorizontal, TileVertical, Icons };

  virtual ~DocumentWindows() = default;

  /// Makes and shows the window of a document and makes it the active one.
  virtual void OpenWindow(std::int16_t document) = 0;
  /// Takes the window away, without any question.
  virtual void RemoveWindow(std::int16_t document) = 0;
  virtual void ActivateWindow(std::int16_t document) = 0;
  /// The document of the active child window; nothing when there is none.
  [[nodiscard]] virtual std::optional<std::int16_t> ActiveDocument() const = 0;
  virtual void Arrange(Arrangement arrangement) = 0;

  virtual void SetCaption(std::int16_t document, const std::string& caption) = 0;
  virtual void SetModified(std::int16_t document, bool modified) = 0;
  virtual void SetRepetitiveIcon(std::int16_t document) = 0;
  /// The template of the document is another one, or has changed.
  virtual void TemplateChanged(std::int16_t document) = 0;
  /// Plots the plan of the document anew.
  virtual void Redraw(std::int16_t document) = 0;
  /// A notice over the plot: why there are no rows, or that the plan does not decompress. Empty takes it away.
  virtual void ShowNotice(std::int16_t document, const std::string& text) = 0;
};

}  // namespace tav
