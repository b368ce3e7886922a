// Text as Qt's fonts measure it, at 15 twips a logical pixel.
#pragma once

#include "platform/TextMetrics.h"

#include <QFont>

class QtTextMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override;
};

// A font of a size in points.
QFont qtFont(const Font& font);
