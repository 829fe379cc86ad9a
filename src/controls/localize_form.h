#pragma once

#include "controls/form.h"
#include "platform/text_source.h"

namespace tav {

/// Puts texts in place of string IDs: the form's `Tag`, the `Tag` of labels and, where it holds a number above 0, of
/// every other control; the `Caption` of menu items and the `ToolTipText` of tool buttons. What holds no ID keeps the
/// text that it has.
void LocalizeForm(Form& form, const TextSource& texts);

}  // namespace tav
