// What leaves the Explorer: the picture as a file, on the clipboard or on paper, the table in front as a
// file, all runs as a page or an atlas.
#pragma once

#include "drawing/Drawing.h"
#include "explore/window/PictureDialog.h"
#include "panels/RunStyle.h"
#include "platform/Platform.h"
#include "study/Study.h"
#include "tables/Table.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QWidget;

namespace korvel {

// What is handed on, made when it is asked for.
struct HandedOn {
    std::function<Drawing(double width, double height, Theme theme)> picture; // twips
    std::function<std::optional<Table>()> table;
    std::function<std::string()> tableName; // "Values"
    std::function<std::string()> base;      // model name of the first run
    std::function<std::vector<std::string>()> inputs;
    std::function<std::shared_ptr<const Study>()> study;
    std::function<std::set<int>()> lowIsBad; // determinands by number
};

class HandingOn {
  public:
    HandingOn(Platform& services, HandedOn what, QWidget& window);

    void savePicture();
    void copyPicture();
    void print();
    void saveTable();
    void savePage();
    void saveAtlas();

  private:
    // `what` is proposed as a name behind the base's: "ALDER-values.csv".
    std::optional<std::string> chooseFile(const std::string& title, const std::string& filter,
                                          const std::string& what, const std::string& extension);
    void writePicture(const std::string& file, const PictureWish& wish);
    void writeTable(const std::string& file);
    void writePageTo(const std::string& file);
    void writeAtlasTo(const std::string& file);
    bool tell(const std::string& file, const std::function<void()>& write);

    Platform& m_services;
    HandedOn m_what;
    QWidget& m_window;
    PictureWish m_wish; // the last one
};

} // namespace korvel
