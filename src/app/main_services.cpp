#include "app/main_services.h"

#include "model/text_id.h"

namespace tav {

std::vector<std::int16_t> MainServices::OpenDocuments() const {
  std::vector<std::int16_t> open;
  const std::int16_t last = forms.Services().documents.UpperBound();
  for (std::int16_t n = 1; n <= last; ++n) {
    if (IsOpen(n)) open.push_back(n);
  }
  return open;
}

void MainServices::TellNotes(const std::filesystem::path& file, const SaveNotes& notes) const {
  if (notes.empty()) return;
  std::string told = texts.Filled(Text::SavedBut, {file.string()}) + "\r\n";
  for (const Message& note : notes) told += "\r\n" + texts.Words(note);
  Tell(told, BoxIcon::Information);
}

}  // namespace tav
