// The main form: what it shows at start, how it is laid out, its settings and its end.
#include "forms/FrmStartFixture.h"

namespace korvel {

TEST_F(FrmStart, HasItsMenusInOrder) {
    start();
    EXPECT_EQ(menuListing(*form->menuBar()),
              "mnuExit|&Exit\n"
              "mnuFile|&File\n"
              "  mnuOpen|&Open\n"
              "  mnuSave|&Save\n"
              "  mnuSaveAs|Save &As\n"
              "mnuEditText|&Edit text\n"
              "mnuRun|     &RUN THE KORVEL MODEL ...            \n"
              "  mnuRun0|&0   BASIC RUN BASIC RUN BASIC RUN ...\n"
              "  mnuRun1|&1   Gap filling of river flows\n"
              "  mnuRun2|&2   Use the gap filled river flows\n"
              "  mnuRun3|&3   Gap filling of water quality\n"
              "  mnuRun4|&4   Run the full gap filled model\n"
              "  mnuRun5|&5   Perform options 1 and 3 in sequence\n"
              "  mnuRun6|&6   Perfom options 1, 3 and 4 in sequence\n"
              "  mnuRun7|&7   Set effluent standards to meet river targets\n"
              "  mnuRun8|&8   As 7 with aspects of no deterioration\n"
              "  mnuRun9|&9   As 8 assuming mid-class upstream quality standards\n"
              "mnuReports|&Reports\n"
              "mnuGraphs|     &Graphs\n"
              "mnuBatch|     &Batch Run\n"
              "mnuOptions|          &Options\n"
              "  mnuPrinterSetup|&Printer Setup\n"
              "  mnuTextEditor|&Text Editor\n"
              "  mnuREsultDisplayOptions|&Result Display Options\n"
              "    mnuDisplayFull|Display full results\n"
              "    mnuSuppressInterpolated|Suppress interpolated points\n"
              "    mnuSuppressFeatures|Suppress features\n"
              "    mnuSuppressReaches|Suppress reaches\n"
              "mnuHelp|Online &Manual\n");
}

TEST_F(FrmStart, HasButtonsThatTakeNoKeyOfItsMenus) {
    start();
    std::set<QKeySequence> keys;
    for (const QAction* item : form->menuBar()->actions())
        keys.insert(QKeySequence::mnemonic(item->text()));
    for (const char* name : {"cmdExplore", "cmdGuide"}) {
        const QKeySequence key = QKeySequence::mnemonic(control<QPushButton>(*form, name).text());
        EXPECT_FALSE(key.isEmpty()) << name;
        EXPECT_TRUE(keys.insert(key).second) << name << " shares " << key.toString().toStdString();
    }
}

TEST_F(FrmStart, HasItsTwoButtonsInTheMiddle) {
    for (const QSize& desktop : {QSize(1366, 768), QSize(1920, 1080), QSize(1080, 1920)}) {
        startOn(desktop.width(), desktop.height());
        const QRect explore = placeOf("cmdExplore"), guide = placeOf("cmdGuide");
        EXPECT_LT(explore.right(), guide.left());
        EXPECT_EQ(explore.top(), guide.top());
        const QRect texts = placeOf("lblNextStep");
        EXPECT_NEAR(explore.united(guide).center().x(), texts.center().x(), 2) << desktop.width();
    }
}

TEST_F(FrmStart, NamesItsSubmenusLikeTheirItems) {
    start();
    for (const char* name : {"mnuFile", "mnuRun", "mnuOptions", "mnuREsultDisplayOptions"})
        EXPECT_EQ(control<QMenu>(*form, name).menuAction()->objectName(), name);
}

TEST_F(FrmStart, GreysTheItemsWithNothingBehindThem) {
    start();
    EXPECT_EQ(greyedItems(*form->menuBar()),
              (std::vector<std::string>{"mnuFile", "mnuOpen", "mnuSave", "mnuSaveAs", "mnuEditText",
                                        "mnuTextEditor", "mnuHelp"}));
}

TEST_F(FrmStart, ShowsProductVersionAndReleaseDateAtStart) {
    start();
    const std::string product = control<QLabel>(*form, "lblKorvel_0").text().toStdString();
    EXPECT_TRUE(
        QString::fromStdString(product).contains(QRegularExpression("^KORVEL \\d+\\.\\d+(\\.\\d+)?$")));
    EXPECT_EQ(control<QLabel>(*form, "lblKorvel_1").text().toStdString(), product);
    EXPECT_TRUE(title().starts_with(product + " ... ")) << title();
    EXPECT_TRUE(form->windowTitle().contains(QRegularExpression(" \\d{4}$"))) << title();
}

TEST_F(FrmStart, HasAllItsControls) {
    start();
    for (const char* name : {"frameCD", "frameProgress", "Progress", "lblProgress2", "lblProgress",
                             "lblEditWarning", "lblAddress_0", "lineAddress_0", "lblKorvel_0", "lblKorvel_1"})
        EXPECT_NO_THROW(control<QWidget>(*form, name)) << name;
    for (int i = 0; i < 7; ++i)
        EXPECT_NO_THROW(control<QWidget>(*form, "shpLogo_" + std::to_string(i))) << i;
    EXPECT_THROW(control<QWidget>(*form, "shpLogo_7"), std::runtime_error);
    EXPECT_EQ(control<QLabel>(*form, "lblProgress").text(), "Opening");
    EXPECT_FALSE(shows("frameCD"));
    EXPECT_FALSE(shows("frameProgress"));
}

TEST_F(FrmStart, OpensTheGuide) {
    showActive(start());
    platform.takeTranscript();
    click(control<QPushButton>(*form, "cmdGuide"));
    EXPECT_EQ(platform.takeTranscript(), "guide /share/guide.html\n");
}

TEST_F(FrmStart, ShowsTheEditWarningAtStart) {
    start();
    EXPECT_TRUE(shows("lblEditWarning"));
    EXPECT_EQ(control<QLabel>(*form, "lblEditWarning").text(),
              "WARNING: If you have modified and saved data using the Edit Text facility, you need to 'Open' "
              "the file again without clicking 'Save' beforehand.");
}

TEST_F(FrmStart, NamesF1BeforeARunAndAfterIt) {
    start();
    auto& hint = control<QLabel>(*form, "lblNextStep");
    EXPECT_TRUE(hint.text().endsWith("\nF1 tells about the data file.")) << hint.text().toStdString();
    GLOBAL.graphResultsPending = true;
    static_cast<ShownForm&>(*form).activate();
    EXPECT_TRUE(hint.text().startsWith("When the model has finished"));
    EXPECT_TRUE(hint.text().endsWith("\nF1 tells about the data file.")) << hint.text().toStdString();
}

TEST_F(FrmStart, MakesTheResultsFormsAtStartHiddenAndOfItsOwnSize) {
    platform.desktop = {300, 450, 20490, 11520};
    start();
    for (const char* name : {"frmStart", "frmGraphData", "frmReports", "frmSimgraph"}) {
        const QWidget& made = formNamed(name);
        EXPECT_TRUE(made.isHidden()) << name;
        EXPECT_EQ(made.geometry(), QRect(20, 30, 1366, 768)) << name;
    }
}

TEST_F(FrmStart, IsPaintedBeforeTheHiddenFormsAreMade) {
    constexpr const char* hidden[] = {"frmGraphData", "frmReports", "frmSimgraph"};
    form = std::make_unique<frmStart>(platform);
    form->loadShown();
    form->grab();
    for (const char* name : hidden)
        EXPECT_THROW(formNamed(name), std::runtime_error) << name;
    passEvents();
    for (const char* name : hidden)
        EXPECT_TRUE(formNamed(name).isHidden()) << name;
}

TEST_F(FrmStart, MakesTheHiddenFormsForWhoeverAsksBeforeItIsPainted) {
    for (const auto& [item, asked] : {std::pair("mnuGraphs", "frmGraphData"), {"mnuReports", "frmReports"}}) {
        form = std::make_unique<frmStart>(platform);
        form->loadShown();
        platform.willActOn(asked, [](ShownForm&) {});
        choose(*form, item);
        EXPECT_EQ(platform.takeTranscript(), std::string("show modal ") + asked + "\nclosed " + asked + "\n");
    }
}

TEST_F(FrmStart, EndsAtStartWithoutItsSettingsFile) {
    platform.platform().files.remove(platform.pathOf("MISC.TXT"));
    form = std::make_unique<frmStart>(platform);
    Handlers(platform.platform().windows).run([&] { form->load(); });
    EXPECT_EQ(platform.takeTranscript(), "fail program: Run-time error '53': File not found\n");
}

TEST_F(FrmStart, EndsAtStartOnAFlagThatItDoesNotSupport) {
    platform.putFile("MISC.TXT", "C:\\OLD\r\n\r\nTrue\r\n");
    form = std::make_unique<frmStart>(platform);
    Handlers(platform.platform().windows).run([&] { form->load(); });
    EXPECT_EQ(platform.takeTranscript(),
              "fail program: Run-time error '438': Object doesn't support this property or method\n");
}

TEST_F(FrmStart, MarksTheDisplayLevelAndWritesTheFileWithoutIt) {
    start();
    EXPECT_EQ(marks(), "x---");
    const std::vector<std::pair<const char*, std::string>> levels = {
        {"mnuSuppressReaches", "-xxx"},  {"mnuSuppressInterpolated", "-x--"}, {"mnuSuppressFeatures", "-xx-"},
        {"mnuSuppressFeatures", "-xx-"}, {"mnuDisplayFull", "x---"},          {"mnuDisplayFull", "x---"}};
    for (const auto& [item, expected] : levels) {
        platform.putFile("MISC.TXT", "");
        choose(*form, item);
        EXPECT_EQ(marks(), expected) << item;
        EXPECT_EQ(platform.fileText("MISC.TXT"), "C:\\OLD\r\n\r\nFalse\r\n") << item;
    }
}

TEST_F(FrmStart, ForgetsTheDisplayLevelAtTheNextStart) {
    start();
    choose(*form, "mnuSuppressFeatures");
    form.reset();
    GLOBAL = {};
    start();
    EXPECT_EQ(marks(), "x---");
}

TEST_F(FrmStart, MarksTheDisplayLevelOfTheFileAtStart) {
    for (const auto& [level, expected] :
         {std::pair{"", "x---"}, {"0", "x---"}, {"1", "-x--"}, {"2", "-xx-"}, {"3", "-xxx"}}) {
        GLOBAL = {};
        putSettings(level);
        start();
        EXPECT_EQ(marks(), expected) << level;
    }
}

TEST_F(FrmStart, ExitsWithoutAQuestion) {
    start();
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), "end program\n");
}

TEST_F(FrmStart, ExitsWithoutSavingWhereTheUserSaysNo) {
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::no);
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), modifiedData + "no\nend program\n");
}

TEST_F(FrmStart, ExitsAfterSavingWhereTheUserSaysYes) {
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::yes);
    platform.willChoose("C:\\data\\new.dat");
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(),
              modifiedData + "yes\n" + saveDialog +
                  "folder \"\" overwritePrompt no -> C:\\data\\new.dat\ncurrent folder {app}\nend program\n");
}

TEST_F(FrmStart, ExitsWhateverTheSaveDialogsOutcome) {
    const std::string asks = modifiedData + "yes\n" + saveDialog + "folder \"\" overwritePrompt no -> ";
    start();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::yes);
    platform.willCancel();
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), asks + "cancel\nend program\n");
    platform.willAnswer(Answer::yes);
    platform.willFailDialog(RunTimeError(57, "Device I/O error"));
    choose(*form, "mnuExit");
    EXPECT_EQ(platform.takeTranscript(), asks + "error 57\nend program\n");
    platform.willAnswer(Answer::yes);
    platform.willChoose("C:\\data\\new.txt");
    platform.willAnswer(Answer::ok);
    choose(*form, "mnuExit");
    EXPECT_TRUE(platform.takeTranscript().ends_with("extension must be .DAT. -> ok\nend program\n"));
}

TEST_F(FrmStart, AsksAlsoWhereItsWindowIsClosed) {
    start();
    form->show();
    GLOBAL.DataModified = true;
    platform.willAnswer(Answer::no);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(platform.takeTranscript(), modifiedData + "no\nend program\n");
}

TEST_F(FrmStart, ClearsRunStartingWhenItIsActivated) {
    start();
    GLOBAL.RunStarting = true;
    static_cast<ShownForm&>(*form).activate();
    EXPECT_FALSE(GLOBAL.RunStarting);
}

TEST_F(FrmStart, OpensTheSetUpFormOnAFileGivenAtStart) {
    platform.putFile("RIVER.SGR", longRiver());
    form = std::make_unique<frmStart>(platform);
    platform.setBottomForm(*form);
    form->load();
    form->openOnStart(platform.pathOf("RIVER.SGR"));
    platform.willActOn("frmGraphData", [&](ShownForm& setUp) {
        EXPECT_EQ(control<QLabel>(setUp, "lblFileName_0").text(), "RIVER.SGR");
    });
    platform.platform().windows.showModeless(*form);
    EXPECT_EQ(platform.takeTranscript(),
              "show modeless frmStart\nshow modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStart, OpensTheEmptySetUpFormWhereItIsAskedForAtStart) {
    form = std::make_unique<frmStart>(platform);
    platform.setBottomForm(*form);
    form->load();
    form->openOnStart("");
    platform.willActOn("frmGraphData", [&](ShownForm& setUp) {
        EXPECT_EQ(control<QLabel>(setUp, "lblFileName_0").text(), "");
    });
    platform.platform().windows.showModeless(*form);
    EXPECT_EQ(platform.takeTranscript(),
              "show modeless frmStart\nshow modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStart, HasTheProductsIconOnceItIsPainted) {
    QApplication::setWindowIcon({});
    start();
    EXPECT_TRUE(form->windowIcon().isNull());
    form->grab();
    passEvents();
    QList<QSize> sizes = form->windowIcon().availableSizes();
    std::ranges::sort(sizes, {}, &QSize::width);
    EXPECT_EQ(sizes, (QList<QSize>{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}}));
    const QImage picture = form->windowIcon().pixmap(64, 64).toImage();
    EXPECT_EQ(picture.pixelColor(32, 10), QColor(0x0b, 0x4f, 0x71));
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST_F(FrmStart, DoesNotTryAFileGivenAtStartAgain) {
    form = std::make_unique<frmStart>(platform);
    platform.setBottomForm(*form);
    form->load();
    form->openOnStart(platform.pathOf("MISSING.SGR"));
    platform.willActOn("frmGraphData", [](ShownForm&) {});
    platform.willAnswer(Answer::ok);
    platform.platform().windows.showModeless(*form);
    platform.takeTranscript();
    EXPECT_FALSE(GLOBAL.graphResultsPending);
    platform.willActOn("frmGraphData", [](ShownForm&) {});
    choose(*form, "mnuGraphs");
    EXPECT_EQ(platform.takeTranscript(), "show modal frmGraphData\nclosed frmGraphData\n");
}

TEST_F(FrmStart, AnchorsTheCreditsToTheBottomAndMovesNothingElse) {
    start();
    showActive(*form);
    std::map<QWidget*, QRect> before;
    QWidget* client = form->centralWidget();
    for (QWidget* child : client->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        before[child] = child->geometry();
    const int height = client->height();
    form->resize(form->width(), form->height() + 75);
    passEvents();
    ASSERT_EQ(client->height(), height + 75);
    int moved = 0;
    for (const auto& [child, place] : before) {
        const QString name = child->objectName();
        const bool credit = name.startsWith("lblAddress") || name.startsWith("lineAddress");
        moved += credit ? 1 : 0;
        EXPECT_EQ(child->geometry(), place.translated(0, credit ? 75 : 0)) << name.toStdString();
    }
    EXPECT_GE(moved, 3);
}

TEST_F(FrmStart, ScalesTitleAndLogoByTheirOwnRules) {
    start();
    std::map<std::string, QRect> design;
    for (const char* name : {"lblKorvel_0", "lblKorvel_1", "shpLogo_0", "shpLogo_3", "shpLogo_6"})
        design[name] = placeOf(name);
    const double fontSize = control<QLabel>(*form, "lblKorvel_0").font().pointSizeF();
    GLOBAL = {};
    startOn(20490, 11520);
    const double x = 20490 / 9600.0, y = 11520 / 6780.0;
    for (const auto& [name, before] : design) {
        const bool title = name.starts_with("lblKorvel");
        const QRect place = placeOf(name);
        EXPECT_NEAR(place.x(), before.x() * x, 2) << name;
        EXPECT_NEAR(place.y(), before.y() * y, 2) << name;
        EXPECT_NEAR(place.width(), before.width() * x, 2) << name;
        EXPECT_NEAR(place.height(), before.height() * (title ? x : y), 2) << name;
    }
    EXPECT_NEAR(control<QLabel>(*form, "lblKorvel_0").font().pointSizeF(), fontSize * x, 0.01)
        << "not rounded to a whole point";
}

TEST_F(FrmStart, CentresTheProgressFrame) {
    startOn(20490, 11520);
    const QRect frame = placeOf("frameProgress");
    EXPECT_NEAR(frame.x(), (1366 - frame.width()) / 2.0, 1);
    EXPECT_NEAR(frame.y(), (768 - frame.height()) / 2.0, 1);
}

} // namespace korvel
