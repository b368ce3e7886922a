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

#include <cmath>

namespace korvel {

namespace {

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

std::string svgBytes(const Drawing& drawing) {
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

} // namespace

std::optional<PictureFormat> pictureFormatOf(const std::string& fileName) {
    const std::string name = lowerCase(fileName);
    if (name.ends_with(".png")) return PictureFormat::png;
    if (name.ends_with(".bmp")) return PictureFormat::bmp;
    if (name.ends_with(".svg")) return PictureFormat::svg;
    return std::nullopt;
}

QImage pictureOf(const Drawing& drawing, double pixelRatio) {
    QImage image(logicalSize(drawing) * pixelRatio, QImage::Format_RGB32);
    if (image.isNull()) throw RunTimeError(errors::outOfMemory);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintOnScreen(drawing, painter);
    return image;
}

std::string pictureBytes(const Drawing& drawing, PictureFormat format, double pixelRatio) {
    switch (format) {
    case PictureFormat::png: return imageBytes(pictureOf(drawing, pixelRatio), "PNG");
    case PictureFormat::bmp: return imageBytes(pictureOf(drawing, pixelRatio), "BMP");
    case PictureFormat::svg: return svgBytes(drawing);
    }
    return "";
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
