// Small event filters that turn Qt's events on one control into plain calls.
#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

#include <functional>
#include <string>

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
// focus that a menu, a pop-up or another window took.
class LeaveWatch : public QObject {
  public:
    LeaveWatch(QWidget& control, std::function<void()> onLeave);
    // Runs a call that is still queued at once; for the command whose button took the focus.
    void runPending();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> m_onLeave;
    bool m_pending = false;
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
