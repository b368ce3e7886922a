#include "toolkit/paper/CupsLibrary.h"

#include "basic/LateLibrary.h"

#include <memory>

namespace korvel {

namespace {

void findDestinations(LateLibrary& library, CupsLibrary& cups) {
    library.find("cupsAddOption", cups.addOption);
    library.find("cupsFreeDests", cups.freeDests);
    library.find("cupsFreeOptions", cups.freeOptions);
    library.find("cupsGetDefault2", cups.getDefault);
    library.find("cupsGetNamedDest", cups.getNamedDest);
    library.find("cupsPrintFile2", cups.printFile);
    library.find("cupsUser", cups.user);
}

void findRequests(LateLibrary& library, CupsLibrary& cups) {
    library.find("cupsDoRequest", cups.doRequest);
    library.find("httpAssembleURIf", cups.assembleUri);
    library.find("ippPort", cups.port);
    library.find("ippNewRequest", cups.newRequest);
    library.find("ippDelete", cups.deleteReply);
    library.find("ippAddString", cups.addString);
    library.find("ippAddStrings", cups.addStrings);
    library.find("ippFindAttribute", cups.findAttribute);
    library.find("ippGetBoolean", cups.getBoolean);
    library.find("ippGetInteger", cups.getInteger);
    library.find("ippGetStatusCode", cups.getStatusCode);
}

std::unique_ptr<const CupsLibrary> load() {
    LateLibrary library("libcups.so.2");
    auto cups = std::make_unique<CupsLibrary>();
    findDestinations(library, *cups);
    findRequests(library, *cups);
    return library.failure().empty() ? std::move(cups) : nullptr;
}

} // namespace

const CupsLibrary* cupsLibrary() {
    static const std::unique_ptr<const CupsLibrary> library = load();
    return library.get();
}

} // namespace korvel
