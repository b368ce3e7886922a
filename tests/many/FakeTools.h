// Answers calls of other programs with what the test says: by the whole call, else by the program's name.
#pragma once

#include "platform/Tools.h"

#include <functional>
#include <map>
#include <set>

namespace korvel {

class FakeTools : public Tools {
  public:
    std::map<std::string, ToolEnd> answers;
    std::set<std::string> absent;
    std::vector<std::string> calls;
    std::function<void(const std::string& call)> onCall;

    std::optional<ToolEnd> run(const std::vector<std::string>& words) override {
        std::string call = words.front();
        for (std::size_t i = 1; i < words.size(); ++i)
            call += ' ' + words[i];
        calls.push_back(call);
        if (onCall) onCall(call);
        if (absent.contains(words.front())) return std::nullopt;
        const auto whole = answers.find(call);
        if (whole != answers.end()) return whole->second;
        const auto named = answers.find(words.front());
        return named == answers.end() ? ToolEnd{127, "", "not expected: " + call} : named->second;
    }
};

} // namespace korvel
