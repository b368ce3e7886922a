// How what takes long to write is watched, and how it may end.
#pragma once

#include "tables/TextLook.h"

#include <functional>
#include <stdexcept>

namespace korvel {

struct Writing {
    TextLook look = {};
    std::function<bool(double)> goesOn = {}; // hears the share done, 0 to 1; whether to go on. May be empty.
};

// What can't be had in a format; what() tells the user.
struct TableRefused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The user doesn't want it any more. Nothing is left of it.
struct WritingStopped {};

// Throws WritingStopped.
inline void tellShare(const Writing& writing, double share) {
    if (writing.goesOn && !writing.goesOn(share)) throw WritingStopped();
}

} // namespace korvel
