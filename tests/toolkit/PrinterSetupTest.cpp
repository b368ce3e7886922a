#include "platform/TemporaryFolder.h"
#include "toolkit/CupsServer.h"
#include "toolkit/desktop/QtDialogs.h"
#include "toolkit/paper/PrinterChoice.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace korvel {

namespace {

using Deed = std::function<void(QPrintDialog&)>;

class PrinterSetup : public testing::Test {
  protected:
    static void SetUpTestSuite() { s_server = std::make_unique<CupsServer>(); }
    static void TearDownTestSuite() { s_server.reset(); }

    // Opens the dialog; what is not closed by the deed is cancelled.
    void open(const Deed& deed) {
        bool shown = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            shown = true;
            deed(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
        m_dialogs.choosePrinter("cdPrinterSetup");
        EXPECT_TRUE(shown);
    }

    PrinterChoice m_choice;
    QtDialogs m_dialogs{m_choice};
    TemporaryFolder m_folder;
    static std::unique_ptr<CupsServer> s_server;
};

std::unique_ptr<CupsServer> PrinterSetup::s_server;

template <typename Control>
Control& control(QPrintDialog& dialog, const char* name) {
    auto* found = dialog.findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control named ") + name);
    return *found;
}

void select(QPrintDialog& dialog, const QString& printer) {
    auto& list = control<QComboBox>(dialog, "printers");
    const int place = list.findText(printer);
    ASSERT_GE(place, 0) << printer.toStdString();
    list.setCurrentIndex(place);
}

const QString toFile = "Print to File (PDF)";

} // namespace

TEST_F(PrinterSetup, ListsTheSystemsPrintersAndAFile) {
    open([](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "cdPrinterSetup");
        EXPECT_EQ(dialog.windowTitle(), "Printer Setup");
        auto& list = control<QComboBox>(dialog, "printers");
        for (const QString& name : {QString("ready"), QString("stopped"), QString("rejecting"), toFile})
            EXPECT_GE(list.findText(name), 0) << name.toStdString();
        EXPECT_EQ(list.currentText(), "ready") << "the system's default";
    });
}

TEST_F(PrinterSetup, ChangesNothingWhenCancelled) {
    open([](QPrintDialog& dialog) {
        select(dialog, "stopped");
        control<QSpinBox>(dialog, "copies").setValue(7);
    });
    EXPECT_FALSE(m_choice.chosen());
    m_choice.choose({.queue = "ready", .file = {}, .copies = 2, .pages = {}, .further = {}});
    open([](QPrintDialog& dialog) {
        select(dialog, toFile);
        control<QSpinBox>(dialog, "copies").setValue(7);
    });
    EXPECT_EQ(m_choice.chosen()->queue, "ready");
    EXPECT_EQ(m_choice.chosen()->copies, 2);
    EXPECT_EQ(m_choice.chosen()->file, "");
}

TEST_F(PrinterSetup, KeepsAPrinterWithItsCopiesSidesAndPages) {
    open([](QPrintDialog& dialog) {
        select(dialog, "rejecting");
        control<QSpinBox>(dialog, "copies").setValue(3);
        control<QRadioButton>(dialog, "duplexLong").click();
        control<QRadioButton>(dialog, "printRange").click();
        control<QSpinBox>(dialog, "to").setValue(4);
        control<QSpinBox>(dialog, "from").setValue(2);
        dialog.accept();
    });
    ASSERT_TRUE(m_choice.chosen());
    EXPECT_EQ(m_choice.chosen()->queue, "rejecting");
    EXPECT_EQ(m_choice.chosen()->file, "");
    EXPECT_EQ(m_choice.chosen()->copies, 3);
    EXPECT_EQ(m_choice.chosen()->sides, QPrinter::DuplexLongSide);
    EXPECT_EQ(m_choice.chosen()->pages.toString(), "2-4");
    open([](QPrintDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, "printers").currentText(), "rejecting");
        EXPECT_EQ(control<QSpinBox>(dialog, "copies").value(), 3);
        EXPECT_TRUE(control<QRadioButton>(dialog, "duplexLong").isChecked());
        EXPECT_TRUE(control<QRadioButton>(dialog, "printRange").isChecked());
        EXPECT_EQ(control<QSpinBox>(dialog, "from").value(), 2);
        EXPECT_EQ(control<QSpinBox>(dialog, "to").value(), 4);
    });
}

TEST_F(PrinterSetup, KeepsAFile) {
    const QString path = QString::fromStdString(m_folder.path("Chosen.pdf"));
    open([&](QPrintDialog& dialog) {
        select(dialog, toFile);
        control<QLineEdit>(dialog, "filename").setText(path);
        dialog.accept();
    });
    ASSERT_TRUE(m_choice.chosen());
    EXPECT_EQ(m_choice.chosen()->file, path);
    EXPECT_EQ(m_choice.chosen()->queue, "");
    open([&](QPrintDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, "printers").currentText(), toFile);
        EXPECT_EQ(control<QLineEdit>(dialog, "filename").text(), path);
    });
    EXPECT_EQ(m_folder.entries(), 0) << "the dialog only chooses";
}

TEST_F(PrinterSetup, GoesBackFromAFileToAPrinter) {
    m_choice.choose({.queue = {}, .file = "/tmp/elsewhere.pdf", .pages = {}, .further = {}});
    open([](QPrintDialog& dialog) {
        select(dialog, "ready");
        dialog.accept();
    });
    EXPECT_EQ(m_choice.chosen()->queue, "ready");
    EXPECT_EQ(m_choice.chosen()->file, "");
}

TEST_F(PrinterSetup, RefusesAFileNameThatCantBeHeld) {
    m_folder.put("REPORT.PDF", "another");
    QString message;
    open([&](QPrintDialog& dialog) {
        select(dialog, toFile);
        control<QLineEdit>(dialog, "filename").setText(QString::fromStdString(m_folder.path("Report.pdf")));
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            message = box->windowTitle();
            box->accept();
        });
        dialog.accept();
    });
    EXPECT_EQ(message, "File name");
    EXPECT_FALSE(m_choice.chosen());
}

} // namespace korvel
