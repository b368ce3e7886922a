#include "toolkit/paper/PdfOutline.h"

#include "basic/RunTimeError.h"
#include "drawing/paint/Shown.h"

#include <QString>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace korvel {

namespace {

// No more than this reads: what it can't find is no document of the writer's.
class PdfDocument {
  public:
    explicit PdfDocument(std::string_view bytes) : m_bytes(bytes) {
        m_crossReference = numberAfter(m_bytes, last("startxref"));
        std::size_t at = after("xref", m_crossReference);
        at = skipBlanks(at);
        if (numberAfter(m_bytes, at) != 0) fail();
        const std::size_t count = numberAfter(m_bytes, m_bytes.find(' ', at));
        m_entries = m_bytes.find('\n', at) + 1;
        if (count > m_bytes.size() / entrySize) fail();
        for (std::size_t k = 0; k < count; ++k)
            m_offsets.push_back(numberAfter(m_bytes, entryOf(k)));
        m_trailer = m_bytes.substr(after("trailer", m_crossReference));
    }

    std::size_t crossReference() const { return m_crossReference; }
    std::size_t objectCount() const { return m_offsets.size(); }
    std::size_t offsetOf(std::size_t object) const { return m_offsets[object]; }
    // Where the table of objects tells the offset.
    std::size_t entryOf(std::size_t object) const { return m_entries + object * entrySize; }
    std::size_t root() const { return required(m_trailer, "/Root"); }
    std::size_t info() const { return required(m_trailer, "/Info"); }

    // Between "N 0 obj" and "endobj".
    std::string_view object(std::size_t number) const {
        if (number >= m_offsets.size()) fail();
        const std::size_t begin = after("obj", m_offsets[number]);
        const std::size_t end = m_bytes.find("endobj", begin);
        if (end == std::string_view::npos) fail();
        return m_bytes.substr(begin, end - begin);
    }

    // "/Root 2 0 R"
    static std::optional<std::size_t> reference(std::string_view text, std::string_view key) {
        const std::size_t at = text.find(key);
        if (at == std::string_view::npos) return std::nullopt;
        return numberAfter(text, at + key.size());
    }

    static std::size_t required(std::string_view text, std::string_view key) {
        const auto found = reference(text, key);
        if (!found) fail();
        return *found;
    }

    std::vector<std::size_t> pages() const {
        std::string_view kids = object(required(object(root()), "/Pages"));
        const std::size_t begin = kids.find('[', kids.find("/Kids")), end = kids.find(']', begin);
        if (end == std::string_view::npos) fail();
        kids = kids.substr(begin + 1, end - begin - 1);
        std::vector<std::size_t> found;
        for (std::size_t at = kids.find_first_not_of(" \r\n"); at != std::string_view::npos;) {
            found.push_back(numberAfter(kids, at));
            at = kids.find('R', at);
            if (at != std::string_view::npos) at = kids.find_first_not_of(" \r\n", at + 1);
        }
        return found;
    }

    [[noreturn]] static void fail() { throw RunTimeError(errors::printerError); }

  private:
    static std::size_t numberAfter(std::string_view text, std::size_t at) {
        if (at != std::string_view::npos) at = text.find_first_not_of(" \r\n", at);
        if (at == std::string_view::npos) fail();
        std::size_t number = 0;
        const auto read = std::from_chars(text.data() + at, text.data() + text.size(), number);
        if (read.ec != std::errc()) fail();
        return number;
    }
    std::size_t last(std::string_view word) const {
        const std::size_t at = m_bytes.rfind(word);
        if (at == std::string_view::npos) fail();
        return at + word.size();
    }
    std::size_t after(std::string_view word, std::size_t from) const {
        const std::size_t at = m_bytes.find(word, from);
        if (at == std::string_view::npos) fail();
        return at + word.size();
    }
    std::size_t skipBlanks(std::size_t at) const { return m_bytes.find_first_not_of(" \r\n", at); }

    std::string_view m_bytes;
    std::string_view m_trailer;
    static constexpr std::size_t entrySize = 20; // bytes
    std::size_t m_crossReference = 0;
    std::size_t m_entries = 0;
    std::vector<std::size_t> m_offsets;
};

std::string referenceTo(std::size_t object) {
    return std::to_string(object) + " 0 R";
}

std::string decimal(double value) {
    char digits[64];
    return {digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2).ptr};
}

// A text in the letters that documents take: two bytes each, as hexadecimal digits.
std::string textString(const std::string& text) {
    std::string hex = "<FEFF";
    for (const QChar letter : shown(text)) {
        char digits[5];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(letter.unicode()));
        hex += digits;
    }
    return hex + ">";
}

class UpdateMaking {
  public:
    UpdateMaking(const std::string& document, const DocumentOutline& outline, const SheetPlace& place)
        : m_document(document),
          m_end(document.size()),
          m_outline(outline),
          m_place(place),
          m_pages(m_document.pages()),
          m_next(m_document.objectCount()) {}

    std::string make() {
        addLinks();
        std::string catalog(m_document.object(m_document.root()));
        std::string more =
            "/Lang " + textString(m_outline.language) + "\n/ViewerPreferences << /DisplayDocTitle true >>\n";
        if (!m_outline.bookmarks.empty())
            more += "/PageMode /UseOutlines\n/Outlines " + referenceTo(addBookmarks()) + "\n";
        setObject(m_document.root(), withEntries(catalog, more));
        return m_bytes + crossReference();
    }

  private:
    // Behind the document's last line end.
    void setObject(std::size_t number, const std::string& text) {
        if (m_bytes.empty()) m_bytes = "\n";
        m_offsets[number] = m_end + m_bytes.size();
        m_bytes += std::to_string(number) + " 0 obj\n" + text + "\nendobj\n";
    }

    static std::string withEntries(const std::string& dictionary, const std::string& more) {
        const std::size_t end = dictionary.rfind(">>");
        if (end == std::string::npos) PdfDocument::fail();
        return dictionary.substr(0, end) + more + ">>";
    }

    std::string destination(std::size_t page) const {
        if (page >= m_pages.size()) PdfDocument::fail();
        return "[" + referenceTo(m_pages[page]) + " /Fit]";
    }

    // Each page names its list of notes, which the writer leaves empty.
    void addLinks() {
        for (std::size_t page = 0; page < m_outline.links.size(); ++page) {
            if (m_outline.links[page].empty()) continue;
            if (page >= m_pages.size()) PdfDocument::fail();
            const std::size_t list = PdfDocument::required(m_document.object(m_pages[page]), "/Annots");
            std::string links = "[";
            for (const PageLink& link : m_outline.links[page])
                links += annotation(link);
            setObject(list, links + "]");
        }
    }
    std::string annotation(const PageLink& link) const {
        const auto x = [&](double share) {
            return decimal(m_place.drawing.left() + share * m_place.drawing.width());
        };
        const auto y = [&](double share) {
            return decimal(m_place.height - m_place.drawing.top() - share * m_place.drawing.height());
        };
        return "<< /Type /Annot /Subtype /Link /Border [0 0 0] /F 4 /Rect [" + x(link.left) + " " +
               y(link.bottom) + " " + x(link.right) + " " + y(link.top) + "] /Dest " +
               destination(link.page) + " >>\n";
    }

    struct Entry {
        const Bookmark* bookmark;
        std::vector<std::size_t> children;
        std::size_t object = 0;
    };

    // A bookmark of a deeper level belongs to the one before it of the level above.
    std::size_t addBookmarks() {
        m_entries.push_back({nullptr, {}, m_next++});
        std::vector<std::size_t> open{0}; // the last of each level
        for (const Bookmark& bookmark : m_outline.bookmarks) {
            const auto level =
                std::min(static_cast<std::size_t>(std::max(bookmark.level, 0)), open.size() - 1);
            open.resize(level + 1);
            m_entries[open.back()].children.push_back(m_entries.size());
            open.push_back(m_entries.size());
            m_entries.push_back({&bookmark, {}, m_next++});
        }
        setObject(m_entries[0].object, "<< /Type /Outlines" + childrenOf(0) + " >>");
        for (std::size_t k = 0; k < m_entries.size(); ++k)
            addChildren(k);
        return m_entries[0].object;
    }
    std::string childrenOf(std::size_t entry) const {
        const std::vector<std::size_t>& children = m_entries[entry].children;
        if (children.empty()) return "";
        // Those of the first level are shown open, deeper ones closed.
        const std::string count = (entry == 0 ? "" : "-") + std::to_string(children.size());
        return " /First " + referenceTo(m_entries[children.front()].object) + " /Last " +
               referenceTo(m_entries[children.back()].object) + " /Count " + count;
    }
    void addChildren(std::size_t parent) {
        const std::vector<std::size_t> children = m_entries[parent].children;
        for (std::size_t k = 0; k < children.size(); ++k) {
            const Entry& entry = m_entries[children[k]];
            std::string text = "<< /Title " + textString(entry.bookmark->title) + " /Parent " +
                               referenceTo(m_entries[parent].object) + " /Dest " +
                               destination(entry.bookmark->page);
            if (k > 0) text += " /Prev " + referenceTo(m_entries[children[k - 1]].object);
            if (k + 1 < children.size()) text += " /Next " + referenceTo(m_entries[children[k + 1]].object);
            setObject(entry.object, text + childrenOf(children[k]) + " >>");
        }
    }

    std::string crossReference() const {
        std::string table = "xref\n";
        for (const auto& [number, offset] : m_offsets) {
            char entry[32];
            std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", offset);
            table += std::to_string(number) + " 1\n" + entry;
        }
        return table + "trailer\n<<\n/Size " + std::to_string(m_next) + "\n/Info " +
               referenceTo(m_document.info()) + "\n/Root " + referenceTo(m_document.root()) + "\n/Prev " +
               std::to_string(m_document.crossReference()) + "\n>>\nstartxref\n" +
               std::to_string(m_end + m_bytes.size()) + "\n%%EOF\n";
    }

    PdfDocument m_document;
    std::size_t m_end;
    const DocumentOutline& m_outline;
    const SheetPlace& m_place;
    std::vector<std::size_t> m_pages;
    std::size_t m_next; // object number
    std::vector<Entry> m_entries;
    std::string m_bytes;
    std::map<std::size_t, std::size_t> m_offsets;
};

// The ten digits of an offset.
void setDigits(std::string& document, std::size_t at, std::size_t offset) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%010zu", offset);
    std::copy_n(digits, 10, document.begin() + static_cast<std::ptrdiff_t>(at));
}

} // namespace

std::string pdfUpdate(const std::string& document, const DocumentOutline& outline, const SheetPlace& place) {
    return UpdateMaking(document, outline, place).make();
}

// All that stands behind it moves up: how long it is depends on the time zone.
void removeDate(std::string& document) {
    const PdfDocument read(document);
    const std::string_view info = read.object(read.info());
    const std::size_t begin = info.find("/CreationDate ("), end = info.find(')', begin);
    if (begin == std::string_view::npos || end == std::string_view::npos) return;
    const std::size_t at = static_cast<std::size_t>(info.data() - document.data()) + begin;
    const std::size_t length = end + 1 - begin;
    for (std::size_t k = 0; k < read.objectCount(); ++k)
        if (read.offsetOf(k) > at) setDigits(document, read.entryOf(k), read.offsetOf(k) - length);
    document.resize(document.rfind("startxref"));
    document += "startxref\n" + std::to_string(read.crossReference() - length) + "\n%%EOF\n";
    document.erase(at, length);
}

void OutlinedTarget::finish() {
    removeDate(m_document);
    m_target->write(m_document);
    m_target->write(pdfUpdate(m_document, *m_outline, m_place));
    m_target->finish();
}

} // namespace korvel
