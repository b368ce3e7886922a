// What is written must not replace what it is made from.
#pragma once

#include "platform/Files.h"
#include "platform/Message.h"

namespace korvel {

// Whether a file of this name would replace one of the inputs, by whatever spelling or link. Model names;
// empty ones name nothing.
bool replacesInput(Files& files, const std::string& output, const std::vector<std::string>& inputs);

// The box that says so.
Message outputWouldReplaceInput();

} // namespace korvel
