#pragma once

#include <string>

#include "model/document_store.h"
#include "platform/text_source.h"

/// Captions of document windows.
namespace tav {

/// The name of a plan that has no file yet.
std::string UntitledName(const TextSource& texts, std::int16_t document);

/// "plan.tav [Default.tpl]"
std::string DocumentCaption(const TextSource& texts, const DocumentState& document);

/// "plan.tav Dive:2 [Default.tpl] surface interval 1 hrs :30 min"
std::string RepetitiveCaption(const TextSource& texts, const DocumentState& document, std::int16_t diveNumber);

}  // namespace tav
