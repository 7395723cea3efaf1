#pragma once

#include <algorithm>

#include <QFont>

namespace rotavel {

// How far a text is narrowed to fit, in percent of its width: to less than this it is hard to read.
inline constexpr int NarrowestStretch = 62;

// A font in which a text takes at most `room` pixels: the one given if it does, else that one
// narrowed by as little as will do, at most to NarrowestStretch. `widthIn` measures the text in a
// font.
template <typename Measure>
QFont NarrowFont(QFont font, double room, Measure widthIn) {
    const double width = widthIn(font);
    if (width <= std::max(room, 0.0)) {
        return font;
    }
    // Hinting rounds each letter's width, so that a text may take more than its share.
    int stretch = std::clamp(static_cast<int>(100 * room / width), NarrowestStretch, 99);
    font.setStretch(stretch);
    while (widthIn(font) > room && stretch > NarrowestStretch) {
        font.setStretch(--stretch);
    }
    return font;
}

}  // namespace rotavel
