#pragma once

#include <optional>
#include <string>

namespace rotavel {

// The rear tyre as its three entry fields give it.
struct TyreTexts {
    std::u16string Width;    // millimetres (180), or inches when below 10 (3.25)
    std::u16string Percent;  // height in percent of the width, not looked at for an inch width
    std::u16string Rim;      // rim diameter, inches
};

struct TyreReading {
    std::optional<double> Circumference;      // centimetres; nothing: an inch size not made
    std::optional<std::u16string> InchWidth;  // an inch width as it is to be shown ("3.50")
};

// The rolling circumference of a tyre. What is no number counts as 0, so a metric size may give a
// circumference that is not above 0.
TyreReading ReadTyre(const TyreTexts& tyre);

}  // namespace rotavel
