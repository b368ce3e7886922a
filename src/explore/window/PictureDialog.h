// Asks how a picture is to be saved: its kind, and how large and fine it is.
#pragma once

#include <QSize>

#include <optional>
#include <string>

class QWidget;

namespace korvel {

struct PictureWish {
    QSize pixels = {1600, 900};
    int dotsPerInch = 96; // 96: a pixel a dot
    std::string extension = ".png";
    bool operator==(const PictureWish&) const = default;
};

// Nothing where the user cancels.
std::optional<PictureWish> askForPicture(const PictureWish& proposed, QWidget& window);

} // namespace korvel
