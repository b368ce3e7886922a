// A system library that is loaded when its first function is needed: with all that such a library needs in
// turn, it would take a tenth of the time in which the program starts. Whoever packages the program has to
// name it by hand.
#pragma once

#include <string>

namespace korvel {

class LateLibrary {
  public:
    // It stays loaded: others of the program's libraries may have begun to use it.
    explicit LateLibrary(const char* fileName);

    // Leaves a function that is missing null.
    template <typename Function>
    void find(const char* name, Function& function) {
        function = reinterpret_cast<Function>(address(name));
    }

    // What the system says of the first thing that was missing; "" where everything was there.
    const std::string& failure() const { return m_failure; }

  private:
    void* address(const char* name);

    void* m_library;
    std::string m_failure;
};

} // namespace korvel
