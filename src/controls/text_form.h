#pragma once

#include <string>
#include <utility>

#include "controls/form.h"
#include "controls/form_texts.h"
#include "controls/localize_form.h"

namespace tav {

/// A window that shows texts by number and takes numbers as its user writes them.
class TextForm : public Form, protected FormTexts {
 protected:
  TextForm(std::string name, Platform platform, const TextSource& texts)
      : Form(std::move(name)), FormTexts(std::move(platform), texts) {}

  void Localize() { LocalizeForm(*this, texts_); }
};

}  // namespace tav
