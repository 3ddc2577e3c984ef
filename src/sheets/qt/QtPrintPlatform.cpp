#include "sheets/qt/QtPrintPlatform.h"

#include <QPrinterInfo>

#include "core/Helpers.h"
#include "sheets/qt/QtPageSurface.h"

namespace bw::qt {

QtPrintPlatform::QtPrintPlatform() {
    const QString def = QPrinterInfo::defaultPrinterName();
    current_ = def.isEmpty() ? kPdfEntry : def.toStdString();
}

QtPrintPlatform::~QtPrintPlatform() { EndTarget(); }

std::vector<PrinterEntry> QtPrintPlatform::Printers() {
    std::vector<PrinterEntry> out;
    for (const QPrinterInfo& p : QPrinterInfo::availablePrinters())
        out.push_back({p.printerName().toStdString(), p.location().isEmpty() ? "local" : p.location().toStdString()});
    out.push_back({kPdfEntry, "FILE:"});
    return out;
}

std::string QtPrintPlatform::GetProfileString(const std::string& section, const std::string& key,
                                              const std::string& def, size_t) {
    if (section != "PrinterPorts") return def;
    for (const PrinterEntry& e : Printers())
        if (e.deviceName == key) return (e.deviceName == kPdfEntry ? "pdf," : "qt,") + e.port + ",15,45";
    return def;
}

void QtPrintPlatform::WriteProfileString(const std::string& section, const std::string& key,
                                         const std::string& value) {
    if (section == "windows" && key == "Device") current_ = value.substr(0, value.find(','));
}

int QtPrintPlatform::Resolution(int16_t quality) {
    switch (quality) {
        case -1: return 150;
        case -2: return 300;
        case -3: return 450;
        default: return 600;
    }
}

bool QtPrintPlatform::ShowPrintDialog() {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (current_ != kPdfEntry) printer_->setPrinterName(QString::fromStdString(current_));
    return !printDialog || printDialog(*printer_);
}

bool QtPrintPlatform::StartTarget() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (current_ != kPdfEntry) printer_->setPrinterName(QString::fromStdString(current_));
    }
    if (current_ == kPdfEntry || printer_->outputFormat() == QPrinter::PdfFormat) {
        const std::string file = zDlgSaveFile("Print to PDF file", 0, "PDF files (*.pdf)|*.pdf", 1);
        if (file.empty()) {
            printer_.reset();
            return false;
        }
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setOutputFileName(QString::fromStdString(file));
        printer_->setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                            QMarginsF(0.25, 0.25, 0.25, 0.25), QPageLayout::Inch));
    }
    printer_->setResolution(Resolution(quality_));
    printer_->setFullPage(false);
    // A PDF file holds every copy; a printer takes each job as a document.
    surface_ = std::make_unique<QtPageSurface>(*printer_, printer_->outputFormat() != QPrinter::PdfFormat);
    SetPageSurface(surface_.get());
    return true;
}

void QtPrintPlatform::EndTarget() {
    if (surface_) {
        surface_->Finish();
        SetPageSurface(nullptr);
        surface_.reset();
    }
    printer_.reset();
}

}  // namespace bw::qt
