// The engine's own output as lines for its window, from bytes that arrive in pieces cut anywhere.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

class EngineOutput {
  public:
    // Takes the next piece and returns the lines that it completes, without their ends (CR LF, LF; a CR
    // before anything else begins the line anew, as on a terminal). A long line is broken, so that it is
    // quickly painted; of one that does not end only the beginning is given, and a line that says so.
    std::vector<std::string> feed(std::string_view bytes);
    // The line that has begun and has no end yet.
    const std::string& openLine() const { return m_open; }
    // For a batch: the last line so far that tells which file is in hand ("File 2 of 5: ..."); "" before any.
    const std::string& fileInHand() const { return m_fileInHand; }

  private:
    void beginLine();
    void endLine(std::vector<std::string>& completed);
    void take(char c, std::vector<std::string>& completed);

    std::string m_open;
    std::string m_fileInHand;
    bool m_afterReturn = false;
    int m_pieces = 0; // into which the open line has been broken; one more where the rest is not shown
};

} // namespace korvel
