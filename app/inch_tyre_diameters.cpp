#include "app/inch_tyre_diameters.h"

#include <array>
#include <cstddef>

namespace rotavel {

namespace {

struct InchTyreWidth {
    std::u16string_view Width;          // inches
    std::array<std::int16_t, 6> OnRim;  // outer diameter in millimetres, 0: not made
};

constexpr std::array<std::u16string_view, 6> Rims = {u"14", u"15", u"16", u"17", u"18", u"19"};

// Makers' figures, not a formula: the wide step from "2.00-14" to "2.00-15" is as it should be.
// clang-format off
constexpr InchTyreWidth InchTyreDiameters[] = {
    //         14   15   16   17   18   19
    {u"2.00", {446, 491, 516, 542, 567, 593}},
    {u"2.25", {480, 505, 530, 556, 581, 607}},
    {u"2.50", {492, 517, 542, 568, 593, 619}},
    {u"2.75", {512, 537, 562, 588, 613, 639}},
    {u"3.00", {526, 551, 576, 602, 627, 653}},
    {u"3.25", {538, 563, 588, 614, 639, 665}},
    {u"3.50", {548, 573, 598, 624, 649, 675}},
    {u"3.75", {  0,   0, 610, 636, 661, 687}},
    {u"4.00", {  0,   0, 620, 646, 671, 697}},
    {u"4.25", {  0,   0, 632, 658, 683, 709}},
    {u"4.50", {  0,   0, 640, 666, 691, 717}},
    {u"5.00", {  0,   0, 666, 692, 717, 743}},
    {u"3.60", {  0,   0,   0,   0, 615, 641}},
    {u"4.10", {  0,   0,   0,   0, 641, 667}},
    {u"4.60", {  0,   0, 604, 630, 654,   0}},
    {u"5.10", {  0,   0, 625, 651, 676,   0}},
};
// clang-format on

}  // namespace

std::optional<std::int64_t> FindInchTyreDiameter(std::u16string_view size) {
    const std::size_t dash = size.find(u'-');
    if (dash == std::u16string_view::npos) {
        return std::nullopt;
    }
    const std::u16string_view width = size.substr(0, dash);
    const std::u16string_view rim = size.substr(dash + 1);

    for (const InchTyreWidth& row : InchTyreDiameters) {
        for (std::size_t i = 0; i < Rims.size(); ++i) {
            if (row.Width == width && Rims[i] == rim && row.OnRim[i] != 0) {
                return row.OnRim[i];
            }
        }
    }
    return std::nullopt;
}

}  // namespace rotavel
