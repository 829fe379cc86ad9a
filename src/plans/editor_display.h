#pragma once

#include <cstdint>

namespace tav {

/// What shows the open documents. Each operation does nothing unless a program with windows overrides it; nothing that
/// it does changes a result.
class EditorDisplay {
 public:
  EditorDisplay() = default;
  EditorDisplay(const EditorDisplay&) = delete;
  EditorDisplay& operator=(const EditorDisplay&) = delete;
  virtual ~EditorDisplay() = default;

  /// A document is another one than before: computed, named, saved, in front, or closed. Told once for each change,
  /// when it is done; what is to be shown is read from the document.
  virtual void StateChanged(std::int16_t /*document*/) {}
  /// The status bar takes the text of this ID.
  virtual void ShowStatus(int /*textId*/) {}
  virtual void ShowHourglass(bool /*on*/) {}
};

}  // namespace tav
