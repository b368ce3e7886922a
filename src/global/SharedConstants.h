// Set once at start and only read afterwards.
#pragma once

#include "basic/Palette.h"

#include <numbers>
#include <string>

namespace korvel {

struct SharedConstants {
    double ScaleX = 1; // work-area width / 9600 twips
    double ScaleY = 1; // work-area height / 6780 twips
    int sixty = 60;
    int fortyFive = 45;
    int ninety = 90;
    double pi = std::numbers::pi;
    int highlightColour = colours::yellow;
    std::string doubleLineBreak = "\r\n\r\n";
    std::string LoadingMessage = "PLEASE WAIT - DATA FILE LOADING";
};

} // namespace korvel
