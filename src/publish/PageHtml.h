// Markup, element by element: what is opened is closed, and texts are texts.
#pragma once

#include "tables/OutputBytes.h"

#include <initializer_list>
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
    PageHtml&
    name(std::string_view asInFiles); // of a file; one that may run from right to left keeps that to itself
    PageHtml& element(std::string_view element, std::string_view utf8, Attributes attributes = {});
    // As it stands.
    PageHtml& markup(std::string_view text);

    OutputBytes& out() { return m_out; }
    std::size_t depth() const { return m_open.size(); }

  private:
    void begin(std::string_view element, Attributes attributes);

    OutputBytes& m_out;
    std::vector<std::string> m_open;
};

} // namespace korvel
