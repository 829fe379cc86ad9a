#pragma once

// What the sources use of C++20 and the standard library of the compiler for the web (libc++ 13) has not: parsed ahead
// of each source there, and nowhere else. A later library brings its own.

#include <version>

#if !defined(__cpp_lib_bit_cast)
#include <bit>

namespace std {
template <class To, class From>
constexpr To bit_cast(const From& from) noexcept {
  static_assert(sizeof(To) == sizeof(From));
  return __builtin_bit_cast(To, from);
}
}  // namespace std
#endif

#if !defined(__cpp_lib_ranges) || __cpp_lib_ranges < 201911L
#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

// The algorithms for whole ranges, as far as they are called: with a projection, and an iterator as the answer.
namespace std::ranges {

template <class Range, class Test, class Projection = identity>
auto find_if(Range&& range, Test test, Projection projection = {}) {
  return std::find_if(std::begin(range), std::end(range),
                      [&](auto&& item) { return static_cast<bool>(invoke(test, invoke(projection, item))); });
}
template <class Range, class Value, class Projection = identity>
auto find(Range&& range, const Value& value, Projection projection = {}) {
  return ranges::find_if(
      range, [&](const auto& item) { return item == value; }, projection);
}
template <class Range, class Test, class Projection = identity>
bool any_of(Range&& range, Test test, Projection projection = {}) {
  return ranges::find_if(range, std::move(test), std::move(projection)) != std::end(range);
}
template <class Range, class Test, class Projection = identity>
bool none_of(Range&& range, Test test, Projection projection = {}) {
  return !ranges::any_of(range, std::move(test), std::move(projection));
}
template <class Range, class Test, class Projection = identity>
bool all_of(Range&& range, Test test, Projection projection = {}) {
  return !ranges::any_of(
      range, [&](auto&& item) { return !invoke(test, item); }, std::move(projection));
}
template <class Range, class Test>
auto find_if_not(Range&& range, Test test) {
  return std::find_if_not(std::begin(range), std::end(range), std::move(test));
}
template <class Range, class Value, class Projection = identity>
auto count(Range&& range, const Value& value, Projection projection = {}) {
  return std::count_if(std::begin(range), std::end(range),
                       [&](auto&& item) { return invoke(projection, item) == value; });
}
template <class A, class B, class Same = std::equal_to<>, class OfA = identity, class OfB = identity>
bool equal(const A& a, const B& b, Same same = {}, OfA ofA = {}, OfB ofB = {}) {
  return std::equal(std::begin(a), std::end(a), std::begin(b), std::end(b), [&](const auto& x, const auto& y) {
    return static_cast<bool>(invoke(same, invoke(ofA, x), invoke(ofB, y)));
  });
}
template <class Range, class Test, class Projection = identity>
auto count_if(Range&& range, Test test, Projection projection = {}) {
  return std::count_if(std::begin(range), std::end(range),
                       [&](auto&& item) { return static_cast<bool>(invoke(test, invoke(projection, item))); });
}
template <class Range, class Less = std::less<>, class Projection = identity>
void stable_sort(Range&& range, Less less = {}, Projection projection = {}) {
  std::stable_sort(std::begin(range), std::end(range), [&](const auto& a, const auto& b) {
    return static_cast<bool>(invoke(less, invoke(projection, a), invoke(projection, b)));
  });
}
template <class Range, class Less = std::less<>>
void sort(Range&& range, Less less = {}) {
  std::sort(std::begin(range), std::end(range), std::move(less));
}
template <class Range, class Value>
bool binary_search(Range&& range, const Value& value) {
  return std::binary_search(std::begin(range), std::end(range), value);
}
template <class Range, class Test>
void stable_partition(Range&& range, Test test) {
  std::stable_partition(std::begin(range), std::end(range), std::move(test));
}
template <class Range, class Value, class Less = std::less<>, class Projection = identity>
auto lower_bound(Range&& range, const Value& value, Less less = {}, Projection projection = {}) {
  return std::lower_bound(std::begin(range), std::end(range), value, [&](const auto& item, const Value& bound) {
    return static_cast<bool>(invoke(less, invoke(projection, item), bound));
  });
}
template <class Range, class Less = std::less<>, class Projection = identity>
auto max_element(Range&& range, Less less = {}, Projection projection = {}) {
  return std::max_element(std::begin(range), std::end(range), [&](const auto& a, const auto& b) {
    return static_cast<bool>(invoke(less, invoke(projection, a), invoke(projection, b)));
  });
}
template <class Range, class Out, class Change>
auto transform(Range&& range, Out out, Change change) {
  return std::transform(std::begin(range), std::end(range), std::move(out), std::move(change));
}
template <class Range, class Test, class Value>
void replace_if(Range&& range, Test test, const Value& value) {
  std::replace_if(std::begin(range), std::end(range), std::move(test), value);
}

}  // namespace std::ranges
#endif

#if !defined(__cpp_lib_to_chars)
#include "older_charconv.h"
#endif

#if !defined(__cpp_lib_jthread)
namespace std {

// A page has one thread: what another one should do is done at once.
struct jthread {
  template <class Work, class... Values>
  explicit jthread(Work&& work, Values&&... values) {
    std::forward<Work>(work)(std::forward<Values>(values)...);
  }
};

}  // namespace std
#endif

#include <cmath>
#include <type_traits>

namespace std {

// For what converts to a double, as other libraries take it.
template <class T, enable_if_t<is_class_v<T> && is_convertible_v<T, double>, int> = 0>
bool isfinite(const T& value) {
  return isfinite(static_cast<double>(value));
}

}  // namespace std
