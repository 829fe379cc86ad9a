#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "model/single.h"

namespace tav {

/// Writes JSON as it is told, so that a large document is never held. What is an object, a list or a member of one is
/// told by calls within calls:
///
///   json.Object([&] { json.Member("gas", name); json.List("rows", [&] { for (...) json.Value(...); }); });
class JsonWriter {
 public:
  /// `indent` is the blanks of a level, in lines; 0 for all in one line.
  explicit JsonWriter(std::ostream& out, std::size_t indent = 0) : out_(out), indent_(indent) {}

  template <class Members>
  void Object(Members members) {
    Open('{');
    members();
    Close('}');
  }
  template <class Values>
  void List(Values values) {
    Open('[');
    values();
    Close(']');
  }
  template <class Members>
  void Object(std::string_view name, Members members) {
    Name(name);
    Object(members);
  }
  template <class Values>
  void List(std::string_view name, Values values) {
    Name(name);
    List(values);
  }
  template <class T>
  void Member(std::string_view name, const T& value) {
    Name(name);
    Value(value);
  }

  /// The 7 significant digits of a 32-bit value, not the 17 of its promotion.
  void Value(Single value);
  void Value(double value) { Value(Single(value)); }
  void Value(int value);
  void Value(bool value) { Raw(value ? "true" : "false"); }
  /// A name that is not UTF-8 is taken as Windows-1252.
  void Value(const std::string& text);
  void Value(const char* text) { Value(std::string(text)); }
  void Value(std::string_view text) { Value(std::string(text)); }
  void Value(std::nullopt_t) { Raw("null"); }
  template <class T>
  void Value(const std::optional<T>& value) {
    value ? Value(*value) : Value(std::nullopt);
  }
  /// The number in a label; null for one that shows nothing.
  void Shown(std::string_view name, std::string_view label);

 private:
  void Name(std::string_view name);
  void Open(char bracket);
  void Close(char bracket);
  void Raw(std::string_view text);
  /// What parts a value from the one before.
  void Part();
  void NewLine();
  void Number(std::string_view text);

  std::ostream& out_;
  std::size_t indent_;
  std::size_t depth_ = 0;
  bool first_ = true;   ///< nothing stands in the object or list so far
  bool named_ = false;  ///< the name of a member has been written
};

}  // namespace tav
