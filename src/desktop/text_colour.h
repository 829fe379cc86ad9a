#pragma once

#include <QColor>
#include <initializer_list>

#include "platform/drawing_surface.h"

class QPalette;

namespace tav {

/// Contrast of two colours, 1 to 21: (L1 + 0.05) / (L2 + 0.05) of their relative luminances, the lighter one first
/// (WCAG 2.1, "contrast ratio").
double Contrast(const QColor& one, const QColor& other);

/// What a normal text needs to be read by people of weaker sight (WCAG 2.1, level AA).
constexpr double kReadable = 4.5;

/// A colour of the program as a text on these grounds: darker or lighter, in the same hue, until it can be read on
/// each.
QColor TextColour(Colour wanted, std::initializer_list<QColor> grounds);

/// The ground of a cell whose text can't be taken: reddish, light on a light desktop and dark on a dark one.
QColor FaultGround(const QPalette& palette);

}  // namespace tav
