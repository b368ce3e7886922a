// The image that a painter paints to, where its pixels can be set as well: Qt takes longer to begin what is
// small than to paint it.
#pragma once

#include <QImage>
#include <QPainter>

namespace korvel {

// None where the painter moves, cuts or mixes what it paints.
inline QImage* paintedImage(const QPainter& painter) {
    if (painter.device()->devType() != QInternal::Image) return nullptr;
    auto* image = static_cast<QImage*>(painter.device());
    const bool hasPixels =
        image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
    const bool isPlain = painter.deviceTransform().isIdentity() && !painter.hasClipping() &&
                         painter.opacity() == 1 &&
                         painter.compositionMode() == QPainter::CompositionMode_SourceOver;
    return hasPixels && isPlain ? image : nullptr;
}

} // namespace korvel
