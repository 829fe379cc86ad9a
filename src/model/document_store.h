#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "model/dive_record.h"

namespace tav {

/// What is kept of one open document apart from its window: the dive, and how its last evaluation left it.
struct DocumentState : DiveRecord, EndState {
  bool SlotFree = false;               ///< may be given to a new document
  bool Modified = false;               ///< has unsaved changes
  std::string TemplateTitle;           ///< name of the template in use; "Default" in element 0
  std::string ProfileName;             ///< name of the profile file
  std::string ProfileFolder;           ///< its folder with trailing separator; empty until saved
  std::int16_t PreviousDocument = -1;  ///< the dive before in a series, -1 for none
  std::int16_t NextDocument = -1;      ///< the dive after
  Single StartOTU;                     ///< doses that a repetitive dive starts with
  Single StartCNS;
};

/// All documents. Element 0 is the default document: it has no window and never becomes free; every new document
/// starts from a copy of its template. The store only grows; a closed document's slot waits for reuse.
class DocumentStore {
 public:
  static constexpr std::int16_t DefaultDocument = 0;

  DocumentStore() : documents_(1) {}

  /// Throws std::out_of_range for a number that was never given out.
  DocumentState& operator()(std::int16_t number) { return documents_.at(static_cast<std::size_t>(number)); }
  const DocumentState& operator()(std::int16_t number) const { return documents_.at(static_cast<std::size_t>(number)); }

  [[nodiscard]] std::int16_t UpperBound() const { return static_cast<std::int16_t>(documents_.size() - 1); }

  /// The lowest free slot, marked as taken, or a new slot at the end, all empty. A reused slot keeps its old contents.
  /// Throws std::length_error when all 32,767 numbers are taken.
  std::int16_t AllocateDocumentSlot();

 private:
  std::deque<DocumentState> documents_;  // a deque, because references to elements outlive its growth
};

}  // namespace tav
