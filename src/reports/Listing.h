// A text file of the engine as printed pages: one printed line for each line of the file, box characters
// drawn as lines that join from cell to cell. What lies beyond the page's right edge is lost.
#pragma once

#include "basic/ListInput.h"
#include "drawing/Drawing.h"
#include "platform/Paper.h"

#include <optional>

namespace korvel {

class Listing {
  public:
    // `file` and `metrics` must outlive the listing.
    Listing(ByteSource& file, const TextMetrics& metrics);

    // Nothing after the last page; an empty file has one, which is empty. Fails with RunTimeError where the
    // file can't be read.
    std::optional<Drawing> nextPage();

  private:
    ListInput m_lines;
    TextSize m_cell; // inches
    bool m_started = false;
};

} // namespace korvel
