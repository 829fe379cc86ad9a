#pragma once

#include <functional>

#include "engine/model_choice.h"
#include "engine/observer.h"
#include "model/document_store.h"
#include "plans/editor_display.h"
#include "platform/message_boxes.h"
#include "platform/text_source.h"

namespace tav {

/// What the documents of a program work with. All of it outlives them.
struct PlanServices {
  DocumentStore& documents;
  const ModelChoice& model;
  EngineObserver& observer;
  EditorDisplay& display;
  MessageBoxes& boxes;
  const TextSource& texts;
};

}  // namespace tav
