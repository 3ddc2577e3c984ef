// Printer control: the system's printers, the default printer and its two
// routes (spooler and profile), print quality and the system print dialog,
// behind one platform interface that the Qt program answers and tests fake.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bw {

struct SystemVersion {
    uint32_t major = 0, minor = 0, build = 0, platform = 0;
};

struct PrinterEntry {
    std::string deviceName;
    std::string port;
};

// The level 5 record of a printer.
struct PrinterInfo5 {
    std::string printerName, portName;
    uint32_t attributes = 0, deviceNotSelectedTimeout = 0, transmissionRetryTimeout = 0;
};

class IPrintPlatform {
public:
    virtual ~IPrintPlatform() = default;
    // The printers in the system's order, and the current one's device name.
    virtual std::vector<PrinterEntry> Printers() = 0;
    virtual std::string CurrentPrinter() = 0;
    virtual void SetPrintQuality(int16_t quality) = 0;
    // The system's print dialog; false when the user cancelled.
    virtual bool ShowPrintDialog() = 0;
    // Readies the current printer as the page surface of the coming jobs;
    // false when there is nothing to print to (a file name was refused).
    virtual bool StartTarget() = 0;
    virtual void EndTarget() = 0;

    virtual SystemVersion GetVersionEx() = 0;
    // Spooler.
    virtual bool OpenPrinter(const std::string& name, uint32_t access, intptr_t& handle) = 0;
    // Level 5: the size needed first (buffer empty), then the record.
    virtual bool GetPrinter5(intptr_t handle, std::vector<uint8_t>& buffer, uint32_t& needed, PrinterInfo5& info) = 0;
    virtual bool SetPrinter5(intptr_t handle, const PrinterInfo5& info) = 0;
    virtual void ClosePrinter(intptr_t handle) = 0;
    virtual uint32_t LastError() = 0;
    // System profile.
    virtual std::string GetProfileString(const std::string& section, const std::string& key, const std::string& def,
                                         size_t bufferChars) = 0;
    virtual void WriteProfileString(const std::string& section, const std::string& key, const std::string& value) = 0;
    virtual void BroadcastSettingChange(uint32_t message, const std::string& argument) = 0;
};

// The platform in use; without one, a platform with no printers answers.
IPrintPlatform& gPrintPlatform();
void SetPrintPlatform(IPrintPlatform* platform);

void SelectPrinter(const std::string& deviceName);
void SetDefaultPrinterBySpooler(const std::string& deviceName);
void SetDefaultPrinterByProfile(const std::string& deviceName);
void WriteDeviceProfile(const std::string& deviceName, const std::string& driver, const std::string& port);
void SplitPrinterPorts(const std::string& entry, std::string& driver, std::string& port);
// A zero-terminated text of a foreign block, cut at its first zero, at most
// 512 characters; empty when the block holds no zero.
std::string PointerToText(const char* block, size_t blockSize);

// Print quality by the quality list's index: -1 draft to -4 high; 0 for an
// index outside the list.
int16_t zPrintQualityValue(int32_t index);

}  // namespace bw
