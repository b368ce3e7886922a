#include "publish/PageHtml.h"

#include "publish/PageText.h"

#include <algorithm>

namespace korvel {

void PageHtml::begin(std::string_view element, Attributes attributes) {
    m_out.append('<');
    m_out.append(element);
    for (const PageAttribute& attribute : attributes) {
        if (attribute.name.empty()) continue;
        m_out.append(' ');
        m_out.append(attribute.name);
        m_out.append("=\"");
        m_out.append(htmlOf(attribute.value));
        m_out.append('"');
    }
}

PageHtml& PageHtml::open(std::string_view element, Attributes attributes) {
    begin(element, attributes);
    m_out.append('>');
    m_open.emplace_back(element);
    return *this;
}

PageHtml& PageHtml::close() {
    m_out.append("</");
    m_out.append(m_open.back());
    m_out.append('>');
    m_open.pop_back();
    return *this;
}

PageHtml& PageHtml::empty(std::string_view element, Attributes attributes) {
    begin(element, attributes);
    m_out.append("/>");
    return *this;
}

PageHtml& PageHtml::line() {
    m_out.append('\n');
    return *this;
}

PageHtml& PageHtml::words(std::string_view utf8) {
    m_out.append(htmlOf(utf8));
    return *this;
}

PageHtml& PageHtml::name(std::string_view asInFiles) {
    const std::string text = pageText(asInFiles);
    const bool isPlain =
        std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    isPlain ? words(text) : element("bdi", text);
    if (const std::size_t number = longText(asInFiles))
        words(" ").element("a", "(whole text)", {{"href", "#text-" + std::to_string(number)}});
    return *this;
}

std::size_t PageHtml::longText(std::string_view asInFiles) {
    if (asInFiles.size() <= longestPageText) return 0; // no letter takes less than a byte
    if (const auto known = m_longNumbers.find(asInFiles); known != m_longNumbers.end()) return known->second;
    std::string whole = pageText(asInFiles, asInFiles.size() * 4);
    const bool isCut = pageText(asInFiles) != whole;
    if (isCut) m_longTexts.push_back(std::move(whole));
    const std::size_t number = isCut ? m_longTexts.size() : 0;
    m_longNumbers.emplace(asInFiles, number);
    return number;
}

PageHtml& PageHtml::element(std::string_view element, std::string_view utf8, Attributes attributes) {
    return open(element, attributes).words(utf8).close();
}

PageHtml& PageHtml::markup(std::string_view text) {
    m_out.append(text);
    return *this;
}

} // namespace korvel
