// Measures each short text of one font once: a long report shows the same numbers again and again.
#pragma once

#include "drawing/TextMetrics.h"

#include <string>
#include <unordered_map>

namespace korvel {

class RememberedMetrics : public TextMetrics {
  public:
    RememberedMetrics(const TextMetrics& metrics, Font font) : m_metrics(metrics), m_font(std::move(font)) {}

    TextSize measure(std::string_view text, const Font& font) const override {
        if (text.size() > longestText || font != m_font) return m_metrics.measure(text, font);
        if (m_sizes.size() == mostTexts) m_sizes.clear();
        const auto [place, isNew] = m_sizes.try_emplace(std::string(text));
        if (isNew) place->second = m_metrics.measure(text, font);
        return place->second;
    }

  private:
    static constexpr std::size_t longestText = 15;
    static constexpr std::size_t mostTexts = 50000;

    const TextMetrics& m_metrics;
    Font m_font;
    mutable std::unordered_map<std::string, TextSize> m_sizes;
};

} // namespace korvel
