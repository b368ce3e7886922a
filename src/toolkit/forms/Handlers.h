// Every way in from Qt runs through here, so that no exception ever crosses Qt: a RunTimeError that no trap
// of the program caught ends the program with its message.
#pragma once

#include "platform/Windows.h"

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

namespace korvel {

class Handlers {
  public:
    explicit Handlers(Windows& windows) : m_windows(windows) {}

    template <typename Action>
    void run(Action&& action) {
        try {
            action();
        } catch (const RunTimeError& error) {
            m_windows.failProgram(error);
        } catch (const std::bad_alloc&) {
            m_windows.failProgram(RunTimeError(errors::outOfMemory));
        } catch (const std::exception& error) {
            m_windows.failProgram(RunTimeError(51, std::string("Internal error: ") + error.what()));
        }
    }

    // For connect(): takes whatever the signal hands over and drops what the action does not want.
    template <typename Action>
    auto guarded(Action action) {
        return [this, action = std::move(action)](auto&&... arguments) mutable {
            this->run([&] { call(action, std::forward<decltype(arguments)>(arguments)...); });
        };
    }

  private:
    template <typename Action, typename... Arguments>
    static void call(Action& action, Arguments&&... arguments) {
        if constexpr (std::is_invocable_v<Action&, Arguments...>)
            action(std::forward<Arguments>(arguments)...);
        else
            action();
    }

    Windows& m_windows;
};

} // namespace korvel
