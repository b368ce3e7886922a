#include "toolkit/CupsServer.h"

#include <array>
#include <chrono>
#include <cups/cups.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace korvel {

namespace {

constexpr int patienceMilliseconds = 10000;

int freePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(socket, reinterpret_cast<const sockaddr*>(&address), size);
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(socket);
    return ntohs(address.sin_port);
}

void usePort(int port) {
    cupsSetServer(("127.0.0.1:" + std::to_string(port)).c_str());
}

ipp_t* requestOn(ipp_op_t operation, const std::string& path) {
    ipp_t* request = ippNewRequest(operation);
    const bool onJob = path.starts_with("/jobs/");
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, onJob ? "job-uri" : "printer-uri", nullptr,
                 ("ipp://localhost" + path).c_str());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    return request;
}

std::string queueSettings(const std::string& kind, const std::string& name, bool stopped, bool accepting) {
    return "<" + kind + " " + name + ">\nDeviceURI file:///dev/null\nState " +
           (stopped ? "Stopped" : "Idle") + "\nAccepting " + (accepting ? "Yes" : "No") + "\n</" + kind +
           ">\n";
}

// Of a printer that prints on both sides.
const char* duplexDriver = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Product: "(Test)"
*Manufacturer: "Test"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "12 12 583 830"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*OpenUI *Duplex/Sides: PickOne
*OrderDependency: 20 AnySetup *Duplex
*DefaultDuplex: None
*Duplex None/Off: "<</Duplex false>>setpagedevice"
*Duplex DuplexNoTumble/Long side: "<</Duplex true>>setpagedevice"
*Duplex DuplexTumble/Short side: "<</Duplex true/Tumble true>>setpagedevice"
*CloseUI: *Duplex
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)ppd";

} // namespace

// The print system's library forgets a few words of a driver that it has read.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:_ppdCacheCreateWithPPD";
}

CupsServer::CupsServer() : m_port(freePort()) {
    writeSettings();
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start("/usr/sbin/cupsd", {"-f", "-c", QString::fromStdString(m_folder.path("etc/cupsd.conf")),
                                        "-s", QString::fromStdString(m_folder.path("etc/cups-files.conf"))});
    if (!m_process.waitForStarted(patienceMilliseconds)) throw std::runtime_error("no cupsd: install cups");
    waitUntilItAnswers();
}

CupsServer::~CupsServer() {
    stop();
    forgetPrintSystem();
}

void CupsServer::stop() {
    m_process.kill();
    m_process.waitForFinished(patienceMilliseconds);
}

void CupsServer::pause(const std::string& queue) {
    ippDelete(
        cupsDoRequest(CUPS_HTTP_DEFAULT, requestOn(IPP_OP_PAUSE_PRINTER, "/printers/" + queue), "/admin/"));
    if (cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) throw std::runtime_error(cupsLastErrorString());
}

std::string CupsServer::documentOf(int job) const {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "spool/d%05d-001", job);
    return m_folder.path(name.data());
}

std::string CupsServer::jobAttribute(int job, const std::string& name) const {
    ipp_t* reply = cupsDoRequest(CUPS_HTTP_DEFAULT,
                                 requestOn(IPP_OP_GET_JOB_ATTRIBUTES, "/jobs/" + std::to_string(job)), "/");
    std::array<char, 256> text{};
    if (ipp_attribute_t* found = ippFindAttribute(reply, name.c_str(), IPP_TAG_ZERO))
        ippAttributeString(found, text.data(), text.size());
    ippDelete(reply);
    return text.data();
}

void CupsServer::writeSettings() const {
    for (const char* folder : {"etc/ppd", "spool", "cache", "state", "tmp"})
        m_folder.makeFolder(folder);
    m_folder.put("etc/cupsd.conf",
                 "Listen 127.0.0.1:" + std::to_string(m_port) +
                     "\nBrowsing No\nWebInterface No\nDefaultAuthType None\nPreserveJobFiles Yes\n"
                     "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                     "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n</Policy>\n");
    m_folder.put("etc/cups-files.conf", "ServerRoot " + m_folder.path("etc") + "\nRequestRoot " +
                                            m_folder.path("spool") + "\nCacheDir " + m_folder.path("cache") +
                                            "\nStateDir " + m_folder.path("state") + "\nTempDir " +
                                            m_folder.path("tmp") + "\nAccessLog " + m_folder.path("access") +
                                            "\nErrorLog " + m_folder.path("error") + "\nPageLog " +
                                            m_folder.path("page") + "\nFileDevice Yes\nSystemGroup root\n");
    m_folder.put("etc/ppd/rejecting.ppd", duplexDriver);
    m_folder.put("etc/printers.conf", queueSettings("DefaultPrinter", "ready", false, true) +
                                          queueSettings("Printer", "stopped", true, true) +
                                          queueSettings("Printer", "rejecting", false, false));
}

void CupsServer::waitUntilItAnswers() {
    usePort(m_port);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(patienceMilliseconds);
    while (cupsGetDefault2(CUPS_HTTP_DEFAULT) == nullptr) {
        if (std::chrono::steady_clock::now() > deadline) throw std::runtime_error("cupsd does not answer");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

// The port is free at this moment, and nobody is told of it.
void forgetPrintSystem() {
    usePort(freePort());
}

} // namespace korvel
