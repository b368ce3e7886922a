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
    return isPlain ? words(text) : element("bdi", text);
}

PageHtml& PageHtml::element(std::string_view element, std::string_view utf8, Attributes attributes) {
    return open(element, attributes).words(utf8).close();
}

PageHtml& PageHtml::markup(std::string_view text) {
    m_out.append(text);
    return *this;
}

} // namespace korvel
