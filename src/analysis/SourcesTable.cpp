#include "analysis/SourcesTable.h"

#include <array>

namespace korvel {

namespace {

std::vector<Column> sourceColumns() {
    return {{"kind"}, {"name"}, {"reach"}, {"distance"}, {"load"}, {"arrives"}, {"share"}};
}

void giveSources(const LoadSources& sources, RowTaker& taker) {
    for (const Contribution& each : sources.contributions) {
        const std::array<Cell, 7> cells = {
            nameOf(each.kind), std::string_view(each.name), each.reach, cellOf(each.distance), each.load,
            each.arrives,      cellOf(each.share)};
        taker.row(cells);
    }
}

} // namespace

Table sourcesTable(const LoadSources& sources) {
    return {"sources", sourceColumns(), [sources](RowTaker& taker) { giveSources(sources, taker); }};
}

Table kindsTable(const LoadSources& sources) {
    return {"kinds", {{"kind"}, {"load"}, {"arrives"}, {"share"}}, [sources](RowTaker& taker) {
                for (const KindSum& kind : sourcesByKind(sources)) {
                    const std::array<Cell, 4> cells = {nameOf(kind.kind), kind.load, kind.arrives,
                                                       cellOf(kind.share)};
                    taker.row(cells);
                }
            }};
}

Table lossesTable(const LoadSources& sources) {
    return {"losses", {{"name"}, {"reach"}, {"distance"}, {"load"}}, [sources](RowTaker& taker) {
                for (const Loss& loss : sources.losses) {
                    const std::array<Cell, 4> cells = {std::string_view(loss.name), loss.reach,
                                                       cellOf(loss.distance), loss.load};
                    taker.row(cells);
                }
            }};
}

Table sourcesAndLosses(const LoadSources& sources) {
    return {"sources", sourceColumns(), [sources](RowTaker& taker) {
                giveSources(sources, taker);
                for (const Loss& loss : sources.losses) {
                    const std::array<Cell, 7> cells = {std::string_view("loss"),
                                                       std::string_view(loss.name),
                                                       loss.reach,
                                                       cellOf(loss.distance),
                                                       loss.load,
                                                       Nothing(),
                                                       Nothing()};
                    taker.row(cells);
                }
            }};
}

} // namespace korvel
