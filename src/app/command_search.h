#pragma once

#include <string>
#include <vector>

#include "controls/form.h"
#include "controls/grid.h"
#include "platform/text_source.h"

namespace tav {

/// Finds a command of the menus by words of its name or of the menus that it hangs in.
class frmCommandSearch : public Form {
 public:
  struct Command {
    MenuItem* item = nullptr;
    std::string path;  ///< "File > Open", as the user reads it
  };

  frmCommandSearch(const TextSource& texts, std::vector<Command> commands);

  TextBox tbWords{*this, "tbWords"};
  ResultGrid fgCommands{*this, "fgCommands"};  ///< those that have all the words; what can't be chosen now is grey
  Label lbNone{*this, "lbNone"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  /// What the user wants to be run; nullptr for nothing.
  [[nodiscard]] MenuItem* Chosen() const { return chosen_; }

 protected:
  void Form_Load() override;

 private:
  void Find();
  void Step(int by);
  void ShowChoice();
  void Choose();

  const TextSource& texts_;
  std::vector<Command> commands_;
  std::vector<MenuItem*> found_;  ///< in the order of the rows
  MenuItem* chosen_ = nullptr;
};

}  // namespace tav
