#pragma once

#include <string>

#include "engine/model_choice.h"
#include "model/dive_template.h"
#include "model/number_texts.h"
#include "platform/text_source.h"

/// The settings of a plan in words.
namespace tav {

/// What heads tell of a rebreather plan because it could be computed otherwise: what its loop does with the gases of
/// the change list and, of a repetitive dive, where its surface interval is spent. Empty on open circuit.
std::string LoopState(const DiveTemplate& settings, bool repetitive, const TextSource& texts);

/// All that a schedule depends on: ComputedWith, the altitudes, and the stops, "stops every 3 m, last 6 m".
std::string SettingsLine(const DiveTemplate& settings, const ModelChoice& model, bool repetitive,
                         const TextSource& texts, const NumberTexts& numbers = {});

/// The gradient factors as settings tell them: "0.30-0.85".
std::string FactorRange(const DiveTemplate& settings, const NumberTexts& numbers);

/// The setpoints of bottom and stops: "1.30/1.40".
std::string Setpoints(const DiveTemplate& settings, const NumberTexts& numbers);

/// What a plan is computed with, "ZH-L16B, GF 30/85, depths adjusted, " and its circuit, of which a loop tells what
/// it does at its stops and with the change list.
std::string ComputedWith(const DiveTemplate& settings, const ModelChoice& model, const std::string& circuit,
                         bool repetitive, const TextSource& texts);

/// The same with the circuit in words: "open circuit", "rebreather 1.30/1.40 bar".
std::string ComputedWith(const DiveTemplate& settings, const ModelChoice& model, bool repetitive,
                         const TextSource& texts, const NumberTexts& numbers = {});

}  // namespace tav
