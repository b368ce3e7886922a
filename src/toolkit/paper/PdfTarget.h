// Where the bytes of a PDF document go: a file, or a print queue.
#pragma once

#include "basic/ScratchFile.h"
#include "platform/Files.h"
#include "toolkit/paper/PrintQueue.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// Dropped without finish(), nothing of the document stays.
class PdfTarget {
  public:
    virtual ~PdfTarget() = default;
    virtual void write(std::string_view bytes) = 0;
    virtual void finish() = 0;
};

// A PDF file that replaces another whole; a file that can't be written fails at once, as Files::create tells.
class FileTarget : public PdfTarget {
  public:
    FileTarget(Files& files, const std::string& name) : m_file(files.create(name)) {}
    void write(std::string_view bytes) override { m_file->write(bytes); }
    void finish() override { m_file->commit(); }

  private:
    std::unique_ptr<NewFile> m_file;
};

// A queue that takes jobs, or error 482; it is asked again before it gets the document.
class QueueTarget : public PdfTarget {
  public:
    explicit QueueTarget(QueueJob job);
    void write(std::string_view bytes) override;
    void finish() override;

  private:
    QueueJob m_job;
    std::optional<ScratchFile> m_file; // made when the queue takes jobs
};

} // namespace korvel
