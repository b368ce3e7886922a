// Small event filters that turn Qt's events on one control into plain calls.
#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

#include <functional>
#include <string>

namespace korvel {

// Calls on entering a control.
class EnterWatch : public QObject {
  public:
    EnterWatch(QWidget& control, std::function<void()> onEnter);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> m_onEnter;
};

// Calls once, queued, after a control has lost the focus to another control of the same window; not for a
// focus that a menu, a pop-up or another window took. Where the mouse holds the button that took it, the call
// waits until the button is released, and comes before the button's own click.
class LeaveWatch : public QObject {
  public:
    LeaveWatch(QWidget& control, std::function<void()> onLeave);
    // Runs a call that is still queued at once; for the command whose button took the focus.
    void runPending();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void settle();

    std::function<void()> m_onLeave;
    bool m_pending = false;
};

// Offers the keys pressed in a control, before the control itself takes them; true when used.
class KeyWatch : public QObject {
  public:
    KeyWatch(QWidget& control, std::function<bool(int key)> onKey);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<bool(int key)> m_onKey;
};

// A tool-tip made anew whenever the pointer moves over the control.
class HoverTip : public QObject {
  public:
    HoverTip(QWidget& control, std::function<std::string()> text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget& m_control;
    std::function<std::string()> m_text;
};

} // namespace korvel
