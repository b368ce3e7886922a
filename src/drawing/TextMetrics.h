// Sizes of text, for layout.
#pragma once

#include <string>
#include <string_view>

namespace korvel {

struct Font {
    std::string name = "Arial";
    double size = 8; // points
    bool bold = false;
    bool operator==(const Font&) const = default;
};

struct TextSize { // twips
    double width = 0;
    double height = 0;
};

class TextMetrics {
  public:
    virtual ~TextMetrics() = default;
    virtual TextSize measure(std::string_view text, const Font& font) const = 0;
};

} // namespace korvel
