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

// What is told of it: `what` in words, "The table", and where it went (model name), "" for a printer. Before
// anything new is made nothing is told any more.
struct HandingOnNews {
    std::function<void()> begins;
    std::function<void(const std::string& what, const std::string& file)> written;
    std::function<void()> copied;
};

class HandingOn {
  public:
    static inline int patience = 500; // milliseconds, until what takes long shows its progress

    HandingOn(Platform& services, HandedOn what, HandingOnNews news, QWidget& window);

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
    // False where nothing came of it, and the user knows why.
    bool writePicture(const std::string& file, const PictureWish& wish);
    bool writeTable(const std::string& file);
    bool writePageTo(const std::string& file);
    bool writeAtlasTo(const std::string& file);
    void tell(const std::string& what, const std::string& file, const std::function<bool()>& write);
    bool isWritten(const std::string& file, const std::function<bool()>& write);

    Platform& m_services;
    HandedOn m_what;
    HandingOnNews m_news;
    QWidget& m_window;
    PictureWish m_wish; // the last one
};

} // namespace korvel
