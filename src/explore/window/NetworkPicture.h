// The catchment: a click on a river takes it as the way, another with Ctrl a second end of it; names are
// shown under the pointer.
#pragma once

#include "explore/ExploreState.h"
#include "explore/NetworkColouring.h"
#include "toolkit/forms/Handlers.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <optional>

namespace korvel {

class NetworkPicture : public QWidget {
  public:
    NetworkPicture(const TextMetrics& metrics, Handlers& handlers, QWidget* parent = nullptr);

    std::function<void(int reach)> onRiver, onSecondEnd; // by number

    void show(const ExploreState& state, NetworkView view);
    using QWidget::show;
    void showCursor(const std::optional<ExplorePlace>& cursor);
    void setTheme(Theme theme);
    // At another size (twips) and look, for files and paper.
    Drawing drawing(double width, double height, Theme theme) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    const NetworkLayout& layoutShown();
    Drawing drawn(const NetworkLayout& layout) const;
    void paintPicture();
    void paintAll(QPainter& painter);
    std::optional<NetworkSpot> spotUnder(QPointF at);
    std::string nameUnder(QPointF at);
    void refresh();
    QRect spotOfCursor() const;

    const TextMetrics& m_metrics;
    Handlers& m_handlers;
    Theme m_theme = Theme::light;
    ExploreState m_state;
    NetworkView m_view;
    std::optional<NetworkLayout> m_layout;
    QPixmap m_picture;
};

} // namespace korvel
