// The record of a plan: a file that grows by whole lines and is never written anew. One call at a time works
// on it; anybody may read it meanwhile.
#pragma once

#include "basic/Descriptor.h"
#include "many/RunRecord.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace korvel {

using LastRecords = std::unordered_map<std::string, RunRecord>; // by name of the run: its last line

struct RecordText {
    LastRecords last;
    std::size_t wholeSize = 0; // bytes without a broken last line
    bool lacksLineEnd = false; // of a last line that is whole
    std::vector<std::size_t> hashes;
    std::size_t brokenLine = 0; // counted from 1; a broken one before the last. 0: none
};

RecordText readRecord(std::string_view text);

class RecordFile {
  public:
    // Opens the record, made where there is none, takes it for this call alone, and drops a broken last line.
    // Fails with RunTimeError: 55 where another call holds it for longer than `patience`.
    RecordFile(const std::string& path, std::chrono::milliseconds patience);

    // As it was opened, with what was appended since.
    const LastRecords& last() const { return m_last; }
    // Of a run; nothing where it has none.
    const RunRecord* lastOf(const std::string& name) const;

    // Whether this very line stands anywhere in the record.
    bool holds(const RunRecord& record) const;

    // The line is there whole, or the record is as before and RunTimeError (61 disk full) is thrown.
    void append(const RunRecord& record);
    // Asks for room for so many more lines of runs that are under way, so that a disk that fills up meanwhile
    // takes them. Fails with RunTimeError (61) where there is none.
    void reserve(std::size_t lines) const;
    // Waits until the lines are where others see them: a network file system keeps them back for a while.
    void flush() const;

  private:
    void lock(std::chrono::milliseconds patience) const;
    std::string readAll() const;
    void takeUp(const std::string& path);
    void write(std::string_view bytes);

    Descriptor m_file;
    std::size_t m_size = 0;
    LastRecords m_last;
    std::unordered_set<std::size_t> m_lines; // their hashes
};

} // namespace korvel
