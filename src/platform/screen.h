#pragma once

namespace tav {

/// The pointer and the events of the screen as a whole.
class Screen {
 public:
  virtual ~Screen() = default;

  /// The pointer over all windows: hourglass or default.
  virtual void ShowHourglass(bool on) = 0;
  struct Room {
    int width = 0;  ///< 1/1440 inch
    int height = 0;
  };
  /// What windows can take of the screen.
  [[nodiscard]] virtual Room AvailableRoom() const = 0;
  /// Handles the events that are pending.
  virtual void DoEvents() = 0;
  /// Handles events until some have come or a little time has passed, for waiting.
  virtual void WaitForEvents() = 0;
  /// Seconds since some fixed moment, for waiting.
  [[nodiscard]] virtual double Timer() const = 0;
};

}  // namespace tav
