// What screen readers are told of pictures: Qt takes a widget that paints itself for a mere filler.
#pragma once

class QWidget;

namespace korvel {

// Before anything is told of it, its name among that: what it is, is asked once.
void tellAsChart(QWidget& picture);
void tellAsImage(QWidget& picture);

} // namespace korvel
