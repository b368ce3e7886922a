// What stands in an Explorer without runs: what to do, and what was opened last.
#pragma once

#include "toolkit/forms/Handlers.h"

#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

namespace korvel {

class EmptyPage : public QWidget {
  public:
    explicit EmptyPage(Handlers& handlers, QWidget* parent = nullptr);

    std::function<void()> onOpen;
    std::function<void(const std::string& file)> onRecent; // host path

    void show(const std::vector<std::string>& recent);
    using QWidget::show;

  private:
    QPushButton* m_open;
    QWidget* m_recentHeading;
    QListWidget* m_recent;
    std::vector<std::string> m_files;
};

} // namespace korvel
