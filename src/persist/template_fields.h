#pragma once

#include <string_view>
#include <variant>

#include "model/dive_template.h"

namespace tav {

enum class BlockSection { Setpoints, Travel, Altitude, Warnings, Properties, Conservatism };

/// A key of a template block that holds one number or flag of the record.
struct TemplateField {
  BlockSection section;
  std::string_view key;
  std::variant<Single DiveTemplate::*, bool DiveTemplate::*> field;
};

constexpr std::string_view kDecoRMV = "DecoRMV";

/// In the order of a block.
constexpr TemplateField kTemplateFields[] = {{BlockSection::Setpoints, "Setpoint", &DiveTemplate::Setpoint},
                                             {BlockSection::Setpoints, "DecoSetpoint", &DiveTemplate::DecoSetpoint},
                                             {BlockSection::Setpoints, "OCDeco", &DiveTemplate::OCDeco},
                                             {BlockSection::Setpoints, "AutoDecoGas", &DiveTemplate::AutoDecoGas},
                                             {BlockSection::Setpoints, "Open Circuit", &DiveTemplate::OpenCircuit},
                                             {BlockSection::Setpoints, "O2Narcotic", &DiveTemplate::O2Narcotic},
                                             {BlockSection::Setpoints, "MinPPO2", &DiveTemplate::MinPPO2},
                                             {BlockSection::Setpoints, "Maximal END", &DiveTemplate::MaximalEND},
                                             {BlockSection::Setpoints, "MaxPPO2", &DiveTemplate::MaxPPO2},
                                             {BlockSection::Setpoints, "DecoPPO2", &DiveTemplate::DecoPPO2},
                                             {BlockSection::Travel, "AdeptedToHeight", &DiveTemplate::AdeptedToHeight},
                                             {BlockSection::Altitude, "StartAltitude", &DiveTemplate::StartAltitude},
                                             {BlockSection::Altitude, "StartPressure", &DiveTemplate::StartPressure},
                                             {BlockSection::Altitude, "EndAltitude", &DiveTemplate::EndAltitude},
                                             {BlockSection::Altitude, "EndPressure", &DiveTemplate::EndPressure},
                                             {BlockSection::Warnings, "PPO2Low", &DiveTemplate::PPO2Low},
                                             {BlockSection::Warnings, "PPO2High", &DiveTemplate::PPO2High},
                                             {BlockSection::Warnings, "MaxEnd", &DiveTemplate::MaxEnd},
                                             {BlockSection::Properties, "RMV", &DiveTemplate::RMV},
                                             {BlockSection::Properties, kDecoRMV, &DiveTemplate::DecoRMV},
                                             {BlockSection::Properties, "StepSize", &DiveTemplate::StepSize},
                                             {BlockSection::Properties, "LastStop", &DiveTemplate::LastStop},
                                             {BlockSection::Properties, "Metric", &DiveTemplate::Metric},
                                             {BlockSection::Conservatism, "DepthAdjust", &DiveTemplate::DepthAdjust}};

}  // namespace tav
