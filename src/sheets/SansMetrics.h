// Text metrics of the face that answers for "Arial" on every page surface
// (Liberation Sans, metric-compatible with it), so that a recorded page and
// a PDF page measure and place text identically.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

struct SansFontMetrics {
    int32_t unitsPerEm, ascent, descent, lineGap;
    int16_t widths[256];  // advance of each Windows-1252 byte, font units
};

extern const SansFontMetrics kSansRegular;
extern const SansFontMetrics kSansBold;

// Width in twips of Windows-1252 text at a size in points; no kerning.
double zSansTextWidth(const std::string& text, double sizePt, bool bold);
// Line height in twips (ascent plus descent) and the ascent alone.
double zSansTextHeight(double sizePt, bool bold);
double zSansAscent(double sizePt, bool bold);

}  // namespace bw
