#include "draw/vector_drawing.h"

#include <cmath>
#include <functional>
#include <map>
#include <sstream>

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
std::int64_t Start(int width = 60, int height = 60) {
    FontLoad(0, u"Arial", 8);
    const std::int64_t image = ImageCreate(AnyNumber, width, height);
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
    VectorSetColour(ColourRGBA(255, 255, 255, 255));
    PathAddBox(0, 0, width, height);
    PathFill();
    VectorSetColour(ColourRGBA(0, 0, 0, 255));
    VectorSetFont(FontHandle(0), 10);
    return image;
}

using VectorDrawingTest = DrawTest;

TEST_F(VectorDrawingTest, PathsCoverTheirPixelsWhole) {
    const struct {
        const char* Drawing;
        QRect Covered;
        int Pixels;
    } cases[] = {
        {"M 2 5 L 9 5 M 7 30 L 7 10 S 1 0", {2, 5, 8, 26}, 29},
        {"B 3 4 9 6 S 1 0", {3, 4, 10, 7}, 30},
        {"B 0 0 60 60 F", {0, 0, 60, 60}, 3600},
        // A new path begins at the corner, and the one before is gone unless it is kept.
        {"M 2 5 L 9 5 S 1 0 L 0 4 S 1 0", {0, 0, 10, 6}, 13},
        {"M 2 5 L 9 5 D 1 99 0 L 0 4 S 1 0", {0, 0, 3, 6}, 6},
        {"M 2 5 L 9 5 D 1 3 8 S 1 0", {2, 5, 8, 1}, 8},
        // Points stay where the coordinates of their moment put them.
        {"R 30 40 -90 M 30 40 L 38 40 S 1 0", {30, 32, 1, 9}, 9},
        {"M 30 40 R 5 50 -90 L 53 75 R 5 50 90 M 50 2 L 59 2 S 1 0", {30, 2, 30, 39}, 49},
    };
    for (const auto& each : cases) {
        const std::int64_t image = Start();
        Draw(each.Drawing);
        EXPECT_EQ(InkIn(image).Covered, each.Covered) << each.Drawing;
        EXPECT_EQ(InkIn(image).Pixels, each.Pixels) << each.Drawing;
    }
    const std::int64_t image = Start();
    Draw("M 10 20 L 30 20 S 9 16");
    EXPECT_EQ(PixelOf(image, 7, 20), Black);
    EXPECT_EQ(PixelOf(image, 6, 16), White) << "outside of the round end";
}

TEST_F(VectorDrawingTest, DotsDoNotDrift) {
    for (const char* const stroke : {" D 1 10 16", " D 1 10 0"}) {
        const std::int64_t image = Start(760, 760);
        Draw("M 10 5 L 10 705 M 45 20 L 735 20" + std::string(stroke));
        for (int i = 0; i < 70; ++i) {
            ASSERT_LT(qGray(PixelOf(image, 10, 5 + 10 * i)), 0x60) << i << stroke;
            ASSERT_LT(qGray(PixelOf(image, 45 + 10 * i, 20)), 0x60) << i << stroke;
        }
        EXPECT_EQ(InkIn(image).Pixels, 71 + 70) << "each covers its pixel alone";
    }
    const std::int64_t image = Start();
    Draw("M 3 2 L 10 2 L 10 30 D 1 10 0");
    EXPECT_EQ(PixelOf(image, 10, 25), Black) << "their distance goes round corners";
    Draw("M 40 40 L 50 50 D 9 99 0");
    EXPECT_EQ(PixelOf(image, 40, 35), Black) << "square ones stand on their line";
    EXPECT_EQ(PixelOf(image, 36, 36), White);
}

TEST_F(VectorDrawingTest, TextHangsFromTheCurrentPointAndTurnsWithTheCoordinates) {
    std::int64_t image = Start();
    Draw("M 5 35 T");
    const QRect first = InkIn(image).Covered;
    EXPECT_TRUE(QRect(5, 35, 6, 10).contains(first));
    Draw("T");
    EXPECT_GT(InkIn(image).Covered.right(), first.right() + 4);
    image = Start();
    Draw("R 20 50 -90 M 20 50 T T T T R 20 50 90");
    const QRect upwards = InkIn(image).Covered;
    EXPECT_TRUE(QRect(20, 26, 10, 25).contains(upwards));
    Draw("L 20 10 S 1 0");
    EXPECT_EQ(PixelOf(image, 20, 26), Black) << "the point behind it turned too";
}

TEST_F(VectorDrawingTest, TakesAnyNumber) {
    for (const double number : {0.0, -1.0, 1e-9, 1e6, -1e300, 0x1p-1074, HUGE_VAL, std::nan("")}) {
        Start();
        VectorRotate(number, 10, number);
        VectorSetFont(FontHandle(0), number);
        PathMoveTo(number, 5);
        PathAddBox(number, number, number, number);
        VectorDrawText(u"8");
        PathStroke(number, StrokeKeepPath | StrokeRoundJoin);
        PathStrokeDotted(number, 1, StrokeKeepPath);
        PathStrokeDotted(number, 1, StrokeKeepPath | StrokeRoundEnd);
        PathStrokeDotted(1, number, StrokeKeepPath | StrokeRoundEnd);
        PathFill();
    }
}

}  // namespace
}  // namespace rotavel
