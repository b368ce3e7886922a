// A data file of two reaches that can be reckoned by hand: constant flows and qualities, a tributary that
// mixes.
#pragma once

#include "engine/CatchmentParser.h"

#include <stdexcept>
#include <string>

namespace korvel {

namespace smallCatchment {

inline const std::string head = "DEMONSTRATION RIVER DATA\n"
                                "[RUN]\n"
                                "title = Small River\n"
                                "shots = 200\n"
                                "spacing = 1\n";

inline const std::string determinands = "[DETERMINANDS]\n"
                                        "1, Salt, mg/l, 1, 1, 0, 0, 0\n"
                                        "2, BOD, mg/l, 1, 3, 0.5, 1, 50\n";

// Reach 1 (10 Ml/day, salt 2) runs into reach 2, whose own head brings 30 Ml/day with salt 6.
inline const std::string reaches = "[REACHES]\n"
                                   "1, Upper, 4, 2, 10, 0, 1, 1, 0, 0, 0\n"
                                   "2, Lower, 10, 0, 10, 0, 2, 2, 0, 0, 1\n";

inline const std::string features = "[FEATURES]\n"
                                    "1, 2, 5, sewage, Works, 3, 3\n"
                                    "2, 2, 6, abstraction, Intake, 4\n"
                                    "3, 2, 8, station, Bridge\n"
                                    "4, 2, 9, gauge, Gauge\n"
                                    "5, 1, 2, weir, \"Weir, upper\"\n";

inline const std::string flows = "[FLOWS]\n"
                                 "1, 10, 10, 0\n"
                                 "2, 30, 30, 0\n"
                                 "3, 10, 10, 0\n"
                                 "4, 5, 5, 0\n";

inline const std::string qualities = "[QUALITIES]\n"
                                     "1, 1, 2, 0\n"
                                     "2, 1, 6, 0\n"
                                     "3, 1, 30, 0\n"
                                     "1, 2, 8, 0\n"
                                     "2, 2, 8, 0\n"
                                     "3, 2, 40, 0\n";

inline const std::string targets = "[TARGETS]\n"
                                   "1, 2, 9, 6\n";

inline const std::string observed = "[OBSERVED]\n"
                                    "3, 2, 7, 9, 10, 12\n"
                                    "4, 0, 50, 40\n";

inline std::string text() {
    return head + determinands + reaches + features + flows + qualities + targets + observed;
}

// The same river with flows and qualities that vary.
inline std::string variableText() {
    return head + determinands + reaches + features +
           "[FLOWS]\n1, 10, 2, 0.9\n2, 30, 5, 0.9\n3, 10, 6, 0.3\n4, 5, 4, 0\n"
           "[QUALITIES]\n1, 1, 2, 1\n2, 1, 6, 2\n3, 1, 30, 9\n1, 2, 3, 2, -0.3\n2, 2, 3, 2, -0.3\n3, 2, 40, "
           "20\n" +
           targets + observed;
}

inline engine::Catchment parsed(const std::string& text) {
    auto result = engine::parseCatchment(text);
    if (const auto* error = std::get_if<engine::DataError>(&result))
        throw std::runtime_error("line " + std::to_string(error->line) + ": " + error->message);
    return std::get<engine::Catchment>(std::move(result));
}

inline std::string replaced(std::string text, const std::string& old, const std::string& by) {
    const auto place = text.find(old);
    if (place == std::string::npos) throw std::runtime_error("nothing to replace: " + old);
    return text.replace(place, old.size(), by);
}

} // namespace smallCatchment

} // namespace korvel
