// An Explorer with its real controls, and what a user does with them.
#pragma once

#include "explore/frmExplore.h"

#include "basic/DiskNames.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "forms/FormDriver.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace korvel {

// Two heads run into a lower reach; points every 2 km, a works on the upper reach.
inline std::string river(double bod = 5, const std::string& determinand = "BOD") {
    ResultsFileBuilder file;
    file.determinand(1, determinand).determinand(2, "Ammonia");
    file.reach(1, "Upper", 10, 3).reach(2, "Side", 6, 3).reach(3, "Lower", 8, 0);
    const auto point = [&](int reach, double distance, const std::string& label, int type) {
        file.point(reach, distance, label, type);
        file.set(ValueField::meanValue, 0, reach == 2 ? 1 : 3);
        file.set(ValueField::meanValue, 1, bod + distance);
    };
    for (double distance = 0; distance <= 10; distance += 2)
        point(1, distance, distance == 4 ? "Mill works" : "P" + std::to_string(distance),
              distance == 4 ? 3 : 0);
    point(2, 0, "Side head", 10);
    point(3, 0, "Bridge", 0);
    point(3, 8, "Mouth", 0);
    return file.text();
}

class FrmExploreWindow : public testing::Test {
  protected:
    FrmExploreWindow() {
        platform.putFile("a.sgr", river());
        platform.putFile("b.sgr", river(2));
    }

    void show(const std::vector<std::string>& files) { showRuns(files, static_cast<int>(files.size())); }
    void showRuns(const std::vector<std::string>& files, int expectedRuns) {
        std::vector<std::string> names;
        for (const std::string& file : files)
            names.push_back(platform.pathOf(file));
        form = std::make_unique<frmExplore>(platform, memory, names);
        form->resize(1200, 700);
        showActive(*form);
        form->activate();
        ASSERT_TRUE(waitFor([&] { return runCount() == expectedRuns; }));
        passEvents();
    }
    QListWidget& runs() { return control<QListWidget>(*form, "lstRuns"); }
    int runCount() { return runs().count(); }
    std::string runText(int run) { return runs().item(run)->text().toStdString(); }
    QWidget& profile() { return control<QWidget>(*form, "picProfile"); }
    std::string readout() { return control<QLabel>(*form, "lblReadout").text().toStdString(); }
    QComboBox& combo(const char* name) { return control<QComboBox>(*form, name); }
    std::vector<std::string> choices(const char* name) {
        std::vector<std::string> texts;
        for (int item = 0; item < combo(name).count(); ++item)
            texts.push_back(combo(name).itemText(item).toStdString());
        return texts;
    }
    void choose(const char* name, const std::string& text) {
        const int item = combo(name).findText(QString::fromStdString(text));
        ASSERT_GE(item, 0) << text;
        combo(name).setCurrentIndex(item);
        emit combo(name).activated(item);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        profile().setFocus();
        QTest::keyClick(&profile(), key, keys);
    }
    // What the core says of the same place.
    std::string expectedReadout() {
        ExploreScene scene;
        scene.show(form->state());
        const auto place = scene.placeOf(form->state().cursor.value());
        return cursorText(scene.readout(place.value()), scene.view().kind, 0);
    }

    QTemporaryDir folder;
    FakePlatform platform;
    ExploreMemory memory{folder.filePath("memory.ini")};
    std::unique_ptr<frmExplore> form;
};

} // namespace korvel
