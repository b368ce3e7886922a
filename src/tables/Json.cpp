#include "tables/Json.h"

#include "basic/Text.h"

#include <cmath>

namespace korvel {

namespace {

void append(OutputBytes& out, const Cell& cell);

void appendValue(OutputBytes& out, Nothing) {
    out.append("null");
}
void appendValue(OutputBytes& out, bool value) {
    out.append(value ? "true" : "false");
}
void appendValue(OutputBytes& out, int value) {
    out.appendNumber(value);
}
void appendValue(OutputBytes& out, double value) {
    if (!std::isfinite(value)) return appendValue(out, Nothing()); // what went beyond a double's range
    out.appendNumber(value);
}
void appendValue(OutputBytes& out, std::string_view value) {
    out.append(jsonText(value));
}
void appendValue(OutputBytes& out, std::span<const std::string> names) {
    out.append('[');
    for (std::size_t k = 0; k < names.size(); ++k) {
        if (k > 0) out.append(',');
        out.append(jsonText(names[k]));
    }
    out.append(']');
}

void append(OutputBytes& out, const Cell& cell) {
    std::visit([&](const auto& value) { appendValue(out, value); }, cell);
}

// What stands before a cell, by column: "name": or, where a group begins, "group":{"name":
struct CellFrame {
    std::string before;
    bool beginsGroup = false;
    std::string nothing; // in place of a whole group
    bool inGroup = false;
    bool endsGroup = false;
};

std::vector<CellFrame> framesOf(const std::vector<Column>& columns) {
    std::vector<CellFrame> frames;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const std::string& group = columns[k].group;
        const std::string comma = k > 0 ? "," : "";
        const std::string key = jsonText(columns[k].name) + ":";
        CellFrame frame{comma + key, false, "", !group.empty(), false};
        frame.beginsGroup = frame.inGroup && (k == 0 || columns[k - 1].group != group);
        frame.endsGroup = frame.inGroup && (k + 1 == columns.size() || columns[k + 1].group != group);
        if (frame.beginsGroup) {
            frame.before = comma + jsonText(group) + ":{" + key;
            frame.nothing = comma + jsonText(group) + ":null";
        }
        frames.push_back(std::move(frame));
    }
    return frames;
}

class JsonRows : public RowTaker {
  public:
    JsonRows(OutputBytes& out, const std::vector<Column>& columns)
        : m_out(out), m_frames(framesOf(columns)) {}

    void row(std::span<const Cell> cells) override {
        beginRow();
        appendCells(m_out, 0, cells);
        m_out.append('}');
    }
    ReadyCells ready(std::size_t firstColumn, std::span<const Cell> cells) override {
        m_ready.clear();
        appendCells(m_readying, firstColumn, cells);
        m_readying.flush();
        return {m_ready};
    }
    void row(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) override {
        beginRow();
        m_out.append(first.bytes);
        m_out.append(second.bytes);
        appendCells(m_out, m_frames.size() - last.size(), last);
        m_out.append('}');
    }

  private:
    void beginRow() {
        m_out.append(m_any ? ",\n{" : "\n{");
        m_any = true;
    }
    void appendCells(OutputBytes& out, std::size_t firstColumn, std::span<const Cell> cells) const {
        bool leftOut = false;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const CellFrame& frame = m_frames[firstColumn + k];
            if (frame.beginsGroup) leftOut = std::holds_alternative<Nothing>(cells[k]);
            if (frame.beginsGroup && leftOut) out.append(frame.nothing);
            if (frame.inGroup && leftOut) continue;
            out.append(frame.before);
            append(out, cells[k]);
            if (frame.endsGroup) out.append('}');
        }
    }

    OutputBytes& m_out;
    std::vector<CellFrame> m_frames;
    bool m_any = false;
    std::string m_ready;
    OutputBytes m_readying{[this](std::string_view text) { m_ready += text; }};
};

// Facts of one group stand in an object of their own.
void writeFacts(const std::vector<Fact>& facts, JsonWriter& json) {
    std::string group;
    for (const Fact& fact : facts) {
        if (fact.column.group != group) {
            if (!group.empty()) json.endObject();
            group = fact.column.group;
            if (!group.empty()) json.key(group).beginObject();
        }
        json.key(fact.column.name).value(viewOf(fact.value));
    }
    if (!group.empty()) json.endObject();
}

} // namespace

std::string jsonText(std::string_view text) {
    static const char* const digits = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char c : shownUtf8(text)) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') quoted += '\\';
        if (code >= ' ')
            quoted += c;
        else
            quoted += std::string("\\u00") + digits[code / 16] + digits[code % 16];
    }
    return quoted + "\"";
}

JsonWriter& JsonWriter::key(std::string_view name) {
    separate();
    m_out.append(jsonText(name));
    m_out.append(':');
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::value(const Cell& cell) {
    separate();
    append(m_out, cell);
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::newLine() {
    m_newLine = true;
    return *this;
}

JsonWriter& JsonWriter::begin(char bracket) {
    separate();
    m_out.append(bracket);
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::end(char bracket) {
    m_newLine = false;
    m_out.append(bracket);
    m_needsComma = true;
    return *this;
}

void JsonWriter::separate() {
    if (m_needsComma) m_out.append(',');
    if (m_newLine) m_out.append('\n');
    m_needsComma = m_newLine = false;
}

void writeRows(const Table& table, OutputBytes& out, JsonWriter& json) {
    json.beginArray();
    JsonRows rows(out, table.columns);
    table.rows(rows);
    json.endArray();
}

void writeJson(const TableReport& report, OutputBytes& out) {
    JsonWriter json(out);
    json.beginObject();
    writeFacts(report.facts, json);
    json.key("runs").beginArray();
    for (const RunTables& run : report.runs) {
        json.newLine().beginObject();
        writeFacts(run.facts, json);
        for (const Table& list : run.lists)
            writeRows(list, out, json.newLine().key(list.name));
        writeFacts(run.factsBelow, json);
        json.endObject();
    }
    json.endArray().endObject();
    out.append('\n');
}

void writeJson(const Table& table, OutputBytes& out) {
    JsonWriter json(out);
    writeRows(table, out, json);
    out.append('\n');
}

} // namespace korvel
