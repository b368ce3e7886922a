// What little memory does to a load.
#pragma once

#include <cstddef>
#include <fstream>
#include <sys/resource.h>

namespace korvel {

// The address space that the process may have beside what it has.
class SpareMemory {
  public:
    explicit SpareMemory(rlim_t bytes) {
        getrlimit(RLIMIT_AS, &m_before);
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlimit limit{pages * 4096 + bytes, m_before.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
    }
    ~SpareMemory() { setrlimit(RLIMIT_AS, &m_before); }
    SpareMemory(const SpareMemory&) = delete;
    SpareMemory& operator=(const SpareMemory&) = delete;

  private:
    rlimit m_before{};
};

} // namespace korvel
