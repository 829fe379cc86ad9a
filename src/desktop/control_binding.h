#pragma once

class QWidget;

namespace tav {

class Control;
class Form;

/// Ties a control to a widget: properties show in the widget, the user's acts reach the control. Throws
/// std::runtime_error when the widget is of another kind than the control.
void BindControl(Control& control, QWidget& widget);

/// Tells the form when the pointer moves over its own surface.
void BindPointer(Form& form, QWidget& window);

/// Lets the arrow keys of a field step its spin button.
void BindSpinKeys(Form& form, QWidget& window);

}  // namespace tav
