#include "many/CsvRecords.h"

#include "basic/Text.h"

#include <algorithm>
#include <optional>

namespace korvel {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class CsvReader {
  public:
    explicit CsvReader(std::string_view text) : m_text(text) {}

    CsvRecords read() {
        if (m_text.starts_with(byteOrderMark)) m_at = byteOrderMark.size();
        while (m_at < m_text.size()) {
            if (skipsLine())
                toNextLine();
            else
                readRecord();
        }
        return std::move(m_read);
    }

  private:
    bool isEnd() const { return m_at >= m_text.size() || m_text[m_at] == '\n'; }
    bool isLineEnd() const {
        return isEnd() || (m_text[m_at] == '\r' && (m_at + 1 == m_text.size() || m_text[m_at + 1] == '\n'));
    }

    bool skipsLine() const {
        if (m_text[m_at] == '#') return true;
        const auto first = m_text.find_first_not_of(" \t", m_at);
        return first == std::string_view::npos || m_text[first] == '\n' ||
               (m_text[first] == '\r' && (first + 1 == m_text.size() || m_text[first + 1] == '\n'));
    }

    void toNextLine() {
        const auto end = m_text.find('\n', m_at);
        m_at = end == std::string_view::npos ? m_text.size() : end + 1;
    }

    void readRecord() {
        CsvRecord record;
        m_problem.reset();
        do {
            record.push_back(readField());
        } while (!m_problem && takeComma());
        if (m_problem) {
            m_read.problems.push_back(*m_problem);
        } else {
            m_read.records.push_back(std::move(record));
        }
        toNextLine();
    }

    bool takeComma() {
        if (m_at >= m_text.size() || m_text[m_at] != ',') return false;
        ++m_at;
        return true;
    }

    void skipBlanks() {
        while (m_at < m_text.size() && (m_text[m_at] == ' ' || m_text[m_at] == '\t'))
            ++m_at;
    }

    CsvField readField() {
        skipBlanks();
        CsvField field{"", m_at};
        if (m_at < m_text.size() && m_text[m_at] == '"')
            readQuoted(field);
        else
            readPlain(field);
        if (!m_problem && shownUtf8(field.text) != field.text) refuse(field.offset, "The text is not UTF-8.");
        return field;
    }

    void readPlain(CsvField& field) {
        const std::size_t start = m_at;
        while (!isLineEnd() && m_text[m_at] != ',') {
            if (m_text[m_at] == '"') refuse(m_at, "A quote stands inside a text without quotes.");
            ++m_at;
        }
        field.text = m_text.substr(start, m_at - start);
        field.text.erase(field.text.find_last_not_of(" \t") + 1);
    }

    void readQuoted(CsvField& field) {
        for (;;) {
            const auto quote = m_text.find('"', m_at + 1);
            if (quote == std::string_view::npos) {
                m_at = m_text.size();
                return refuse(field.offset, "The quote is never closed.");
            }
            field.text += m_text.substr(m_at + 1, quote - m_at - 1);
            m_at = quote + 1;
            if (m_at >= m_text.size() || m_text[m_at] != '"') break;
            field.text += '"';
        }
        skipBlanks();
        if (!isLineEnd() && m_text[m_at] != ',') refuse(m_at, "Text stands behind a closing quote.");
    }

    void refuse(std::size_t offset, const char* text) {
        if (!m_problem) m_problem = CsvProblem{offset, text};
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::optional<CsvProblem> m_problem; // the first of the record
    CsvRecords m_read;
};

} // namespace

CsvRecords csvRecords(std::string_view text) {
    return CsvReader(text).read();
}

PlaceInText placeInText(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto lineEnd = before.rfind('\n');
    std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    if (lineStart == 0 && before.starts_with(byteOrderMark)) lineStart = byteOrderMark.size();
    return {static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
            shownLength(before.substr(lineStart)) + 1};
}

} // namespace korvel
