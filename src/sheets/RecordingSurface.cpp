#include "sheets/RecordingSurface.h"

#include <cmath>

#include "core/Codepage.h"
#include "sheets/SansMetrics.h"

namespace bw {

namespace {
RecordingSurface& NullSurface() {
    static RecordingSurface s = [] {
        RecordingSurface r;
        r.keep = false;
        return r;
    }();
    return s;
}
IPageSurface* gSurface = nullptr;
}  // namespace

IPageSurface& gPageSurface() { return gSurface ? *gSurface : NullSurface(); }
void SetPageSurface(IPageSurface* surface) { gSurface = surface; }

double zSansTextWidth(const std::string& text, double sizePt, bool bold) {
    const SansFontMetrics& m = bold ? kSansBold : kSansRegular;
    int64_t units = 0;
    for (char ch : text) units += m.widths[static_cast<unsigned char>(ch)];
    return static_cast<double>(units) * sizePt * 20.0 / m.unitsPerEm;
}

double zSansTextHeight(double sizePt, bool bold) {
    const SansFontMetrics& m = bold ? kSansBold : kSansRegular;
    return static_cast<double>(m.ascent + m.descent) * sizePt * 20.0 / m.unitsPerEm;
}

double zSansAscent(double sizePt, bool bold) {
    const SansFontMetrics& m = bold ? kSansBold : kSansRegular;
    return static_cast<double>(m.ascent) * sizePt * 20.0 / m.unitsPerEm;
}

RecordingSurface::RecordingSurface(PageArea area, std::vector<std::string> fonts)
    : area_(area), fonts_(std::move(fonts)) {}

void RecordingSurface::Add(nlohmann::ordered_json op) {
    if (keep) ops_.push_back(std::move(op));
}

void RecordingSurface::Note(nlohmann::ordered_json op) { Add(std::move(op)); }

void RecordingSurface::Begin() {
    if (open_) return;
    open_ = true;
    jobStart_ = ops_.size();
    x_ = area_.left;
    y_ = area_.top;
    Add({{"op", "Page"}, {"left", area_.left}, {"top", area_.top}, {"width", area_.width}, {"height", area_.height}});
}

double RecordingSurface::PageLeft() { return area_.left; }
double RecordingSurface::PageTop() { return area_.top; }
double RecordingSurface::PageWidth() { return area_.width; }
double RecordingSurface::PageHeight() { return area_.height; }

std::vector<std::string> RecordingSurface::ListFonts() {
    Begin();
    return fonts_;
}

void RecordingSurface::SetFontName(const std::string& name) {
    Begin();
    font_ = name;
}
void RecordingSurface::SetFontSize(double points) {
    Begin();
    size_ = points;
}
void RecordingSurface::SetFontBold(bool bold) {
    Begin();
    bold_ = bold;
}

double RecordingSurface::TextWidth(const std::string& text) {
    Begin();
    const double v = zSansTextWidth(text, size_, bold_);
    Add({{"op", "Measure"}, {"what", "width"}, {"text", zCp1252ToUtf8(text)}, {"size", size_}, {"bold", bold_},
         {"value", v}});
    return v;
}

double RecordingSurface::TextHeight(const std::string& text) {
    Begin();
    const double v = zSansTextHeight(size_, bold_);
    Add({{"op", "Measure"}, {"what", "height"}, {"text", zCp1252ToUtf8(text)}, {"size", size_}, {"bold", bold_},
         {"value", v}});
    return v;
}

void RecordingSurface::SetCurrentX(double x) {
    Begin();
    x_ = x;
}
void RecordingSurface::SetCurrentY(double y) {
    Begin();
    y_ = y;
}

void RecordingSurface::PrintText(const std::vector<std::string>& texts) {
    Begin();
    std::string joined;
    for (const auto& t : texts) joined += t;
    Add({{"op", "PrintText"}, {"x", x_}, {"y", y_}, {"text", zCp1252ToUtf8(joined)}, {"font", font_}, {"size", size_},
         {"bold", bold_}});
    x_ = area_.left;
    y_ += zSansTextHeight(size_, bold_);
}

void RecordingSurface::PaintPicture(const SheetPicture& picture, double x, double y, double width, double height) {
    Begin();
    if (keep) pictures_[picture.name] = picture.bytes;
    Add({{"op", "PaintPicture"}, {"picture", picture.name}, {"x", x}, {"y", y}, {"width", width}, {"height", height}});
}

void RecordingSurface::SetFill(int16_t style, int32_t colour) {
    Begin();
    fillStyle_ = style;
    fill_ = colour;
}

void RecordingSurface::Circle(double x, double y, double radius, int32_t outline) {
    Begin();
    Add({{"op", "Circle"}, {"x", x}, {"y", y}, {"radius", radius}, {"outline", outline}, {"fillStyle", fillStyle_},
         {"fill", fill_}});
}

void RecordingSurface::EndDoc() {
    Begin();  // a job that drew nothing still ends a document of its own
    Add({{"op", "EndDoc"}});
    open_ = false;
}

void RecordingSurface::KillDoc() {
    if (!open_) return;
    Add({{"op", "KillDoc"}});
    open_ = false;
}

std::string RecordingSurface::JsonLines() const {
    std::string out;
    for (const auto& op : ops_) out += op.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
    return out;
}

void RecordingSurface::Clear() {
    ops_.clear();
    pictures_.clear();
    open_ = false;
    jobStart_ = 0;
}

}  // namespace bw
