// The pixels that Qt gives to a line from one column of pixels to the next. Such lines join the columns of a
// long run, and Qt takes as long for a wide one as for a dozen boxes. There is no simple rule for its pixels:
// so Qt paints each once, apart, and they are remembered.
#pragma once

#include <vector>

namespace korvel {

// Pixels of one column, one below the other.
struct Stretch {
    int top = 0;
    int bottom = 0;
    bool operator==(const Stretch&) const = default;
};

// Of solid pens of one width, in pixels, with square ends.
class SlantPictures {
  public:
    static constexpr int steepest = 255; // pixels up or down

    // Kept as long as the program runs: redraws need the same ones again and again.
    static SlantPictures& ofPen(int width);

    explicit SlantPictures(int penWidth);

    // How far the pixels of a line lie from its ends, at most.
    int reach() const { return m_penWidth + 1; }

    struct Picture {
        int firstColumn = 0;
        std::vector<Stretch> stretches; // of that column and those right of it
    };
    // Of the line from (0, 0) to (1, rise), which is not 0, and at most the steepest.
    const Picture& to(int rise);

  private:
    Picture paint(int rise) const;

    int m_penWidth;
    std::vector<Picture> m_pictures; // from -steepest on; empty where not painted yet
};

} // namespace korvel
