// Paper: pages of a print job, which go to the printer that Printer Setup chose or to a PDF file.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/TextMetrics.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace korvel {

enum class Orientation { portrait, landscape };

// The printable area of an A4 sheet, inches; centred on the sheet. One page unit of reports and listings is
// one inch.
inline constexpr double printableShortSide = 8.26 / 1.043;
inline constexpr double printableLongSide = 11.69 / 1.09;

// A place on a page that leads to another page. Shares of the page's drawing, from its top left.
struct PageLink {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    std::size_t page = 0; // from 0
};

struct Bookmark {
    std::string title; // UTF-8
    std::size_t page = 0;
    int level = 0; // 0 outermost
};

// How a reader finds his way in a document.
struct DocumentOutline {
    std::string language; // "en"
    std::vector<Bookmark> bookmarks;
    std::vector<std::vector<PageLink>> links; // by page
};

struct PrintRequest {
    std::string title; // of the job, as the print system shows it
    Orientation orientation = Orientation::portrait;
    // Model name of the PDF file made where no printer was chosen and the system has none.
    std::string fallbackFile;
    // Of a document in a file; all of its pages are made then.
    std::shared_ptr<const DocumentOutline> outline = {};
};

// A job is made page by page. Dropped without finish(), nothing is printed and no file is left.
class PrintJob {
  public:
    virtual ~PrintJob() = default;
    // The drawing fills the printable area as far as its proportions allow, in the middle.
    virtual void page(const Drawing& drawing) = 0;
    // Hands the document over; error 482 where the print system refuses it. Returns where it went where the
    // user could not know: the file's model name, else "".
    virtual std::string finish() = 0;
    // The model name of the file that the job is made into; "" where it goes to a print system.
    virtual std::string file() const = 0;
};

class Paper {
  public:
    virtual ~Paper() = default;
    // Text as it is measured on paper, in twips of the sheet.
    virtual const TextMetrics& metrics() const = 0;
    // Error 482 where the chosen printer does not take jobs.
    virtual std::unique_ptr<PrintJob> begin(const PrintRequest& request) = 0;
};

} // namespace korvel
