// Works the program's own main window for oracle.py: reads deeds from standard input, one a line,
// its parts set apart by U+001F, and writes a line after each: what there is to be seen.

#include <iostream>
#include <sstream>

#include "gui/window.h"
#include "tests/app/app_test.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr char Separator = '\x1f';
constexpr std::int64_t ChartWindow = 1;

// The place at which a line of this colour ends in the right half of a chart: its last column, and
// the middle of the line there.
std::string EndOfLine(const QImage& plot, QRgb colour) {
    for (int x = plot.width() - 1; x > plot.width() / 2; --x) {
        double weight = 0;
        double sum = 0;
        for (int y = 0; y < plot.height(); ++y) {
            const QColor pixel(plot.pixel(x, y));
            if (std::abs(pixel.hsvHue() - QColor(colour).hsvHue()) < 12) {
                weight += pixel.hsvSaturationF();
                sum += static_cast<double>(y) * pixel.hsvSaturationF();
            }
        }
        if (weight > 0.2) {
            return std::to_string(x) + " " + std::to_string(sum / weight);
        }
    }
    return "none";
}

class Answers : public AppTest {
  protected:
    // By number; the last part tells whether the percent height can be entered.
    static std::string Gadgets() {
        std::string texts;
        for (std::int64_t gadget = 0; gadget <= GraphicButton; ++gadget) {
            texts += ToUtf8(GetGadgetText(gadget)) + Separator;
        }
        return texts + (View(PercentHeightField)->isEnabled() ? "on" : "off");
    }
    static std::string Chart() {
        if (!WindowExists(ChartWindow)) {
            return "none";
        }
        const QImage plot = View(ChartCanvas)->grab().toImage();
        std::string chart = ToUtf8(StatusText(ChartCanvas));
        for (const int side : {plot.width(), plot.height()}) {
            chart += Separator + std::to_string(side);
        }
        for (const QRgb colour : {0xFF0000, 0x00FF00, 0x0000FF, 0xFF8000, 0x00FFFF, 0xFF00FF}) {
            chart += Separator + EndOfLine(plot, colour);
        }
        return chart;
    }
    // Changes of fields go without a word.
    std::string AnswerTo(const std::vector<std::string>& deed) {
        const auto number = [&](std::size_t part) { return std::stoi(deed.at(part)); };
        if (deed[0] == "set") {
            for (std::size_t i = 1; i + 1 < deed.size(); i += 2) {
                SetGadgetText(number(i), ToUtf16(deed[i + 1]));
            }
            return "";
        }
        if (deed[0] == "unit") {
            SetGadgetState(SpeedUnitBox, number(1));
            return "";
        }
        if (deed[0] == "chart") {
            Run();
            return Chart();
        }
        if (deed[0] == "point") {
            PointAt(number(1), number(2));
            return ToUtf8(StatusText(ChartCanvas, 1));
        }
        if (deed[0] == "close") {
            AskToClose(ChartWindow);
            Run();
        } else {  // an event alone, not what the windowing system has to do for it
            PostProgramEvent(static_cast<std::uint32_t>(number(1)), MainWindow, number(2),
                             number(3));
            PostProgramEvent(CloseRequested, MainWindow);
            RunMainLoop(program);
        }
        return Gadgets();
    }
};

TEST_F(Answers, ToWhatIsAsked) {
    ASSERT_TRUE(StartUp(program, ToUtf16(file)));
    Run();
    std::istringstream defaults(ReadFile(file));
    for (std::string line; std::getline(defaults, line);) {
        std::cout << "= " << line << "\n";
    }
    for (std::string line; std::getline(std::cin, line);) {
        std::vector<std::string> deed;
        std::istringstream parts(line + Separator);
        for (std::string part; std::getline(parts, part, Separator);) {
            deed.push_back(part);
        }
        std::cout << "= " << AnswerTo(deed) << "\n";
    }
}

}  // namespace
}  // namespace rotavel
