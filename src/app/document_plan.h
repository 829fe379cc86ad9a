#pragma once

#include <cstdint>
#include <vector>

#include "advice/leaving.h"
#include "picture/plan_picture.h"
#include "plans/document_forms.h"

namespace tav {

/// The plan of a document as it is now, to be drawn.
class DocumentPlan {
 public:
  DocumentPlan(DocumentForms& forms, std::int16_t document, LocaleSeparators separators)
      : forms_(forms), document_(document), separators_(std::move(separators)) {}

  [[nodiscard]] DrawnPlan operator()();
  /// What leaving it at a run time takes.
  [[nodiscard]] Surfacing LeavingAt(Single time) const { return Leaving(forms_(document_).Planned()).At(time); }

 private:
  DocumentForms& forms_;
  std::int16_t document_;
  LocaleSeparators separators_;
  std::vector<DiveMoment> moments_;
  Compartments startLoads_{};
  int momentsOf_ = -1;  ///< the evaluation that both belong to
};

}  // namespace tav
