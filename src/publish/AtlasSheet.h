// A page of an atlas in the making: A4 landscape, twips from the top left of its printable area.
#pragma once

#include "panels/PanelLook.h"
#include "platform/Paper.h"

#include <functional>
#include <string>
#include <vector>

namespace korvel {

inline constexpr double atlasWidth = printableLongSide * 1440;
inline constexpr double atlasHeight = printableShortSide * 1440;

class AtlasSheet {
  public:
    // `reused`: a drawing that is done with; its memory serves again.
    explicit AtlasSheet(const TextMetrics& metrics, Drawing reused = {});

    const PanelLook& look() const { return m_look; }
    const TextMetrics& metrics() const { return m_metrics; }
    Drawing& drawing() { return m_drawing; }
    // What `paint` adds stands with its top left at a place.
    void add(DrawnPoint at, const std::function<void(Drawing&)>& paint);

    double line() const { return m_line; } // the height of one
    double width(const std::string& text, const Font& font) const;
    // `at`: left end, middle or right end of the text's top edge. Returns its right end.
    double text(DrawnPoint at, TextAlign align, const std::string& text, const Font& font, Rgb colour);
    // As many lines as it takes, of more than `most` the first ones; returns where the next one begins.
    double paragraph(DrawnPoint at, double width, const std::string& text, const Font& font, Rgb colour,
                     std::size_t most = 100);
    void rule(double y, Rgb colour);

    // What every page but the first has at its top; returns where its content begins.
    double head(const std::string& title, const std::string& beside);
    void foot(const std::string& title, std::size_t page, std::size_t pages);
    static double bottom() { return atlasHeight - 420; } // of the content

  private:
    const TextMetrics& m_metrics;
    PanelLook m_look;
    Drawing m_drawing;
    double m_line;
};

// Words on lines of a width. One that is wider is broken.
std::vector<std::string> wrapped(const std::string& utf8, double width, const Font& font,
                                 const TextMetrics& metrics);

} // namespace korvel
