#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tav {

/// A file that can't be read or written, or whose content is not of its format. what() is the message for the user:
/// "FILE:LINE: REASON", without ":LINE" where no line is to blame.
class FileError : public std::runtime_error {
 public:
  FileError(const std::filesystem::path& file, int line, const std::string& reason);

  [[nodiscard]] const std::string& Reason() const { return reason_; }
  [[nodiscard]] int Line() const { return line_; }  ///< from 1; 0 for the file as a whole

 private:
  std::string reason_;
  int line_;
};

/// The text of a file as UTF-8. What is not valid UTF-8 is taken as Windows-1252, a byte order mark is dropped.
/// Throws FileError when the file can't be read or is larger than 64 MiB, which no plan comes near.
std::string ReadTextFile(const std::filesystem::path& file);

/// Writes a file as a whole. After a crash, a full disk or a refusal at any instant the file holds either all of its
/// old text or all of the new one: the text goes to a new file beside it, is flushed to the disk and renamed over it.
/// A link is followed, and the permissions of a file that exists are kept. What earlier saves of this file left behind
/// because their process was killed is removed. Throws FileError.
void WriteTextFile(const std::filesystem::path& file, std::string_view text);

/// Removes from a folder what WriteTextFile left there when its process was killed: of the file of that name, or of all
/// with an empty name. What a running process is writing stays.
void RemoveUnfinishedSaves(const std::filesystem::path& folder, std::string_view name);

/// `text` itself when it is valid UTF-8, else its bytes read as Windows-1252.
std::string ToUtf8(std::string text);

}  // namespace tav
