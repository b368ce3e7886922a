// Pictures of the page: vector graphics that look alike with and without the page's style, so that they can
// be taken out of it.
#pragma once

#include "panels/ProfileLayout.h"
#include "publish/PageHtml.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvel {

struct PictureWords {
    std::string id;    // unique on the page; the file is named by it
    std::string title; // UTF-8
    std::string description;
};

// A text that leads to a place of the page.
struct PictureLink {
    DrawnText text;
    std::string target; // the place's id
};

// Of each curve no more points than `mostVertices`, a run of it at least two. Returns how many were written.
std::size_t writeProfilePicture(PageHtml& html, const ProfileLayout& layout, const PictureWords& words,
                                std::size_t mostVertices);

// Any drawing in twips. Links stand above it.
void writePicture(PageHtml& html, const Drawing& drawing, const PictureWords& words,
                  const std::vector<PictureLink>& links = {});

// What the colours of pictures are where the reader's desktop is dark, and the lines of runs.
std::string pictureStyle(std::size_t runs);

std::string hexOf(const Rgb& colour); // "#0072b2"
// Lengths of strokes and gaps in pixels; "" for a solid line.
std::string dashesOf(Dash dash);

} // namespace korvel
