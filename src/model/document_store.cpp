#include "model/document_store.h"

#include <stdexcept>

namespace tav {

std::int16_t DocumentStore::AllocateDocumentSlot() {
  const std::int16_t upper = UpperBound();
  for (std::int16_t i = 1; i <= upper && i > 0; ++i) {
    if (!(*this)(i).SlotFree) continue;
    (*this)(i).SlotFree = false;
    return i;
  }
  if (upper == INT16_MAX) throw std::length_error("at most 32,767 documents can be open");
  documents_.emplace_back();
  return UpperBound();
}

}  // namespace tav
