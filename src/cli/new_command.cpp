#include <optional>
#include <ostream>

#include "app/start_up.h"
#include "cli/commands.h"
#include "cli/plan_output.h"
#include "model/number_text.h"
#include "model/template_faults.h"
#include "persist/template_file.h"

namespace tav {
namespace {

/// An option that can't be used.
class OptionError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

Single NumberOf(const std::string& text, const std::string& option) {
  const auto number = ParseStrict(text);
  if (!number) throw OptionError(option + ": \"" + text + "\" is not a number");
  return *number;
}

/// The percentages that a usual name of a gas tells: EAN32, Tx18/45, H85, Oxygen.
std::optional<GasMix> MixOfName(const std::string& name) {
  const auto number = [&](std::size_t from, std::size_t count = std::string::npos) {
    return ParseStrict(std::string_view(name).substr(from, count));
  };
  if (name == "Oxygen") return GasMix{name, 100, 0, 0};
  if (name.starts_with("EAN")) {
    if (const auto o2 = number(3); o2 && *o2 > 0 && *o2 <= 100) return GasMix{name, *o2, 100 - *o2, 0};
  }
  if (name.starts_with("H")) {
    if (const auto he = number(1); he && *he > 0 && *he < 100) return GasMix{name, 100 - *he, 0, *he};
  }
  const std::size_t slash = name.find('/');
  if (name.starts_with("Tx") && slash != std::string::npos) {
    const auto o2 = number(2, slash - 2);
    const auto he = number(slash + 1);
    if (o2 && he && *o2 > 0 && *he >= 0 && *o2 + *he <= 100) return GasMix{name, *o2, 100 - *o2 - *he, *he};
  }
  return std::nullopt;
}

/// The number of a gas in the template's list; a gas that only its name tells is added.
std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate) {
  if (const auto found = FindBlend(name, diveTemplate)) return *found;
  const auto mix = MixOfName(name);
  if (!mix) {
    std::string known;
    for (const GasMix& blend : diveTemplate.Blends) known += (known.empty() ? "" : ", ") + blend.Name;
    throw OptionError("gas \"" + name + "\" is unknown; the template has " + known +
                      ", and EAN.., Tx../.. and H.. tell their own content");
  }
  diveTemplate.Blends.push_back(*mix);
  return static_cast<std::int16_t>(diveTemplate.Blends.size() - 1);
}

void AddLeg(const std::string& text, const std::string& gas, DiveTemplate& diveTemplate, frmWaypointEditor& window) {
  const std::size_t at = text.find('@');
  const std::string place = text.substr(0, at);
  const std::string gasOfLeg = at == std::string::npos ? gas : text.substr(at + 1);
  const std::size_t colon = place.find(':');
  if (colon == std::string::npos) throw OptionError("leg \"" + text + "\" must be DEPTH:TIME or DEPTH:TIME@GAS");
  const Single depth = NumberOf(place.substr(0, colon), "depth");
  const Single time = NumberOf(place.substr(colon + 1), "time");
  const std::int16_t mix = MixNumber(gasOfLeg.empty() ? "Air" : gasOfLeg, diveTemplate);
  const std::string fault = LegFault(time, depth, mix, diveTemplate);
  if (!fault.empty()) throw OptionError(fault);
  window.SaveUserEnteredWaypoints(time, depth, mix, false);
}

std::filesystem::path TemplateFile(const std::string& name, const ProgramFolders& folders) {
  std::error_code error;
  if (std::filesystem::exists(name, error)) return name;
  const std::string fileName = name.ends_with(kTemplateExtension) ? name : name + std::string(kTemplateExtension);
  const auto found = folders.Find(std::filesystem::path("template") / fileName);
  return std::filesystem::exists(found, error) ? found : std::filesystem::path(name);
}

}  // namespace

int NewCommand(const NewPlanOptions& plan, const OutputOptions& options, const ProgramFolders& folders,
               std::ostream& out, std::ostream& err) {
  PlanSession session;
  std::string title = plan.output.empty() ? "New plan" : plan.output;
  try {
    ApplyOptions(options, session);
    const std::string fault = InitDocuments(session.Documents(), folders);
    DiveTemplate& standard = session.Documents()(DocumentStore::DefaultDocument).Template;
    if (!plan.templateName.empty()) {
      LoadPlannableTemplate(standard, TemplateFile(plan.templateName, folders));
    } else if (!fault.empty()) {
      err << fault << "; the built-in settings stand in\n";
    }
    const std::int16_t number = session.Forms().LoadNewDoc();
    frmWaypointEditor& window = session.Forms()(number);
    for (const std::string& leg : plan.legs) AddLeg(leg, plan.gas, session.Documents()(number).Template, window);
    window.SaveUserEnteredWaypoints(-1, -1, window.UserActions.getmixnumber(window.UserActions.GetLength()), true);
    window.ReEvaluateUserEnteredWaypoints();
    std::vector<ComputedDive> dives;
    if (!Gather(session, title, {number}, {session.Notes().Take()}, dives, err)) return ExitStatus::kUnusableInput;
    if (!plan.output.empty()) SaveProfile(session.Forms(), number, plan.output);
    return Print(dives, options.form, out, err);
  } catch (const OptionError& error) {
    err << "tavplan new: " << error.what() << "\n";
  } catch (const FileError& error) {
    err << error.what() << "\n";
  }
  return ExitStatus::kUnusableInput;
}

}  // namespace tav
