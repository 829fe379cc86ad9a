#include "model/message.h"

#include <utility>

namespace tav {

Message Message::List(std::vector<Message> messages) {
  if (messages.size() == 1) return std::move(messages.front());
  return {0, std::move(messages)};
}

std::string Message::Raw() const {
  std::string told;
  for (const Message& value : values) told += (told.empty() ? "" : ", ") + value.Raw();
  if (text == 0) return plain + told;
  return std::to_string(text) + (told.empty() ? "" : " (" + told + ")");
}

MessageError::MessageError(std::string place, Message reason)
    : std::runtime_error(place + (place.empty() ? "" : ": ") + reason.Raw()),
      place_(std::move(place)),
      reason_(std::move(reason)) {}

}  // namespace tav
