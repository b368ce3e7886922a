#include "publish/PagePicture.h"

#include "basic/Text.h"
#include "drawing/Units.h"
#include "publish/LineThinning.h"
#include "publish/PageMetrics.h"
#include "publish/PageText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvel {

namespace {

constexpr std::size_t longestPictureText = 60; // characters
constexpr std::size_t verticesOfMark = 4;      // of a cross; a stroke has fewer

// A place in pixels, to a tenth.
void appendPlace(std::string& text, double twips) {
    const long tenths = std::lround(twips / twipsPerPixel * 10);
    std::array<char, 24> digits;
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), std::labs(tenths) / 10).ptr;
    if (tenths < 0) text += '-';
    text.append(digits.data(), end);
    if (const long tenth = std::labs(tenths) % 10; tenth != 0)
        (text += '.') += static_cast<char>('0' + tenth);
}

std::string placeText(double twips) {
    std::string text;
    appendPlace(text, twips);
    return text;
}

// Strokes in tenths of a pixel, told by how far each goes from where the one before ended.
class PathText {
  public:
    void moveTo(const DrawnPoint& point) {
        const long x = tenths(point.x), y = tenths(point.y);
        m_text += m_text.empty() ? 'M' : 'm';
        add(x - m_x, y - m_y);
        m_x = x;
        m_y = y;
        m_command = 'm';
    }
    void lineTo(const DrawnPoint& point) {
        const long x = tenths(point.x), y = tenths(point.y), right = x - m_x, down = y - m_y;
        m_x = x;
        m_y = y;
        if (right == 0 && down == 0 && m_command != 'm') return;
        const char command = down == 0 ? 'h' : right == 0 ? 'v' : 'l';
        if (m_command != command) m_text += command;
        m_command = command;
        if (command != 'v') add(right);
        if (command != 'h') add(down);
    }
    void line(const std::vector<DrawnPoint>& points) {
        for (std::size_t k = 0; k < points.size(); ++k)
            k == 0 ? moveTo(points[k]) : lineTo(points[k]);
    }
    void line(const DrawnPoint& from, const DrawnPoint& to) {
        moveTo(from);
        lineTo(to);
    }
    void cross(const DrawnPoint& centre, double half) {
        line({centre.x - half, centre.y - half}, {centre.x + half, centre.y + half});
        line({centre.x - half, centre.y + half}, {centre.x + half, centre.y - half});
    }
    void close() { m_text += 'z'; }
    void clear() { *this = {}; }
    const std::string& text() const { return m_text; }
    bool empty() const { return m_text.empty(); }

  private:
    static long tenths(double twips) { return std::lround(twips / twipsPerPixel * 10); }
    void add(long right, long down) {
        add(right);
        add(down);
    }
    void add(long tenthsOfPixel) {
        const char before = m_text.back();
        const bool isFirst = std::isalpha(static_cast<unsigned char>(before)) != 0;
        if (tenthsOfPixel < 0)
            m_text += '-';
        else if (!isFirst)
            m_text += ' ';
        const long size = std::labs(tenthsOfPixel);
        if (size >= 10 || size == 0) m_text += std::to_string(size / 10);
        if (size % 10 != 0) (m_text += '.') += static_cast<char>('0' + size % 10);
    }

    std::string m_text;
    long m_x = 0, m_y = 0;
    char m_command = 0;
};

std::string shortNumber(double value) {
    std::array<char, 32> digits;
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 2).ptr;
    std::string text(digits.data(), end);
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

class SvgPicture {
  public:
    explicit SvgPicture(PageHtml& html) : m_html(html) {}

    // What a picture's links lead to would not be told of one that is an image.
    enum class Role { image, group };

    void begin(double width, double height, const PictureWords& words, Role role = Role::image) {
        m_html.open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                            {"class", "picture"},
                            {"id", words.id},
                            {"viewBox", "0 0 " + placeText(width) + " " + placeText(height)},
                            {"role", role == Role::image ? "img" : "group"},
                            {"aria-labelledby", words.id + "-t " + words.id + "-d"},
                            {"fill", "none"},
                            {"font-family", "Liberation Sans, Arial, Helvetica, sans-serif"}});
        m_html.element("title", words.title, {{"id", words.id + "-t"}});
        m_html.element("desc", words.description, {{"id", words.id + "-d"}}).line();
    }
    void end() { m_html.closeLine(); }

    void path(const PathText& path, const Pen& pen, const std::string& kind = "") {
        if (path.empty()) return;
        const std::string dashes = dashesOf(pen.dash);
        m_html.empty("path", {{"d", path.text()},
                              {kind.empty() ? "" : "class", kind},
                              {"stroke", hexOf(pen.colour)},
                              {pen.width == 1 ? "" : "stroke-width", shortNumber(pen.width)},
                              {dashes.empty() ? "" : "stroke-dasharray", dashes}});
        m_html.line();
    }
    // Those of one colour and size together.
    void texts(std::vector<const DrawnText*> texts) {
        std::erase_if(texts, [](const DrawnText* text) { return text->text.empty(); });
        const auto kind = [](const DrawnText* text) {
            return std::pair(hexOf(text->colour), text->font.size);
        };
        std::ranges::stable_sort(texts, {}, kind);
        for (std::size_t k = 0; k < texts.size();) {
            const auto ofGroup = kind(texts[k]);
            m_html.open("g",
                        {{"fill", ofGroup.first}, {"font-size", placeText(ofGroup.second * twipsPerPoint)}});
            for (; k < texts.size() && kind(texts[k]) == ofGroup; ++k)
                text(*texts[k]);
            m_html.closeLine();
        }
    }
    void band(const DrawnBand& band, const std::string& kind, std::size_t most) {
        PathText path;
        const std::vector<DrawnPoint> above = simplified(thinned(band.above, most));
        std::vector<DrawnPoint> below = simplified(thinned(band.below, most));
        path.line(above);
        m_vertices += above.size() + below.size();
        std::ranges::reverse(below);
        for (const DrawnPoint& point : below)
            path.lineTo(point);
        if (path.empty()) return;
        path.close();
        m_html.empty("path",
                     {{"d", path.text()},
                      {kind.empty() ? "" : "class", kind},
                      {"fill", hexOf(band.fill.colour)},
                      {band.fill.opacity == 1 ? "" : "fill-opacity", shortNumber(band.fill.opacity)}});
        m_html.line();
    }
    void link(const PictureLink& link) {
        m_html.open("a", {{"href", "#" + link.target},
                          {"fill", hexOf(link.text.colour)},
                          {"font-size", placeText(link.text.font.size * twipsPerPoint)}});
        text(link.text);
        m_html.closeLine();
    }
    void count(std::size_t vertices) { m_vertices += vertices; }
    std::size_t vertices() const { return m_vertices; }

  private:
    void text(const DrawnText& text) {
        const std::string words = pageText(text.text, longestPictureText);
        const bool isPlain =
            std::ranges::all_of(words, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        m_html.open("text",
                    {{"x", placeText(text.corner.x)},
                     {"y", placeText(text.corner.y + PageMetrics::ascent * text.font.size * twipsPerPoint)},
                     {text.font.bold ? "font-weight" : "", "bold"},
                     {isPlain ? "" : "unicode-bidi", "isolate"}});
        m_html.words(words).closeLine();
    }

    PageHtml& m_html;
    std::size_t m_vertices = 0;
};

std::string kindOf(std::size_t run, const char* what) {
    return std::string(what) + " run-" + std::to_string(run);
}

void writeCurve(SvgPicture& picture, const ProfileCurve& curve, std::size_t most) {
    PathText path;
    std::size_t points = 0;
    for (const auto& run : curve.traced.runs)
        points += run.size();
    for (const auto& run : curve.traced.runs) {
        const std::size_t share =
            points <= most ? run.size() : std::max<std::size_t>(2, most * run.size() / points);
        const std::vector<DrawnPoint> some = simplified(thinned(run, share));
        picture.count(some.size());
        path.line(some);
    }
    const std::vector<CurveStroke>& strokes = curve.traced.strokes;
    const std::size_t step = 1 + 2 * strokes.size() / std::max<std::size_t>(1, most);
    for (std::size_t k = 0; k < strokes.size(); k += step) {
        path.line(strokes[k].from, strokes[k].to);
        picture.count(2);
    }
    picture.path(path, curve.pen, kindOf(curve.run, "line"));
}

// Strokes or marks of one run at a time; of very many every so many, so that they have no more vertices than
// a curve.
template <typename Items, typename Add>
void writeByRun(SvgPicture& picture, const Items& items, const char* what, std::size_t most, const Add& add) {
    const std::size_t taken = std::max<std::size_t>(1, most / verticesOfMark);
    const std::size_t step = (items.size() + taken - 1) / taken;
    for (std::size_t k = 0; k < items.size();) {
        PathText path;
        const std::size_t run = items[k].run;
        const Pen& pen = items[k].pen;
        for (; k < items.size() && items[k].run == run; ++k) {
            if (step > 1 && k % step != 0) continue;
            add(path, items[k]);
            picture.count(verticesOfMark);
        }
        picture.path(path, pen, kindOf(run, what));
    }
}

void writePanel(SvgPicture& picture, const ProfilePanel& panel, double crossHalf, std::size_t most) {
    for (const ProfileBand& band : panel.bands)
        picture.band(band.drawn, kindOf(band.run, "band"), most);
    writeByRun(picture, panel.targets, "target", most, [](PathText& path, const ProfileStroke& target) {
        path.line(target.stroke.from, target.stroke.to);
    });
    for (const ProfileCurve& curve : panel.curves)
        writeCurve(picture, curve, most);
    writeByRun(picture, panel.observed, "observed", most,
               [&](PathText& path, const ProfileMark& mark) { path.cross(mark.centre, crossHalf); });
}

// Commands of a drawing one after another; strokes of one pen are one element.
class CommandWriter {
  public:
    explicit CommandWriter(SvgPicture& picture) : m_picture(picture) {}

    void operator()(const DrawnLine& line) {
        use(line.pen);
        m_path.line(line.from, line.to);
    }
    void operator()(const DrawnRun& run) {
        use(run.pen);
        m_path.line(run.points);
        m_picture.count(run.points.size());
    }
    void operator()(const DrawnMarker& marker) {
        use(marker.pen);
        m_path.cross(marker.centre, marker.half);
    }
    void operator()(const DrawnBand& band) {
        flush();
        m_picture.band(band, "", band.above.size());
    }
    // Texts lie above everything else.
    void operator()(const DrawnText& text) { m_texts.push_back(&text); }

    void flush() {
        m_picture.path(m_path, m_pen);
        m_path.clear();
    }
    void writeTexts() { m_picture.texts(m_texts); }

  private:
    void use(const Pen& pen) {
        if (pen == m_pen) return;
        flush();
        m_pen = pen;
    }

    SvgPicture& m_picture;
    Pen m_pen;
    PathText m_path;
    std::vector<const DrawnText*> m_texts;
};

// All but what belongs to runs.
Drawing frameOf(const ProfileLayout& layout) {
    ProfileLayout frame = layout;
    for (ProfilePanel& panel : frame.panels) {
        panel.bands.clear();
        panel.curves.clear();
        panel.targets.clear();
        panel.observed.clear();
    }
    Drawing drawing;
    paint(frame, drawing);
    return drawing;
}

} // namespace

std::size_t writeProfilePicture(PageHtml& html, const ProfileLayout& layout, const PictureWords& words,
                                std::size_t mostVertices) {
    SvgPicture picture(html);
    picture.begin(layout.width, layout.height, words);
    const Drawing frame = frameOf(layout);
    CommandWriter commands(picture);
    for (const DrawnCommand& command : frame.commands)
        std::visit(commands, command);
    commands.flush();
    for (const ProfilePanel& panel : layout.panels)
        writePanel(picture, panel, layout.markHalf, mostVertices);
    commands.writeTexts();
    picture.end();
    return picture.vertices();
}

void writePicture(PageHtml& html, const Drawing& drawing, const PictureWords& words,
                  const std::vector<PictureLink>& links) {
    SvgPicture picture(html);
    picture.begin(drawing.width, drawing.height, words,
                  links.empty() ? SvgPicture::Role::image : SvgPicture::Role::group);
    CommandWriter commands(picture);
    for (const DrawnCommand& command : drawing.commands)
        std::visit(commands, command);
    commands.flush();
    commands.writeTexts();
    for (const PictureLink& link : links)
        picture.link(link);
    picture.end();
}

std::string hexOf(const Rgb& colour) {
    std::string text = "#";
    for (const unsigned part : {colour.red, colour.green, colour.blue}) {
        text += "0123456789abcdef"[part >> 4U];
        text += "0123456789abcdef"[part & 15U];
    }
    return text;
}

std::string dashesOf(Dash dash) {
    switch (dash) {
    case Dash::dash: return "7 4";
    case Dash::dot: return "2 3";
    case Dash::dashDot: return "8 3 2 3";
    case Dash::dashDotDot: return "8 3 2 3 2 3";
    case Dash::solid: break;
    }
    return "";
}

} // namespace korvel
