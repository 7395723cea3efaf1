#include "app/speed_chart.h"

#include <string>
#include <string_view>

#include "app/chart_plot.h"
#include "app/chart_scale.h"
#include "app/chart_top_speed.h"
#include "app/current_motorcycle.h"
#include "app/gear_commands.h"
#include "app/magnifier.h"
#include "app/main_window.h"
#include "draw/image.h"
#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "gui/canvas_gadget.h"
#include "gui/event_queue.h"
#include "gui/gadget.h"
#include "gui/numbers.h"
#include "gui/status_bar.h"
#include "gui/window.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t ChartWindow = 1;
constexpr std::int64_t ChartStatusBar = 1;
constexpr std::int64_t HeadingField = 0;
constexpr std::int64_t ReadOutField = 1;
constexpr std::int64_t Canvas = 63;

constexpr std::int64_t CanvasMargin = 10;  // of the canvas to the window's edges

bool OpenChartWindow(const PlotSize& plot, std::u16string_view heading) {
    const std::int64_t width = plot.ImageWidth();
    const std::int64_t height = plot.ImageHeight();
    const std::u16string title = std::u16string(ProgramTitle) + u" Graphic";
    if (WindowCreate(ChartWindow, 0, 0, width + 2 * CanvasMargin, height + 2 * CanvasMargin, title,
                     WindowOwnerCentred | WindowCloseBox, WindowNativeHandle(MainWindow)) == 0) {
        return false;
    }
    WindowDisable(MainWindow, true);
    CanvasGadgetCreate(Canvas, CanvasMargin, CanvasMargin, width, height);
    SetGadgetAttribute(Canvas, CanvasCursor, CursorCrossHair);
    GadgetName(Canvas, u"Chart of road speed against engine speed");
    const std::int64_t headingWidth = WindowGetWidth(MainWindow);
    StatusBarCreate(ChartStatusBar, WindowNativeHandle(ChartWindow));
    StatusBarAddField(headingWidth);
    StatusBarAddField(WindowGetWidth(ChartWindow) - headingWidth - StatusBarMargin);
    StatusBarSetText(ChartStatusBar, HeadingField, heading, StatusCentred);
    WindowSetBounds(ChartWindow, IgnoreValue, IgnoreValue, IgnoreValue,
                    WindowGetHeight(ChartWindow) + StatusBarHeight(ChartStatusBar));
    return true;
}

// An image with the plot, shown on the canvas; 0 when it cannot be made.
std::int64_t MakePlotImage(const GearInputs& inputs, const PlotSize& plot, std::int64_t maxRpm,
                           std::int64_t topSpeed) {
    const std::int64_t image = ImageCreate(AnyNumber, plot.ImageWidth(), plot.ImageHeight());
    if (image == 0) {
        return 0;
    }
    if (!VectorBegin(ImageVectorTarget(image))) {
        ImageFree(image);
        return 0;
    }
    DrawPlot(inputs, maxRpm, topSpeed, UnitOnShow());
    VectorEnd();
    if (RasterBegin(CanvasRasterTarget(Canvas))) {
        RasterDrawImage(ImageHandle(image), 0, 0);
        RasterEnd();
    }
    return image;
}

// Opens the chart with a heading. Returns the number of the image with the plot; 0 when there is
// none, because the inputs are of no use, the window cannot be made (nothing is open then) or the
// image cannot (the window is open, empty).
std::int64_t OpenSpeedChart(std::u16string_view heading, std::int64_t maxRpm,
                            std::int64_t topSpeed) {
    GearInputs inputs;  // begun empty: with an inch tyre that is not made there is no chart
    if (ReadGearInputs(inputs) == 0) {
        return 0;
    }
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    if (!OpenChartWindow(plot, heading)) {
        return 0;
    }
    const std::int64_t image = MakePlotImage(inputs, plot, maxRpm, topSpeed);
    OpenMagnifier(ChartWindow);
    ActivateGadget(Canvas);  // so that the arrow keys move the cross-hair
    return image;
}

void ClearReadOut() {
    StatusBarSetText(ChartStatusBar, ReadOutField, u"");
    HideMagnifier();
}

// Reads out and magnifies the point under the pointer, where that lies in the plot.
void ChartMouseMove(std::int64_t image, std::int64_t maxRpm, std::int64_t topSpeed) {
    const std::int64_t x = GetGadgetAttribute(Canvas, CanvasMouseX);
    const std::int64_t y = GetGadgetAttribute(Canvas, CanvasMouseY);
    const PlotPoint point = PlotPointAt(x, y, topSpeed);
    if (point.Rpm < 0 || point.Speed < 0 || point.Rpm > maxRpm || point.Speed > topSpeed) {
        ClearReadOut();
        return;
    }
    StatusBarSetText(ChartStatusBar, ReadOutField,
                     IntegerToText(point.Rpm) + u" rpm  -  " + IntegerToText(point.Speed) + u" " +
                         GetGadgetText(SpeedUnitBox),
                     StatusCentred);
    ChartMagnify(image, x, y);
    WindowActivate(ChartWindow);
}

void UseCanvas(const SpeedChart& chart, std::int64_t type) {
    if (type == CanvasMouseMove) {
        ChartMouseMove(chart.ChartImage, chart.ChartMaxRpm, chart.ChartTopSpeed);
    } else if (type == CanvasMouseLeave) {
        ClearReadOut();
    }
}

void CloseChart(SpeedChart& chart) {
    CloseMagnifier();
    WindowDestroy(ChartWindow);
    ImageFree(chart.ChartImage);
    chart.ChartImage = 0;
    WindowDisable(MainWindow, false);
    WindowActivate(MainWindow);
}

}  // namespace

void ShowSpeedChart(SpeedChart& chart) {
    if (WindowExists(ChartWindow) || ReadGearInputs(chart.Inputs) == 0) {
        return;
    }
    const std::int64_t maxRpm = TextToInteger(GetGadgetText(MaxRpmField));
    const std::int64_t topSpeed =
        TopSpeedForChart(chart.Inputs, maxRpm, UnitOnShow(), chart.TopGearIndex);
    chart.ChartImage =
        OpenSpeedChart(CurrentManufacturer() + u"- " + CurrentModel(), maxRpm, topSpeed);
    chart.ChartMaxRpm = maxRpm;
    chart.ChartTopSpeed = topSpeed;
}

void HandleChartEvent(SpeedChart& chart) {
    if (CurrentEventWindow() != ChartWindow) {
        return;
    }
    switch (CurrentEventKind()) {
        case GadgetActivity:
            if (CurrentEventObject() == Canvas) {
                UseCanvas(chart, CurrentEventType());
            }
            break;
        case WindowMoved:
            MoveMagnifier(ChartWindow);
            break;
        case CloseRequested:
            CloseChart(chart);
            break;
        default:
            break;
    }
}

}  // namespace rotavel
