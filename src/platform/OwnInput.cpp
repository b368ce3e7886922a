#include "platform/OwnInput.h"

#include <algorithm>

namespace korvel {

bool replacesInput(Files& files, const std::string& output, const std::vector<std::string>& inputs) {
    return std::ranges::any_of(inputs, [&](const std::string& input) {
        return !input.empty() && !output.empty() && files.areOne(output, input);
    });
}

Message outputWouldReplaceInput() {
    return {"The output would replace the input.", "File name", Icon::exclamation, Buttons::ok};
}

} // namespace korvel
