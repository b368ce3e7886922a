#include "tables/TextPage.h"

#include "basic/Text.h"

namespace korvel {

void TextPage::add(const std::string& line, TextTone tone) {
    m_text += toned(withVisibleControls(shownUtf8(line)), tone, m_look) + '\n';
}

void TextPage::heading(const std::string& line) {
    space();
    add(line, TextTone::heading);
}

void TextPage::line(const std::string& line) {
    add(line, TextTone::plain);
}

void TextPage::space() {
    if (!m_text.empty() && !m_text.ends_with("\n\n")) m_text += '\n';
}

void TextPage::table(const TextTable& table) {
    m_text += table.text(m_look);
}

} // namespace korvel
