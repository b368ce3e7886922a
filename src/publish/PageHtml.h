// Markup, element by element: what is opened is closed, and texts are texts.
#pragma once

#include "tables/OutputBytes.h"

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

struct PageAttribute {
    std::string_view name; // one without a name is left out
    std::string value;     // UTF-8
};

class PageHtml {
  public:
    using Attributes = std::initializer_list<PageAttribute>;

    explicit PageHtml(OutputBytes& out) : m_out(out) {}

    PageHtml& open(std::string_view element, Attributes attributes = {});
    PageHtml& close(); // the innermost that is open
    PageHtml& closeLine() { return close().line(); }
    PageHtml& empty(std::string_view element, Attributes attributes = {}); // one that has no content
    PageHtml& line();

    PageHtml& words(std::string_view utf8); // ours
    // Of a file. One that may run from right to left keeps that to itself; a very long one is cut, and leads
    // to where it stands whole.
    PageHtml& name(std::string_view asInFiles);
    // Which of the long texts it is, from 1; 0 where it is none.
    std::size_t longText(std::string_view asInFiles);
    const std::vector<std::string>& longTexts() const { return m_longTexts; } // UTF-8
    PageHtml& element(std::string_view element, std::string_view utf8, Attributes attributes = {});
    // As it stands.
    PageHtml& markup(std::string_view text);

    OutputBytes& out() { return m_out; }

  private:
    void begin(std::string_view element, Attributes attributes);

    OutputBytes& m_out;
    std::vector<std::string> m_open;
    std::vector<std::string> m_longTexts;
    std::map<std::string, std::size_t, std::less<>> m_longNumbers; // by the bytes of the file
};

} // namespace korvel
