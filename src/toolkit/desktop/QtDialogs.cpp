#include "toolkit/desktop/QtDialogs.h"

#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "toolkit/desktop/FileColumns.h"
#include "toolkit/paper/PrinterChoice.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

namespace korvel {

namespace {

constexpr int besideWindow = 8, aboveWindow = 40; // pixels, of a window's frame and title bar

QWidget* topForm() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

// While a list of proposals hangs from a dialog, Qt ignores that the form behind has the focus again, and
// would give no key to it.
void wakeUp(QWidget* form) {
    if (form == nullptr || form->isActiveWindow()) return;
    if (form->windowHandle() == QGuiApplication::focusWindow()) QApplication::setActiveWindow(form);
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
    case Icon::exclamation: return QMessageBox::Warning;
    case Icon::question: return QMessageBox::Question;
    case Icon::critical: return QMessageBox::Critical;
    case Icon::information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::yesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::saveDiscardCancel: return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    case Buttons::ok: break;
    }
    return QMessageBox::Ok;
}

// Esc is the most careful answer.
Answer answerOf(int pressed, Buttons buttons) {
    switch (buttons) {
    case Buttons::yesNo: return pressed == QMessageBox::Yes ? Answer::yes : Answer::no;
    case Buttons::saveDiscardCancel:
        return pressed == QMessageBox::Save      ? Answer::save
               : pressed == QMessageBox::Discard ? Answer::discard
                                                 : Answer::cancel;
    case Buttons::ok: break;
    }
    return Answer::ok;
}

// "caption|pattern|caption|pattern" as Qt lists it. A caption that names its own pattern stands as it is.
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = shown(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const bool namesPattern = parts[i].contains('(' + parts[i + 1] + ')');
        filters << (namesPattern ? parts[i] : parts[i] + " (" + parts[i + 1] + ')');
    }
    return filters;
}

// "csv" of "Table (*.csv)".
QString firstExtension(const QString& nameFilter) {
    static const QRegularExpression extension("\\*\\.([^\\s)]+)");
    return extension.match(nameFilter).captured(1);
}

// The ending of a name that has none goes with the kind of file that is chosen.
void followFilter(QFileDialog& dialog) {
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        const QString extension = firstExtension(filter);
        if (!extension.isEmpty()) dialog.setDefaultSuffix(extension);
    });
}

// Where letters are large the screen has few pixels of their measure.
void keepOnScreen(QFileDialog& dialog) {
    const QSize room = dialog.screen()->availableGeometry().size() - QSize(besideWindow, aboveWindow);
    dialog.resize(dialog.size().boundedTo(room));
}

// The dialog takes any name: what is wrong with it is the program's own check to say.
void prepare(QFileDialog& dialog, FileDialogKind kind, const FileDialogSettings& settings) {
    dialog.setObjectName(shown(settings.objectName));
    dialog.setWindowTitle(shown(settings.title));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    settleFileColumns(dialog);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setAcceptMode(kind == FileDialogKind::open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !settings.overwritePrompt);
    dialog.setNameFilters(nameFilters(settings.filter));
    dialog.setDefaultSuffix(shown(settings.defaultExtension));
    if (!settings.defaultExtension.empty()) followFilter(dialog);
    if (!settings.initialFolder.empty())
        dialog.setDirectory(QFile::decodeName(hostPathOf(settings.initialFolder).c_str()));
    if (!settings.proposedName.empty()) dialog.selectFile(shown(settings.proposedName));
    keepOnScreen(dialog);
}

ChosenFile chosenFile(const QString& path, NameUse use) {
    const std::string hostPath = QFile::encodeName(path).toStdString();
    return {modelNameOfHostPath(hostPath), whyNotAModelName(hostPath, use)};
}

// The dialog only chooses: nothing is printed when it closes.
void prepare(QPrintDialog& dialog, const std::string& objectName) {
    dialog.setObjectName(shown(objectName));
    dialog.setWindowTitle("Printer Setup");
    dialog.setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange |
                      QPrintDialog::PrintCollateCopies);
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    QPushButton* accept = buttons != nullptr ? buttons->button(QDialogButtonBox::Ok) : nullptr;
    if (accept != nullptr) accept->setText("OK");
}

// The dialog lists files, its last entry, only once it is shown, and never shows that one was chosen before.
void selectFile(QPrintDialog& dialog, const QString& file) {
    dialog.setModal(true);
    dialog.show();
    if (auto* printers = dialog.findChild<QComboBox*>("printers"))
        printers->setCurrentIndex(printers->count() - 1);
    if (auto* name = dialog.findChild<QLineEdit*>("filename")) name->setText(file);
}

// Without a refusal where the printer is none that writes files.
ChosenFile chosenFile(const QPrinter& printer) {
    if (printer.outputFormat() != QPrinter::PdfFormat) return {};
    const std::string path = QFile::encodeName(printer.outputFileName()).toStdString();
    return {modelNameOfHostPath(path), whyNotAModelName(path, NameUse::asChosen)};
}

} // namespace

Answer QtDialogs::show(const Message& message) {
    QMessageBox box(topForm());
    box.setObjectName("messageBox");
    box.setWindowTitle(shown(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(shown(message.text));
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(buttonsOf(message.buttons));
    if (message.buttons == Buttons::saveDiscardCancel) box.setDefaultButton(QMessageBox::Save);
    return answerOf(box.exec(), message.buttons);
}

std::optional<ChosenFile> QtDialogs::chooseFile(FileDialogKind kind, const FileDialogSettings& settings) {
    QWidget* const form = topForm();
    QFileDialog dialog(form);
    prepare(dialog, kind, settings);
    const int answer = dialog.exec();
    wakeUp(form);
    if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QString path = QDir::cleanPath(dialog.selectedFiles().constFirst());
    QDir::setCurrent(QFileInfo(path).absolutePath());
    return chosenFile(path, settings.nameUse);
}

std::vector<ChosenFile> QtDialogs::chooseFiles(const FileDialogSettings& settings) {
    QWidget* const form = topForm();
    QFileDialog dialog(form);
    prepare(dialog, FileDialogKind::open, settings);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    const int answer = dialog.exec();
    wakeUp(form);
    if (answer != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    std::vector<ChosenFile> files;
    for (const QString& path : dialog.selectedFiles())
        files.push_back(chosenFile(QDir::cleanPath(path), settings.nameUse));
    QDir::setCurrent(QFileInfo(dialog.selectedFiles().constFirst()).absolutePath());
    return files;
}

void QtDialogs::choosePrinter(const std::string& objectName) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName("KORVEL"); // the name that the dialog proposes for a PDF file
    m_printer.showOn(printer);
    QPrintDialog dialog(&printer, topForm());
    prepare(dialog, objectName);
    if (m_printer.chosen() && !m_printer.chosen()->file.isEmpty())
        selectFile(dialog, m_printer.chosen()->file);
    if (dialog.exec() != QDialog::Accepted) return;
    const ChosenFile file = chosenFile(printer);
    if (file.refusal)
        show(refusedName(file));
    else
        m_printer.takeFrom(printer);
}

} // namespace korvel
