#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

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

/// What of a file that was there a save could not keep.
using SaveNotes = std::vector<Message>;

/// Writes a file as a whole. After a crash, a full disk or a refusal at any instant the file holds either all of its
/// old text or all of the new one: the text goes to a new file beside it, is flushed to the disk and renamed over it.
/// What earlier saves of this file left behind because their process was killed is removed. Throws FileError.
///
/// What a file that exists keeps:
/// - its permissions, always; but where its group can't be kept, the new group gets no more than all others have;
/// - owner, group, access list and extended attributes, as far as the user may give them away;
/// - the links that lead to it: they are followed. A link to what is not there, or one of a circle, is refused.
/// It does not keep its further names (hard links), which go on with the old text: a file can only be written in its
/// place by losing that text first. What could not be kept is returned.
SaveNotes WriteTextFile(const std::filesystem::path& file, std::string_view text);

/// Removes from a folder what WriteTextFile left there when its process was killed: of the file of that name, or of all
/// with an empty name. What a running process is writing stays.
void RemoveUnfinishedSaves(const std::filesystem::path& folder, std::string_view name);

/// `text` itself when it is valid UTF-8, else its bytes read as Windows-1252.
std::string ToUtf8(std::string text);

}  // namespace tav
