// The main form's ways to the Explorer: its button, the key, and results files that are dropped on it.
#include "app/frmStart.h"

#include "global/GLOBAL.h"
#include "results/ResultsDataSet.h"
#include "toolkit/forms/DroppedFiles.h"

#include <QDragEnterEvent>

namespace korvel {

namespace {

constexpr std::size_t mostExplored = 12;

} // namespace

// The last run's results; where there are none, the user says which.
void frmStart::explore() {
    if (!GLOBAL.fileNames[0].empty() && services().files.exists(GLOBAL.fileNames[0]))
        return services().machine.startExplorer({GLOBAL.fileNames[0]});
    m_exploreDialog.initialFolder = GLOBAL.LastFolder;
    const std::vector<ChosenFile> chosen = services().dialogs.chooseFiles(m_exploreDialog);
    if (chosen.empty()) return;
    services().files.setCurrentFolder(services().machine.applicationFolder());
    std::vector<std::string> files;
    for (const ChosenFile& file : chosen) {
        if (file.refusal) return (void)services().dialogs.show(refusedName(file));
        files.push_back(file.name);
    }
    startExplorer(files);
}

// A process that refuses its files would do so unseen.
void frmStart::startExplorer(const std::vector<std::string>& files) {
    if (files.size() > mostExplored)
        return (void)services().dialogs.show({"The Explorer takes 12 results files at most.",
                                              "Explore results", Icon::exclamation, Buttons::ok});
    services().machine.startExplorer(files);
}

// What the form in front shows; asks as the main form does where nothing is loaded.
void frmStart::exploreLoaded() {
    if (!RESULTS.slotLoaded[0]) return explore();
    std::vector<std::string> files{GLOBAL.fileNames[0]};
    if (RESULTS.slotLoaded[1]) files.push_back(GLOBAL.fileNames[1]);
    services().machine.startExplorer(files);
}

// Results files that are dropped on the form.
void frmStart::dragEnterEvent(QDragEnterEvent* event) {
    if (droppedFiles(*event->mimeData(), ".SGR").empty()) return;
    event->setDropAction(Qt::CopyAction); // whatever the key: the files stay where they are
    event->accept();
}

void frmStart::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    handlers().run([&] { startExplorer(droppedFiles(*event->mimeData(), ".SGR")); });
}

} // namespace korvel
