#include "app/StartUp.h"

#include "app/Settings.h"
#include "global/GLOBAL.h"

#include <algorithm>

namespace korvel {

namespace {

double inSingle(double value) {
    return static_cast<double>(static_cast<float>(value));
}

void clearRunFlags() {
    GLOBAL.DataModified = false;
    GLOBAL.RunStarting = false;
    GLOBAL.graphResultsPending = false;
    GLOBAL.reportResultsPending = false;
}

} // namespace

ScreenFactors screenFactors(const WorkArea& area) {
    return {inSingle(area.width / DesignWidth), inSingle(area.height / DesignHeight)};
}

Place formPlace(const WorkArea& area) {
    const ScreenFactors factors = screenFactors(area);
    return {area.left, area.top, factors.x * DesignWidth, factors.y * DesignHeight};
}

Place dialogFramePlace(const Place& frame, const Place& form) {
    return {(form.width - 6500) * 0.5, (form.height - 4800) * 0.3, frame.width, frame.height};
}

Place centredOnForm(const Place& frame, const Place& form) {
    return {(form.width - frame.width) * 0.5, (form.height - frame.height) * 0.5, frame.width, frame.height};
}

TitleLabel scaledTitleLabel(const TitleLabel& label, const ScreenFactors& factors) {
    const double larger = std::max(factors.x, factors.y);
    return {{label.place.left * factors.x, label.place.top * factors.y, label.place.width * larger,
             label.place.height * larger},
            label.fontSize * factors.x};
}

Place scaledLogoShape(const Place& shape, const ScreenFactors& factors) {
    return {shape.left * factors.x, shape.top * factors.y, shape.width * factors.x, shape.height * factors.y};
}

void SetStartValues(Platform& platform) {
    const ScreenFactors factors = screenFactors(platform.machine.workArea());
    GLOBAL.ScaleX = factors.x;
    GLOBAL.ScaleY = factors.y;
    GLOBAL.LastFolder = platform.machine.applicationFolder();
    GLOBAL.mainForm.saveEnabled = false;
    GLOBAL.mainForm.saveAsEnabled = false;
    GLOBAL.mainForm.runMenuEnabled = true;
    GLOBAL.mainForm.editTextEnabled = false;
    clearRunFlags();
    ReadSettings(platform);
}

} // namespace korvel
