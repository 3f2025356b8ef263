// What lies between a picture and the text on it, so that the text can be read: one colour, of as little
// alpha as makes the text readable, and of more, up to about a half, where that makes it comfortable. The contrast is that of WCAG 2.1, from 1 to 21. Pure functions; any thread.
#pragma once

#include "platform/Color.h"
#include "platform/Image.h"

namespace dayward {

/// The least contrast of text and what is under it.
inline constexpr double kLeastTextContrast = 4.5;

/// Relative luminance of an opaque colour, from 0 to 1.
double relativeLuminance(const Color& color);
double contrastRatio(const Color& a, const Color& b);

/// Black under light text and white under dark text, with the alpha that gives the text its contrast on
/// the picture: on all but the 2 % of its pixels that are hardest to read on. An alpha of 0 where the
/// picture needs nothing.
Color textScrim(const Color& text, const Image& onPicture);
/// The same for a picture that is not known yet: on any.
Color textScrim(const Color& text);

}  // namespace dayward
