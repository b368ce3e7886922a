// Hands out jobs to workers as they become free, until there is none left or the user wants to stop.
#pragma once

#include "platform/Workers.h"

#include <functional>
#include <optional>
#include <string>

namespace korvel {

struct Job {
    std::size_t number = 0; // for whoever deals
    std::string text;       // for the worker; not empty
};

struct Dealing {
    std::function<std::optional<Job>()> next; // nothing: no more
    std::function<void(std::size_t number, const std::string& answer)> answered;
    std::function<void(std::size_t number, const std::string& how)> died;
    std::function<void()> tick; // about once a second; may be empty
};

enum class DealEnd { all, stopped };

// At a stop no more is handed out, and what is under way is given up; at a second one, or after a while, the
// workers are killed.
DealEnd deal(Workers& workers, const Dealing& dealing);

} // namespace korvel
