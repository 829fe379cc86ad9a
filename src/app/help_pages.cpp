#include "app/help_pages.h"

#include <algorithm>
#include <utility>

namespace tav {
namespace {

constexpr std::pair<std::string_view, std::string_view> kPages[] = {{"PrintPrev", "preview"},
                                                                    {"PrintPrint", "preview"},
                                                                    {"frmBailoutStart", "bailout"},
                                                                    {"frmCheckPane", "check-pane"},
                                                                    {"frmCompare", "comparison"},
                                                                    {"frmConservatism", "conservatism"},
                                                                    {"frmCylinders", "supply"},
                                                                    {"frmGasBlend", "custom-gas"},
                                                                    {"frmGeneralInfo", "information"},
                                                                    {"frmLanguages", "languages"},
                                                                    {"frmLeaving", "saving"},
                                                                    {"frmLiability", "safety"},
                                                                    {"frmMargins", "margins"},
                                                                    {"frmMarginsPane", "margins"},
                                                                    {"frmMultiLevel", "series"},
                                                                    {"frmPartialMix", "mixer"},
                                                                    {"frmPlanPane", "plan-pane"},
                                                                    {"frmPlanSheet", "plan-sheet"},
                                                                    {"frmProperties", "properties"},
                                                                    {"frmReportSelection", "report"},
                                                                    {"frmTableExpert", "deco-tables"},
                                                                    {"frmWaypointForm", "waypoint-dialog"},
                                                                    {"frmWhatIf", "what-if"},
                                                                    {"frmAbout", "menu-window"},
                                                                    {"frmCommandSearch", "menu-window"},
                                                                    {"frmContributers", "menu-window"},
                                                                    {"frmSystemInformation", "menu-window"}};

}  // namespace

std::string HelpPageOf(std::string_view form) {
  const auto* const found =
      std::find_if(std::begin(kPages), std::end(kPages), [form](const auto& page) { return page.first == form; });
  return found == std::end(kPages) ? std::string() : std::string(found->second);
}

}  // namespace tav
