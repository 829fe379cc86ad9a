#pragma once

#include "dialogs/dialog_services.h"

namespace tav {

/// Lets the user edit the template of the active document, or of the default document, and computes the plan anew.
void EditTemplate(const DialogServices& services);

}  // namespace tav
