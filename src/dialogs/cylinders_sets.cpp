// Sets of cylinders in the dialog of the gas supply.

#include <algorithm>

#include "dialogs/cylinders.h"
#include "model/text_id.h"

namespace tav {

void frmCylinders::WireSets() {
  cmbSet.Click = [this] { Show(); };
  tbSetName.Change = [this] { Show(); };
  tbSetName.KeyReturn = [this] { cbSaveSet.Press(); };
  cbTakeSet.Click = [this] { TakeSet(); };
  cbSaveSet.Click = [this] { SaveSet(); };
  cbDeleteSet.Click = [this] { DeleteSet(); };
}

void frmCylinders::FillSets(const std::string& chosen) {
  Message fault;
  sets_ = ReadCylinderSets(platform_.settings, fault);
  setsFault_ = T(fault);
  ownSets_ = static_cast<int>(sets_.size());
  std::vector<std::string> names;
  for (const CylinderSet& set : sets_) names.push_back(T(set.name));
  // An own set of the name of a usual one takes its place.
  for (CylinderSet& set : UsualSets(TemplateOf(document_).Metric)) {
    if (std::ranges::find(names, T(set.name)) != names.end()) continue;
    names.push_back(T(set.name));
    sets_.push_back(std::move(set));
  }
  const auto at = std::ranges::find(names, chosen);
  cmbSet.Items = names;
  cmbSet.ListIndex = at == names.end() ? 0 : static_cast<int>(at - names.begin());
}

void frmCylinders::EnableSetButtons(bool sound) {
  constexpr std::size_t kLongestName = 100;
  cbDeleteSet.Enabled = IsOwnSet();
  cbSaveSet.Enabled = sound && fgCylinders.Rows() > 1 && !SetName().empty() && SetName().size() <= kLongestName;
}

std::string frmCylinders::SetName() const { return std::string(TrimBlanks(tbSetName.Text.Get())); }

void frmCylinders::TakeSet() {
  if (cmbSet.ListIndex < 0) return;
  tbSetName.Text = IsOwnSet() ? cmbSet.Text() : "";  // to be saved under it again
  const std::vector<Cylinder>& cylinders = sets_.at(static_cast<std::size_t>(cmbSet.ListIndex)).cylinders;
  PutRows(cylinders);
  // The first gas that is to be chosen.
  const auto gas = std::ranges::find_if_not(cylinders, [this](const Cylinder& c) { return IsGasOfPlan(c.Gas); });
  fgCylinders.SelectCell(gas == cylinders.end() ? 1 : static_cast<int>(gas - cylinders.begin()) + 1, Gas);
  fgCylinders.SetFocus();
}

void frmCylinders::SaveSet() {
  CylinderSet set{SetName(), {}};
  ReadRows(set.cylinders);
  std::vector<CylinderSet> own(sets_.begin(), sets_.begin() + ownSets_);
  const auto same = std::ranges::find(own, set.name.plain, [](const CylinderSet& known) { return known.name.plain; });
  if (same == own.end()) {
    own.push_back(set);
  } else if (Box(T(Text::CylindersReplaceSet, {set.name.plain}), Caption, BoxIcon::Question, BoxButtons::YesNo) !=
             BoxAnswer::Yes) {
    return;
  } else {
    *same = set;
  }
  WriteCylinderSets(platform_.settings, own);
  FillSets(set.name.plain);
  Show();
}

void frmCylinders::DeleteSet() {
  const std::string name = cmbSet.Text();
  if (Box(T(Text::CylindersDropSet, {name}), Caption, BoxIcon::Question, BoxButtons::YesNo) != BoxAnswer::Yes) return;
  std::vector<CylinderSet> own(sets_.begin(), sets_.begin() + ownSets_);
  own.erase(own.begin() + cmbSet.ListIndex);
  WriteCylinderSets(platform_.settings, own);
  FillSets();
  Show();
}

}  // namespace tav
