#include "publish/Page.h"

#include "publish/PageParts.h"
#include "publish/PagePicture.h"
#include "publish/PagePolicy.h"
#include "publish/PageRivers.h"
#include "publish/PageSections.h"

namespace korvel {

namespace {

std::string styleOf(const PageStudy& study) {
    return std::string(plotStyle) + "\n" + std::string(pageStyle) + pictureStyle(study.runs().size());
}

std::string scriptOf() {
    return std::string(plotScript) + "\n(() => {\n" + std::string(pageScript) + "})();\n";
}

void writeHead(PageHtml& html, const PageStudy& study, const std::string& style, const std::string& script) {
    html.open("head").line();
    // The policy holds for what comes after it.
    html.empty("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", pagePolicy(script, style)}})
        .line();
    html.empty("meta", {{"charset", "utf-8"}}).line();
    html.empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}}).line();
    html.empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}}).line();
    html.element("title", study.title()).line();
    html.open("style").markup(style).close().line();
    html.closeLine();
}

struct Place {
    const char* id;
    const char* words;
};

void writeContents(PageHtml& html, const PageStudy& study) {
    html.open("nav", {{"aria-label", "Contents"}}).open("ul").line();
    for (const Place& place :
         {Place{"summary", "At a glance"}, Place{"network", "Network"}, Place{"rivers", "Rivers"},
          Place{"compliance", "Compliance"}, Place{"changes", "Changes"}, Place{"sources", "Sources"},
          Place{"fit", "Fit"}, Place{"notes", "About the figures"}}) {
        if (std::string(place.id) == "changes" && study.runs().size() < 2) continue;
        html.open("li").element("a", place.words, {{"href", std::string("#") + place.id}}).close().line();
    }
    html.close().closeLine();
}

void writeHeader(PageHtml& html, const PageStudy& study) {
    html.element("a", "Skip to the content", {{"class", "skip"}, {"href", "#main"}}).line();
    html.open("header").line();
    html.element("p", "River water quality \u00b7 model results", {{"class", "eyebrow"}}).line();
    html.open("h1").element("bdi", study.title()).close().line();
    html.closeLine();
    writeContents(html, study);
}

} // namespace

void writePage(const Study& study, const PageRequest& request, OutputBytes& out) {
    const PageStudy judged(study, request);
    const std::vector<PageSources> sources = pageSources(judged);
    const std::string style = styleOf(judged), script = scriptOf();
    judged.tellProgress(0.5);
    PageHtml html(out);
    html.markup("<!DOCTYPE html>\n").open("html", {{"lang", "en"}}).line();
    writeHead(html, judged, style, script);
    html.open("body").line();
    writeHeader(html, judged);
    html.open("main", {{"id", "main"}, {"tabindex", "-1"}}).line();
    writeSummary(html, judged, sources);
    const RiverPlan plan = planRivers(judged);
    writeNetwork(html, judged, plan.rivers);
    writeRivers(html, judged, plan);
    writeCompliance(html, judged);
    writeChanges(html, judged);
    judged.tellProgress(0.95);
    writeSources(html, judged, sources);
    writeFit(html, judged);
    writeNotes(html, judged);
    writeLongTexts(html);
    html.closeLine();
    html.element("footer",
                 "Made by KORVEL from results files; the figures are those of its commands. This page asks "
                 "nothing of any other place.")
        .line();
    writePageSetup(html, judged);
    html.open("script").markup(script).close().line();
    html.close().closeLine();
    judged.tellProgress(1);
}

} // namespace korvel
