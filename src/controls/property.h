#pragma once

#include <functional>
#include <utility>

namespace tav {

/// A value of a control that tells its owner when code changes it, so that the widget on the screen follows.
template <class T>
class Property {
 public:
  explicit Property(const std::function<void()>& changed, T value = T())
      : changed_(changed), value_(std::move(value)) {}
  Property(const Property&) = delete;
  ~Property() = default;

  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    if (changed_) changed_();
    return *this;
  }
  Property& operator=(const Property& other) {
    *this = T(other.value_);
    return *this;
  }

  [[nodiscard]] const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): reads like the value itself

  friend bool operator==(const Property& property, const T& value) { return property.value_ == value; }

 private:
  const std::function<void()>& changed_;
  T value_;
};

}  // namespace tav
