#include "toolkit/paper/CupsLibrary.h"

#include <dlfcn.h>

#include <memory>

namespace korvel {

namespace {

class FunctionFinder {
  public:
    explicit FunctionFinder(void* library) : m_library(library) {}

    template <typename Function>
    void find(const char* name, Function& function) {
        function = reinterpret_cast<Function>(dlsym(m_library, name));
        m_foundAll = m_foundAll && function != nullptr;
    }
    bool foundAll() const { return m_foundAll; }

  private:
    void* m_library;
    bool m_foundAll = true;
};

bool findDestinations(FunctionFinder& finder, CupsLibrary& cups) {
    finder.find("cupsAddOption", cups.addOption);
    finder.find("cupsFreeDests", cups.freeDests);
    finder.find("cupsFreeOptions", cups.freeOptions);
    finder.find("cupsGetDefault2", cups.getDefault);
    finder.find("cupsGetNamedDest", cups.getNamedDest);
    finder.find("cupsPrintFile2", cups.printFile);
    finder.find("cupsUser", cups.user);
    return finder.foundAll();
}

bool findRequests(FunctionFinder& finder, CupsLibrary& cups) {
    finder.find("cupsDoRequest", cups.doRequest);
    finder.find("httpAssembleURIf", cups.assembleUri);
    finder.find("ippPort", cups.port);
    finder.find("ippNewRequest", cups.newRequest);
    finder.find("ippDelete", cups.deleteReply);
    finder.find("ippAddString", cups.addString);
    finder.find("ippAddStrings", cups.addStrings);
    finder.find("ippFindAttribute", cups.findAttribute);
    finder.find("ippGetBoolean", cups.getBoolean);
    finder.find("ippGetInteger", cups.getInteger);
    finder.find("ippGetStatusCode", cups.getStatusCode);
    return finder.foundAll();
}

// It stays loaded: others of the program's libraries may have begun to use it.
std::unique_ptr<const CupsLibrary> load() {
    void* const library = dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    FunctionFinder finder(library);
    auto cups = std::make_unique<CupsLibrary>();
    const bool whole = findDestinations(finder, *cups) && findRequests(finder, *cups);
    return whole ? std::move(cups) : nullptr;
}

} // namespace

const CupsLibrary* cupsLibrary() {
    static const std::unique_ptr<const CupsLibrary> library = load();
    return library.get();
}

} // namespace korvel
