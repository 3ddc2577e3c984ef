#include "sheets/qt/QtPageSurface.h"

#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <map>
#include <memory>

#include "sheets/SansMetrics.h"

namespace bw::qt {

namespace {
constexpr const char* kSans = "Liberation Sans";

QColor Colour(int32_t c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }
}  // namespace

struct QtPageSurface::Painter {
    QPainter painter;
};

QString zQtFamily(const std::string& name) {
    // The sheets ask for "Arial" (or "System"); the metric-compatible face
    // answers, as the page metrics assume.
    if (name == "Arial" || name == "System" || name.empty()) return kSans;
    return QString::fromStdString(name);
}

PageArea QtPageSurface::AreaOf(QPagedPaintDevice& device) {
    const QRectF r = device.pageLayout().paintRect(QPageLayout::Inch);
    return PageArea{0, 0, r.width() * 1440, r.height() * 1440};
}

QtPageSurface::QtPageSurface(QPagedPaintDevice& device, bool documentPerJob)
    : RecordingSurface(AreaOf(device), {}), device_(device), documentPerJob_(documentPerJob) {}

QtPageSurface::~QtPageSurface() { Finish(); }

std::vector<std::string> QtPageSurface::ListFonts() {
    RecordingSurface::ListFonts();
    std::vector<std::string> out;
    bool sans = false;
    for (const QString& f : QFontDatabase::families()) {
        out.push_back(f.toStdString());
        sans = sans || f == kSans;
    }
    if (sans) out.push_back("Arial");
    return out;
}

bool QtPageSurface::Finish() {
    if (painter_) {
        ok_ = painter_->painter.end() && ok_;
        delete painter_;
        painter_ = nullptr;
    }
    return ok_;
}

void QtPageSurface::EndDoc() {
    Begin();
    PaintJob(jobStart_, Ops().size());
    RecordingSurface::EndDoc();
    if (documentPerJob_) {
        Finish();
        Clear();
    }
}

void QtPageSurface::PaintJob(size_t first, size_t last) {
    if (!painter_) {
        painter_ = new Painter;
        if (!painter_->painter.begin(&device_)) {
            ok_ = false;
            return;
        }
    } else if (!device_.newPage()) {
        ok_ = false;
        return;
    }
    QPainter& p = painter_->painter;
    const double dpi = device_.logicalDpiX();
    const double scale = dpi / 1440.0;
    p.resetTransform();
    p.scale(scale, scale);
    p.setRenderHint(QPainter::Antialiasing, true);
    std::map<std::string, std::unique_ptr<QSvgRenderer>> svgs;
    const auto& ops = Ops();
    for (size_t i = first; i < last && i < ops.size(); ++i) {
        const nlohmann::ordered_json& op = ops[i];
        const std::string kind = op["op"];
        if (kind == "PrintText") {
            const double size = op["size"];
            const bool bold = op["bold"];
            QFont font(zQtFamily(op["font"]));
            // The world transform scales the font too: a point size in twips
            // of this device keeps the size on paper.
            font.setPointSizeF(size / scale);
            font.setBold(bold);
            font.setKerning(false);
            font.setHintingPreference(QFont::PreferNoHinting);
            p.setFont(font);
            p.setPen(Qt::black);
            const double x = op["x"], y = op["y"];
            p.drawText(QPointF(x, y + zSansAscent(size, bold)), QString::fromUtf8(op["text"].get<std::string>()));
        } else if (kind == "PaintPicture") {
            const std::string name = op["picture"];
            const auto it = pictures_.find(name);
            if (it == pictures_.end()) continue;
            const QRectF box(op["x"].get<double>(), op["y"].get<double>(), op["width"].get<double>(),
                             op["height"].get<double>());
            const QByteArray bytes = QByteArray::fromStdString(it->second);
            auto& svg = svgs[name];
            if (!svg) svg = std::make_unique<QSvgRenderer>(bytes);
            if (svg->isValid()) {
                svg->setAspectRatioMode(Qt::IgnoreAspectRatio);
                svg->render(&p, box);
            } else {
                p.drawImage(box, QImage::fromData(bytes));
            }
        } else if (kind == "Circle") {
            QPen pen(Colour(op["outline"]));
            pen.setWidthF(12);
            p.setPen(pen);
            if (op["fillStyle"] == 0) p.setBrush(Colour(op["fill"]));
            else p.setBrush(Qt::NoBrush);
            const double r = op["radius"];
            p.drawEllipse(QPointF(op["x"].get<double>(), op["y"].get<double>()), r, r);
        }
    }
}

}  // namespace bw::qt
