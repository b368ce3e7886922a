#include "toolkit/paper/PdfJob.h"

#include "basic/Product.h"
#include "basic/RunTimeError.h"
#include "drawing/Units.h"
#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/Shown.h"

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr int dotsPerInch = 300;

QPageLayout sheetOf(Orientation orientation) {
    const bool landscape = orientation == Orientation::landscape;
    return {QPageSize(QPageSize::A4), landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
            QMarginsF()};
}

void prepare(QPdfWriter& writer, const PdfJobSettings& settings) {
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(sheetOf(settings.orientation));
    writer.setTitle(shown(settings.title));
    writer.setCreator(productName);
}

// The largest place of a drawing's proportions in the middle of an area.
QRectF placeIn(const QRectF& area, const Drawing& drawing) {
    const double scale = std::min(area.width() / drawing.width, area.height() / drawing.height);
    QRectF place(0, 0, drawing.width * scale, drawing.height * scale);
    place.moveCenter(area.center());
    return place;
}

} // namespace

void TargetDevice::throwFailure() const {
    if (m_failure) std::rethrow_exception(m_failure);
}

qint64 TargetDevice::writeData(const char* data, qint64 size) {
    if (m_failure) return -1;
    try {
        m_target.write({data, static_cast<std::size_t>(size)});
        return size;
    } catch (...) {
        m_failure = std::current_exception();
        return -1;
    }
}

PdfJob::PdfJob(PdfJobSettings settings, std::unique_ptr<PdfTarget> target)
    : m_settings(std::move(settings)), m_target(std::move(target)), m_device(*m_target), m_writer(&m_device) {
    if (!m_settings.fonts) m_settings.fonts = std::make_shared<GlyphFonts>();
    prepare(m_writer, m_settings);
}

void PdfJob::page(const Drawing& drawing) {
    ++m_pages;
    if (!m_settings.pages.isEmpty() && !m_settings.pages.contains(m_pages)) return;
    beginPage();
    const QRectF points = sheetPlace(m_settings.orientation).drawing;
    constexpr double dots = dotsPerInch / pointsPerInch;
    const QRectF area(points.left() * dots, points.top() * dots, points.width() * dots,
                      points.height() * dots);
    paintOnPage(drawing, m_painter, placeIn(area, drawing), *m_settings.fonts);
    m_device.throwFailure();
}

// A document without a page in the chosen range can't be printed.
std::string PdfJob::finish() {
    if (!m_painter.isActive()) throw RunTimeError(errors::printerError);
    m_painter.end();
    m_device.throwFailure();
    m_target->finish();
    return m_settings.toTell;
}

void PdfJob::beginPage() {
    const bool begun = m_painter.isActive() ? m_writer.newPage() : m_painter.begin(&m_writer);
    m_device.throwFailure();
    if (!begun) throw RunTimeError(errors::printerError);
}

SheetPlace sheetPlace(Orientation orientation) {
    const bool landscape = orientation == Orientation::landscape;
    const double width = (landscape ? printableLongSide : printableShortSide) * pointsPerInch;
    const double height = (landscape ? printableShortSide : printableLongSide) * pointsPerInch;
    const QSizeF sheet = sheetOf(orientation).fullRect(QPageLayout::Point).size();
    return {{(sheet.width() - width) / 2, (sheet.height() - height) / 2, width, height}, sheet.height()};
}

} // namespace korvel
