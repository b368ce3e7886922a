// The panels along the way. What is painted is kept as a picture; the cursor is painted over it, so that
// moving it costs the same however many points there are.
#pragma once

#include "explore/Navigator.h"
#include "panels/ProfileLayout.h"
#include "toolkit/forms/Handlers.h"

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

#include <functional>
#include <optional>

namespace korvel {

class ProfilePicture : public QWidget {
  public:
    // What is to be shown anew after something the user did here.
    using Told = std::function<void(Changed)>;

    ProfilePicture(Navigator& navigator, const ExploreScene& scene, const TextMetrics& metrics,
                   Handlers& handlers, Told told, QWidget* parent = nullptr);

    // A panel that keys have come to is to be seen, from its top to its bottom.
    std::function<void(int top, int bottom)> onPanel;

    // The scene has changed.
    void refresh();
    // Only the cursor has.
    void refreshCursor();
    void setTheme(Theme theme);

    // As it is laid out at this size; there is something to show.
    const ProfileLayout& layoutShown();
    // The picture at another size (twips) and look, for files and paper.
    Drawing drawing(double width, double height, Theme theme) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    enum class Gesture { none, press, pan, box };

    PanelLook look(Theme theme) const;
    void takeRoom();
    void tellPanel();
    void paintAll(QPainter& painter);
    void paintPicture();
    void paintBox(QPainter& painter) const;
    void moved(const QMouseEvent& event);
    void released(const QMouseEvent& event);
    void turned(const QWheelEvent& event);
    bool stepped(const QKeyEvent& event);
    double kmAtPixel(double x);
    std::optional<std::size_t> panelAtPixel(QPointF at);
    QRect cursorStrip() const;
    QSize sizeInDots() const;

    Navigator& m_navigator;
    const ExploreScene& m_scene;
    const TextMetrics& m_metrics;
    Handlers& m_handlers;
    Told m_told;
    Theme m_theme = Theme::light;

    std::optional<ProfileLayout> m_layout;
    QImage m_picture;
    bool m_pictureIsOld = true; // to be painted anew
    QRect m_strip;              // where the cursor was painted
    Gesture m_gesture = Gesture::none;
    QPointF m_pressed, m_pointer;
    double m_kmPerPixel = 0; // when the drag began
    QElapsedTimer m_clock;
};

} // namespace korvel
