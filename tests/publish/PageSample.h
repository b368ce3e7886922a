// Pages, and parts of them, as texts.
#pragma once

#include "analysis/RiverSample.h"
#include "publish/Page.h"
#include "publish/PageHtml.h"
#include "study/SeriesValues.h"

#include <functional>
#include <string>

namespace korvel {

inline std::string bytesBy(const std::function<void(OutputBytes&)>& write) {
    std::string text;
    OutputBytes out([&](std::string_view bytes) { text += bytes; });
    write(out);
    out.flush();
    return text;
}

inline std::string htmlBy(const std::function<void(PageHtml&)>& write) {
    return bytesBy([&](OutputBytes& out) {
        PageHtml html(out);
        write(html);
    });
}

// Flow, BOD and its load in two reaches; BOD fails at the mill for sure.
inline ResultsFileBuilder millRiver(double atMill = 6, const std::string& label = "Mill") {
    ResultsFileBuilder file = riverOf({{1, 10}, {2, 5}});
    addPoints(file, 1,
              {{.distance = 0, .value = 2, .target = 4, .low = 1.5, .high = 2.5, .label = "Head"},
               {.distance = 4,
                .value = atMill,
                .target = 4,
                .low = atMill - 1,
                .high = atMill + 1,
                .observed = 5.5,
                .label = label},
               {.distance = 10, .value = 3, .target = 4, .low = 2.5, .high = 3.5}});
    return addPoints(file, 2,
                     {{.distance = 0, .value = 3, .target = 5, .low = 2, .high = 4},
                      {.distance = 5, .value = 4.5, .target = 5, .low = 4, .high = 5.5}});
}

inline PageRequest requestOf(const Study& study) {
    PageRequest request;
    request.series = allSeries(study.base().results());
    return request;
}

inline std::string pageOf(const Study& study) {
    const PageRequest request = requestOf(study);
    return bytesBy([&](OutputBytes& out) { writePage(study, request, out); });
}

} // namespace korvel
