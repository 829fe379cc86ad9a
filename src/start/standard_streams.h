#pragma once

#include <array>
#include <ostream>
#include <streambuf>

namespace tav {

/// Opens those of the descriptors 0 to 2 that are closed onto nothing, before a file gets their number and is read or
/// written in place of a standard stream. What is written to a standard output that was closed fails. To be called
/// first of all.
void FillStandardStreams();

/// Standard output that tells when it fails: what goes to a full disk, or to a reader that has gone away, throws
/// MessageError, and what has not been written by then is dropped. Whoever uses it flushes it at the end.
class StandardOutput : public std::ostream {
 public:
  StandardOutput() : std::ostream(nullptr) {
    rdbuf(&buffer_);
    exceptions(badbit);
  }
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;
  ~StandardOutput() override = default;

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer() { Empty(); }

   private:
    int_type overflow(int_type c) override;
    int sync() override;
    void Empty() { setp(bytes_.data(), bytes_.data() + bytes_.size()); }

    std::array<char, 65536> bytes_{};
  };

  Buffer buffer_;
};

}  // namespace tav
