// A data set of its own, files made by the builder, and what a load showed.
#pragma once

#include "basic/RunTimeError.h"
#include "fakes/ResultsFileBuilder.h"
#include "results/ResultsReader.h"

#include <gtest/gtest.h>

namespace korvel {

class ReaderFixture : public testing::Test {
  protected:
    enum class Ending { loaded, abandoned, failed };

    Ending load(const std::string& text, int slot = 0) {
        TextSource source(text);
        return load(source, slot);
    }

    Ending load(ByteSource& source, int slot = 0) {
        messages.clear();
        failure = 0;
        prepareLoad(results, slot);
        try {
            const LoadWatch watch{[&](const Message& message) { messages.push_back(message); }, {}};
            return readResults(source, results, slot, watch) == LoadEnd::loaded ? Ending::loaded
                                                                                : Ending::abandoned;
        } catch (const RunTimeError& error) {
            failure = error.number;
            return Ending::failed;
        }
    }

    Ending load(const ResultsFileBuilder& file, int slot = 0) { return load(file.text(), slot); }

    // Two reaches, two determinands, three points.
    static ResultsFileBuilder river() {
        return ResultsFileBuilder()
            .title("River")
            .determinand(1, "BOD", 3)
            .determinand(2, "Ammonia", 6)
            .reach(1, "Upper Mill", 12.5, 2)
            .reach(2, "Lower Mill", 7.25, 0)
            .point(1, 0, "Weir", 0)
            .point(1, 3.5, "U/S Works", 3)
            .point(2, 1, "Gauge", 4);
    }

    ResultsDataSet results;
    std::vector<Message> messages;
    int failure = 0;
};

} // namespace korvel
