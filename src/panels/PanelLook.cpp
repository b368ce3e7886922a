#include "panels/PanelLook.h"

#include "drawing/Units.h"

namespace korvel {

namespace {

constexpr double twipsPerDot = twipsPerInch / 300;

PanelLook light() {
    PanelLook look;
    look.background = {0xFF, 0xFF, 0xFF};
    look.plot = {0xFF, 0xFF, 0xFF};
    look.grid = {0xE7, 0xEA, 0xEE};
    look.axis = {0x8C, 0x96, 0xA1};
    look.text = {0x1C, 0x24, 0x2D};
    look.quietText = {0x5A, 0x65, 0x71};
    look.accent = {0x0B, 0x62, 0xB8};
    look.pass = {0x00, 0x7F, 0x5F};
    look.unsure = {0xB8, 0x6E, 0x00};
    look.fail = {0xC2, 0x37, 0x14};
    look.target = {0xB0, 0x10, 0x3A};
    return look;
}

PanelLook dark() {
    PanelLook look;
    look.background = {0x17, 0x1A, 0x1F};
    look.plot = {0x1D, 0x21, 0x27};
    look.grid = {0x2E, 0x34, 0x3C};
    look.axis = {0x72, 0x7D, 0x89};
    look.text = {0xE8, 0xEC, 0xF0};
    look.quietText = {0xA5, 0xAF, 0xBA};
    look.accent = {0x62, 0xB5, 0xFF};
    look.pass = {0x3C, 0xC8, 0x94};
    look.unsure = {0xF2, 0xB5, 0x35};
    look.fail = {0xFF, 0x80, 0x62};
    look.target = {0xFF, 0x6B, 0x8F};
    return look;
}

PanelLook paper() {
    PanelLook look = light();
    look.grid = {0xDC, 0xDF, 0xE3};
    look.axis = {0x66, 0x6E, 0x77};
    look.hairline = 2;
    look.curveWidth = 5;
    return look;
}

} // namespace

PanelLook withFamily(PanelLook look, const std::string& family) {
    look.font.name = family;
    look.titleFont.name = family;
    return look;
}

PanelLook panelLook(Theme theme, double fontSize, double pixelRatio) {
    PanelLook look = theme == Theme::light ? light() : theme == Theme::dark ? dark() : paper();
    look.theme = theme;
    look.font = {"Arial", fontSize, false};
    look.titleFont = {"Arial", fontSize, true};
    look.pixel = theme == Theme::paper ? twipsPerDot : twipsPerPixel / pixelRatio;
    return look;
}

} // namespace korvel
