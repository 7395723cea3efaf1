#include <benchmark/benchmark.h>
#include <cstdlib>

#include "app/chart_plot.h"
#include "app/chart_scale.h"
#include "app/main_window.h"
#include "draw/image.h"
#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "gui/application.h"
#include "gui/font.h"
#include "gui/numbers.h"

// The speed chart's picture, drawn into an image without a display.

namespace {

using namespace rotavel;

GearInputs SixSpeed() {
    return {.Circumference = 197.857,
            .PrimaryRatio = 1.4583,
            .FinalDriveRatio = 3.6667,
            .GearRatio = {2.2353, 1.7, 1.3478, 1.1154, 0.9355, 0.8}};
}

// The plot up to the engine speed and road speed of the arguments, with a new image each time as
// "Graphic" makes one.
void DrawPlotIntoImage(benchmark::State& state) {
    const std::int64_t maxRpm = state.range(0);
    const std::int64_t topSpeed = state.range(1);
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    for (auto _ : state) {
        const std::int64_t image = ImageCreate(AnyNumber, plot.ImageWidth(), plot.ImageHeight());
        if (!VectorBegin(ImageVectorTarget(image))) {
            state.SkipWithError("the image could not be drawn on");
            break;
        }
        DrawPlot(SixSpeed(), maxRpm, topSpeed, SpeedUnit::Kmh);
        VectorEnd();
        ImageFree(image);
    }
}
BENCHMARK(DrawPlotIntoImage)->Args({9000, 190})->Args({18000, 390})->Unit(benchmark::kMillisecond);

// The picture in the magnifier, made anew for each move of the pointer.
void MakeMagnifiedPiece(benchmark::State& state) {
    const std::int64_t image = ImageCreate(AnyNumber, 800, 470);
    for (auto _ : state) {
        const std::int64_t grabbed = ImageGrab(image, AnyNumber, 300, 200, 20, 20);
        RasterBegin(ImageRasterTarget(grabbed));
        RasterLine(10, 0, 10, 20, 0);
        RasterLine(0, 10, 20, 10, 0);
        RasterEnd();
        ImageResize(grabbed, 100, 100, ResizeNearestPixel);
        ImageFree(grabbed);
    }
    ImageFree(image);
}
BENCHMARK(MakeMagnifiedPiece)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    benchmark::Initialize(&argc, argv);
    GuiStart();
    FontLoad(ProgramFont, u"Arial", 8);
    benchmark::RunSpecifiedBenchmarks();
    GuiStop();
    return 0;
}
