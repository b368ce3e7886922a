// The print system's library, loaded when something is printed first: with all that it needs in turn it would
// take a sixth of the time in which the program starts.
#pragma once

#include <cups/cups.h>

namespace korvel {

// Its functions, named as they are without their beginnings.
struct CupsLibrary {
    decltype(&::cupsAddOption) addOption = nullptr;
    decltype(&::cupsDoRequest) doRequest = nullptr;
    decltype(&::cupsFreeDests) freeDests = nullptr;
    decltype(&::cupsFreeOptions) freeOptions = nullptr;
    decltype(&::cupsGetDefault2) getDefault = nullptr;
    decltype(&::cupsGetNamedDest) getNamedDest = nullptr;
    decltype(&::cupsPrintFile2) printFile = nullptr;
    decltype(&::cupsUser) user = nullptr;
    decltype(&::httpAssembleURIf) assembleUri = nullptr;
    decltype(&::ippPort) port = nullptr;
    decltype(&::ippNewRequest) newRequest = nullptr;
    decltype(&::ippDelete) deleteReply = nullptr;
    decltype(&::ippAddString) addString = nullptr;
    decltype(&::ippAddStrings) addStrings = nullptr;
    decltype(&::ippFindAttribute) findAttribute = nullptr;
    decltype(&::ippGetBoolean) getBoolean = nullptr;
    decltype(&::ippGetInteger) getInteger = nullptr;
    decltype(&::ippGetStatusCode) getStatusCode = nullptr;
};

// Null where the system has no such library.
const CupsLibrary* cupsLibrary();

} // namespace korvel
