#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "persist/text_file.h"

namespace tav {

/// The scratch file of a report: lines of text, ended by CR LF. A page is everything from a line "#startpage" to a line
/// "#endpage". The pages are indexed as they are written, so that counting them and reading one costs no look at the
/// others. Nothing here throws: a report goes on without its file, and `Fault` tells what was lost.
class PageFile {
 public:
  static constexpr std::string_view kStartPage = "#startpage";
  static constexpr std::string_view kEndPage = "#endpage";
  /// Begins a page that is not landscape A4; width and height in page units follow, a line each.
  static constexpr std::string_view kPaper = "#paper";

  PageFile() = default;
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;
  ~PageFile() = default;

  /// Empties the file, or makes it. With a `fault` there is no place for it, and all that is written is lost.
  void Begin(const std::filesystem::path& file, const std::optional<FileError>& fault = {});
  /// Takes a file that has been written already, for reading. False when it can't be read or holds no page.
  bool Open(const std::filesystem::path& file);
  /// Appends a line that begins or ends a page, or a command. It is in the file after the next Flush.
  void Append(std::string_view line);
  /// Appends a line that tells what a command works on. A line break in it becomes a blank, and a text that reads like
  /// the beginning or the end of a page gets a blank before it.
  void AppendArgument(std::string_view line);
  void Flush();

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// Lines "#startpage" so far.
  [[nodiscard]] int Pages() const { return static_cast<int>(starts_.size()); }
  /// The lines of a page (from 1) as they stand in the file now, the two marks aside; empty when there is none.
  [[nodiscard]] std::string Page(int number) const;
  /// Why the file could not be written; nothing when all is well.
  [[nodiscard]] const std::optional<FileError>& Fault() const { return fault_; }
  /// A file of the report could not be written, for the reason that errno tells. The first fault stays.
  void Blame(const std::filesystem::path& file);

 private:
  /// Notes where pages begin and end; `length` is that of the line with its end.
  void Index(std::string_view line, std::size_t length);

  std::filesystem::path path_;
  std::ofstream out_;
  std::string pending_;
  std::uint64_t written_ = 0;          ///< bytes in the file and pending
  std::vector<std::uint64_t> starts_;  ///< where the lines of each page begin
  std::vector<std::uint64_t> ends_;    ///< where they end, for each page that is closed
  std::optional<FileError> fault_;
};

}  // namespace tav
