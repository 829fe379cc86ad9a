#pragma once

#include <gtest/gtest.h>
#include <memory>

#include "dialogs/properties.h"
#include "support/dialog_fixture.h"

namespace tav {

/// The template dialog on a plan of its own.
struct Properties : testing::Test {
  Properties() { d.Open(); }
  frmProperties& Show() {
    form = std::make_unique<frmProperties>(d.Services());
    form->Load();
    return *form;
  }
  DiveTemplate& Template() { return d.Document().Template; }
  test::Dialogs d;
  std::unique_ptr<frmProperties> form;
};

}  // namespace tav
