// What has to be settled before the application object exists, and how the program looks.
#pragma once

#include <QProcessEnvironment>

namespace korvel {

// One point is always 96/72 logical pixels, whatever the desktop says of its fonts: places are in twips, and
// captions must fit them.
void settleBeforeQt();

// As it was before that: windows of our own that follow the desktop's text are started with it.
QProcessEnvironment desktopsEnvironment();

// How much larger than usual the desktop wants text, as far as the environment tells; 1 where it says
// nothing.
double desktopsTextFactor();

// For commands: no display is needed.
void settleForNoDisplay();

// Style and colours, once the application object exists.
void settleLook();

// The same for the Explorer, whose text is as large as the desktop says and whose colours are its own.
void settleExplorerLook();

} // namespace korvel
