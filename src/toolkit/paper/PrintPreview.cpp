#include "toolkit/paper/PrintPreview.h"

#include "basic/RunTimeError.h"
#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/GlyphFonts.h"
#include "toolkit/forms/Spoken.h"

#include <QAbstractScrollArea>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace korvel {

namespace {

constexpr double shareOfWindow = 0.85;
constexpr double dotsPerInch = 300;

// The drawing in the middle of the sheet, as large as its printable part allows.
QRectF areaOf(const Drawing& page, const QPrinter& printer, Orientation orientation) {
    const bool isLandscape = orientation == Orientation::landscape;
    const double dots = printer.resolution();
    const QSizeF room(dots * (isLandscape ? printableLongSide : printableShortSide),
                      dots * (isLandscape ? printableShortSide : printableLongSide));
    const QSizeF size = QSizeF(page.width, page.height).scaled(room, Qt::KeepAspectRatio);
    const QSizeF sheet = printer.paperRect(QPrinter::DevicePixel).size();
    return {QPointF((sheet.width() - size.width()) / 2, (sheet.height() - size.height()) / 2), size};
}

void paintPages(const std::vector<Drawing>& pages, QPrinter& printer, Orientation orientation) {
    QPainter painter(&printer);
    GlyphFonts fonts;
    for (std::size_t k = 0; k < pages.size(); ++k) {
        if (k > 0) printer.newPage();
        paintOnPage(pages[k], painter, areaOf(pages[k], printer, orientation), fonts);
    }
}

void choosePrinter(Dialogs& dialogs) {
    try {
        dialogs.choosePrinter("cdPrinterSetup");
    } catch (const RunTimeError&) {
        // Whatever goes wrong here, a cancel included, changes nothing.
    }
}

} // namespace

bool showPrintPreview(const std::vector<Drawing>& pages, Orientation orientation, Dialogs& dialogs,
                      QWidget& window) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat); // never written: the preview asks no print system
    printer.setResolution(static_cast<int>(dotsPerInch));
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageOrientation(orientation == Orientation::landscape ? QPageLayout::Landscape
                                                                     : QPageLayout::Portrait);
    QDialog dialog(&window);
    dialog.setObjectName("dlgPreview");
    dialog.setWindowTitle("Print");
    dialog.resize(window.size() * shareOfWindow);
    auto* preview = new QPrintPreviewWidget(&printer);
    for (QWidget* view : preview->findChildren<QAbstractScrollArea*>()) { // which takes the focus
        tellAsImage(*view);
        view->setAccessibleName("Preview");
        view->setAccessibleDescription("The page as it will be printed");
    }
    auto* buttons = new QDialogButtonBox;
    auto* print = buttons->addButton("&Print", QDialogButtonBox::AcceptRole);
    auto* setup = buttons->addButton("Printer &Setup ...", QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Cancel);
    print->setObjectName("cmdPrint");
    setup->setObjectName("cmdPrinterSetup");
    auto* down = new QVBoxLayout(&dialog);
    down->addWidget(preview, 1);
    down->addWidget(buttons);
    QObject::connect(preview, &QPrintPreviewWidget::paintRequested, &dialog,
                     [&](QPrinter* sheet) { paintPages(pages, *sheet, orientation); });
    QObject::connect(setup, &QPushButton::clicked, &dialog, [&] { choosePrinter(dialogs); });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace korvel
