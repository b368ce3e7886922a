#include "toolkit/paper/PrintQueue.h"

#include "basic/RunTimeError.h"
#include "toolkit/paper/CupsLibrary.h"

#include <array>
#include <memory>

namespace korvel {

namespace {

using Reply = std::unique_ptr<ipp_t, decltype(CupsLibrary::deleteReply)>;

const CupsLibrary& neededCups() {
    const CupsLibrary* const cups = cupsLibrary();
    if (cups == nullptr) throw RunTimeError(errors::printerError);
    return *cups;
}

struct Destination {
    std::string name;
    std::string instance;
};

Destination destinationOf(const std::string& queue) {
    const auto slash = queue.find('/');
    if (slash == std::string::npos) return {queue, ""};
    return {queue.substr(0, slash), queue.substr(slash + 1)};
}

// Asked for by its address on the server, so that a queue which is not there is not looked for on the
// network.
Reply askForState(const CupsLibrary& cups, const std::string& name) {
    static constexpr std::array<const char*, 2> wanted{"printer-state", "printer-is-accepting-jobs"};
    std::array<char, HTTP_MAX_URI> uri{};
    cups.assembleUri(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                     "localhost", cups.port(), "/printers/%s", name.c_str());
    ipp_t* request = cups.newRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    cups.addString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    cups.addString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cups.user());
    cups.addStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                    static_cast<int>(wanted.size()), nullptr, wanted.data());
    return Reply(cups.doRequest(CUPS_HTTP_DEFAULT, request, "/"), cups.deleteReply);
}

bool takesJobs(const CupsLibrary& cups, ipp_t* reply) {
    if (reply == nullptr || cups.getStatusCode(reply) > IPP_STATUS_OK_EVENTS_COMPLETE) return false;
    ipp_attribute_t* state = cups.findAttribute(reply, "printer-state", IPP_TAG_ENUM);
    ipp_attribute_t* accepting = cups.findAttribute(reply, "printer-is-accepting-jobs", IPP_TAG_BOOLEAN);
    return state != nullptr && cups.getInteger(state, 0) != IPP_PSTATE_STOPPED && accepting != nullptr &&
           cups.getBoolean(accepting, 0) != 0;
}

class Options {
  public:
    Options(const CupsLibrary& cups, const QueueJob& job) : m_cups(cups) {
        addKept(destinationOf(job.queue));
        for (const auto& [name, value] : job.options)
            add(name.c_str(), value.c_str());
    }
    ~Options() { m_cups.freeOptions(m_count, m_first); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    int count() const { return m_count; }
    cups_option_t* first() const { return m_first; }

  private:
    void add(const char* name, const char* value) {
        m_count = m_cups.addOption(name, value, m_count, &m_first);
    }
    // What the user and the server keep as the queue's settings.
    void addKept(const Destination& destination) {
        const char* instance = destination.instance.empty() ? nullptr : destination.instance.c_str();
        cups_dest_t* kept = m_cups.getNamedDest(CUPS_HTTP_DEFAULT, destination.name.c_str(), instance);
        if (kept == nullptr) return;
        for (int i = 0; i < kept->num_options; ++i)
            add(kept->options[i].name, kept->options[i].value);
        m_cups.freeDests(1, kept);
    }

    const CupsLibrary& m_cups;
    int m_count = 0;
    cups_option_t* m_first = nullptr;
};

} // namespace

std::optional<std::string> defaultQueue() {
    const CupsLibrary* const cups = cupsLibrary();
    if (cups == nullptr) return std::nullopt;
    const char* name = cups->getDefault(CUPS_HTTP_DEFAULT);
    if (name == nullptr || *name == '\0') return std::nullopt;
    return name;
}

void requireReady(const std::string& queue) {
    const CupsLibrary& cups = neededCups();
    if (!takesJobs(cups, askForState(cups, destinationOf(queue).name).get()))
        throw RunTimeError(errors::printerError);
}

void printFile(const QueueJob& job, const std::string& hostPath) {
    const CupsLibrary& cups = neededCups();
    const Options options(cups, job);
    const int number = cups.printFile(CUPS_HTTP_DEFAULT, destinationOf(job.queue).name.c_str(),
                                      hostPath.c_str(), job.title.c_str(), options.count(), options.first());
    if (number == 0) throw RunTimeError(errors::printerError);
}

} // namespace korvel
