// The Explorer's tables, shown with small studies and used as a user does.
#pragma once

#include "ScopeSample.h"
#include "explore/tables/ExploreTables.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"

#include <QHeaderView>
#include <QTest>

namespace korvel {

inline ExploreState stateOf(const std::vector<ResultsFileBuilder>& files) {
    ExploreState state;
    const auto study = std::make_shared<Study>(studyOf(files));
    state.study = study;
    state.network = std::make_shared<Network>(networkOf(*study->base().file));
    const ReachPoints& reaches = study->base().reaches();
    state.from = reaches.number(0);
    state.to = reaches.number(reaches.count() - 1);
    state.series = {1};
    return state;
}

// Two reaches: the first fails for sure in the base, the second passes; observed, with loads.
inline ResultsFileBuilder sampleFile(double works = 2) {
    ResultsFileBuilder file = riverOf({{3, 10}, {5, 4}});
    addPoints(file, 3, {{0, 5, 4, 4.5, 6, 10, 4, "Weir"}, {6.5, 12.25, 0, 0, 0, 10, 0, "Mill"}});
    file.set(ValueField::meanValue, 2, 8.0);
    addPoints(file, 5,
              {{0.5, 0.125, 4, 0.1, 0.2, 3, 0.25, "U/S Works"}, {0.5, works, 4, 1, 3.5, 3, 0, "D/S Works"}});
    return file.set(ValueField::meanValue, 2, 8.0 + works);
}

struct Tables {
    FakePlatform platform;
    Handlers handlers{platform.platform().windows};
    ExploreTables widget{handlers};

    explicit Tables(const ExploreState& state) {
        widget.resize(900, 400);
        widget.show(state);
        showActive(widget);
    }

    RowsView& view(const char* name) { return control<RowsView>(widget, name); }
    void open(int tab) {
        control<QTabWidget>(widget, "tabTables").setCurrentIndex(tab);
        passEvents();
    }
    // Of the rows as they are shown.
    std::vector<std::string> column(const char* name, int column) {
        std::vector<std::string> texts;
        const RowsModel& rows = view(name).rows();
        for (int row = 0; row < rows.rowCount(); ++row)
            texts.push_back(rows.index(row, column).data().toString().toStdString());
        return texts;
    }
    void clickHeading(const char* name, int column) {
        QHeaderView& header = *view(name).horizontalHeader();
        const QPoint middle(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                            header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, middle);
    }
    void clickCell(const char* name, int row, int column) {
        RowsView& table = view(name);
        const QModelIndex index = table.rows().index(row, column);
        table.scrollTo(index);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(index).center());
    }
};

using Texts = std::vector<std::string>;
enum { valuesTab, changesTab, complianceTab, fitTab, sourcesTab };
constexpr int featureColumn = 4, bodColumn = 7;

} // namespace korvel
