#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "model/message.h"

namespace tav {

/// A file that can't be read or written, or whose content is not of its format. Its place is "FILE:LINE", without
/// ":LINE" where no line is to blame.
class FileError : public MessageError {
 public:
  FileError(const std::filesystem::path& file, int line, Message reason);

  [[nodiscard]] int Line() const { return line_; }  ///< from 1; 0 for the file as a whole

 private:
  int line_;
};

/// What the system says of an error number: the usual ones by a text of ours, the others in its own words.
Message ErrorText(int error);

constexpr std::size_t kMiB = std::size_t{1024} * 1024;
/// No plan comes near it.
constexpr std::size_t kLargestPlan = 64 * kMiB;

/// The text of a file as UTF-8. UTF-16 is known by its byte order mark, or by the "<" that XML begins with; what else
/// is not valid UTF-8 is taken as Windows-1252. A byte order mark is dropped. Throws FileError when the file can't be
/// read or is larger than `largest` bytes.
std::string ReadTextFile(const std::filesystem::path& file, std::size_t largest = kLargestPlan);

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
