#pragma once

namespace tav {

/// Base of a class whose copy would be a fault that nothing else in it rules out.
class NotCopied {
 public:
  NotCopied(const NotCopied&) = delete;
  NotCopied& operator=(const NotCopied&) = delete;

 protected:
  NotCopied() = default;
  ~NotCopied() = default;
};

}  // namespace tav
