#include "forms/Contrast.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPixmap>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

namespace korvel {

namespace {

constexpr double leastContrast = 4.5;

double luminance(QRgb colour) {
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) + 0.0722 * part(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Of its words as they are painted: between the most frequent colour and the one farthest from it, borders
// left out.
double paintedContrast(QWidget& control) {
    constexpr int border = 4;
    const QImage all = control.window()->grab().toImage();
    const QImage image = all.copy(placeInWindow(control).adjusted(border, border, -border, -border));
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    const auto byCount = [](const auto& a, const auto& b) { return a.second < b.second; };
    const QRgb ground = std::ranges::max_element(counts, byCount)->first;
    double most = 1;
    for (const auto& [colour, count] : counts)
        most = std::max(most, contrast(ground, colour));
    return most;
}

std::string wordsOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text().toStdString();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->text().toStdString();
    if (const auto* choices = qobject_cast<const QComboBox*>(&control))
        return choices->currentText().toStdString();
    if (const auto* number = qobject_cast<const QAbstractSpinBox*>(&control))
        return number->text().toStdString();
    return "";
}

} // namespace

QRect placeInWindow(const QWidget& control) {
    return {control.mapTo(control.window(), QPoint(0, 0)), control.size()};
}

void expectWordsStandOut(QWidget& form) {
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const bool isShadow = control->objectName() == "lblKorvel_0"; // of the same words
        if (!control->isVisible() || !control->isEnabled() || isShadow || wordsOf(*control).empty()) continue;
        EXPECT_GE(paintedContrast(*control), leastContrast)
            << control->objectName().toStdString() << ": " << wordsOf(*control);
    }
}

void expectWordsFit(QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || wordsOf(*control).empty()) continue;
        const std::string words = wordsOf(*control);
        EXPECT_TRUE(window.rect().contains(placeInWindow(*control))) << words;
        const bool wraps = control->hasHeightForWidth();
        const int least =
            wraps ? control->heightForWidth(control->width()) : control->minimumSizeHint().height();
        EXPECT_GE(control->height(), least) << words;
        if (!wraps) {
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << words;
        }
    }
}

} // namespace korvel
