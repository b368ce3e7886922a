// The program's own icon, for the windows' frames and the list of windows.
#pragma once

namespace korvel {

// Gives it to all windows. It is painted then, in the sizes that desktops ask for: a millisecond, which the
// main form spends after its first painting.
void showProductIcon();

} // namespace korvel
