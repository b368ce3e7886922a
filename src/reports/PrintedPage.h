// A page in the making: its drawing, in inches, and what printing moves on with it, the current position and
// font.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Units.h"
#include "platform/Paper.h"

#include <limits>
#include <string>

namespace korvel {

// A page with nothing on it, as large as the printable area.
Drawing emptyPage(Orientation orientation);

// The font of all but the title.
inline const Font reportFont{"Arial", 8, false};

// The room for a text. One that is wider is printed narrower, down to half its width; what is done with one
// that is too wide even then.
enum class TooWide { printed, cut };
struct TextRoom {
    double width = std::numeric_limits<double>::infinity(); // inches
    TooWide tooWide = TooWide::printed;
};

// A text as it goes into its room.
struct FittedText {
    std::string text;
    TextSize size; // inches
    double narrowing = 1;
};

class PrintedPage {
  public:
    PrintedPage(Orientation orientation, const TextMetrics& metrics);

    Font font;
    DrawnPoint position;
    TextRoom room; // for the texts that follow

    double widthOf(const std::string& text) const { return sizeOf(text).width; } // in the font in use
    FittedText fitted(const std::string& text) const;
    // One line of a report, whatever the font in use: that of size 8.
    double lineHeight() const { return m_lineHeight; }
    // Prints at the position and moves to the start of the next line.
    void print(FittedText text);
    void rule(DrawnPoint from, DrawnPoint to);

    Drawing& drawing() { return m_drawing; }

  private:
    TextSize sizeOf(const std::string& text) const;
    std::string cutToRoom(const std::string& text) const;

    const TextMetrics& m_metrics;
    double m_lineHeight;
    Drawing m_drawing;
};

// Prints one line of text in the page's room. `Fmt` holds "b" for bold, "r" where the text is to end at `xp`
// and not begin there, in any case. The position is kept where it would not lie right of and below the page's
// corner. `LastY` receives the start of the next line.
void Ptext(PrintedPage& page, double xp, double yp, const std::string& Text1, double& LastY,
           const std::string& Fmt);

} // namespace korvel
