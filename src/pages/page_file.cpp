#include "pages/page_file.h"

#include <algorithm>
#include <cerrno>

#include "model/text_id.h"

namespace tav {

void PageFile::Begin(const std::filesystem::path& file, const std::optional<FileError>& fault) {
  path_ = file;
  out_.close();
  out_.clear();
  pending_.clear();
  written_ = 0;
  starts_.clear();
  ends_.clear();
  fault_ = fault;
  if (fault_) {
    out_.setstate(std::ios::badbit);
    return;
  }
  errno = 0;
  out_.open(path_, std::ios::binary | std::ios::trunc);
  if (!out_) Blame(path_);
}

bool PageFile::Open(const std::filesystem::path& file) {
  path_ = file;
  written_ = 0;
  starts_.clear();
  ends_.clear();
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    const std::size_t length = line.size() + (in.eof() ? 0 : 1);
    if (line.ends_with('\r')) line.pop_back();
    Index(line, length);
  }
  return in.eof() && Pages() > 0;
}

void PageFile::Append(std::string_view line) {
  pending_ += line;
  pending_ += "\r\n";
  Index(line, line.size() + 2);
}

void PageFile::AppendArgument(std::string_view line) {
  std::string text(line);
  // A line break would make an argument two lines, and all that follows would be read as something else.
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  if (text == kStartPage || text == kEndPage) text.insert(0, " ");
  Append(text);
}

void PageFile::Index(std::string_view line, std::size_t length) {
  const bool open = ends_.size() < starts_.size();
  if (open && (line == kEndPage || line == kStartPage)) ends_.push_back(written_);
  written_ += length;
  if (line == kStartPage) starts_.push_back(written_);
}

void PageFile::Flush() {
  errno = 0;
  out_.write(pending_.data(), static_cast<std::streamsize>(pending_.size()));
  out_.flush();
  pending_.clear();
  if (!out_) Blame(path_);
}

void PageFile::Blame(const std::filesystem::path& file) {
  if (fault_) return;
  fault_.emplace(file, 0, Message{Text::NotWritten, {ErrorText(errno != 0 ? errno : EIO)}});
}

std::string PageFile::Page(int number) const {
  if (number < 1 || number > Pages()) return {};
  const auto index = static_cast<std::size_t>(number - 1);
  const std::uint64_t start = starts_[index];
  const std::uint64_t end = index < ends_.size() ? ends_[index] : written_;
  std::ifstream in(path_, std::ios::binary);
  in.seekg(static_cast<std::streamoff>(start));
  std::string text(static_cast<std::size_t>(end - start), '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, in.gcount())));
  return text;
}

}  // namespace tav
