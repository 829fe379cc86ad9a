#include "dialogs/edit_template.h"

#include "dialogs/properties.h"

namespace tav {

void EditTemplate(const DialogServices& services) {
  frmProperties dialog(services);
  services.platform.windows.ShowModal(dialog);
  const auto active = services.ActiveDocument();
  if (!active || dialog.Cancelled()) return;
  services.forms(*active).SetTemplate();
  services.forms(*active).ReEvaluateUserEnteredWaypoints();
}

}  // namespace tav
