// A Drawing as a picture: in memory, or as the bytes of a file.
#pragma once

#include "drawing/Drawing.h"

#include <QImage>

#include <span>
#include <string>

namespace korvel {

// The formats in which pictures are written. A further one is an entry of the list: dialogs, commands, their
// help and their messages follow.
struct PictureFormat {
    const char* extension; // of files, in any case: ".png"
    const char* name;      // "PNG"
    // `pixelRatio`: device pixels to a logical pixel.
    std::string (*bytes)(const Drawing& drawing, double pixelRatio);
    bool hasOwnDialog; // and is not among the others' file types
};
std::span<const PictureFormat> pictureFormats();
const PictureFormat* pictureFormatOf(const std::string& fileName); // null for another extension

// In words: ".png, .svg, .pdf or .bmp" and "PNG, SVG or PDF".
enum class PictureChoice { all, ofDialog };
std::string pictureExtensions(PictureChoice choice, const std::string& conjunction);
std::string pictureNames(PictureChoice choice, const std::string& conjunction);
// Of a file dialog: "Picture files (*.png *.svg *.pdf)|*.png *.svg *.pdf".
std::string pictureFilter();

// White where nothing is drawn. `pixelRatio`: device pixels to a logical pixel. Error 7 where memory is
// short, here and below.
QImage pictureOf(const Drawing& drawing, double pixelRatio);

// A document of one page of the drawing's size; text stays text.
std::string pdfBytes(const Drawing& drawing);

} // namespace korvel
