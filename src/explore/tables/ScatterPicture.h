// The picture of observed and simulated values: a point is named under the pointer, and chosen by a click.
#pragma once

#include "explore/rows/FitRows.h"
#include "toolkit/forms/Handlers.h"

#include <QWidget>

namespace korvel {

class ScatterPicture : public QWidget {
    Q_OBJECT
  public:
    ScatterPicture(Handlers& handlers, QWidget* parent);

    void setPoints(std::optional<FitRows::Points> points); // none: nothing is shown
    void setScale(ScaleKind kind);
    const FitScatter& scatter() const { return m_scatter; }
    int marked() const { return m_marked; } // -1 for none

    QSize sizeHint() const override { return {320, 260}; }
    QSize minimumSizeHint() const override { return {120, 60}; }

  signals:
    void placeChosen(int reach, double distance, const QString& side);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void layOut();
    void mark(int point);
    void step(int by);
    void choose(int point);
    int pointUnder(const QPointF& place) const;
    void paint();

    Handlers& m_handlers;
    std::optional<FitRows::Points> m_points;
    ScaleKind m_kind = ScaleKind::linear;
    FitScatter m_scatter;
    int m_marked = -1;
};

} // namespace korvel
