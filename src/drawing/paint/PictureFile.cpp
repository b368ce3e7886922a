#include "drawing/paint/PictureFile.h"

#include "basic/Product.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/Twips.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <array>
#include <cmath>
#include <vector>

namespace korvel {

namespace {

constexpr double screenDotsPerInch = 96; // at a device pixel a pixel
constexpr double metresOfInch = 0.0254;

QSize logicalSize(const Drawing& drawing) {
    return {pixels(drawing.width), pixels(drawing.height)};
}

std::string imageBytes(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format)) throw RunTimeError(errors::outOfMemory);
    return buffer.data().toStdString();
}

// Control characters in a text are no XML, and no letters either.
std::string withoutControls(std::string xml) {
    std::erase_if(xml, [](char c) {
        const bool isSpace = c == '\t' || c == '\n' || c == '\r';
        return static_cast<unsigned char>(c) < 0x20 && !isSpace;
    });
    return xml;
}

std::string pngBytes(const Drawing& drawing, double pixelRatio) {
    QImage picture = pictureOf(drawing, pixelRatio);
    // So that documents which take it up show it as large as it was laid out.
    const int dotsPerMetre = qRound(screenDotsPerInch * pixelRatio / metresOfInch);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return imageBytes(picture, "PNG");
}

std::string bmpBytes(const Drawing& drawing, double pixelRatio) {
    return imageBytes(pictureOf(drawing, pixelRatio), "BMP");
}

std::string pdfBytes(const Drawing& drawing, double) {
    return korvel::pdfBytes(drawing);
}

std::string svgBytes(const Drawing& drawing, double) {
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96);
    generator.setSize(logicalSize(drawing));
    generator.setViewBox(QRect(QPoint(0, 0), logicalSize(drawing)));
    generator.setTitle("KORVEL graph");
    QPainter painter(&generator);
    painter.fillRect(generator.viewBox(), Qt::white);
    paintOnScreen(drawing, painter);
    painter.end();
    return withoutControls(buffer.data().toStdString());
}

std::string choiceOf(PictureChoice choice, const char* PictureFormat::*part, const std::string& conjunction) {
    std::vector<std::string> parts;
    for (const PictureFormat& format : pictureFormats())
        if (choice == PictureChoice::all || !format.hasOwnDialog) parts.emplace_back(format.*part);
    return inWords(parts, conjunction);
}

} // namespace

std::span<const PictureFormat> pictureFormats() {
    static constexpr std::array formats{
        PictureFormat{".png", "PNG", pngBytes, false}, PictureFormat{".svg", "SVG", svgBytes, false},
        PictureFormat{".pdf", "PDF", pdfBytes, false}, PictureFormat{".bmp", "BMP", bmpBytes, true}};
    return formats;
}

const PictureFormat* pictureFormatOf(const std::string& fileName) {
    const std::string name = lowerCase(fileName);
    for (const PictureFormat& format : pictureFormats())
        if (name.ends_with(format.extension)) return &format;
    return nullptr;
}

std::string pictureExtensions(PictureChoice choice, const std::string& conjunction) {
    return choiceOf(choice, &PictureFormat::extension, conjunction);
}

std::string pictureNames(PictureChoice choice, const std::string& conjunction) {
    return choiceOf(choice, &PictureFormat::name, conjunction);
}

std::string pictureFilter() {
    std::string patterns;
    for (const PictureFormat& format : pictureFormats())
        if (!format.hasOwnDialog) patterns += (patterns.empty() ? "*" : " *") + std::string(format.extension);
    return "Picture files (" + patterns + ")|" + patterns;
}

QImage pictureOf(const Drawing& drawing, double pixelRatio) {
    const auto pixelsOf = [&](double twips) { return qRound(twips / twipsPerPixel * pixelRatio); };
    QImage image(pixelsOf(drawing.width), pixelsOf(drawing.height), QImage::Format_RGB32);
    if (image.isNull()) throw RunTimeError(errors::outOfMemory);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintOnScreen(drawing, painter);
    return image;
}

std::string pdfBytes(const Drawing& drawing) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    const QSizeF inches(drawing.width / drawing.unitsPerInch, drawing.height / drawing.unitsPerInch);
    writer.setResolution(300);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(inches, QPageSize::Inch, {}, QPageSize::ExactMatch));
    writer.setTitle("KORVEL graph");
    writer.setCreator(productName);
    QPainter painter(&writer);
    paintOnScreen(drawing, painter);
    painter.end();
    return buffer.data().toStdString();
}

} // namespace korvel
