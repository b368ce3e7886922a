#include "tables/Csv.h"

#include "basic/Text.h"
#include "tables/ShortNumber.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

namespace korvel {

namespace {

const char* const lineEnd = "\r\n";

class CsvRows : public RowTaker {
  public:
    // `lead`: what every row begins with, ended by a comma.
    CsvRows(OutputBytes& out, std::string lead) : m_out(out), m_lead(std::move(lead)) {}

    void row(std::span<const Cell> cells) override {
        m_out.append(m_lead);
        appendCells(m_out, cells);
        m_out.append(lineEnd);
    }
    ReadyCells ready(std::size_t, std::span<const Cell> cells) override {
        m_ready.clear();
        appendCells(m_readying, cells);
        m_readying.append(',');
        m_readying.flush();
        return {m_ready};
    }
    void row(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) override {
        const std::size_t ready = m_lead.size() + first.bytes.size() + second.bytes.size();
        const bool isShort = ready + (last.size() + 1) * (longestNumber + 1) < OutputBytes::block;
        if (isShort && areNumbers(last)) return numbersRow(first, second, last);
        m_out.append(m_lead);
        m_out.append(first.bytes);
        m_out.append(second.bytes);
        appendCells(m_out, last);
        m_out.append(lineEnd);
    }

    static void appendCells(OutputBytes& out, std::span<const Cell> cells) {
        for (std::size_t k = 0; k < cells.size(); ++k) {
            if (k > 0) out.append(',');
            std::visit([&](const auto& value) { append(out, value); }, cells[k]);
        }
    }

  private:
    static bool areNumbers(std::span<const Cell> cells) {
        return std::ranges::all_of(cells, [](const Cell& cell) {
            return std::holds_alternative<double>(cell) || std::holds_alternative<Nothing>(cell);
        });
    }
    // A long table has nearly nothing but such rows: written in one go.
    void numbersRow(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) {
        const std::size_t most = m_lead.size() + first.bytes.size() + second.bytes.size() +
                                 (last.size() + 1) * (longestNumber + 1);
        char* at = m_out.begin(most);
        for (const std::string* part : {&std::as_const(m_lead), &first.bytes, &second.bytes})
            at += part->copy(at, part->size());
        m_written.resize(last.size());
        for (std::size_t k = 0; k < last.size(); ++k) {
            if (k > 0) *at++ = ',';
            if (const double* number = std::get_if<double>(&last[k])) at = m_written[k].write(at, *number);
        }
        *at++ = '\r';
        *at++ = '\n';
        m_out.end(at);
    }

    // A column often holds the same number again, such as a target: from the second time on it is copied. The
    // first time it goes straight to its place, since a processor waits long where it reads what was just
    // written in smaller pieces.
    class WrittenNumber {
      public:
        char* write(char* into, double number) {
            const auto bits = std::bit_cast<std::uint64_t>(number);
            if (bits != m_bits) {
                m_bits = bits;
                m_length = 0;
                return written(into, number);
            }
            if (m_length == 0)
                m_length = static_cast<std::size_t>(written(m_text.data(), number) - m_text.data());
            std::memcpy(into, m_text.data(), longestNumber);
            return into + m_length;
        }

      private:
        static char* written(char* into, double number) {
            return std::isfinite(number) ? writeShortest(into, number) : into;
        }

        std::uint64_t m_bits = 0;
        std::size_t m_length = 0; // 0 where it was not copied yet
        std::array<char, longestNumber> m_text{};
    };

    static void append(OutputBytes&, Nothing) {}
    static void append(OutputBytes& out, bool value) { out.append(value ? "true" : "false"); }
    static void append(OutputBytes& out, int value) { out.appendNumber(value); }
    // What went beyond a double's range is no number.
    static void append(OutputBytes& out, double value) {
        if (std::isfinite(value)) out.appendNumber(value);
    }
    static void append(OutputBytes& out, std::string_view value) { out.append(csvText(value)); }
    static void append(OutputBytes& out, std::span<const std::string> names) {
        out.append(csvText(joined(names)));
    }

    OutputBytes& m_out;
    std::string m_lead;
    std::vector<WrittenNumber> m_written; // by column, of the row before
    std::string m_ready;
    OutputBytes m_readying{[this](std::string_view text) { m_ready += text; }};
};

std::string leadOf(const std::vector<Fact>& facts) {
    std::string lead;
    OutputBytes bytes([&](std::string_view text) { lead += text; });
    for (const Fact& fact : facts) {
        const Cell cell = viewOf(fact.value);
        CsvRows::appendCells(bytes, {&cell, 1});
        bytes.append(',');
    }
    bytes.flush();
    return lead;
}

void writeHeading(const std::vector<Fact>& facts, const Table& table, OutputBytes& out) {
    std::string heading;
    for (const Fact& fact : facts)
        heading += fact.column.flatName() + ",";
    for (const Column& column : table.columns)
        heading += column.flatName() + ",";
    heading.pop_back();
    out.append(heading);
    out.append(lineEnd);
}

} // namespace

std::string csvText(std::string_view text) {
    std::string shown = shownUtf8(text);
    if (!shown.empty() && std::string_view("=+-@\t\r").find(shown[0]) != std::string_view::npos)
        shown.insert(0, 1, '\'');
    if (shown.find_first_of(",\"\r\n") == std::string::npos) return shown;
    std::string quoted = "\"";
    for (const char c : shown)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

void writeCsv(const TableReport& report, OutputBytes& out) {
    bool first = true;
    for (const RunTables& run : report.runs) {
        const Table& table = rowsOf(run);
        const std::vector<Fact> lead = factsInRows(run);
        if (std::exchange(first, false)) writeHeading(lead, table, out);
        CsvRows rows(out, leadOf(lead));
        table.rows(rows);
    }
}

void writeCsv(const Table& table, OutputBytes& out) {
    writeHeading({}, table, out);
    CsvRows rows(out, "");
    table.rows(rows);
}

} // namespace korvel
