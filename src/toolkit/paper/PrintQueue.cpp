#include "toolkit/paper/PrintQueue.h"

#include "basic/RunTimeError.h"

#include <cups/cups.h>

#include <array>
#include <memory>

namespace korvel {

namespace {

using Reply = std::unique_ptr<ipp_t, decltype(&ippDelete)>;

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
Reply askForState(const std::string& name) {
    static constexpr std::array<const char*, 2> wanted{"printer-state", "printer-is-accepting-jobs"};
    std::array<char, HTTP_MAX_URI> uri{};
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                     "localhost", ippPort(), "/printers/%s", name.c_str());
    ipp_t* request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.data());
    return Reply(cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"), &ippDelete);
}

bool takesJobs(ipp_t* reply) {
    if (reply == nullptr || ippGetStatusCode(reply) > IPP_STATUS_OK_EVENTS_COMPLETE) return false;
    ipp_attribute_t* state = ippFindAttribute(reply, "printer-state", IPP_TAG_ENUM);
    ipp_attribute_t* accepting = ippFindAttribute(reply, "printer-is-accepting-jobs", IPP_TAG_BOOLEAN);
    return state != nullptr && ippGetInteger(state, 0) != IPP_PSTATE_STOPPED && accepting != nullptr &&
           ippGetBoolean(accepting, 0) != 0;
}

class Options {
  public:
    explicit Options(const QueueJob& job) {
        addKept(destinationOf(job.queue));
        for (const auto& [name, value] : job.options)
            add(name.c_str(), value.c_str());
    }
    ~Options() { cupsFreeOptions(m_count, m_first); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    int count() const { return m_count; }
    cups_option_t* first() const { return m_first; }

  private:
    void add(const char* name, const char* value) { m_count = cupsAddOption(name, value, m_count, &m_first); }
    // What the user and the server keep as the queue's settings.
    void addKept(const Destination& destination) {
        const char* instance = destination.instance.empty() ? nullptr : destination.instance.c_str();
        cups_dest_t* kept = cupsGetNamedDest(CUPS_HTTP_DEFAULT, destination.name.c_str(), instance);
        if (kept == nullptr) return;
        for (int i = 0; i < kept->num_options; ++i)
            add(kept->options[i].name, kept->options[i].value);
        cupsFreeDests(1, kept);
    }

    int m_count = 0;
    cups_option_t* m_first = nullptr;
};

} // namespace

std::optional<std::string> defaultQueue() {
    const char* name = cupsGetDefault2(CUPS_HTTP_DEFAULT);
    if (name == nullptr || *name == '\0') return std::nullopt;
    return name;
}

void requireReady(const std::string& queue) {
    if (!takesJobs(askForState(destinationOf(queue).name).get())) throw RunTimeError(errors::printerError);
}

void printFile(const QueueJob& job, const std::string& hostPath) {
    const Options options(job);
    const int number = cupsPrintFile2(CUPS_HTTP_DEFAULT, destinationOf(job.queue).name.c_str(),
                                      hostPath.c_str(), job.title.c_str(), options.count(), options.first());
    if (number == 0) throw RunTimeError(errors::printerError);
}

} // namespace korvel
