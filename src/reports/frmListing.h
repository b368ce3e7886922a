// Shows one of the engine's text files as it is printed: box characters as characters, with a search.
#pragma once

#include "toolkit/forms/DoneLine.h"
#include "toolkit/forms/Form.h"

#include <QPlainTextEdit>

namespace korvel {

class frmListing : public Form {
  public:
    explicit frmListing(Platform& services);

    // Shows the file modally. One that can't be read is told.
    void view(const std::string& fileName);

  private:
    enum class Direction { forward, backward };

    void layOut();
    void setLetters(double points);
    void print();
    void find(Direction direction);

    QLabel& lblFind = label("lblFind", "&Find:", {}, {.fontSize = 10});
    QLineEdit& txtFind = textBox("txtFind", "Find", {}, {.fontSize = 10});
    QPushButton& cmdNext = button("cmdNext", "&Next", {}, {.fontSize = 10});
    QPushButton& cmdPrevious = button("cmdPrevious", "P&revious", {}, {.fontSize = 10});
    QLabel& lblFound = label("lblFound", "", {}, {.fontSize = 10});
    QPushButton& cmdPrint = button("cmdPrint", "&Print", {}, {.fontSize = 10});
    QPushButton& cmdClose = button("cmdClose", "&Close", {}, {.fontSize = 10});
    QPlainTextEdit& txtListing;

    std::string m_fileName;
    double m_points = 0; // of all letters; kept from one file to the next
    DoneLine m_done{lblFound, services().machine, handlers(), " &nbsp; "};
};

} // namespace korvel
