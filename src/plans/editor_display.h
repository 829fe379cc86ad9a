#pragma once

#include <cstdint>
#include <string>

namespace tav {

/// What a document window shows of its plan. The logic of the plan calls it; nothing it does changes a result. Each
/// operation does nothing unless a window overrides it. `document` is the number of the window's document.
class EditorDisplay {
 public:
  EditorDisplay() = default;
  EditorDisplay(const EditorDisplay&) = delete;
  EditorDisplay& operator=(const EditorDisplay&) = delete;
  virtual ~EditorDisplay() = default;

  /// A new document wants a window; it becomes the active one.
  virtual void OpenWindow(std::int16_t /*document*/) {}
  virtual void ShowCaption(std::int16_t /*document*/, const std::string& /*caption*/) {}
  virtual void ShowRepetitiveIcon(std::int16_t /*document*/) {}
  /// The template of the window is another one, or has changed: lay out, units of the axes.
  virtual void ShowTemplate(std::int16_t /*document*/) {}
  /// Plots the rows and the compartment bars anew.
  virtual void RedrawProfile(std::int16_t /*document*/) {}
  /// The plan could not be computed, and why; an empty text takes the notice away.
  virtual void ShowEvaluationFault(std::int16_t /*document*/, const std::string& /*fault*/) {}
  /// The window is to go away.
  virtual void CloseWindow(std::int16_t /*document*/) {}

  /// Enabled states of the main window: the ascent command and the information command.
  virtual void EnableProfileCommands(bool /*enableAscent*/, bool /*enableInformation*/) {}
  virtual void EnableClearAscent(bool /*enable*/) {}
  virtual void EnableSurfaceInterval(bool /*enable*/) {}
  virtual void ShowBreathingMode(bool /*openCircuit*/) {}
  /// The status bar takes the text of this ID.
  virtual void ShowStatus(int /*textId*/) {}
  virtual void ShowHourglass(bool /*on*/) {}
};

}  // namespace tav
