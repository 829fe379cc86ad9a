#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/form_texts.h"
#include "dialogs/dialog_services.h"

namespace tav {

/// What the pages of the template dialog share: whose settings they show in which units, what was filled in, and the
/// fields and boxes that stand for one value of the record each.
class TemplateSheet : protected FormTexts {
 public:
  TemplateSheet(Form& dialog, const DialogServices& ofDialog, MenuItem& add, MenuItem& remove)
      : FormTexts(ofDialog.platform, ofDialog.texts),
        form(dialog),
        services(ofDialog),
        addRow(add),
        deleteRow(remove) {}

  Form& form;
  const DialogServices& services;
  MenuItem& addRow;  ///< the menu of the tables
  MenuItem& deleteRow;
  std::int16_t document = DocumentStore::DefaultDocument;
  bool metric = true;  ///< the units shown, which need not be those of the record

  [[nodiscard]] DiveTemplate& Template() const { return services.TemplateOf(document); }
  [[nodiscard]] bool IsOfNewPlans() const { return document == DocumentStore::DefaultDocument; }

  /// From 0 on, `lowValue` takes the place of 0 and less, `highValue` of `high` and more.
  struct Limits {
    double high;
    double lowValue;
    double highValue;
    int decimals = 2;
  };
  enum class Quantity { Length, Pressure, Volume };
  /// A number of the record.
  struct Number {
    Single DiveTemplate::*value = nullptr;  ///< nothing for one that its page fills and stores
    Quantity quantity = Quantity::Length;
    int decimals = 0;                     ///< that are shown, or as many as the number has
    int places = 2;                       ///< to which a typed one is rounded
    std::optional<Limits> atSwitch = {};  ///< of units
    std::optional<Limits> atOK = {};
  };
  /// What a field gets in place of a number that can't be, with a message.
  struct Remedy {
    int message;
    std::string metric;
    std::string metricUnit;
    std::string imperial;
    std::string imperialUnit;
  };
  /// A field of a number. `follow` brings in line what is worked out from it.
  void Add(TextBox& box, const Number& number, const Remedy& remedy, Event follow = {});
  /// A breathing rate.
  void AddRate(TextBox& box, Single DiveTemplate::*value);
  void Add(CheckBox& box, bool DiveTemplate::*value) { boxes_.emplace_back(&box, value); }
  /// A field and a box that their page fills and stores by itself.
  void Watch(const TextBox& field) { watched_.push_back(&field); }
  void Watch(const CheckBox& box) { watchedBoxes_.push_back(&box); }
  /// The name of a unit beside a field.
  void AddUnits(std::initializer_list<Label*> labels, int metricText, int imperialText);

  /// Fills fields and boxes with the settings of a document; EndFilling when the pages have done their part.
  void BeginFilling(std::int16_t index);
  /// The entries are now as they were filled in.
  void EndFilling();
  void ShowUnits();
  void Convert(bool toImperial);
  void Store(DiveTemplate& t);

  [[nodiscard]] bool IsChanged() const { return Entries() != filled_; }
  /// A cell or another entry was filled in with that text.
  [[nodiscard]] bool WasFilledIn(const std::string& text) const;
  /// The text was filled in; what it tells is kept as it is.
  [[nodiscard]] bool IsFilledIn(const TextBox& box) const;
  /// Judges the fields that hold no number.
  void JudgeEmptyFields();
  [[nodiscard]] Single Rounded(const TextBox& box, int places) const;
  /// So many decimals, or as many as the number has.
  [[nodiscard]] std::string Whole(Single value, int decimals) const;

 private:
  struct Field {
    TextBox& box;
    Number number;
    Remedy remedy;
    Event follow;
    std::string filledIn = {};
    bool changed = false;  ///< by the user, since it was judged
  };

  [[nodiscard]] std::vector<std::string> Entries() const;
  void Judge(const Field& field);

  std::vector<Field> fields_;
  std::vector<std::pair<CheckBox*, bool DiveTemplate::*>> boxes_;
  std::vector<const TextBox*> watched_;
  std::vector<const CheckBox*> watchedBoxes_;
  std::vector<std::pair<Label*, std::pair<int, int>>> units_;  ///< texts in metric and imperial
  std::vector<std::string> filled_;  ///< the entries as they were filled in; none while they are
};

/// A value at or below `low` becomes `lowValue`, then one at or above `high` becomes `highValue`; the result as text
/// with so many decimals.
std::string Between(Single& value, Single low, Single high, Single lowValue, Single highValue, int decimals);

}  // namespace tav
