// Tables, and other things, as JSON.
#pragma once

#include "tables/OutputBytes.h"
#include "tables/Table.h"

#include <vector>

namespace korvel {

std::string jsonText(std::string_view text); // in quotes, as shown

// Values in the order in which they are given; what stands between them comes by itself.
class JsonWriter {
  public:
    explicit JsonWriter(OutputBytes& out) : m_out(out) {}

    JsonWriter& beginObject() { return begin('{'); }
    JsonWriter& endObject() { return end('}'); }
    JsonWriter& beginArray() { return begin('['); }
    JsonWriter& endArray() { return end(']'); }
    JsonWriter& key(std::string_view name);
    JsonWriter& value(const Cell& cell);
    JsonWriter& newLine(); // before the next value

  private:
    JsonWriter& begin(char bracket);
    JsonWriter& end(char bracket);
    void separate();

    OutputBytes& m_out;
    bool m_needsComma = false;
    bool m_newLine = false;
};

void writeJson(const TableReport& report, OutputBytes& out); // {facts, "runs": [{facts, lists}]}
void writeJson(const Table& table, OutputBytes& out);        // [{row}]

// The rows of a table as a list of objects.
void writeRows(const Table& table, OutputBytes& out, JsonWriter& json);

} // namespace korvel
