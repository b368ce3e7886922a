// The key: a sample of each look with what it stands for.
#pragma once

#include "graphs/draw/GraphSheet.h"

#include "global/GraphHandOver.h"

#include <string>
#include <vector>

namespace korvel {

enum class KeySample { line, cross };

struct KeyEntry {
    std::string text;
    LineLook look;
    KeySample sample = KeySample::line;
    bool operator==(const KeyEntry&) const = default;
};

enum class Targets { hidden, shown };

// By slot: whether its data set may be shown. One that may not has no place in the key.
using ShownSlots = CheckedArray<bool, 0, 1>;

std::vector<KeyEntry> keyEntries(const GraphHandOver& graph, Targets targets, const ShownSlots& shown);

struct KeyPlace { // graph coordinates
    double left = 0;
    double right = 0;
    double top = 0;
    double gap = 0; // between entries
};

struct PlacedEntry {
    KeyEntry entry;
    DrawnPoint at; // the bottom left of its sample
};

struct GraphKey {
    DrawnPoint caption; // of "KEY:"
    std::vector<PlacedEntry> entries;
    double bottom = 0; // where the key ends
};

// As many lines as needed.
GraphKey layOutKey(const GraphSheet& sheet, const std::vector<KeyEntry>& entries, const KeyPlace& place);
void paintKey(const GraphSheet& sheet, const GraphKey& key);

} // namespace korvel
