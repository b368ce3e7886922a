// A study as a document to be handed on: a title page with the network and its verdicts, each river's
// profiles, and tables. A page is made when it is asked for.
#pragma once

#include "panels/PanelLook.h"
#include "platform/Paper.h"
#include "publish/AtlasFindings.h"
#include "publish/AtlasSheet.h"
#include "publish/AtlasTableLayout.h"
#include "study/Network.h"
#include "study/Study.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace korvel {

struct AtlasRequest {
    std::string title; // UTF-8; "" for the one of the first run's file
    std::vector<int> series;
    std::set<int> lowIsBad;
};

inline constexpr double atlasPartHeight = 1.5; // lines, of an entry of the contents

class Atlas {
  public:
    // The metrics must outlive the atlas.
    Atlas(Study study, AtlasRequest request, const TextMetrics& metrics);

    const std::string& title() const { return m_request.title; }
    std::size_t pageCount() const { return m_pages.size(); }
    Drawing page(std::size_t page, Drawing reused = {}) const;
    // Bookmarks for all parts, and the links of the list of contents.
    std::shared_ptr<const DocumentOutline> outline() const;

  private:
    // A part of the document that the contents name.
    struct Part {
        std::string title;
        int level = 0;
        std::size_t page = 0;
    };
    using PagePainter = std::function<void(AtlasSheet&)>;

    ComplianceRequest compliance() const;
    void planContents();
    void planVerdicts();
    void planRivers();
    void planRiver(const std::vector<int>& reaches, const std::string& title, const std::string& beside);
    void planTables();
    void planTable(AtlasTable table, int level);
    void beginPart(const std::string& title, int level) { m_parts.push_back({title, level, m_pages.size()}); }

    void paintTitlePage(AtlasSheet& sheet) const;
    double paintRuns(AtlasSheet& sheet, double top) const;
    double paintFindings(AtlasSheet& sheet, double top) const;
    std::string findingsInWords(std::size_t run) const;
    void paintContents(AtlasSheet& sheet, std::size_t from) const;
    void paintNetwork(AtlasSheet& sheet, std::size_t run, double top, double bottom) const;

    std::size_t partsAPage() const;
    double contentsTop() const;

    Study m_study;
    AtlasRequest m_request;
    const TextMetrics& m_metrics;
    Network m_network; // of the base
    std::vector<RunJudgement> m_judged;
    std::vector<RunFindings> m_findings;
    std::vector<PagePainter> m_pages;
    std::vector<Part> m_parts;
    std::size_t m_contentsPages = 1;
};

} // namespace korvel
