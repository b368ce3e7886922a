#include "forms/GraphForms.h"

#include "fakes/ResultsFileBuilder.h"

namespace korvel {

namespace {

constexpr int reaches = 8;

int nextReach(int reach) {
    if (reach == 7) return 0;
    return reach == 8 ? 7 : reach + 1;
}

} // namespace

std::string longRiver(int lastReach, const std::string& title) {
    ResultsFileBuilder file;
    file.title(title);
    file.determinand(1, "BOD", 1).determinand(1, "Ammonia", 1);
    file.determinand(1, "Nitrate", 1).determinand(1, "Phosphate", 2);
    for (int reach = 1; reach <= reaches; ++reach)
        file.reach(reach, "Reach number " + std::to_string(reach), 10, nextReach(reach));
    for (int reach = 1; reach <= lastReach; ++reach)
        file.point(reach, 0, "Head", 0).point(reach, 4, "Between", 99).point(reach, 8, "Gauge", 4);
    return file.text();
}

} // namespace korvel
