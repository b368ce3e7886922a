// What the PDF writer leaves out of a document: bookmarks, links from page to page, the language. It is added
// behind the finished document as an incremental update, so that what was written stays as it is.
#pragma once

#include "platform/Paper.h"
#include "toolkit/paper/PdfTarget.h"

#include <QRectF>

#include <string>

namespace korvel {

// Where the drawings stand on their sheets, in points from the top left.
struct SheetPlace {
    QRectF drawing;
    double height = 0; // of the sheet
};

// The update that belongs behind the bytes of a document as Qt writes it. Throws RunTimeError (482) where the
// document isn't one of that kind.
std::string pdfUpdate(const std::string& document, const DocumentOutline& outline, const SheetPlace& place);

// Takes the day and time of writing out of a document, so that the same pages are the same bytes.
void removeDate(std::string& document);

// Keeps the document until it is whole, then hands it on with its update.
class OutlinedTarget : public PdfTarget {
  public:
    OutlinedTarget(std::unique_ptr<PdfTarget> target, std::shared_ptr<const DocumentOutline> outline,
                   const SheetPlace& place)
        : m_target(std::move(target)), m_outline(std::move(outline)), m_place(place) {}
    void write(std::string_view bytes) override { m_document += bytes; }
    void finish() override;

  private:
    std::unique_ptr<PdfTarget> m_target;
    std::shared_ptr<const DocumentOutline> m_outline;
    SheetPlace m_place;
    std::string m_document;
};

} // namespace korvel
