// The help viewer: one page of text in a grid of one column. Page Up and Page Down scroll, and at its end
// turn to the other pages.
#pragma once

#include "help/HelpPage.h"
#include "toolkit/forms/Form.h"

#include <QTableWidget>

namespace korvel {

class frmHelp : public Form {
  public:
    explicit frmHelp(Platform& services);

    // Reads the page that GLOBAL.helpPage names; called before the form is shown. A failure is the
    // run-time's.
    void load();

  protected:
    bool onKey(int key, Qt::KeyboardModifiers modifiers) override;

  private:
    QTableWidget& grid();
    void layOut();
    bool keyInGrid(int key);
    void turn(PageTurn direction);
    void showRows(const std::vector<std::string>& rows);

    QTableWidget& grdHelp = grid();
    QLabel& lblPage = label("lblPage", "", {});
};

} // namespace korvel
