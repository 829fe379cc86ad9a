#pragma once

#include <optional>

#include "controls/form_texts.h"
#include "model/dive_limits.h"

namespace tav {

/// The limits of a dive in three fields and a box: an empty field is no limit.
class LimitFields : FormTexts {
 public:
  struct Fields {
    TextBox& run;
    TextBox& stops;
    TextBox& cns;
    CheckBox& gas;
  };
  LimitFields(const Platform& platform, const TextSource& texts, Fields fields)
      : FormTexts(platform, texts), fields_(fields) {}

  void Show(const DiveLimits& limits);
  struct Entry {
    DiveLimits limits;
    bool sound = true;  ///< every field holds a limit or nothing
  };
  /// What stands there. A field with a text that is no limit is marked, with the reason as its tool tip; its limit is
  /// that of `now`.
  [[nodiscard]] Entry Read(const DiveLimits& now);

 private:
  Fields fields_;
};

}  // namespace tav
