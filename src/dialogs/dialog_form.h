#pragma once

#include <string>
#include <utility>

#include "dialogs/dialog_services.h"
#include "platform/text_form.h"

namespace tav {

/// The frame of every dialog of a plan: the services and short ways to texts, boxes and numbers.
class DialogForm : public TextForm {
 protected:
  DialogForm(std::string name, DialogServices services)
      : TextForm(std::move(name), services.platform, services.texts), services_(std::move(services)) {}

  /// The template of a document has changed, and with it the plan.
  void MarkChanged(std::int16_t document) const {
    TemplateOf(document).TemplateChanged = true;
    if (document != DocumentStore::DefaultDocument) services_.forms(document).MarkModified();
  }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const {
    return services_.Documents()(document).Template;
  }

  DialogServices services_;
};

}  // namespace tav
