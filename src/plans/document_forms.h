#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "compute/series_dive.h"
#include "persist/profile_file.h"
#include "plans/plan_services.h"
#include "plans/waypoint_editor.h"

namespace tav {

/// The document windows, indexed as the document store. A closed document keeps its window object until its slot is
/// used again.
class DocumentForms {
 public:
  explicit DocumentForms(const PlanServices& services) : services_(services) {}

  /// The window of a document; made when it is first asked for.
  frmWaypointEditor& operator()(std::int16_t document);

  /// A document number for a new window, with a fresh record and a window at its start values. Whoever asks for it
  /// shows it when it is filled.
  std::int16_t NewDocument();

  /// Opens a new empty plan with the settings of the default document, in front, and returns its number.
  std::int16_t LoadNewDoc();

  /// Adds a repetitive dive behind `previous`, which must be one that CanBeFollowed, after a surface interval in
  /// minutes, on air or, on a rebreather, from the loop. The new plan is empty, has a copy of the template and comes to
  /// the front. Returns its number.
  std::int16_t AddRepetitiveDive(std::int16_t previous, Single surfaceInterval, bool intervalOnAir = true);

  /// The same for a dive that there was already, and between any two of a series: the later ones are computed anew.
  std::int16_t InsertDive(std::int16_t previous, const DiveRecord& dive);

  /// Puts a document into a series between two of it, which are neighbours, or behind or ahead of one; takes it out of
  /// its series where both are -1. Those that it stood between are then neighbours.
  void Link(std::int16_t document, std::int16_t previous, std::int16_t next);
  /// A dive with its place in its series, or all dives of it.
  [[nodiscard]] std::vector<SeriesDive> Series(std::int16_t document, bool whole = true);

  /// The caption of a document by its place in its series.
  [[nodiscard]] std::string Caption(std::int16_t document);

  /// The document in front, on which commands act. Nothing when none is open, and when the last one in front has been
  /// closed and no other ever was in front.
  [[nodiscard]] std::optional<std::int16_t> Active() const;
  /// Brings an open document to the front. When it is closed, the one that was there before it comes back.
  void Activate(std::int16_t document);
  /// Closes a document: its slot may be used again.
  void Unload(std::int16_t document);

  [[nodiscard]] const PlanServices& Services() const { return services_; }

 private:
  PlanServices services_;
  std::vector<std::unique_ptr<frmWaypointEditor>> forms_;
  std::vector<std::int16_t> activated_;  ///< documents that were in front, the last one at the end
};

}  // namespace tav
