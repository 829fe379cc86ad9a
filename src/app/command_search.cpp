#include "app/command_search.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <utility>

#include "app/menu_letters.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// In small letters, also those of Latin-1 with their marks, whose second byte in UTF-8 is 0x80 to 0x9E.
std::string Folded(std::string text) {
  bool latin = false;
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (latin && byte >= 0x80 && byte <= 0x9E) c = static_cast<char>(byte + 0x20);
    if (byte < 0x80) c = static_cast<char>(std::tolower(byte));
    latin = byte == 0xC3;
  }
  return text;
}

bool HasAll(const std::string& text, const std::string& words) {
  std::istringstream each(words);
  for (std::string word; each >> word;) {
    if (text.find(word) == std::string::npos) return false;
  }
  return true;
}

}  // namespace

frmCommandSearch::frmCommandSearch(const TextSource& texts, std::vector<Command> commands)
    : Form("frmCommandSearch"), texts_(texts), commands_(std::move(commands)) {
  tbWords.Change = [this] { Find(); };
  tbWords.KeyUp = [this] { Step(-1); };
  tbWords.KeyDown = [this] { Step(1); };
  fgCommands.HasHeader = false;
  fgCommands.TextColumns = {0, 1};
  fgCommands.Click = [this] { ShowChoice(); };
  fgCommands.Return = [this] { Choose(); };
  cbOK.Default = true;
  cbOK.Click = [this] { Choose(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
}

void frmCommandSearch::Form_Load() {
  Caption = PlainCaption(texts_.GetResString(Text::MenuCommandSearch));
  tbWords.SpokenName = texts_.GetResString(Text::HelpSearch);
  fgCommands.SpokenName = Caption.Get();
  lbNone.Caption = texts_.GetResString(Text::CommandSearchNone);
  cbOK.Caption = texts_.GetResString(Text::OK);
  cbCancel.Caption = texts_.GetResString(Text::Cancel);
  Find();
  tbWords.SetFocus();
}

void frmCommandSearch::Find() {
  constexpr Colour kGrey = RGB(128, 128, 128);
  const std::string words = Folded(tbWords.Text);
  std::vector<std::vector<GridCell>> rows;
  found_.clear();
  for (const Command& command : commands_) {
    if (!HasAll(Folded(command.path), words)) continue;
    const Colour colour = command.item->Enabled ? -1 : kGrey;
    rows.push_back({{command.path, colour}, {command.item->Shortcut, colour}});
    found_.push_back(command.item);
  }
  fgCommands.Visible = !rows.empty();
  lbNone.Visible = rows.empty();
  fgCommands.Cells = std::move(rows);
  // The first that can be chosen.
  const auto first = std::ranges::find_if(found_, [](const MenuItem* item) { return item->Enabled.Get(); });
  fgCommands.SelectRow(first == found_.end() ? 0 : static_cast<int>(first - found_.begin()));
  ShowChoice();
}

void frmCommandSearch::Step(int by) {
  if (found_.empty()) return;
  fgCommands.SelectRow(std::clamp(fgCommands.SelectedRow + by, 0, static_cast<int>(found_.size()) - 1));
  ShowChoice();
}

void frmCommandSearch::ShowChoice() {
  const auto row = static_cast<std::size_t>(fgCommands.SelectedRow);
  cbOK.Enabled = row < found_.size() && found_[row]->Enabled;
}

void frmCommandSearch::Choose() {
  const auto row = static_cast<std::size_t>(fgCommands.SelectedRow);
  if (row >= found_.size() || !found_[row]->Enabled) return;
  chosen_ = found_[row];
  Unload();
}

}  // namespace tav
