// The system's print queues. Every refusal is a RunTimeError 482, "Printer error".
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace korvel {

struct QueueJob {
    std::string queue; // as the system lists it: "name" or "name/instance"
    std::string title; // UTF-8
    std::vector<std::pair<std::string, std::string>>
        options; // ahead of those that the system keeps for the queue
};

// Nothing where the system has no default printer, or no print system.
std::optional<std::string> defaultQueue();

// 482 where the queue is missing, stopped or rejecting, or the server does not answer.
void requireReady(const std::string& queue);

// Copies the document into the spool.
void printFile(const QueueJob& job, const std::string& hostPath);

} // namespace korvel
