#include "draw/vector_drawing.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "gui/font.h"
#include "tests/support/pixels.h"

namespace rotavel {
namespace {

using namespace tests;

// Draws what letters and numbers say, the strokes with their flags last.
void Draw(const std::string& drawing) {
    double n[4] = {};
    const auto flags = [&](int place) { return static_cast<std::uint32_t>(n[place]); };
    const std::map<char, std::function<void()>> deeds = {
        {'M', [&] { PathMoveTo(n[0], n[1]); }},
        {'L', [&] { PathLineTo(n[0], n[1]); }},
        {'B', [&] { PathAddBox(n[0], n[1], n[2], n[3]); }},
        {'R', [&] { VectorRotate(n[0], n[1], n[2]); }},
        {'S', [&] { PathStroke(n[0], flags(1)); }},
        {'D', [&] { PathStrokeDotted(n[0], n[1], flags(2)); }},
        {'F', PathFill},
        {'T', [] { VectorDrawText(u"8"); }}};
    std::istringstream words(drawing);
    for (char letter = 0; words >> letter; words.clear()) {
        for (int i = 0; i < 4 && words >> n[i];) {
            ++i;
        }
        deeds.at(letter)();
    }
}

// Begins a drawing in black on a new white image.
std::int64_t Start() {
    FontLoad(0, u"Arial", 8);
    const std::int64_t image = ImageCreate(AnyNumber, 60, 60);
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
    VectorSetColour(0xFFFFFFFF);
    Draw("L 60 0 L 60 60 L 0 60 F");
    VectorSetColour(0xFF000000);
    VectorSetFont(FontHandle(0), 10);
    return image;
}

// What a drawing covers: for each start a line of a width, or a dot where it has no length.
struct Covered {
    double Width;
    bool IsRound;
    std::vector<QPointF> Starts;
    QPointF Along = {1, 0};  // the direction of the line, or of one side of a square
    double Length = 0;
    double Opacity = 1;

    bool Covers(QPointF place) const {
        // A stroke of an odd width along whole coordinates has its middle in that of their pixels.
        const double shift = std::fmod(Width, 2) == 0 ? 0 : 0.5;
        const double beyondEnd = Length > 0 && Width > 1 ? 0 : Width / 2;
        return std::ranges::any_of(Starts, [&](QPointF start) {
            const QPointF from = place - start - QPointF(shift, shift);
            const double along = QPointF::dotProduct(from, Along);
            const double beyond = std::max({-along, along - Length, 0.0});
            const double across = std::abs(from.x() * Along.y() - from.y() * Along.x());
            return IsRound ? std::hypot(beyond, across) <= Width / 2
                           : beyond <= beyondEnd && across <= Width / 2;
        });
    }
};

// The pixel of an image that is not as dark as the part of it that is covered, as far as 16 by 16
// places in it tell.
std::string WrongPixel(std::int64_t image, const Covered& covered) {
    const QImage& bitmap = *FromHandle(ImageHandle(image));
    for (int pixel = 0; pixel < bitmap.width() * bitmap.height(); ++pixel) {
        const int x = pixel % bitmap.width();
        const int y = pixel / bitmap.width();
        double part = 0;
        for (int i = 0; i < 16 * 16; ++i) {
            const QPointF place(x + (i % 16 + 0.5) / 16, y + (i / 16 + 0.5) / 16);
            part += covered.Covers(place / bitmap.devicePixelRatio()) ? 1.0 / 256 : 0;
        }
        const double found = (1 - qGray(bitmap.pixel(x, y)) / 255.0) / covered.Opacity;
        if (std::abs(found - part) > 0.1) {
            return std::to_string(x) + ", " + std::to_string(y) + ": " + std::to_string(found);
        }
    }
    return "none";
}

using VectorDrawingTest = DrawTest;

TEST_F(VectorDrawingTest, PathsCoverTheirPixelsWhole) {
    const struct {
        const char* Drawing;
        QRect Covered;
        int Pixels;
    } cases[] = {
        {"B 3 4 9 6 S 1 0 M 30 50 L 30 30 S 1 0", {3, 4, 28, 47}, 51},
        {"B 0 0 20 20 B 10 10 20 20 F", {0, 0, 30, 30}, 700},
        {"M 9 20 L 9 20 L 9 30 S 2 0 M 9 5 L 9 5 L 9 5 S 1 0", {8, 5, 2, 25}, 21},
        // A new path begins at the corner, and the one before is gone unless it is kept.
        {"M 2 5 L 9 5 D 1 99 0 L 0 4 S 1 0", {0, 0, 3, 6}, 6},
        {"M 2 5 L 9 5 D 1 3 8 S 1 0", {2, 5, 8, 1}, 8},
        {"B 10 20 9 6 S 2 0 M 40 40 L 40 50 S 3 32", {9, 19, 33, 33}, 60 + 39},
        {"M 9 5 L 9 5 L 9 5 L 9 8 L 5 8 S 1 0 M 50 50 S 9 32", {5, 5, 5, 4}, 8},
        // Points stay where the coordinates of their moment put them.
        {"M 30 40 R 5 50 -90 L 53 75 R 5 50 90 M 50 2 L 59 2 S 1 0", {30, 2, 30, 39}, 49},
    };
    for (const auto& each : cases) {
        const std::int64_t image = Start();
        Draw(each.Drawing);
        const Ink ink = InkIn(image);
        EXPECT_EQ(ink.Covered, each.Covered) << each.Drawing;
        EXPECT_TRUE(ink.Pixels == each.Pixels && ink.Blacks == each.Pixels) << each.Drawing;
    }
}

TEST_F(VectorDrawingTest, LinesAndDotsCoverWhatTheyAreWide) {
    const std::pair<const char*, Covered> cases[] = {
        {"M 5 5 L 35 45 S 1 0", {1, false, {{5, 5}}, {0.6, 0.8}, 50}},
        {"M 5 20 L 45 29 S 0.4 0", {0.4, false, {{5, 20}}, {40 / 41.0, 9 / 41.0}, 41}},
        {"M 3 57 L 51 21 S 2 0", {2, false, {{3, 57}}, {0.8, -0.6}, 60, 0.4}},
        {"M -880 -640 L 80 80 S 1 0", {1, false, {{-880, -640}}, {0.8, 0.6}, 1200}},
        {"M 5 10 L 45 10 D 1 10 16", {1, true, {{5, 10}, {15, 10}, {25, 10}, {35, 10}, {45, 10}}}},
        {"M 40 55 L 10 15 D 6 25 0", {6, false, {{40, 55}, {25, 35}, {10, 15}}, {0.6, 0.8}}},
        // Dots that overlap, and those that only reach into the image.
        {"M 50 80 L 14 32 D 20 20 16", {20, true, {{50, 80}, {38, 64}, {26, 48}, {14, 32}}}},
        {"M -95 30 L 305 30 D 9 100 0", {9, false, {{5, 30}}}},
        {"M 60 -4 L 60 66 D 9 35 0", {9, false, {{60, -4}, {60, 31}, {60, 66}}}},
        // The distance goes round corners, over lines shorter than it and past places taken before.
        {"M 3 2 L 10 2 L 10 4 L 10 30 D 1 10 0", {1, false, {{3, 2}, {10, 5}, {10, 15}, {10, 25}}}},
        {"M 5 5 L 25 5 L 5 5 D 7 10 16", {7, true, {{5, 5}, {15, 5}, {25, 5}}}},
        {"M 30 30 L 30 30 D 40 7 16", {40, true, {{30, 30}}}},
        // A distance that is none leaves no gaps.
        {"M 10 20 L 26 20 D 9 -1 0", {9, false, {{10, 20}, {18, 20}, {26, 20}}}},
    };
    for (const auto& [drawing, covered] : cases) {
        const std::int64_t image = Start();
        VectorSetColour(static_cast<Colour>(255 * covered.Opacity) << 24);
        Draw(drawing);
        EXPECT_EQ(WrongPixel(image, covered), "none") << drawing;
    }
}

TEST_F(VectorDrawingTest, TextGoesOnFromTheTextBefore) {
    const std::int64_t image = Start();
    Draw("R 20 50 -90 M 20 50 T T T T");  // upwards
    const QRect covered = InkIn(image).Covered;
    EXPECT_TRUE(QRect(20, 26, 10, 25).contains(covered) && covered.height() > 18);
}

// Dots without number too, which take no longer than a line does.
TEST_F(VectorDrawingTest, TakesAnyNumber) {
    const std::clock_t start = std::clock();
    for (const double number : {0.0, -1.0, 1e-9, 1e6, -1e300, 0x1p-1074, HUGE_VAL, std::nan("")}) {
        Start();
        VectorRotate(number, 10, number);
        VectorSetFont(FontHandle(0), number);
        PathMoveTo(number, 5);
        Draw("L 1000000 6 L 1000000 1000000 T");
        PathAddBox(number, number, number, number);
        PathStroke(number, StrokeKeepPath | StrokeRoundJoin);
        PathStrokeDotted(number, 1, StrokeKeepPath);
        PathStrokeDotted(number, 1, StrokeKeepPath | StrokeRoundEnd);
        PathStrokeDotted(1, number, StrokeKeepPath | StrokeRoundEnd);
        PathFill();
    }
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace rotavel
