// Any table as text for people.
#pragma once

#include "tables/Table.h"
#include "tables/TextTable.h"

namespace korvel {

// Headings in words, numbers rounded, verdicts in their colour.
TextTable textTable(const Table& table);

// The tone of a verdict: "pass", "fail", "unsure".
TextTone toneOf(std::string_view verdict);

} // namespace korvel
