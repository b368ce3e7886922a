// Limits that the process has as long as they live.
#pragma once

#include <csignal>
#include <cstddef>
#include <fstream>
#include <sys/resource.h>

namespace korvel {

class ResourceLimit {
  public:
    ResourceLimit(const ResourceLimit&) = delete;
    ResourceLimit& operator=(const ResourceLimit&) = delete;

  protected:
    ResourceLimit(__rlimit_resource_t resource, rlim_t most) : m_resource(resource) {
        getrlimit(m_resource, &m_before);
        const rlimit limit{most, m_before.rlim_max};
        setrlimit(m_resource, &limit);
    }
    ~ResourceLimit() { setrlimit(m_resource, &m_before); }

  private:
    __rlimit_resource_t m_resource;
    rlimit m_before{};
};

// Its files may not grow beyond so many bytes; the signal of one that would is ignored from then on.
class SizeLimit : ResourceLimit {
  public:
    explicit SizeLimit(rlim_t bytes) : ResourceLimit(RLIMIT_FSIZE, bytes) { std::signal(SIGXFSZ, SIG_IGN); }
};

// The address space that it may have beside what it has.
class SpareMemory : ResourceLimit {
  public:
    explicit SpareMemory(rlim_t bytes) : ResourceLimit(RLIMIT_AS, taken() + bytes) {}

  private:
    static rlim_t taken() {
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages * 4096;
    }
};

} // namespace korvel
