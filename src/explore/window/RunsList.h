// The runs of the Explorer: each with the line that it is drawn with, shown or hidden by its check box, put
// in order by keys and by a context menu.
#pragma once

#include "panels/RunStyle.h"
#include "toolkit/forms/Handlers.h"

#include <QListWidget>
#include <QMenu>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace korvel {

struct ListedRun {
    std::string name;
    std::string file; // as shown
    std::string note; // "read again at 14:05", "" for nothing
    bool isShown = true;
    bool operator==(const ListedRun&) const = default;
};

class RunsList : public QListWidget {
  public:
    RunsList(Handlers& handlers, QWidget* parent = nullptr);

    // By its place in the list.
    std::function<void(std::size_t run, bool isShown)> onShown;
    std::function<void(std::size_t run)> onMakeBase, onRemove;
    std::function<void(std::size_t run, std::size_t to)> onMove;

    void show(const std::vector<ListedRun>& runs, Theme theme);
    using QListWidget::show;
    // What can be done with the current run.
    void fillMenu(QMenu& menu);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    enum class Deed { makeBase, moveUp, moveDown, remove };

    void fill(const std::vector<ListedRun>& runs, Theme theme);
    void addRun();
    void fitHeight();
    bool canDo(Deed deed) const;
    void act(Deed deed);
    void moveTo(std::size_t to);

    Handlers& m_handlers;
};

} // namespace korvel
