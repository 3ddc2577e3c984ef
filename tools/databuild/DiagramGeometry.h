// Armor diagram geometry: one text source per diagram describes the picture
// (hull, details, captions) and the outline of every location. The same
// outlines give the dot places, so a printed dot always lands inside the
// part of the drawing it belongs to, and the art can never drift away from
// the dot tables.
//
// Source lines (one per line, "#" starts a comment, quoted texts allowed):
//   diagram CODE...            diagram codes that take these dots (none: the
//                              fighter, whose lists live in the code)
//   size W H                   picture size in pixels of 15 twips
//   centre X                   the centre line; dots pair up around it
//   axis horizontal            the centre line is y = X, rows become columns
//                              and fills go left or right
//   pitch P                    grid step (even), default 8
//   clearance C                least distance of a dot centre from an outline
//   title "TEXT"               caption of the picture's heading band
//   art NAME TAG...            a sheet picture NAME.bwp drawn with these tags
//   editor N "TITLE" TAG...    editor plan view diagNN.svg with these tags
//   include FILE               read FILE (same folder) here
// Drawing lines, each may start with ?TAG (only with TAG) or !TAG (only
// without), and end with "mirror" to add the mirror image about the centre:
//   draw STYLE SHAPE           STYLE: hull body line thin dash dark mid white
//   text X,Y SIZE "TEXT" [bold] [start|middle|end] [rot=DEG] [mirror="TEXT"]
//   armor LOC COUNT up|down SHAPE [y=FIRSTROW] [grid=whole] [mirror=LOC]
//   structure LOC COUNT CX,CY COLS ROWS [mirror=LOC]
//   outline LOC SHAPE [mirror]  a location drawn without dots (editor only)
// SHAPE: poly X,Y X,Y ... | rect X,Y W,H | rrect X,Y W,H R | circle X,Y R |
//        ellipse X,Y RX,RY | line X,Y X,Y ... (open; draw only)
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace bw {

struct DgPt {
    double x = 0, y = 0;
};

struct DgDot {
    int16_t x = 0, y = 0;
};

struct DgShape {
    enum Kind { Poly, Line, Rect, RRect, Circle, Ellipse } kind = Poly;
    std::vector<DgPt> pts;  // Poly/Line: the points; others: corner or centre first
    double w = 0, h = 0, r = 0;
    // The closed outline used for containment (curves as fine polygons).
    std::vector<DgPt> Outline() const;
    DgShape Mirrored(double centre, bool horizontal = false) const;
};

// One group of dots: an armor run inside an outline, or a structure box.
struct DgRegion {
    int16_t location = 0;
    bool structure = false;
    int count = 0;
    DgShape shape;
    std::vector<DgDot> dots;  // in filling order
    int room = 0;             // places the outline offers; count of them are used
};

struct DgItem {
    enum Kind { Draw, Text, Region, Outline } kind = Draw;
    std::set<std::string> onlyWith, onlyWithout;
    std::string style;  // Draw
    DgShape shape;      // Draw, Outline
    int16_t location = -1;
    DgPt at;  // Text
    double size = 7;
    std::string text, anchor = "start";
    bool bold = false;
    double rotate = 0;
    int region = -1;  // Region: index into DiagramSource::regions
};

struct DgVariant {
    std::string name;   // art: file stem; editor: number
    std::string title;  // editor caption
    std::set<std::string> tags;
};

struct DiagramSource {
    std::string path;
    std::vector<int16_t> codes;
    int width = 0, height = 0, centre = 0, pitch = 8;
    bool horizontal = false;  // the centre line runs across: y = centre
    double clearance = 5;
    std::string title;
    std::vector<DgVariant> arts, editors;
    std::vector<DgItem> items;
    std::vector<DgRegion> regions;

    // Dots of one location, armor or structure, runs appended in source order.
    std::vector<DgDot> Dots(int16_t location, bool structure) const;
    // Every location that has armor or structure dots, ascending.
    std::vector<int16_t> Locations(bool structure) const;
};

// Reads and lays out one source; false with a message naming file and line.
bool zReadDiagramSource(const std::string& path, DiagramSource& out, std::string& error);
// Every *.txt of a folder, in name order.
bool zReadDiagramFolder(const std::string& dir, std::vector<DiagramSource>& out, std::string& error);

// The picture as SVG text; editor pictures leave out the structure boxes.
std::string zDiagramSvg(const DiagramSource& src, const DgVariant& variant, bool editor);
// Adds open dots (radius 3 pixels) before the closing tag of an SVG picture.
std::string zSvgWithDots(const std::string& svg, const std::vector<DgDot>& dots);

// Plane helpers, public for the checks of the tables.
bool zPointInPolygon(const std::vector<DgPt>& poly, DgPt p);
double zDistanceToOutline(const std::vector<DgPt>& poly, DgPt p);

}  // namespace bw
