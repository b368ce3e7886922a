// The icons of the Explorer, drawn in the colour of the text around them, so that they fit light and dark.
#pragma once

#include "panels/RunStyle.h"

#include <QIcon>

namespace korvel {

enum class Picture { open, save, zoomIn, zoomOut, showAll, goBack, share, remove, makeBase, up, down };

QIcon iconOf(Picture picture);

// A line in a run's colour and dash, as its curves have.
QIcon swatchOf(std::size_t run, Theme theme);

} // namespace korvel
