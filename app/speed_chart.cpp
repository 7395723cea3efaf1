#include "app/speed_chart.h"

#include <string>

#include "app/chart_plot.h"
#include "app/chart_top_speed.h"
#include "app/current_motorcycle.h"
#include "app/gear_calculation.h"
#include "app/gear_commands.h"
#include "app/main_window.h"
#include "draw/colour.h"
#include "draw/image.h"
#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "gui/canvas_gadget.h"
#include "gui/event_queue.h"
#include "gui/gadget.h"
#include "gui/image_gadget.h"
#include "gui/status_bar.h"
#include "gui/window.h"
#include "runtime/numbered_objects.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t ChartWindow = 1;
constexpr std::int64_t MagnifierWindow = 2;
constexpr std::int64_t ChartStatusBar = 1;
constexpr std::int64_t HeadingField = 0;
constexpr std::int64_t ReadOutField = 1;
constexpr std::int64_t Canvas = 63;
constexpr std::int64_t MagnifierImage = 64;

constexpr std::int64_t CanvasMargin = 10;  // of the canvas to the window's edges
constexpr std::int64_t StatusBarMargin = 5;
constexpr std::int64_t MagnifierSide = 100;
constexpr std::int64_t MagnifiedSide = 20;
constexpr Colour CrossHairColour = 0;

// Both are kept for the whole run: what one chart leaves behind, the next one finds.
GearInputs keptInputs;
std::int64_t TopGearIndex = 0;

// Of the open chart.
std::int64_t ChartImage = 0;
std::int64_t ChartMaxRpm = 0;
std::int64_t ChartTopSpeed = 0;

bool OpenChartWindow(const PlotSize& plot, std::u16string_view heading) {
    const std::int64_t width = plot.Width + PlotSize::ImageMarginX;
    const std::int64_t height = plot.Height + PlotSize::ImageMarginY;
    const std::u16string title = std::u16string(ProgramTitle) + u" Graphic";
    if (WindowCreate(ChartWindow, 0, 0, width + 2 * CanvasMargin, height + 2 * CanvasMargin, title,
                     WindowOwnerCentred | WindowCloseBox, WindowNativeHandle(MainWindow)) == 0) {
        return false;
    }
    WindowDisable(MainWindow, 1);
    CanvasGadgetCreate(Canvas, CanvasMargin, CanvasMargin, width, height);
    SetGadgetAttribute(Canvas, CanvasCursor, CursorCrossHair);
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
    const std::int64_t image = ImageCreate(AnyNumber, plot.Width + PlotSize::ImageMarginX,
                                           plot.Height + PlotSize::ImageMarginY);
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

std::int64_t MagnifierLeft() {
    return WindowGetX(ChartWindow, OuterFrame) + WindowGetWidth(ChartWindow, OuterFrame);
}

void OpenMagnifier() {
    if (WindowCreate(MagnifierWindow, MagnifierLeft(), WindowGetY(ChartWindow, OuterFrame),
                     MagnifierSide, MagnifierSide, u"", WindowHidden | WindowBorderless,
                     WindowNativeHandle(ChartWindow)) != 0) {
        ImageGadgetCreate(MagnifierImage, 0, 0, MagnifierSide, MagnifierSide);
    }
}

void ClearReadOut() {
    StatusBarSetText(ChartStatusBar, ReadOutField, u"");
    WindowShow(MagnifierWindow, Hidden);
}

void CloseChart() {
    WindowDestroy(MagnifierWindow);
    WindowDestroy(ChartWindow);
    ImageFree(ChartImage);
    ChartImage = 0;
    WindowDisable(MainWindow, 0);
    WindowActivate(MainWindow);
}

}  // namespace

void ShowSpeedChart() {
    const GearMask mask = ReadGearInputs(keptInputs);
    const std::int64_t maxRpm = TextToInteger(GetGadgetText(MaxRpmField));
    const auto topSpeed = TopSpeedForChart(keptInputs, mask, maxRpm, UnitOnShow(), TopGearIndex);
    if (!topSpeed || WindowExists(ChartWindow)) {
        return;
    }
    ChartImage = OpenSpeedChart(CurrentManufacturer() + u"- " + CurrentModel(), maxRpm, *topSpeed);
    ChartMaxRpm = maxRpm;
    ChartTopSpeed = *topSpeed;
}

std::int64_t OpenSpeedChart(std::u16string_view heading, std::int64_t maxRpm,
                            std::int64_t topSpeed) {
    GearInputs inputs;
    if (ReadGearInputs(inputs) == 0) {
        return 0;
    }
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    if (!OpenChartWindow(plot, heading)) {
        return 0;
    }
    const std::int64_t image = MakePlotImage(inputs, plot, maxRpm, topSpeed);
    OpenMagnifier();
    return image;
}

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
}

void ChartMagnify(std::int64_t image, std::int64_t x, std::int64_t y) {
    WindowShow(MagnifierWindow, Shown);
    constexpr std::int64_t middle = MagnifiedSide / 2;
    const std::int64_t grabbed =
        ImageGrab(image, AnyNumber, x - middle, y - middle, MagnifiedSide, MagnifiedSide);
    if (grabbed != 0) {
        if (RasterBegin(ImageRasterTarget(grabbed))) {
            RasterLine(middle, 0, middle, MagnifiedSide, CrossHairColour);
            RasterLine(0, middle, MagnifiedSide, middle, CrossHairColour);
            RasterEnd();
        }
        ImageResize(grabbed, MagnifierSide, MagnifierSide, ResizeNearestPixel);
        SetGadgetState(MagnifierImage, reinterpret_cast<std::intptr_t>(ImageHandle(grabbed)));
        ImageFree(grabbed);
    }
    WindowActivate(ChartWindow);
}

void HandleChartEvent() {
    if (CurrentEventWindow() != ChartWindow) {
        return;
    }
    switch (CurrentEventKind()) {
        case GadgetActivity:
            if (CurrentEventObject() == Canvas && CurrentEventType() == CanvasMouseMove) {
                ChartMouseMove(ChartImage, ChartMaxRpm, ChartTopSpeed);
            } else if (CurrentEventObject() == Canvas && CurrentEventType() == CanvasMouseLeave) {
                ClearReadOut();
            }
            break;
        case WindowMoved:
            WindowSetBounds(MagnifierWindow, MagnifierLeft(), WindowGetY(ChartWindow, OuterFrame),
                            IgnoreValue, IgnoreValue);
            break;
        case WindowDeactivated:
            ClearReadOut();  // nothing of the chart may lie above another program's windows
            break;
        case CloseRequested:
            CloseChart();
            break;
        default:
            break;
    }
}

}  // namespace rotavel
