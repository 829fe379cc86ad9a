#include "dialogs/plan_sheet_form.h"

#include <array>

#include "model/text_id.h"
#include "start/user_texts.h"

namespace tav {
namespace {

const std::string kSection = "PlanSheet";
const std::string kPaper = "Paper";
const std::string kMargins = "Margins";
const std::string kLetter = "letter";
const std::string kA4 = "a4";
const std::string kOn = "1";

/// The caption of a field as a word in a sentence.
std::string WordOf(const Label& label) {
  std::string word = label.Caption;
  std::erase(word, '&');
  while (word.ends_with(':') || word.ends_with(' ')) word.pop_back();
  return word;
}

}  // namespace

PlanSheetWish ReadPlanSheetWish(const SettingsStore& settings) {
  const std::string paper = settings.ReadSetting(kSection, kPaper);
  const bool chosen = paper == kLetter || paper == kA4;
  return {chosen ? (paper == kLetter ? Paper::Letter : Paper::A4) : PaperOfLocale(LocaleOf("LC_PAPER")),
          settings.ReadSetting(kSection, kMargins) == kOn};
}

frmPlanSheet::frmPlanSheet(const DialogServices& services) : DialogForm("frmPlanSheet", services) {
  RemembersPlace = true;
  cbOK.Default = true;
  cbOK.Click = [this] {
    if (Take()) Unload();
  };
  cbPreview.Click = [this] {
    if (!Take()) return;
    previewWanted_ = true;
    Unload();
  };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
}

void frmPlanSheet::Form_Load() {
  Localize();
  Caption = T(Text::PlanSheetTitle);
  const std::pair<Control*, int> captions[] = {{&lbName, Text::PlanSheetName},
                                               {&lbPlace, Text::PlanSheetPlace},
                                               {&lbNotes, Text::PlanSheetNotes},
                                               {&lbHelp, Text::PlanTextsHelp},
                                               {&lbPaper, Text::PlanSheetPaper},
                                               {&ckMargins, Text::PlanSheetWithMargins},
                                               {&cbPreview, Text::PlanSheetPreview},
                                               {&cbOK, Text::OK},
                                               {&cbCancel, Text::Cancel}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  cmbPaper.Items = {T(Text::PaperA4), T(Text::PaperLetter)};
  const PlanSheetWish wish = ReadPlanSheetWish(platform_.settings);
  cmbPaper.ListIndex = static_cast<int>(wish.paper);
  ckMargins.Value = wish.margins;
  first_ = services_.ActiveOrDefault();
  if (first_ != DocumentStore::DefaultDocument) first_ = services_.forms(first_).getFirstProfile();
  const PlanTexts& texts = TemplateOf(first_).Texts;
  tbName.Text = texts.name;
  tbPlace.Text = texts.place;
  tbNotes.Text = texts.notes;
}

bool frmPlanSheet::Take() {
  const std::array<std::pair<TextBox*, Label*>, std::size(kPlanTextFields)> fields{
      {{&tbName, &lbName}, {&tbPlace, &lbPlace}, {&tbNotes, &lbNotes}}};
  PlanTexts texts;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const PlanTextField& field = kPlanTextFields[i];
    const auto& [box, label] = fields[i];
    const std::string typed = ReplaceAll(ReplaceAll(TrimBlanks(box->Text.Get()), "\r\n", "\n"), "\t", " ");
    const Message fault = PlanTextFault(field, WordOf(*label), typed);
    if (!fault.IsEmpty()) {
      Box(T(fault), Caption, BoxIcon::Exclamation);
      box->SelectAll();
      return false;
    }
    texts.*field.text = FittingPlanText(field, typed);
  }
  platform_.settings.WriteSetting(kSection, kPaper, cmbPaper.ListIndex == 1 ? kLetter : kA4);
  platform_.settings.WriteSetting(kSection, kMargins, ckMargins.Value ? kOn : "0");
  if (first_ == DocumentStore::DefaultDocument || texts == TemplateOf(first_).Texts) return true;
  TemplateOf(first_).Texts = std::move(texts);
  services_.forms(first_).MarkModified();
  // Shows the plan anew: the undo history takes the step.
  services_.forms(first_).ReEvaluateUserEnteredWaypoints();
  return true;
}

}  // namespace tav
