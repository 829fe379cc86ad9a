#pragma once

#include <filesystem>
#include <initializer_list>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "persist/text_file.h"
#include "platform/text_source.h"

namespace tav {

/// A parsed UDDF file, and the errors in it. Nothing in the file is trusted: its size is bounded before it is parsed, a
/// document type (and with it every entity of its own) is refused, and so is nesting beyond any UDDF. Elements are told
/// by their local name, whatever prefix they have.
class UddfDocument {
 public:
  /// A series of 10,000 deep dives takes half of it.
  static constexpr std::size_t kLargestFile = 256 * kMiB;

  /// `text` is UTF-8. Throws FileError, with line and reason in the words of `texts`, for what is no UDDF. `texts` must
  /// outlive the document.
  UddfDocument(std::filesystem::path file, std::string text, const TextSource& texts);

  [[nodiscard]] pugi::xml_node Root() const { return document_.document_element(); }
  [[nodiscard]] int Line(pugi::xml_node node) const { return LineAt(node.offset_debug()); }
  [[nodiscard]] const TextSource& Texts() const { return texts_; }
  [[noreturn]] void Fail(int line, int id, std::initializer_list<std::string> values = {}) const;
  [[noreturn]] void Fail(pugi::xml_node node, int id, std::initializer_list<std::string> values = {}) const {
    Fail(Line(node), id, values);
  }

  /// The text of an element as a number within limits; any other text is an error.
  [[nodiscard]] double Number(pugi::xml_node element, double least, double most) const;

 private:
  [[nodiscard]] int LineAt(std::ptrdiff_t offset) const;

  std::filesystem::path file_;
  std::string text_;
  const TextSource& texts_;
  std::vector<std::size_t> lineEnds_;
  pugi::xml_document document_;
};

/// Whether a node is the element of that name.
bool IsElement(pugi::xml_node node, std::string_view name);
/// The first child element of that name; a null node when there is none.
pugi::xml_node Child(pugi::xml_node parent, std::string_view name);
/// The text of an element without blanks at its ends.
std::string TextOf(pugi::xml_node element);

}  // namespace tav
