#pragma once

#include "dialogs/dialog_services.h"
#include "headless/headless_platform.h"
#include "support/plan_fixture.h"

namespace tav::test {

/// Documents with the default template on the headless platform, for the dialogs that edit them.
struct Dialogs {
  Dialogs() { documents(0).Template = ShippedDefaultTemplate(); }

  /// A new plan in front.
  frmWaypointEditor& Open() { return forms(forms.LoadNewDoc()); }
  std::int16_t Active() { return forms.Active().value_or(0); }
  DocumentState& Document(std::int16_t number) { return documents(number); }
  DocumentState& Document() { return documents(Active()); }
  DialogServices Services(bool veryHighGF = false) {
    return {forms, platform.Services(), texts, veryHighGF, [this] { ++applied; }};
  }

  HeadlessPlatform platform;
  DocumentStore documents;
  ModelChoice model;
  EngineObserver observer;
  EditorDisplay display;
  TextSource texts;
  DocumentForms forms{{documents, model, observer, display, platform.Services().boxes, texts}};
  int applied = 0;  ///< how often the main window was asked to apply the template
};

}  // namespace tav::test
