#pragma once

#include <memory>
#include <string>
#include <vector>

class QDialog;
class QWidget;

namespace tav {

class Form;

/// Makes the dialog of a form from its "forms/NAME.ui" and ties every control to the widget of its name: what code sets
/// shows, what the user does reaches the form. The form must outlive the dialog's use; when the form ends, the dialog
/// closes. Throws std::runtime_error when there is no such file.
std::unique_ptr<QDialog> MakeDialog(Form& form, QWidget* parent);

/// The same for a form that stands in a pane of the main window: its content, of the parent. Letters to reach a control
/// by are left to the menus.
QWidget* MakePane(Form& form, QWidget* parent);

/// Makes a dialog belong to another window; it stays as visible as it is.
void MoveWindow(QDialog& dialog, QWidget& parent);

/// What does not fit between a form and its window: a control without a widget, a widget that can show text or take
/// input without a control. Empty when all is well.
std::vector<std::string> BindingFaults(const Form& form, const QWidget& window);

}  // namespace tav
