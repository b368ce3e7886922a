#include "drawing/paint/SlantPictures.h"

#include "drawing/paint/SolidPen.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace korvel {

namespace {

// Where there is ink in a column of the image.
Stretch inkedStretch(const QImage& image, int column) {
    Stretch stretch{image.height(), -1};
    for (int row = 0; row < image.height(); ++row)
        if (image.pixel(column, row) != qRgb(255, 255, 255)) stretch = {std::min(stretch.top, row), row};
    return stretch;
}

} // namespace

SlantPictures& SlantPictures::ofPen(int width) {
    static std::map<int, SlantPictures> pens;
    return pens.try_emplace(width, width).first->second;
}

SlantPictures::SlantPictures(int penWidth) : m_penWidth(penWidth), m_pictures(2 * steepest + 1) {}

const SlantPictures::Picture& SlantPictures::to(int rise) {
    Picture& picture = m_pictures.at(static_cast<std::size_t>(rise + steepest));
    if (picture.stretches.empty()) picture = paint(rise);
    return picture;
}

SlantPictures::Picture SlantPictures::paint(int rise) const {
    const QPoint from(reach(), reach() + std::max(-rise, 0));
    QImage image(2 + 2 * reach(), 1 + std::abs(rise) + 2 * reach(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(solidPen(Qt::black, m_penWidth));
    painter.drawLine(from, from + QPoint(1, rise));
    painter.end();
    Picture picture;
    for (int column = 0; column < image.width(); ++column) {
        const Stretch inked = inkedStretch(image, column);
        if (inked.bottom < 0) continue;
        if (picture.stretches.empty()) picture.firstColumn = column - from.x();
        picture.stretches.push_back({inked.top - from.y(), inked.bottom - from.y()});
    }
    return picture;
}

} // namespace korvel
