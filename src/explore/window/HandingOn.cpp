#include "explore/window/HandingOn.h"

#include "basic/ModelName.h"
#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "drawing/paint/PictureFile.h"
#include "drawing/paint/Twips.h"
#include "platform/OwnInput.h"
#include "platform/Printing.h"
#include "publish/Atlas.h"
#include "publish/Page.h"
#include "study/SeriesValues.h"
#include "tables/TableFormats.h"
#include "toolkit/paper/PdfPaper.h"
#include "toolkit/paper/PrintPreview.h"

#include <QApplication>
#include <QClipboard>
#include <QProgressDialog>

namespace korvel {

namespace {

constexpr int screenDots = 96; // of an inch, at a device pixel a pixel

// What takes long can be given up.
class WritingProgress {
  public:
    WritingProgress(const char* words, QWidget& window) : m_dialog(words, "Cancel", 0, steps, &window) {
        m_dialog.setObjectName("dlgWriting");
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(HandingOn::patience);
        QObject::connect(&m_dialog, &QDialog::rejected, &m_dialog, &QProgressDialog::cancel); // Esc, too
    }
    bool goesOn(double share) {
        m_dialog.setValue(static_cast<int>(share * (steps - 1)));
        return !m_dialog.wasCanceled();
    }

  private:
    static constexpr int steps = 1000;
    QProgressDialog m_dialog;
};

bool isForOneTable(const TableFormat& format) {
    return format.write && format.kind != TableFormatKind::forPeople;
}

std::string filterOfTables() {
    std::string filter;
    for (const TableFormat& format : tableFormats())
        if (isForOneTable(format)) filter += (filter.empty() ? "" : "|") + tableFilter(format);
    return filter;
}

} // namespace

HandingOn::HandingOn(Platform& services, HandedOn what, HandingOnNews news, QWidget& window)
    : m_services(services), m_what(std::move(what)), m_news(std::move(news)), m_window(window) {}

std::optional<std::string> HandingOn::chooseFile(const std::string& title, const std::string& filter,
                                                 const std::string& what, const std::string& extension) {
    m_news.begins();
    FileDialogSettings dialog;
    dialog.objectName = "cdExport";
    dialog.title = title;
    dialog.filter = filter;
    dialog.initialFolder = folderOf(m_what.base());
    dialog.overwritePrompt = true;
    dialog.defaultExtension = extension;
    dialog.proposedName = fileOf(besideResults(m_what.base(), "-" + what + "." + extension));
    const auto chosen = m_services.dialogs.chooseFile(FileDialogKind::save, dialog);
    if (!chosen) return {};
    if (chosen->refusal)
        m_services.dialogs.show(refusedName(*chosen));
    else if (replacesInput(m_services.files, chosen->name, m_what.inputs()))
        m_services.dialogs.show(outputWouldReplaceInput());
    else
        return chosen->name;
    return {};
}

void HandingOn::tell(const std::string& what, const std::string& file, const std::function<bool()>& write) {
    if (isWritten(file, write)) m_news.written(what, file);
}

bool HandingOn::isWritten(const std::string& file, const std::function<bool()>& write) {
    try {
        return write();
    } catch (const RunTimeError& error) {
        m_services.dialogs.show({fileOf(file) + " can't be written: " + error.description + ".", "Export",
                                 Icon::exclamation, Buttons::ok});
    } catch (const PageCancelled&) {
        // as the user wanted it
    } catch (const PageRefused& refused) {
        m_services.dialogs.show({refused.what(), "Export", Icon::exclamation, Buttons::ok});
    } catch (const TableRefused& refused) {
        m_services.dialogs.show({refused.what(), "Export", Icon::exclamation, Buttons::ok});
    }
    return false;
}

void HandingOn::savePicture() {
    const auto wish = askForPicture(m_wish, m_window);
    if (!wish) return;
    m_wish = *wish;
    const PictureFormat& format = *pictureFormatOf(wish->extension);
    const std::string filter =
        std::string(format.name) + " picture (*" + format.extension + ")|*" + format.extension;
    const auto file = chooseFile("Save picture", filter, "profile", wish->extension.substr(1));
    if (file) tell("The picture", *file, [&] { return writePicture(*file, *wish); });
}

// More dots an inch make texts and lines larger in pixels: the picture stays the same on paper.
bool HandingOn::writePicture(const std::string& file, const PictureWish& wish) {
    const PictureFormat* const format = pictureFormatOf(file);
    if (!format) {
        m_services.dialogs.show(
            {"The picture's name must end in " + pictureExtensions(PictureChoice::ofDialog, "or") + ".",
             "Save picture", Icon::exclamation, Buttons::ok});
        return false;
    }
    const double dotsPerPixel = wish.dotsPerInch / static_cast<double>(screenDots);
    const double twipsPerDot = twipsPerPixel / dotsPerPixel;
    const Drawing drawing =
        m_what.picture(wish.pixels.width() * twipsPerDot, wish.pixels.height() * twipsPerDot, Theme::paper);
    m_services.files.writeWhole(file, format->bytes(drawing, dotsPerPixel));
    return true;
}

void HandingOn::copyPicture() {
    const Drawing drawing =
        m_what.picture(m_window.width() * twipsPerPixel, m_window.height() * twipsPerPixel, Theme::paper);
    QApplication::clipboard()->setImage(pictureOf(drawing, m_window.devicePixelRatioF()));
    m_news.copied();
}

void HandingOn::print() {
    m_news.begins();
    const Drawing page =
        m_what.picture(printableLongSide * twipsPerInch, printableShortSide * twipsPerInch, Theme::paper);
    if (!showPrintPreview({page}, Orientation::landscape, m_services.dialogs, m_window)) return;
    const std::string beside = besideResults(m_what.base(), "-profile.pdf");
    try {
        const auto job = m_services.paper.begin({"KORVEL Explorer", Orientation::landscape, beside});
        job->page(page);
        finishPrinting(m_services, *job);
        m_news.written("The picture", job->file());
    } catch (const RunTimeError& error) {
        if (error.number != errors::printerError) throw;
        m_services.dialogs.show(printerRefused());
    }
}

void HandingOn::saveTable() {
    const auto file = chooseFile("Save table " + m_what.tableName(), filterOfTables(),
                                 lowerCase(m_what.tableName()), "csv");
    if (file) tell("The table", *file, [&] { return writeTable(*file); });
}

bool HandingOn::writeTable(const std::string& file) {
    const auto table = m_what.table();
    if (!table) return false;
    const TableFormat* format = formatOfExtension(file);
    if (!format || !isForOneTable(*format)) format = formatNamed("csv");
    TableContent content;
    content.alone = table;
    content.alone->name = m_what.tableName();
    const auto target = m_services.files.create(file);
    OutputBytes bytes([&](std::string_view text) { target->write(text); });
    format->write(content, {}, bytes);
    bytes.flush();
    target->commit();
    return true;
}

void HandingOn::savePage() {
    const auto file = chooseFile("Save page", "Page for browsers (*.html)|*.html", "page", "html");
    if (file) tell("The page", *file, [&] { return writePageTo(*file); });
}

bool HandingOn::writePageTo(const std::string& file) {
    const auto study = m_what.study(); // stays, whatever is read anew meanwhile
    WritingProgress progress("Writing the page", m_window);
    PageRequest request;
    request.series = allSeries(study->base().results());
    request.lowIsBad = m_what.lowIsBad();
    request.progress = [&](double share) { return progress.goesOn(share); };
    const auto target = m_services.files.create(file);
    OutputBytes bytes([&](std::string_view text) { target->write(text); });
    writePage(*study, request, bytes);
    bytes.flush();
    target->commit();
    return true;
}

void HandingOn::saveAtlas() {
    const auto file = chooseFile("Save atlas", "PDF document (*.pdf)|*.pdf", "atlas", "pdf");
    if (file) tell("The atlas", *file, [&] { return writeAtlasTo(*file); });
}

bool HandingOn::writeAtlasTo(const std::string& file) {
    const auto study = m_what.study();
    WritingProgress progress("Writing the atlas", m_window);
    PdfFilePaper paper(m_services.files, file);
    const Atlas atlas(*study, {"", allSeries(study->base().results()), m_what.lowIsBad()}, paper.metrics());
    const auto job = paper.begin({atlas.title(), Orientation::landscape, file, atlas.outline()});
    Drawing drawing;
    for (std::size_t page = 0; page < atlas.pageCount(); ++page) {
        if (!progress.goesOn(static_cast<double>(page) / static_cast<double>(atlas.pageCount())))
            return false;
        drawing = atlas.page(page, std::move(drawing));
        job->page(drawing);
    }
    job->finish();
    return true;
}

} // namespace korvel
