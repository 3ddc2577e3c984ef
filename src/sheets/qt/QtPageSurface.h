// The page surface on a Qt paged device (a printer or a PDF writer). A job
// is kept as it is drawn and painted onto the device when it ends, so a
// killed job never reaches paper; text, art (through the SVG renderer) and
// dots stay vector, and Liberation Sans answers for "Arial".
#pragma once

#include <QPagedPaintDevice>

#include "sheets/RecordingSurface.h"

namespace bw::qt {

class QtPageSurface : public RecordingSurface {
public:
    // documentPerJob: each job is a document of its own and the device is
    // finished after it (a printer); otherwise each job is the next page of
    // one document, finished by Finish() (a PDF file of several sheets).
    QtPageSurface(QPagedPaintDevice& device, bool documentPerJob);
    ~QtPageSurface() override;

    std::vector<std::string> ListFonts() override;
    void EndDoc() override;
    // Ends the device's document; false when the device refused to paint.
    bool Finish();
    // Whether the device accepted every page so far.
    bool ok() const { return ok_; }

    // The printable area of a device, in twips.
    static PageArea AreaOf(QPagedPaintDevice& device);

private:
    void PaintJob(size_t first, size_t last);
    QPagedPaintDevice& device_;
    bool documentPerJob_;
    struct Painter;
    Painter* painter_ = nullptr;
    bool ok_ = true;
};

// The family drawn for a font name of the sheets.
QString zQtFamily(const std::string& name);

}  // namespace bw::qt
