#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "plans/document_forms.h"
#include "platform/platform.h"

namespace tav {

/// What the dialogs of a plan work with. All of it outlives them.
struct DialogServices {
  DocumentForms& forms;
  Platform platform;
  const TextSource& texts;
  bool veryHighGF = false;               ///< gradient factors up to 1.2 are accepted
  std::function<void()> applyToProfile;  ///< the main window's ApplyToProfile
  /// Opens the gas mixer with a desired mix, in percent.
  std::function<void(Single o2, Single he)> openMixer = {};
  /// Where the user's own template for new plans lies, and what stores the settings of the default document there.
  std::string defaultTemplateFile = {};
  std::function<void()> keepDefaultTemplate = {};

  [[nodiscard]] DocumentStore& Documents() const { return forms.Services().documents; }
  /// The document in front.
  [[nodiscard]] std::optional<std::int16_t> ActiveDocument() const { return forms.Active(); }
  /// The same, or the default document when none is open.
  [[nodiscard]] std::int16_t ActiveOrDefault() const {
    return ActiveDocument().value_or(DocumentStore::DefaultDocument);
  }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const { return Documents()(document).Template; }
  /// The template of a document has changed, and with it the plan.
  void MarkChanged(std::int16_t document) const {
    TemplateOf(document).TemplateChanged = true;
    if (document != DocumentStore::DefaultDocument) forms(document).MarkModified();
  }
};

/// The document that a window was opened for. It may be closed while the window stays, and its number may go to another
/// plan.
class OpenedDocument {
 public:
  OpenedDocument(const DialogServices& services, std::int16_t document)
      : forms_(services.forms), document_(document), opening_(forms_(document).Opening()) {}

  [[nodiscard]] std::int16_t Number() const { return document_; }
  [[nodiscard]] bool IsOpen() const {
    return !forms_.Services().documents(document_).SlotFree && forms_(document_).Opening() == opening_;
  }

 private:
  DocumentForms& forms_;
  std::int16_t document_;
  int opening_;
};

}  // namespace tav
