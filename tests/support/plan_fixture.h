#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "compute/bailout_cuts.h"
#include "compute/compute_profile.h"
#include "compute/square_dives.h"
#include "persist/template_file.h"
#include "plans/document_forms.h"

namespace tav::test {

/// Boxes that are kept and answered from a script, in order; Cancel when the script is used up.
struct ScriptedBoxes : MessageBoxes {
  BoxAnswer Show(const std::string& text, const std::string& /*title*/, BoxIcon /*icon*/, BoxButtons buttons) override {
    shown.push_back(text);
    if (answers.empty()) return DismissedAnswer(buttons);
    const BoxAnswer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }
  std::vector<std::string> shown;
  std::vector<BoxAnswer> answers;
};

/// Which documents were told to be others, one after another.
struct RecordedDisplay : EditorDisplay {
  void StateChanged(std::int16_t document) override {
    told.push_back(document);
    if (onChange) onChange(document);
  }

  std::function<void(std::int16_t)> onChange;
  std::vector<std::int16_t> told;
};

/// Documents and all they work with, without a window. Element 0 holds the shipped default template.
struct Plans {
  Plans() { documents(0).Template = ShippedDefaultTemplate(); }
  Plans(const Plans&) = delete;
  Plans& operator=(const Plans&) = delete;

  /// A new document with the default template, changed by `change`.
  template <class Change>
  frmWaypointEditor& New(Change change) {
    const std::int16_t number = forms.LoadNewDoc();
    change(documents(number).Template);
    return forms(number);
  }
  frmWaypointEditor& New() {
    return New([](DiveTemplate&) {});
  }

  /// The rows of a first dive with the ascent behind them.
  ClassProfile Ascent(const frmWaypointEditor& window, bool forceOC) {
    ClassProfile rows;
    EndState end;
    const EngineRun run{documents(window.Tag()).Template, model, nullptr, 0, false, forceOC};
    if (!ComputeProfile(run, window.InputProfile, rows, end, observer).IsEmpty()) throw std::logic_error("no ascent");
    return rows;
  }
  PlannedDive Planned(std::int16_t document) { return forms(document).Planned(); }
  BailoutCuts Cuts(std::int16_t document, Single interval) { return {Planned(document), model, interval, observer}; }
  SquareDives Squares(std::int16_t document, const SquareDives::Wish& wish) {
    return {documents(document).Template, model, wish, observer};
  }

  DocumentStore documents;
  ModelChoice model;
  EngineObserver observer;
  RecordedDisplay display;
  ScriptedBoxes boxes;
  TextSource texts;
  DocumentForms forms{{documents, model, observer, display, boxes, texts}};
};

}  // namespace tav::test
