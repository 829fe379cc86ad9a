#include "dialogs/edit_template.h"

#include "dialogs/properties.h"

namespace tav {

void EditTemplate(const DialogServices& services) {
  frmProperties dialog(services);
  services.platform.windows.ShowModal(dialog);
  const auto active = services.ActiveDocument();
  if (!active || dialog.Cancelled()) return;
  // OK has computed the plan; once more would only show its warnings again.
  services.forms(*active).SetTemplate();
}

}  // namespace tav
