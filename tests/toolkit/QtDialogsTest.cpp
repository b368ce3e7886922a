// The message boxes and file dialogs that a user sees: what stands in them, and what an answer gives.
#include "toolkit/desktop/QtDialogs.h"

#include "basic/ModelName.h"
#include "platform/TemporaryFolder.h"
#include "toolkit/desktop/FileColumns.h"
#include "toolkit/paper/PrinterChoice.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gtest/gtest.h>

#include <functional>

namespace korvel {

namespace {

class QtDialogsTest : public testing::Test {
  protected:
    ~QtDialogsTest() override { QDir::setCurrent(m_folderBefore); }

    // Does this in the dialog that comes up next; what is not closed by it is cancelled.
    template <typename Dialog>
    void inTheNext(std::function<void(Dialog&)> deed) {
        QTimer::singleShot(0, qApp, [this, deed = std::move(deed)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            m_shown = true;
            deed(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
    }

    Answer answerTo(const Message& message, const std::function<void(QMessageBox&)>& deed) {
        inTheNext<QMessageBox>(deed);
        return m_dialogs.show(message);
    }

    std::optional<ChosenFile> chosenIn(FileDialogKind kind, const FileDialogSettings& settings,
                                       const std::function<void(QFileDialog&)>& deed) {
        inTheNext<QFileDialog>(deed);
        return m_dialogs.chooseFile(kind, settings);
    }

    // Types a name and accepts it.
    static std::function<void(QFileDialog&)> typing(const std::string& path) {
        return [path](QFileDialog& dialog) {
            dialog.selectFile(QString::fromStdString(path));
            static_cast<QDialog&>(dialog).accept();
        };
    }

    QString m_folderBefore = QDir::currentPath();
    PrinterChoice m_choice;
    QtDialogs m_dialogs{m_choice};
    TemporaryFolder m_folder;
    bool m_shown = false;
};

} // namespace

TEST_F(QtDialogsTest, ShowsAMessageWithItsTitleTextIconAndOneButton) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {{Icon::exclamation, QMessageBox::Warning},
                                                        {Icon::question, QMessageBox::Question},
                                                        {Icon::critical, QMessageBox::Critical},
                                                        {Icon::information, QMessageBox::Information}};
    for (const auto& [icon, shown] : icons) {
        m_shown = false;
        const Answer answer =
            answerTo({"Two <b>lines</b>\nof text", "Title", icon, Buttons::ok}, [&](QMessageBox& box) {
                EXPECT_EQ(box.windowTitle(), "Title");
                EXPECT_EQ(box.text(), "Two <b>lines</b>\nof text");
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(box.icon(), shown);
                EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
                EXPECT_EQ(box.objectName(), "messageBox");
            });
        EXPECT_TRUE(m_shown);
        EXPECT_EQ(answer, Answer::ok);
    }
}

TEST_F(QtDialogsTest, AsksAQuestionWithYesAndNo) {
    const Message question{"Really?", "", Icon::question, Buttons::yesNo};
    const auto pressing = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    };
    EXPECT_EQ(answerTo(question, pressing(QMessageBox::Yes)), Answer::yes);
    EXPECT_EQ(answerTo(question, pressing(QMessageBox::No)), Answer::no);
    EXPECT_EQ(answerTo(question, [](QMessageBox& box) { box.reject(); }), Answer::no) << "Escape";
}

TEST_F(QtDialogsTest, AsksWhetherToSaveWithAWayBack) {
    const Message question{"Save?", "", Icon::question, Buttons::saveDiscardCancel};
    const auto pressing = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    };
    EXPECT_EQ(answerTo(question, pressing(QMessageBox::Save)), Answer::save);
    EXPECT_EQ(answerTo(question, pressing(QMessageBox::Discard)), Answer::discard);
    EXPECT_EQ(answerTo(question, pressing(QMessageBox::Cancel)), Answer::cancel);
    EXPECT_EQ(answerTo(question, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              Answer::cancel);
    EXPECT_EQ(answerTo(question, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              Answer::save);
}

TEST_F(QtDialogsTest, OpensSeveralFilesAtOnce) {
    m_folder.put("a.sgr", "x");
    m_folder.put("b.sgr", "x");
    m_folder.put("c.sgr", "x");
    std::vector<ChosenFile> files;
    const auto choosing = [&](const QString& names) {
        inTheNext<QFileDialog>([names](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(names);
            static_cast<QDialog&>(dialog).accept();
        });
        FileDialogSettings settings;
        settings.initialFolder = m_folder.model();
        files = m_dialogs.chooseFiles(settings);
    };
    choosing("\"a.sgr\" \"c.sgr\"");
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].name, m_folder.model("a.sgr"));
    EXPECT_EQ(files[1].name, m_folder.model("c.sgr"));
    EXPECT_EQ(QDir::currentPath().toStdString(), m_folder.path());
    choosing("b.sgr");
    ASSERT_EQ(files.size(), 1u);
    inTheNext<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_TRUE(m_dialogs.chooseFiles({}).empty());
}

TEST_F(QtDialogsTest, ProposesANameAndEndsItAsTheChosenKindOfFile) {
    FileDialogSettings settings;
    settings.initialFolder = m_folder.model();
    settings.filter = "Comma separated (*.csv)|*.csv|Workbook (*.xlsx)|*.xlsx";
    settings.defaultExtension = "csv";
    settings.proposedName = "values.csv";
    const auto proposed = chosenIn(FileDialogKind::save, settings,
                                   [](QFileDialog& dialog) { static_cast<QDialog&>(dialog).accept(); });
    EXPECT_EQ(proposed.value_or(ChosenFile{}).name, m_folder.model("values.csv"));
    const auto workbook = chosenIn(FileDialogKind::save, settings, [](QFileDialog& dialog) {
        emit dialog.filterSelected("Workbook (*.xlsx)");
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("values");
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(workbook.value_or(ChosenFile{}).name, m_folder.model("values.xlsx"));
}

TEST_F(QtDialogsTest, OpensTheFileDialogAsItsSettingsSay) {
    FileDialogSettings settings;
    settings.objectName = "CDFilename";
    settings.title = "Open Data File";
    settings.filter = "Data files (*.DAT)|*.DAT|All files|*.*";
    settings.initialFolder = m_folder.model();
    const auto chosen = chosenIn(FileDialogKind::open, settings, [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "CDFilename");
        EXPECT_EQ(dialog.windowTitle(), "Open Data File");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Data files (*.DAT)", "All files (*.*)"}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), m_folder.path());
    });
    EXPECT_TRUE(m_shown);
    EXPECT_FALSE(chosen) << "cancelled";
    EXPECT_EQ(QDir::currentPath(), m_folderBefore);
}

TEST_F(QtDialogsTest, CutsNoColumnButTheNames) {
    m_folder.put("RIVER.SGR", std::string(3000, 'x'));
    FileDialogSettings settings;
    settings.initialFolder = m_folder.model();
    chosenIn(FileDialogKind::open, settings, [&](QFileDialog& dialog) {
        auto& files = *dialog.findChild<QTreeView*>("treeView");
        EXPECT_TRUE(QTest::qWaitFor([&] { return files.model()->rowCount(files.rootIndex()) == 1; }));
        QTest::qWait(50);
        for (int column = 1; column < files.header()->count(); ++column) {
            const QString text = files.model()->index(0, column, files.rootIndex()).data().toString();
            EXPECT_GT(files.columnWidth(column), files.fontMetrics().horizontalAdvance(text)) << column;
        }
        const QModelIndex size = files.model()->index(0, 1, files.rootIndex());
        EXPECT_TRUE(size.data().toString().startsWith("2.93")) << size.data().toString().toStdString();
    });
    EXPECT_TRUE(m_shown);
}

TEST(FileColumns, WriteSizesWithAPointWhateverTheCountry) {
    const QLocale german(QLocale::German), english(QLocale::English, QLocale::UnitedKingdom);
    EXPECT_EQ(withDecimalPoint(german.formattedDataSize(3000), german), "2.93 KiB");
    EXPECT_EQ(withDecimalPoint(english.formattedDataSize(3000), english), "2.93 KiB");
}

TEST_F(QtDialogsTest, GivesTheChosenFileAndMakesItsFolderTheCurrentOne) {
    m_folder.put("RIVER.SGR", "x");
    const auto chosen = chosenIn(FileDialogKind::open, {}, typing(m_folder.path("RIVER.SGR")));
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->name, m_folder.model("RIVER.SGR"));
    EXPECT_FALSE(chosen->refusal);
    EXPECT_EQ(QDir::currentPath().toStdString(), m_folder.path());
}

TEST_F(QtDialogsTest, TakesANameToOpenThatIsNotThere) {
    const auto chosen = chosenIn(FileDialogKind::open, {}, typing(m_folder.path("NONE.SGR")));
    ASSERT_TRUE(chosen) << "what is wrong with it is for the program to say";
    EXPECT_EQ(chosen->name, m_folder.model("NONE.SGR"));
}

TEST_F(QtDialogsTest, PutsTheDefaultEndingBehindANameToSaveThatHasNone) {
    FileDialogSettings settings;
    settings.defaultExtension = "csv";
    const auto without = chosenIn(FileDialogKind::save, settings, typing(m_folder.path("report")));
    EXPECT_EQ(without.value_or(ChosenFile{}).name, m_folder.model("report.csv"));
    const auto with = chosenIn(FileDialogKind::save, settings, typing(m_folder.path("report.txt")));
    EXPECT_EQ(with.value_or(ChosenFile{}).name, m_folder.model("report.txt"));
}

TEST_F(QtDialogsTest, TellsWhyAChosenNameCannotBeUsed) {
    m_folder.put("river.sgr", "x");
    m_folder.put("RIVER.SGR", "y");
    FileDialogSettings settings;
    settings.nameUse = NameUse::inUpperCase;
    const auto chosen = chosenIn(FileDialogKind::open, settings, typing(m_folder.path("river.sgr")));
    ASSERT_TRUE(chosen);
    ASSERT_TRUE(chosen->refusal);
    EXPECT_EQ(*chosen->refusal,
              "Another file or folder has the same name but for upper and lower case. Rename "
              "one of them.");
}

} // namespace korvel
