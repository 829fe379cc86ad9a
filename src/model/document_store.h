#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "model/dive_template.h"
#include "model/profile.h"

namespace tav {

/// What is kept of one open document apart from its window.
struct DocumentState {
  bool SlotFree = false;  ///< may be given to a new document
  bool Modified = false;  ///< has unsaved changes
  DiveTemplate Template;
  std::string TemplateTitle;           ///< name of the template in use; "Default" in element 0
  std::string ProfileName;             ///< name of the profile file
  std::string ProfileFolder;           ///< its folder with trailing separator; empty until saved
  std::int16_t PreviousDocument = -1;  ///< the dive before in a series, -1 for none
  Compartments HeCompartments{};       ///< loads at the end of the last run with an ascent, depth units
  Compartments N2Compartments{};
  Single TotalOTU;  ///< totals at the end of the last run; until then the doses that the dive starts with
  Single TotalCNS;
  Single StartOTU;  ///< doses that a repetitive dive starts with, kept apart from the totals that a run writes
  Single StartCNS;
  Single SurfaceInterval;    ///< minutes on the surface before this dive
  bool Decompresses = true;  ///< false when a stop of the last ascent hit its limit without clearing
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
