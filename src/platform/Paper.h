// Paper: the printer, or a PDF file in its place.
#pragma once

#include "platform/TextMetrics.h"

class Paper {
  public:
    virtual ~Paper() = default;
    // Text as the printer's own fonts measure it.
    virtual const TextMetrics& metrics() const = 0;
};
