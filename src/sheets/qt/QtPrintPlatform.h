// The system's printers through Qt, plus one entry "PDF file" that asks for
// a file name. The chosen entry (the "default printer" of the profile route)
// is the target of the coming jobs.
#pragma once

#include <QPrinter>

#include <functional>
#include <memory>

#include "sheets/PrintAPI.h"

namespace bw::qt {

class QtPageSurface;

class QtPrintPlatform final : public IPrintPlatform {
public:
    QtPrintPlatform();
    ~QtPrintPlatform() override;
    static constexpr const char* kPdfEntry = "PDF file";
    // The system's print dialog on the target printer; false when cancelled.
    std::function<bool(QPrinter&)> printDialog;

    std::vector<PrinterEntry> Printers() override;
    std::string CurrentPrinter() override { return current_; }
    void SetPrintQuality(int16_t quality) override { quality_ = quality; }
    bool ShowPrintDialog() override;
    bool StartTarget() override;
    void EndTarget() override;
    // A platform without a default printer: the profile route chooses the
    // target.
    SystemVersion GetVersionEx() override { return {4, 0, 1381, 2}; }
    bool OpenPrinter(const std::string&, uint32_t, intptr_t&) override { return false; }
    bool GetPrinter5(intptr_t, std::vector<uint8_t>&, uint32_t&, PrinterInfo5&) override { return false; }
    bool SetPrinter5(intptr_t, const PrinterInfo5&) override { return false; }
    void ClosePrinter(intptr_t) override {}
    uint32_t LastError() override { return 0; }
    std::string GetProfileString(const std::string& section, const std::string& key, const std::string& def,
                                 size_t bufferChars) override;
    void WriteProfileString(const std::string& section, const std::string& key, const std::string& value) override;
    void BroadcastSettingChange(uint32_t, const std::string&) override {}

    // Dots per inch for a quality value: -1 draft 150 up to -4 high 600.
    static int Resolution(int16_t quality);

private:
    std::string current_;
    int16_t quality_ = -4;
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QtPageSurface> surface_;
};

}  // namespace bw::qt
