#pragma once

#include <filesystem>

namespace tav {

class Sound {
 public:
  virtual ~Sound() = default;

  /// Starts playing and returns at once. A file that can't be played is passed over in silence.
  virtual void Play(const std::filesystem::path& file) = 0;
};

}  // namespace tav
