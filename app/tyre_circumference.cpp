#include "app/tyre_circumference.h"

#include <cstdint>

#include "app/inch_tyre_diameters.h"
#include "text/number_text.h"
#include "text/text.h"

namespace rotavel {

namespace {

constexpr double Pi = 3.141592653589793;
constexpr double TwoPi = 6.283185307179586;
constexpr double CentimetresPerInch = 2.54;
constexpr double MillimetresPerCentimetre = 10.0;
constexpr double MillimetresTimesPercentPerCentimetre = 1000.0;

// From this width on a tyre size is metric.
constexpr std::int64_t SmallestMetricWidth = 10;

// Four characters, as inch widths are marked: "3" and "3.5" become "3.00" and "3.50".
std::u16string InchWidthText(std::u16string width) {
    if (width.find(u'.') == std::u16string::npos) {
        width += u".00";
    }
    width.resize(4, u'0');
    return width;
}

std::optional<double> InchCircumference(const std::u16string& width, const std::u16string& rim) {
    const std::optional<std::int64_t> diameter = FindInchTyreDiameter(width + u"-" + rim);
    if (!diameter) {
        return std::nullopt;
    }
    return static_cast<double>(*diameter) * Pi / MillimetresPerCentimetre;
}

double MetricCircumference(double width, double percent, double rim) {
    const double rimRadius = rim * CentimetresPerInch / 2.0;
    const double tyreHeight = width * percent / MillimetresTimesPercentPerCentimetre;
    return (rimRadius + tyreHeight) * TwoPi;
}

}  // namespace

TyreReading ReadTyre(const TyreTexts& tyre) {
    const std::u16string width = ReplaceCharacter(tyre.Width, u',', u'.');
    if (TextToInteger(width) < SmallestMetricWidth) {
        const std::u16string inchWidth = InchWidthText(width);
        return {.Circumference = InchCircumference(inchWidth, tyre.Rim), .InchWidth = inchWidth};
    }
    const double percent = TextToNumber(ReplaceCharacter(tyre.Percent, u',', u'.'));
    return {
        .Circumference = MetricCircumference(TextToNumber(width), percent, TextToNumber(tyre.Rim)),
        .InchWidth = std::nullopt};
}

}  // namespace rotavel
