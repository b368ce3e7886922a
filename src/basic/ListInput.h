// Free-format list input: fields separated by commas or line ends, strings optionally in double quotes, read in one
// forward pass over chunks of bytes.
#pragma once

#include "basic/ByteSource.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class ListInput {
  public:
    // The source must outlive the input. `chunkSize` bytes are asked for at a time.
    explicit ListInput(ByteSource& source, std::size_t chunkSize = 512 * 1024);

    // One field each; the views hold until the next call. Failures: 62 a field wanted at the end of the file,
    // 13 text that is not wholly a number or is beyond a double's range, 6 an integer beyond 32 bits.
    double number();
    int integer(); // a fraction is rounded half to even
    std::string_view text();
    void skip(); // reads any field, of whatever form, and drops it

    // One whole line without its end (CR LF, LF or CR); 62 at the end of the file.
    std::string_view line();

    // Yes where only blanks, blank lines and Ctrl-Z characters are left.
    bool atEnd();

    std::size_t bytesConsumed() const;

  private:
    ByteSource& m_source;
    std::vector<char> m_buffer;
};
