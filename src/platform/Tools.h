// Other programs of the machine, called for what they say; and the wish to stop, which comes from outside
// too.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace korvel {

struct ToolEnd {
    int status = 0;
    std::string output;
    std::string errors;
};

class Tools {
  public:
    virtual ~Tools() = default;
    // The program's name, looked for along $PATH, and its arguments. Nothing where there is no such program.
    virtual std::optional<ToolEnd> run(const std::vector<std::string>& words) = 0;
};

enum class StopWish { none, stop, hangUp }; // hangUp: the terminal is gone

class StopWishes {
  public:
    virtual ~StopWishes() = default;
    // Waits for the next one, at most so long.
    virtual StopWish wait(std::chrono::milliseconds atMost) = 0;
};

} // namespace korvel
