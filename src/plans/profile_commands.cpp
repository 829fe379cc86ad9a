#include "plans/profile_commands.h"

#include "model/path_text.h"

namespace tav {

std::vector<std::int16_t> OpenProfile(DocumentForms& forms, const std::filesystem::path& file) {
  return OpenProfile(forms, file, ReadProfileFile(file));
}

std::vector<std::int16_t> OpenProfile(DocumentForms& forms, const std::filesystem::path& file,
                                      const ProfileText& profile, const std::function<void(std::int16_t)>& computed) {
  const PlanServices& services = forms.Services();
  std::vector<std::int16_t> opened;
  for (const DiveRecord& dive : profile.dives) {
    const std::int16_t number = forms.NewDocument();
    DocumentState& document = services.documents(number);
    static_cast<DiveRecord&>(document) = dive;
    document.ProfileName = SplitPath(file.string(), PathPart::FileName);
    document.ProfileFolder = SplitPath(file.string(), PathPart::DriveFolder);
    if (document.ProfileFolder.empty()) document.ProfileFolder = "./";
    document.TemplateTitle = document.ProfileName;
    frmWaypointEditor& window = forms(number);
    window.DiveNumber = static_cast<std::int16_t>(opened.size() + 1);
    if (!opened.empty()) {
      forms.Link(number, opened.back(), -1);
      services.display.StateChanged(opened.back());  // it has a number now
    }
    window.ReEvaluateUserEnteredWaypoints();
    opened.push_back(number);
    if (computed) computed(number);
  }
  if (!opened.empty()) forms.Activate(opened.back());
  return opened;
}

std::string ProfileFileText(DocumentForms& forms, std::int16_t document) {
  const PlanServices& services = forms.Services();
  std::string text;
  for (std::int16_t n = forms(document).getFirstProfile(); n != -1; n = forms(n).NextProfile) {
    const DocumentState& dive = services.documents(n);
    text += WriteDiveRecord(dive.Template, dive.SurfaceInterval, forms(n).UserActions);
  }
  return text;
}

SaveNotes SaveProfile(DocumentForms& forms, std::int16_t document, const std::filesystem::path& file) {
  const PlanServices& services = forms.Services();
  SaveNotes notes = WriteTextFile(file, ProfileFileText(forms, document));
  for (std::int16_t n = forms(document).getFirstProfile(); n != -1; n = forms(n).NextProfile) {
    DocumentState& dive = services.documents(n);
    dive.ProfileName = SplitPath(file.string(), PathPart::FileName);
    dive.ProfileFolder = SplitPath(file.string(), PathPart::DriveFolder);
    if (dive.ProfileFolder.empty()) dive.ProfileFolder = "./";
    dive.Modified = false;
    services.display.StateChanged(n);
  }
  return notes;
}

}  // namespace tav
