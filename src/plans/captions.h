#pragma once

#include <string>

#include "model/document_store.h"
#include "platform/text_source.h"

/// Captions of document windows.
namespace tav {

/// The name of a plan that has no file yet.
std::string UntitledName(const TextSource& texts, std::int16_t document);

/// "plan.tav [Default.tpl]" of a dive alone, which has number 0; in a series "plan.tav Dive:1 [Default.tpl]", and
/// behind another dive "plan.tav Dive:2 [Default.tpl] Surface Interval: 1 hrs :30 min".
std::string DocumentCaption(const TextSource& texts, const DocumentState& document, int diveNumber);

}  // namespace tav
