// A Drawing as a picture: in memory, or as the bytes of a file.
#pragma once

#include "drawing/Drawing.h"

#include <QImage>

#include <optional>
#include <string>

namespace korvel {

enum class PictureFormat { png, bmp, svg };

// By the name's extension, in any case.
std::optional<PictureFormat> pictureFormatOf(const std::string& fileName);

// White where nothing is drawn. `pixelRatio`: device pixels to a logical pixel. Error 7 where memory is
// short, here and below.
QImage pictureOf(const Drawing& drawing, double pixelRatio);

std::string pictureBytes(const Drawing& drawing, PictureFormat format, double pixelRatio = 1);

// A document of one page of the drawing's size; text stays text.
std::string pdfBytes(const Drawing& drawing);

} // namespace korvel
