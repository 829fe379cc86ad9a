#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace tav {

/// What a part of the program without a language has to say: the number of a text, and the values that stand in it as
/// "%1" to "%9". TextSource::Words makes words of it.
struct Message {
  int text = 0;                 ///< 0: `plain`, or the values one after the other, parted by "; "
  std::string plain;            ///< words that need no language: a name, a number, what the system says
  std::vector<Message> values;  ///< of the text

  Message() = default;
  Message(std::string words) : plain(std::move(words)) {}
  Message(const char* words) : plain(words) {}
  Message(int id, std::vector<Message> with = {}) : text(id), values(std::move(with)) {}

  /// Several messages as one.
  static Message List(std::vector<Message> messages);

  /// There is nothing to say.
  [[nodiscard]] bool IsEmpty() const { return text == 0 && plain.empty() && values.empty(); }
  /// All of it without a language, for logs and tests: "7862 (0, 0.1)".
  [[nodiscard]] std::string Raw() const;
};

/// An error whose reason waits for a language. what() tells it raw: whoever shows it uses TextSource::Words.
class MessageError : public std::runtime_error {
 public:
  /// `place` is what the words are put behind, such as a file and a line: "plan.tav:12"; empty for none.
  MessageError(std::string place, Message reason);

  [[nodiscard]] const std::string& Place() const { return place_; }
  [[nodiscard]] const Message& Reason() const { return reason_; }

 private:
  std::string place_;
  Message reason_;
};

}  // namespace tav
