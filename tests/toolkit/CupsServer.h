// A print system of a test's own: a real server on a loopback port, with its settings, spool and queues in a
// temporary folder. The process's print calls go to it as long as it lives. Queues: "ready" (the default),
// "stopped" and "rejecting"; the documents of their jobs stay in the spool.
#pragma once

#include "platform/TemporaryFolder.h"

#include <QProcess>

#include <string>

namespace korvel {

class CupsServer {
  public:
    CupsServer();
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    void stop();
    void pause(const std::string& queue);
    std::string documentOf(int job) const; // its path in the spool
    // As text, the way the print system writes it: "2", "two-sided-long-edge", "1-2".
    std::string jobAttribute(int job, const std::string& name) const;

  private:
    void writeSettings() const;
    void waitUntilItAnswers();

    TemporaryFolder m_folder;
    int m_port;
    QProcess m_process;
};

// From now on print calls find no server.
void forgetPrintSystem();

} // namespace korvel
