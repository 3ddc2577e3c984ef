#include "databuild/DiagramGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace bw {

namespace {

constexpr double kPi = 3.14159265358979323846;
// A printed dot is 90 twips across: 6 pixels of 15 twips.
constexpr double kDotRadius = 3.0;
// Neighbouring dots keep at least a hair of paper between them.
constexpr double kDotSpacing = 2 * kDotRadius + 1;

std::string Num(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.2f", v);
    std::string s = buf;
    while (!s.empty() && s.back() == '0') s.pop_back();
    if (!s.empty() && s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s;
}

std::string Esc(const std::string& t) {
    std::string o;
    for (unsigned char c : t) {
        switch (c) {
            case '&': o += "&amp;"; break;
            case '<': o += "&lt;"; break;
            case '>': o += "&gt;"; break;
            case '"': o += "&quot;"; break;
            default:
                if (c >= 0x80) o += "&#" + std::to_string(c == 0xA9 ? 169 : c) + ";";  // Windows-1252 upper half
                else o += static_cast<char>(c);
        }
    }
    return o;
}

struct Token {
    std::string text;
    bool quoted = false;
};

bool Tokenize(const std::string& line, std::vector<Token>& out, std::string& error) {
    out.clear();
    size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && std::isspace(static_cast<unsigned char>(line[i]))) ++i;
        if (i >= line.size() || line[i] == '#') break;
        Token t;
        while (i < line.size() && !std::isspace(static_cast<unsigned char>(line[i]))) {
            if (line[i] == '"') {
                size_t end = line.find('"', i + 1);
                if (end == std::string::npos) {
                    error = "unclosed quote";
                    return false;
                }
                t.text += line.substr(i + 1, end - i - 1);
                t.quoted = true;
                i = end + 1;
            } else {
                t.text += line[i++];
            }
        }
        out.push_back(std::move(t));
    }
    return true;
}

bool ParseNumber(const std::string& s, double& v) {
    if (s.empty()) return false;
    char* end = nullptr;
    v = std::strtod(s.c_str(), &end);
    return end && *end == '\0' && std::isfinite(v) && std::fabs(v) < 100000;
}

bool ParseInt(const std::string& s, int& v) {
    double d;
    if (!ParseNumber(s, d) || d != std::floor(d)) return false;
    v = static_cast<int>(d);
    return true;
}

bool ParsePoint(const std::string& s, DgPt& p) {
    size_t comma = s.find(',');
    if (comma == std::string::npos) return false;
    return ParseNumber(s.substr(0, comma), p.x) && ParseNumber(s.substr(comma + 1), p.y);
}

// Parses a shape from tokens[i...]; i ends past the shape's arguments.
bool ParseShape(const std::vector<Token>& t, size_t& i, DgShape& shape, std::string& error) {
    if (i >= t.size()) {
        error = "shape expected";
        return false;
    }
    const std::string kind = t[i++].text;
    auto point = [&](DgPt& p) {
        if (i >= t.size() || !ParsePoint(t[i].text, p)) {
            error = "point x,y expected in " + kind;
            return false;
        }
        ++i;
        return true;
    };
    auto number = [&](double& v) {
        if (i >= t.size() || !ParseNumber(t[i].text, v)) {
            error = "number expected in " + kind;
            return false;
        }
        ++i;
        return true;
    };
    if (kind == "poly" || kind == "line") {
        shape.kind = kind == "poly" ? DgShape::Poly : DgShape::Line;
        DgPt p;
        while (i < t.size() && ParsePoint(t[i].text, p)) {
            shape.pts.push_back(p);
            ++i;
        }
        size_t need = shape.kind == DgShape::Poly ? 3 : 2;
        if (shape.pts.size() < need) {
            error = kind + " needs at least " + std::to_string(need) + " points";
            return false;
        }
        return true;
    }
    DgPt a, b;
    if (kind == "rect" || kind == "rrect") {
        shape.kind = kind == "rect" ? DgShape::Rect : DgShape::RRect;
        if (!point(a) || !point(b)) return false;
        if (b.x <= 0 || b.y <= 0) {
            error = kind + " needs a positive size";
            return false;
        }
        shape.pts = {a};
        shape.w = b.x;
        shape.h = b.y;
        if (shape.kind == DgShape::RRect && !number(shape.r)) return false;
        shape.r = std::clamp(shape.r, 0.0, std::min(shape.w, shape.h) / 2);
        return true;
    }
    if (kind == "circle") {
        shape.kind = DgShape::Circle;
        if (!point(a) || !number(shape.r)) return false;
        shape.pts = {a};
        shape.w = shape.h = shape.r;
        if (shape.r <= 0) {
            error = "circle needs a positive radius";
            return false;
        }
        return true;
    }
    if (kind == "ellipse") {
        shape.kind = DgShape::Ellipse;
        if (!point(a) || !point(b)) return false;
        if (b.x <= 0 || b.y <= 0) {
            error = "ellipse needs positive radii";
            return false;
        }
        shape.pts = {a};
        shape.w = b.x;
        shape.h = b.y;
        return true;
    }
    error = "unknown shape '" + kind + "'";
    return false;
}

double SegmentDistance(DgPt p, DgPt a, DgPt b) {
    double dx = b.x - a.x, dy = b.y - a.y;
    double len2 = dx * dx + dy * dy;
    double t = len2 > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / len2 : 0;
    t = std::clamp(t, 0.0, 1.0);
    double qx = a.x + t * dx - p.x, qy = a.y + t * dy - p.y;
    return std::sqrt(qx * qx + qy * qy);
}

void ArcPoints(std::vector<DgPt>& out, double cx, double cy, double rx, double ry, double a0, double a1, int steps) {
    for (int k = 0; k <= steps; ++k) {
        double a = a0 + (a1 - a0) * k / steps;
        out.push_back({cx + rx * std::cos(a), cy + ry * std::sin(a)});
    }
}

std::string Style(const std::string& name) {
    if (name == "hull") return "fill=\"#e4e4e4\" stroke=\"#000\" stroke-width=\"1.6\" stroke-linejoin=\"round\"";
    if (name == "body") return "fill=\"#f3f3f3\" stroke=\"#000\" stroke-width=\"1\" stroke-linejoin=\"round\"";
    if (name == "line") return "fill=\"none\" stroke=\"#000\" stroke-width=\"1\" stroke-linejoin=\"round\" stroke-linecap=\"round\"";
    if (name == "thin") return "fill=\"none\" stroke=\"#000\" stroke-width=\"0.6\" stroke-linecap=\"round\"";
    if (name == "dash") return "fill=\"none\" stroke=\"#000\" stroke-width=\"0.8\" stroke-dasharray=\"4,2\"";
    if (name == "dark") return "fill=\"#5a5a5a\" stroke=\"#000\" stroke-width=\"0.8\" stroke-linejoin=\"round\"";
    if (name == "mid") return "fill=\"#bcbcbc\" stroke=\"#000\" stroke-width=\"0.8\" stroke-linejoin=\"round\"";
    if (name == "white") return "fill=\"#fff\" stroke=\"#000\" stroke-width=\"1\" stroke-linejoin=\"round\"";
    return {};
}

constexpr const char* kArmorStyle = "fill=\"#fff\" stroke=\"#000\" stroke-width=\"1.3\" stroke-linejoin=\"round\"";
constexpr const char* kOutlineStyle = "fill=\"#fff\" stroke=\"#000\" stroke-width=\"1.3\" stroke-linejoin=\"round\"";
constexpr const char* kStructureStyle = "fill=\"#d4d4d4\" stroke=\"#000\" stroke-width=\"0.8\"";

std::string ShapeSvg(const DgShape& s, const std::string& style) {
    std::ostringstream o;
    switch (s.kind) {
        case DgShape::Poly:
        case DgShape::Line: {
            o << (s.kind == DgShape::Poly ? "<polygon" : "<polyline") << " points=\"";
            for (size_t k = 0; k < s.pts.size(); ++k) o << (k ? " " : "") << Num(s.pts[k].x) << "," << Num(s.pts[k].y);
            o << "\" " << style << "/>";
            break;
        }
        case DgShape::Rect:
        case DgShape::RRect:
            o << "<rect x=\"" << Num(s.pts[0].x) << "\" y=\"" << Num(s.pts[0].y) << "\" width=\"" << Num(s.w)
              << "\" height=\"" << Num(s.h) << "\"";
            if (s.kind == DgShape::RRect) o << " rx=\"" << Num(s.r) << "\" ry=\"" << Num(s.r) << "\"";
            o << " " << style << "/>";
            break;
        case DgShape::Circle:
            o << "<circle cx=\"" << Num(s.pts[0].x) << "\" cy=\"" << Num(s.pts[0].y) << "\" r=\"" << Num(s.r) << "\" "
              << style << "/>";
            break;
        case DgShape::Ellipse:
            o << "<ellipse cx=\"" << Num(s.pts[0].x) << "\" cy=\"" << Num(s.pts[0].y) << "\" rx=\"" << Num(s.w)
              << "\" ry=\"" << Num(s.h) << "\" " << style << "/>";
            break;
    }
    return o.str();
}

class Reader {
public:
    explicit Reader(DiagramSource& src) : src_(src) {}

    bool ReadFile(const std::string& path, int depth, std::string& error) {
        if (depth > 4) {
            error = path + ": includes nested too deep";
            return false;
        }
        std::ifstream in(path, std::ios::binary);
        if (!in) {
            error = path + ": cannot be read";
            return false;
        }
        std::string line;
        int number = 0;
        while (std::getline(in, line)) {
            ++number;
            if (!line.empty() && line.back() == '\r') line.pop_back();
            std::string why;
            if (!ReadLine(path, line, depth, why)) {
                error = why.rfind(path, 0) == 0 ? why : path + ":" + std::to_string(number) + ": " + why;
                return false;
            }
        }
        return true;
    }

private:
    bool ReadLine(const std::string& path, const std::string& line, int depth, std::string& error) {
        std::vector<Token> t;
        if (!Tokenize(line, t, error)) return false;
        if (t.empty()) return true;

        DgItem item;
        size_t i = 0;
        while (i < t.size() && !t[i].quoted && (t[i].text[0] == '?' || t[i].text[0] == '!') && t[i].text.size() > 1) {
            (t[i].text[0] == '?' ? item.onlyWith : item.onlyWithout).insert(t[i].text.substr(1));
            ++i;
        }
        if (i >= t.size()) {
            error = "command expected after tags";
            return false;
        }
        const std::string cmd = t[i++].text;
        auto intArg = [&](int& v, const char* what) {
            if (i >= t.size() || !ParseInt(t[i].text, v)) {
                error = std::string(what) + " expected";
                return false;
            }
            ++i;
            return true;
        };

        if (cmd == "diagram") {
            int v;
            while (i < t.size()) {
                if (!intArg(v, "diagram code")) return false;
                if (v < 0 || v > 32767) {
                    error = "diagram code out of range";
                    return false;
                }
                src_.codes.push_back(static_cast<int16_t>(v));
            }
            return true;
        }
        if (cmd == "size") {
            if (!intArg(src_.width, "width") || !intArg(src_.height, "height")) return false;
            if (src_.width <= 0 || src_.height <= 0 || src_.width > 2000 || src_.height > 2000) {
                error = "size out of range";
                return false;
            }
            return true;
        }
        if (cmd == "centre") return intArg(src_.centre, "centre x");
        if (cmd == "axis") {
            if (i >= t.size() || (t[i].text != "vertical" && t[i].text != "horizontal")) {
                error = "axis vertical or horizontal expected";
                return false;
            }
            src_.horizontal = t[i].text == "horizontal";
            return true;
        }
        if (cmd == "pitch") {
            if (!intArg(src_.pitch, "pitch")) return false;
            if (src_.pitch < 8 || src_.pitch > 40 || src_.pitch % 2) {
                error = "pitch must be even, from 8 to 40";
                return false;
            }
            return true;
        }
        if (cmd == "clearance") {
            if (i >= t.size() || !ParseNumber(t[i].text, src_.clearance) || src_.clearance < kDotRadius ||
                src_.clearance > 20) {
                error = "clearance from 3 to 20 expected";
                return false;
            }
            return true;
        }
        if (cmd == "title") {
            if (i >= t.size()) {
                error = "title text expected";
                return false;
            }
            src_.title = t[i].text;
            return true;
        }
        if (cmd == "art" || cmd == "editor") {
            DgVariant v;
            if (i >= t.size()) {
                error = cmd + " name expected";
                return false;
            }
            v.name = t[i++].text;
            if (cmd == "editor") {
                int n;
                if (!ParseInt(v.name, n) || n < 0 || n > 99) {
                    error = "editor diagram number expected";
                    return false;
                }
                if (i < t.size() && t[i].quoted) v.title = t[i++].text;
            }
            for (; i < t.size(); ++i) v.tags.insert(t[i].text);
            v.tags.insert(cmd == "art" ? "sheet" : "editor");
            (cmd == "art" ? src_.arts : src_.editors).push_back(v);
            return true;
        }
        if (cmd == "include") {
            if (i >= t.size()) {
                error = "file name expected";
                return false;
            }
            auto inc = std::filesystem::path(path).parent_path() / t[i].text;
            return ReadFile(inc.string(), depth + 1, error);
        }
        if (cmd == "draw") {
            if (i >= t.size() || Style(t[i].text).empty()) {
                error = "drawing style expected";
                return false;
            }
            item.kind = DgItem::Draw;
            item.style = t[i++].text;
            return AddShape(t, i, item, error);
        }
        if (cmd == "text") {
            item.kind = DgItem::Text;
            double size;
            if (i + 2 >= t.size() || !ParsePoint(t[i].text, item.at) || !ParseNumber(t[i + 1].text, size) ||
                size <= 0) {
                error = "text needs X,Y SIZE \"TEXT\"";
                return false;
            }
            item.size = size;
            item.text = t[i + 2].text;
            i += 3;
            std::string mirrorText;
            bool mirror = false;
            for (; i < t.size(); ++i) {
                const std::string& a = t[i].text;
                if (a == "bold") item.bold = true;
                else if (a == "start" || a == "middle" || a == "end") item.anchor = a;
                else if (a.rfind("rot=", 0) == 0 && ParseNumber(a.substr(4), item.rotate)) {
                } else if (a.rfind("mirror=", 0) == 0) {
                    mirror = true;
                    mirrorText = a.substr(7);
                } else {
                    error = "unknown text option '" + a + "'";
                    return false;
                }
            }
            Add(item);
            if (mirror) {
                if (!CentreKnown(error)) return false;
                item.text = mirrorText;
                if (src_.horizontal) {
                    item.at.y = 2.0 * src_.centre - item.at.y;
                } else {
                    item.at.x = 2.0 * src_.centre - item.at.x;
                    if (item.anchor == "start") item.anchor = "end";
                    else if (item.anchor == "end") item.anchor = "start";
                }
                item.rotate = -item.rotate;
                Add(item);
            }
            return true;
        }
        if (cmd == "armor" || cmd == "structure" || cmd == "outline") {
            int loc;
            if (!intArg(loc, "location")) return false;
            if (loc < 0 || loc > 99) {
                error = "location out of range";
                return false;
            }
            DgRegion reg;
            reg.location = static_cast<int16_t>(loc);
            reg.structure = cmd == "structure";
            int mirrorLoc = -1;
            RegionOptions opt;
            if (cmd == "outline") {
                item.kind = DgItem::Outline;
                item.location = reg.location;
                return AddShape(t, i, item, error);
            }
            if (!intArg(reg.count, "dot count")) return false;
            if (reg.count < 0 || reg.count > 1000) {
                error = "dot count out of range";
                return false;
            }
            if (cmd == "armor") {
                const std::string dir = i < t.size() ? t[i].text : "";
                const bool ok = src_.horizontal ? (dir == "left" || dir == "right") : (dir == "up" || dir == "down");
                if (!ok) {
                    error = src_.horizontal ? "fill direction left or right expected" : "fill direction up or down expected";
                    return false;
                }
                opt.up = dir == "up" || dir == "left";
                ++i;
                if (!ParseShape(t, i, reg.shape, error)) return false;
                if (reg.shape.kind == DgShape::Line) {
                    error = "an armor outline must be closed";
                    return false;
                }
            } else {
                DgPt c;
                int cols, rows;
                if (i >= t.size() || !ParsePoint(t[i].text, c)) {
                    error = "box centre X,Y expected";
                    return false;
                }
                ++i;
                if (!intArg(cols, "columns") || !intArg(rows, "rows")) return false;
                if (cols < 1 || rows < 1 || cols * rows < reg.count || cols > 40 || rows > 40) {
                    error = "structure box of " + std::to_string(cols) + " by " + std::to_string(rows) +
                            " cannot hold " + std::to_string(reg.count) + " dots";
                    return false;
                }
                double hw = (cols - 1) * src_.pitch / 2.0 + src_.clearance;
                double hh = (rows - 1) * src_.pitch / 2.0 + src_.clearance;
                reg.shape.kind = DgShape::RRect;
                reg.shape.pts = {{c.x - hw, c.y - hh}};
                reg.shape.w = 2 * hw;
                reg.shape.h = 2 * hh;
                reg.shape.r = 2;
                opt.cols = cols;
                opt.rows = rows;
                opt.centre = c;
            }
            for (; i < t.size(); ++i) {
                const std::string& a = t[i].text;
                double v;
                if (a.rfind("y=", 0) == 0 && ParseNumber(a.substr(2), v)) {
                    opt.firstRow = v;
                    opt.hasFirstRow = true;
                } else if (a == "grid=whole") {
                    opt.wholeGrid = true;
                } else if (a.rfind("mirror=", 0) == 0 && ParseInt(a.substr(7), mirrorLoc) && mirrorLoc >= 0 &&
                           mirrorLoc <= 99) {
                } else {
                    error = "unknown option '" + a + "'";
                    return false;
                }
            }
            AddRegion(item, reg, opt);
            if (mirrorLoc >= 0) {
                if (!CentreKnown(error)) return false;
                reg.location = static_cast<int16_t>(mirrorLoc);
                reg.shape = reg.shape.Mirrored(src_.centre, src_.horizontal);
                (src_.horizontal ? opt.centre.y : opt.centre.x) =
                    2.0 * src_.centre - (src_.horizontal ? opt.centre.y : opt.centre.x);
                opt.mirrorOf = static_cast<int>(src_.regions.size()) - 1;
                AddRegion(item, reg, opt);
            }
            return true;
        }
        error = "unknown command '" + cmd + "'";
        return false;
    }

public:
    struct RegionOptions {
        bool up = false;
        bool hasFirstRow = false;
        double firstRow = 0;
        bool wholeGrid = false;
        int cols = 0, rows = 0;
        DgPt centre;
        int mirrorOf = -1;
    };
    std::vector<RegionOptions> options;

private:
    bool Rest(const std::vector<Token>& t, size_t i, bool& mirror, std::string& error) {
        for (; i < t.size(); ++i) {
            if (t[i].text == "mirror") mirror = true;
            else {
                error = "unexpected '" + t[i].text + "'";
                return false;
            }
        }
        return true;
    }
    void Add(const DgItem& item) { src_.items.push_back(item); }
    // The shape of a drawn line or an outline, and its mirror image when the
    // line ends with "mirror".
    bool AddShape(const std::vector<Token>& t, size_t& i, DgItem& item, std::string& error) {
        if (!ParseShape(t, i, item.shape, error)) return false;
        bool mirror = false;
        if (!Rest(t, i, mirror, error)) return false;
        Add(item);
        if (mirror) {
            if (!CentreKnown(error)) return false;
            item.shape = item.shape.Mirrored(src_.centre, src_.horizontal);
            Add(item);
        }
        return true;
    }
    bool CentreKnown(std::string& error) {
        if (src_.centre > 0) return true;
        error = "mirror before the centre line is given";
        return false;
    }
    void AddRegion(DgItem item, const DgRegion& reg, const RegionOptions& opt) {
        item.kind = DgItem::Region;
        item.location = reg.location;
        item.region = static_cast<int>(src_.regions.size());
        src_.regions.push_back(reg);
        options.push_back(opt);
        src_.items.push_back(item);
    }

    DiagramSource& src_;
};

bool Clear(const std::vector<DgPt>& poly, DgPt p, double clearance) {
    return zPointInPolygon(poly, p) && zDistanceToOutline(poly, p) >= clearance - 1e-9;
}

DgPt Swap(DgPt p) { return {p.y, p.x}; }

bool LayoutUpright(DiagramSource& src, const std::vector<Reader::RegionOptions>& options, std::string& error);

// A horizontal diagram is laid out as its transpose: rows become columns.
bool Layout(DiagramSource& src, std::vector<Reader::RegionOptions> options, std::string& error) {
    if (!src.horizontal) return LayoutUpright(src, options, error);
    DiagramSource t = src;
    std::swap(t.width, t.height);
    for (auto& r : t.regions) {
        r.shape.pts = r.shape.Outline();
        r.shape.kind = DgShape::Poly;
        for (auto& p : r.shape.pts) p = Swap(p);
    }
    for (auto& o : options) {
        o.centre = Swap(o.centre);
        std::swap(o.cols, o.rows);
    }
    if (!LayoutUpright(t, options, error)) return false;
    for (size_t k = 0; k < src.regions.size(); ++k) {
        src.regions[k].room = t.regions[k].room;
        src.regions[k].dots.clear();
        for (auto d : t.regions[k].dots) src.regions[k].dots.push_back({d.y, d.x});
    }
    return true;
}

bool LayoutUpright(DiagramSource& src, const std::vector<Reader::RegionOptions>& options, std::string& error) {
    const double cx = src.centre;
    const double pitch = src.pitch;
    // Structure boxes are filled first: they are holes in the armor around them.
    std::vector<std::vector<DgPt>> holes;
    std::vector<DgDot> placed;
    auto tooClose = [&](DgPt p) {
        for (const auto& d : placed)
            if (std::hypot(d.x - p.x, d.y - p.y) < kDotSpacing) return true;
        return false;
    };
    auto inPicture = [&](DgPt p) {
        return p.x - kDotRadius >= 0 && p.y - kDotRadius >= 0 && p.x + kDotRadius <= src.width &&
               p.y + kDotRadius <= src.height;
    };
    auto where = [&](const DgRegion& r) {
        return std::string(r.structure ? "structure" : "armor") + " of location " + std::to_string(r.location);
    };
    auto order = [&](std::vector<DgPt>& row) {
        std::stable_sort(row.begin(), row.end(), [&](DgPt a, DgPt b) {
            double da = std::fabs(a.x - cx), db = std::fabs(b.x - cx);
            if (std::fabs(da - db) > 1e-9) return da < db;
            return a.x < b.x;
        });
    };
    for (int pass = 0; pass < 2; ++pass) {
        for (size_t k = 0; k < src.regions.size(); ++k) {
            DgRegion& reg = src.regions[k];
            const auto& opt = options[k];
            if (reg.structure != (pass == 0)) continue;
            const auto outline = reg.shape.Outline();
            std::vector<DgPt> cand;
            if (opt.mirrorOf >= 0) {
                for (const auto& d : src.regions[opt.mirrorOf].dots) cand.push_back({2 * cx - d.x, double(d.y)});
            } else if (reg.structure) {
                for (int r = 0; r < opt.rows; ++r) {
                    std::vector<DgPt> row;
                    for (int c = 0; c < opt.cols; ++c)
                        row.push_back({opt.centre.x + (c - (opt.cols - 1) / 2.0) * pitch,
                                       opt.centre.y + (r - (opt.rows - 1) / 2.0) * pitch});
                    order(row);
                    cand.insert(cand.end(), row.begin(), row.end());
                }
            } else {
                double minX = 1e9, maxX = -1e9, minY = 1e9, maxY = -1e9;
                for (auto p : outline) {
                    minX = std::min(minX, p.x), maxX = std::max(maxX, p.x);
                    minY = std::min(minY, p.y), maxY = std::max(maxY, p.y);
                }
                double first = opt.hasFirstRow ? opt.firstRow
                                               : (opt.up ? std::floor(maxY - src.clearance) : std::ceil(minY + src.clearance));
                double x0 = opt.wholeGrid ? cx : cx + pitch / 2;
                double kmin = std::floor((minX - x0) / pitch), kmax = std::ceil((maxX - x0) / pitch);
                for (double y = first; opt.up ? y >= minY : y <= maxY; y += opt.up ? -pitch : pitch) {
                    std::vector<DgPt> row;
                    for (double kk = kmin; kk <= kmax; ++kk) row.push_back({x0 + kk * pitch, y});
                    order(row);
                    cand.insert(cand.end(), row.begin(), row.end());
                }
            }
            for (const auto& p : cand) {
                if (p.x != std::floor(p.x) || p.y != std::floor(p.y)) {
                    error = where(reg) + ": dot (" + Num(p.x) + "," + Num(p.y) + ") is off the whole-pixel grid";
                    return false;
                }
                if (!Clear(outline, p, src.clearance) || !inPicture(p) || tooClose(p)) continue;
                bool inHole = false;
                for (const auto& h : holes)
                    if (zPointInPolygon(h, p) || zDistanceToOutline(h, p) < src.clearance) inHole = true;
                if (inHole && !reg.structure) continue;
                ++reg.room;
                if (static_cast<int>(reg.dots.size()) >= reg.count) continue;
                DgDot d{static_cast<int16_t>(p.x), static_cast<int16_t>(p.y)};
                reg.dots.push_back(d);
                placed.push_back(d);
            }
            if (static_cast<int>(reg.dots.size()) != reg.count) {
                error = where(reg) + ": only " + std::to_string(reg.dots.size()) + " of " + std::to_string(reg.count) +
                        " dots fit its outline";
                return false;
            }
            if (reg.structure) holes.push_back(outline);
        }
    }
    return true;
}

bool Shown(const DgItem& item, const std::set<std::string>& tags) {
    for (const auto& t : item.onlyWith)
        if (!tags.count(t)) return false;
    for (const auto& t : item.onlyWithout)
        if (tags.count(t)) return false;
    return true;
}

}  // namespace

std::vector<DgPt> DgShape::Outline() const {
    std::vector<DgPt> out;
    switch (kind) {
        case Poly:
        case Line: return pts;
        case Rect: {
            DgPt a = pts[0];
            return {{a.x, a.y}, {a.x + w, a.y}, {a.x + w, a.y + h}, {a.x, a.y + h}};
        }
        case RRect: {
            DgPt a = pts[0];
            ArcPoints(out, a.x + w - r, a.y + r, r, r, -kPi / 2, 0, 6);
            ArcPoints(out, a.x + w - r, a.y + h - r, r, r, 0, kPi / 2, 6);
            ArcPoints(out, a.x + r, a.y + h - r, r, r, kPi / 2, kPi, 6);
            ArcPoints(out, a.x + r, a.y + r, r, r, kPi, 1.5 * kPi, 6);
            return out;
        }
        case Circle:
        case Ellipse: {
            // Inscribed: containment errs on the inside of the drawn curve.
            ArcPoints(out, pts[0].x, pts[0].y, w, h, 0, 2 * kPi, 96);
            out.pop_back();
            return out;
        }
    }
    return out;
}

DgShape DgShape::Mirrored(double centre, bool horizontal) const {
    DgShape m = *this;
    if (kind == Rect || kind == RRect) {
        if (horizontal) m.pts[0].y = 2 * centre - (pts[0].y + h);
        else m.pts[0].x = 2 * centre - (pts[0].x + w);
    } else {
        for (auto& p : m.pts) (horizontal ? p.y : p.x) = 2 * centre - (horizontal ? p.y : p.x);
        if (kind == Poly || kind == Line) std::reverse(m.pts.begin(), m.pts.end());
    }
    return m;
}

std::vector<DgDot> DiagramSource::Dots(int16_t location, bool structure) const {
    std::vector<DgDot> out;
    for (const auto& r : regions)
        if (r.location == location && r.structure == structure) out.insert(out.end(), r.dots.begin(), r.dots.end());
    return out;
}

std::vector<int16_t> DiagramSource::Locations(bool structure) const {
    std::set<int16_t> s;
    for (const auto& r : regions)
        if (r.structure == structure) s.insert(r.location);
    return {s.begin(), s.end()};
}

bool zReadDiagramSource(const std::string& path, DiagramSource& out, std::string& error) {
    out = DiagramSource{};
    out.path = path;
    Reader reader(out);
    if (!reader.ReadFile(path, 0, error)) return false;
    if (out.width <= 0 || out.height <= 0) {
        error = path + ": no size given";
        return false;
    }
    if (out.arts.empty() && out.editors.empty()) {
        error = path + ": neither art nor editor picture named";
        return false;
    }
    if (!Layout(out, reader.options, error)) {
        error = path + ": " + error;
        return false;
    }
    return true;
}

bool zReadDiagramFolder(const std::string& dir, std::vector<DiagramSource>& out, std::string& error) {
    out.clear();
    std::vector<std::string> files;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec))
        if (it->is_regular_file() && it->path().extension() == ".txt") files.push_back(it->path().string());
    if (ec) {
        error = dir + ": " + ec.message();
        return false;
    }
    std::sort(files.begin(), files.end());
    for (const auto& f : files) {
        DiagramSource s;
        if (!zReadDiagramSource(f, s, error)) return false;
        out.push_back(std::move(s));
    }
    return true;
}

std::string zDiagramSvg(const DiagramSource& src, const DgVariant& variant, bool editor) {
    std::ostringstream o;
    const double W = src.width, H = src.height;
    o << "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" << src.width << "\" height=\""
      << src.height << "\" viewBox=\"0 0 " << src.width << " " << src.height << "\">\n";
    o << "<rect x=\"0\" y=\"0\" width=\"" << src.width << "\" height=\"" << src.height << "\" fill=\"#fff\"/>\n";
    const std::string title = editor ? variant.title : src.title;
    if (!title.empty()) {
        o << "<rect x=\"1\" y=\"1\" width=\"" << Num(W - 2) << "\" height=\"15\" rx=\"3\" ry=\"3\" fill=\"#222\"/>\n";
        o << "<text x=\"" << Num(W / 2) << "\" y=\"12\" font-family=\"Arial\" font-size=\"10\" "
             "font-weight=\"bold\" fill=\"#fff\" text-anchor=\"middle\" letter-spacing=\"1\">"
          << Esc(title) << "</text>\n";
    }
    o << "<rect x=\"0.75\" y=\"0.75\" width=\"" << Num(W - 1.5) << "\" height=\"" << Num(H - 1.5)
      << "\" rx=\"4\" ry=\"4\" fill=\"none\" stroke=\"#000\" stroke-width=\"1.5\"/>\n";
    for (const auto& item : src.items) {
        if (!Shown(item, variant.tags)) continue;
        switch (item.kind) {
            case DgItem::Draw: o << ShapeSvg(item.shape, Style(item.style)) << "\n"; break;
            case DgItem::Outline: o << ShapeSvg(item.shape, kOutlineStyle) << "\n"; break;
            case DgItem::Region: {
                const DgRegion& r = src.regions[item.region];
                if (r.structure && editor) break;
                o << ShapeSvg(r.shape, r.structure ? kStructureStyle : kArmorStyle) << "\n";
                break;
            }
            case DgItem::Text: {
                o << "<text x=\"" << Num(item.at.x) << "\" y=\"" << Num(item.at.y)
                  << "\" font-family=\"Arial\" font-size=\"" << Num(item.size) << "\"";
                if (item.bold) o << " font-weight=\"bold\"";
                if (item.anchor != "start") o << " text-anchor=\"" << item.anchor << "\"";
                if (item.rotate != 0)
                    o << " transform=\"rotate(" << Num(item.rotate) << " " << Num(item.at.x) << " " << Num(item.at.y)
                      << ")\"";
                o << " fill=\"#000\">" << Esc(item.text) << "</text>\n";
                break;
            }
        }
    }
    o << "</svg>\n";
    return o.str();
}

std::string zSvgWithDots(const std::string& svg, const std::vector<DgDot>& dots) {
    size_t end = svg.rfind("</svg>");
    if (end == std::string::npos) return svg;
    std::ostringstream o;
    o << "<g fill=\"#fff\" stroke=\"#000\" stroke-width=\"0.6\">\n";
    for (const auto& d : dots) o << "<circle cx=\"" << d.x << "\" cy=\"" << d.y << "\" r=\"3\"/>\n";
    o << "</g>\n";
    return svg.substr(0, end) + o.str() + svg.substr(end);
}

bool zPointInPolygon(const std::vector<DgPt>& poly, DgPt p) {
    bool in = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        const DgPt a = poly[i], b = poly[j];
        if ((a.y > p.y) != (b.y > p.y)) {
            double x = (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x;
            if (p.x < x) in = !in;
        }
    }
    return in;
}

double zDistanceToOutline(const std::vector<DgPt>& poly, DgPt p) {
    double best = 1e18;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) best = std::min(best, SegmentDistance(p, poly[j], poly[i]));
    return best;
}

}  // namespace bw
