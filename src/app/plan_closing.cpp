#include "app/plan_closing.h"

#include <string>
#include <vector>

#include "app/leaving_form.h"
#include "model/text_id.h"

namespace tav {

bool PlanClosing::Close(std::int16_t document) {
  frmWaypointEditor& editor = services_.forms(document);
  if (editor.PrevProfile != -1) return CloseLaterDive(document);
  const auto save = [&] { return files_.Save(document, true); };
  if (!editor.Form_QueryUnload(true, save, LostCells(document))) return false;
  services_.forms.Unload(document);
  const auto left = services_.OpenDocuments();
  if (!services_.Active() && !left.empty()) services_.forms.Activate(left.back());
  return true;
}

std::string PlanClosing::LostCells(std::int16_t document) {
  const std::string cells = panes_.MarkedCells(document);
  return cells.empty() ? "" : services_.T(Text::ClosedWithoutEntry) + "\r\n" + cells;
}

bool PlanClosing::CloseLaterDive(std::int16_t document) {
  const frmWaypointEditor& editor = services_.forms(document);
  const std::int16_t before = editor.PrevProfile;
  const std::string lost = LostCells(document);
  const std::string question =
      (lost.empty() ? "" : lost + "\r\n\r\n") +
      services_.texts.Filled(Text::CloseDiveQuestion,
                             {services_.Document(document).ProfileName, std::to_string(editor.DiveNumber),
                              std::to_string(services_.forms(before).DiveNumber)});
  const BoxAnswer answer = services_.platform.boxes.ShowWithChoices(
      question, services_.T(Text::CloseDiveTitle), BoxIcon::Question,
      {services_.T(Text::CloseTakeOut), services_.T(Text::CloseSeries), services_.T(Text::CloseStay)});
  if (answer == BoxAnswer::No) return Close(editor.getFirstProfile());
  if (answer != BoxAnswer::Yes) return false;
  services_.history.TakeOut(document);
  services_.forms.Activate(before);
  return true;
}

bool PlanClosing::ConfirmAll() {
  std::vector<std::int16_t> unsaved;
  std::vector<std::string> captions;
  std::string lost;
  for (const std::int16_t document : services_.OpenDocuments()) {
    if (services_.forms(document).PrevProfile != -1 || !services_.Document(document).Modified) continue;
    unsaved.push_back(document);
    captions.push_back(services_.forms.Caption(document));
    const std::string cells = LostCells(document);
    if (!cells.empty()) lost += (lost.empty() ? "" : "\n\n") + captions.back() + "\n" + cells;
  }
  if (unsaved.size() == 1) {
    const auto save = [&] { return files_.Save(unsaved.front(), true); };
    return services_.forms(unsaved.front()).ConfirmClose(save, LostCells(unsaved.front()));
  }
  if (unsaved.empty()) return true;
  frmLeaving question(services_.texts, captions, lost);
  services_.platform.windows.ShowModal(question);
  if (!question.Confirmed()) return false;
  for (std::size_t i = 0; i < unsaved.size(); ++i) {
    if (question.Saves(i) && !files_.Save(unsaved[i], false)) return false;
  }
  return true;
}

void PlanClosing::CloseAll() const {
  for (const std::int16_t document : services_.OpenDocuments()) {
    services_.forms(document).LeaveDocument(false);
    services_.forms.Unload(document);
  }
}

}  // namespace tav
