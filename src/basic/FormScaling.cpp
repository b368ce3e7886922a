#include "basic/FormScaling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace korvel {

namespace {

enum class Treatment { none, endPoints, allButHeight, placeAndSize };

Treatment treatmentOf(std::string_view typeName) {
    if (typeName == "Menu" || typeName == "CommonDialog" || typeName == "SysInfo" || typeName == "Image")
        return Treatment::none;
    if (typeName == "Line") return Treatment::endPoints;
    // A combo box takes its height from its font.
    if (typeName == "ComboBox") return Treatment::allButHeight;
    return Treatment::placeAndSize;
}

bool hasScaledFont(std::string_view typeName) {
    static constexpr std::array<std::string_view, 7> types = {
        "CommandButton", "Label", "TextBox", "OptionButton", "CheckBox", "ComboBox", "ListBox"};
    return std::find(types.begin(), types.end(), typeName) != types.end();
}

} // namespace

double fontFactor(double scaleX, double scaleY) {
    return scaleX < scaleY ? scaleX : scaleY;
}

double scaledFontSize(double size, double factor) {
    return std::trunc(size * factor + 0.1);
}

ControlLayout scaledControl(const ControlLayout& control, double scaleX, double scaleY) {
    ControlLayout scaled = control;
    const Treatment treatment = treatmentOf(control.typeName);
    if (treatment == Treatment::endPoints) {
        scaled.x1 *= scaleX;
        scaled.x2 *= scaleX;
        scaled.y1 *= scaleY;
        scaled.y2 *= scaleY;
    } else if (treatment != Treatment::none) {
        scaled.left *= scaleX;
        scaled.width *= scaleX;
        scaled.top *= scaleY;
        if (treatment == Treatment::placeAndSize) scaled.height *= scaleY;
    }
    if (hasScaledFont(control.typeName))
        scaled.fontSize = scaledFontSize(control.fontSize, fontFactor(scaleX, scaleY));
    return scaled;
}

} // namespace korvel
