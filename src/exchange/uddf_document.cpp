#include "exchange/uddf_document.h"

#include <algorithm>
#include <utility>

#include "exchange/control_characters.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/format_faults.h"
#include "persist/text_file.h"

namespace tav {
namespace {

constexpr int kDeepestNesting = 64;  // UDDF needs 9

/// Finds the first node that lies too deep; pugixml walks without recursion.
struct DepthWalker : pugi::xml_tree_walker {
  bool for_each(pugi::xml_node& node) override {
    if (depth() < kDeepestNesting) return true;
    found = node;
    return false;
  }
  pugi::xml_node found;
};

std::string_view LocalName(pugi::xml_node node) {
  const std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace

bool IsElement(pugi::xml_node node, std::string_view name) {
  return node.type() == pugi::node_element && LocalName(node) == name;
}

pugi::xml_node Child(pugi::xml_node parent, std::string_view name) {
  return parent.find_child([name](pugi::xml_node node) { return IsElement(node, name); });
}

std::string TextOf(pugi::xml_node element) {
  std::string text = element.text().get();
  constexpr const char* kBlanks = " \t\r\n";
  text.erase(text.find_last_not_of(kBlanks) + 1);
  return text.erase(0, text.find_first_not_of(kBlanks));
}

UddfDocument::UddfDocument(std::filesystem::path file, std::string text, const TextSource& texts)
    : file_(std::move(file)), text_(std::move(text)), texts_(texts) {
  if (text_.size() > kLargestFile) {
    Fail(0, Text::ImportFileTooLarge, {std::to_string(kLargestFile / kMiB)});
  }
  for (std::size_t end = text_.find('\n'); end != std::string::npos; end = text_.find('\n', end + 1)) {
    lineEnds_.push_back(end);
  }
  constexpr unsigned kParts = pugi::parse_default | pugi::parse_pi | pugi::parse_doctype;
  const pugi::xml_parse_result result = document_.load_buffer(text_.data(), text_.size(), kParts, pugi::encoding_utf8);
  if (!result) Fail(LineAt(result.offset), Text::ImportNoXml, {result.description()});
  for (const pugi::xml_node node : document_.children()) {
    if (node.type() == pugi::node_doctype) Fail(node, Text::ImportDocumentType);
  }
  DepthWalker walker;
  document_.traverse(walker);
  if (walker.found) Fail(walker.found, Text::ImportTooDeeplyNested, {std::to_string(kDeepestNesting)});
  if (!IsElement(Root(), "uddf")) Fail(Root(), Text::ImportNoUddf);
}

void UddfDocument::Fail(int line, int id, std::initializer_list<std::string> values) const {
  // A terminal must not take what stands in the file for its commands.
  throw FileError(file_, line, WithoutControl(texts_.Filled(id, values)));
}

int UddfDocument::LineAt(std::ptrdiff_t offset) const {
  if (offset < 0) return 0;
  const auto before = std::ranges::lower_bound(lineEnds_, static_cast<std::size_t>(offset));
  return 1 + static_cast<int>(before - lineEnds_.begin());
}

double UddfDocument::Number(pugi::xml_node element, double least, double most) const {
  const std::string text = TextOf(element);
  const auto number = ParseStrict(text);
  if (number && *number >= least && *number <= most) return *number;
  Fail(element, Text::ImportNumberOutside,
       {std::string(LocalName(element)), FormatPlain(Single(least)), FormatPlain(Single(most)), Shown(text)});
}

}  // namespace tav
