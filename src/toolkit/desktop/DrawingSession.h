// Qt's fonts and pictures for as long as it lives, for commands: an application object where there is none
// yet.
#pragma once

#include <memory>

class QGuiApplication;

namespace korvel {

class DrawingSession {
  public:
    DrawingSession();
    ~DrawingSession();
    DrawingSession(const DrawingSession&) = delete;
    DrawingSession& operator=(const DrawingSession&) = delete;

  private:
    std::unique_ptr<QGuiApplication> m_application;
};

} // namespace korvel
