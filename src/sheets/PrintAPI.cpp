#include "sheets/PrintAPI.h"

#include <algorithm>
#include <cstring>

#include "core/Ui.h"

namespace bw {

namespace {

class NoPrinters final : public IPrintPlatform {
public:
    std::vector<PrinterEntry> Printers() override { return {}; }
    std::string CurrentPrinter() override { return {}; }
    void SetPrintQuality(int16_t) override {}
    bool ShowPrintDialog() override { return false; }
    bool StartTarget() override { return true; }
    void EndTarget() override {}
    SystemVersion GetVersionEx() override { return {}; }
    bool OpenPrinter(const std::string&, uint32_t, intptr_t&) override { return false; }
    bool GetPrinter5(intptr_t, std::vector<uint8_t>&, uint32_t&, PrinterInfo5&) override { return false; }
    bool SetPrinter5(intptr_t, const PrinterInfo5&) override { return false; }
    void ClosePrinter(intptr_t) override {}
    uint32_t LastError() override { return 0; }
    std::string GetProfileString(const std::string&, const std::string&, const std::string& def, size_t) override {
        return def;
    }
    void WriteProfileString(const std::string&, const std::string&, const std::string&) override {}
    void BroadcastSettingChange(uint32_t, const std::string&) override {}
};

IPrintPlatform* gPlatform = nullptr;

constexpr uint32_t kPrinterAllAccess = 0xF000C;
constexpr uint32_t kPrinterAttributeDefault = 4;
constexpr uint32_t kWmSettingChange = 26;

}  // namespace

IPrintPlatform& gPrintPlatform() {
    static NoPrinters none;
    return gPlatform ? *gPlatform : none;
}
void SetPrintPlatform(IPrintPlatform* platform) { gPlatform = platform; }

void SelectPrinter(const std::string& deviceName) {
    const SystemVersion v = gPrintPlatform().GetVersionEx();
    auto is = [&](uint32_t major, uint32_t minor, uint32_t build, uint32_t platform) {
        return v.major == major && v.minor == minor && v.build == build && v.platform == platform;
    };
    if (is(3, 51, 1057, 2)) SetDefaultPrinterByProfile(deviceName);
    else if (is(4, 0, 67109814, 1)) SetDefaultPrinterBySpooler(deviceName);
    else if (is(4, 0, 1381, 2)) SetDefaultPrinterByProfile(deviceName);
}

void SetDefaultPrinterBySpooler(const std::string& deviceName) {
    if (deviceName.empty()) return;
    IPrintPlatform& p = gPrintPlatform();
    intptr_t handle = 0;
    if (!p.OpenPrinter(deviceName, kPrinterAllAccess, handle)) return;
    std::vector<uint8_t> buffer;
    uint32_t needed = 0;
    PrinterInfo5 info;
    p.GetPrinter5(handle, buffer, needed, info);
    buffer.assign(needed, 0);
    if (needed == 0 || !p.GetPrinter5(handle, buffer, needed, info)) return;
    PrinterInfo5 fresh = info;
    fresh.attributes = kPrinterAttributeDefault;
    if (p.SetPrinter5(handle, fresh)) {
        p.ClosePrinter(handle);
    } else {
        zMsgBox("SetPrinterFailed. Error code: " + std::to_string(p.LastError()));
    }
}

void SetDefaultPrinterByProfile(const std::string& deviceName) {
    const std::string entry = gPrintPlatform().GetProfileString("PrinterPorts", deviceName, "", 1024);
    std::string driver, port;
    SplitPrinterPorts(entry, driver, port);
    if (driver.empty() || port.empty()) return;
    WriteDeviceProfile(deviceName, driver, port);
}

void WriteDeviceProfile(const std::string& deviceName, const std::string& driver, const std::string& port) {
    gPrintPlatform().WriteProfileString("windows", "Device", deviceName + "," + driver + "," + port);
    gPrintPlatform().BroadcastSettingChange(kWmSettingChange, "windows");
}

void SplitPrinterPorts(const std::string& entry, std::string& driver, std::string& port) {
    driver.clear();
    port.clear();
    const size_t first = entry.find(',');
    if (first == std::string::npos) return;
    driver = entry.substr(0, first);
    const size_t second = entry.find(',', first + 1);
    if (second == std::string::npos) return;
    port = entry.substr(first + 1, second - first - 1);
}

std::string PointerToText(const char* block, size_t blockSize) {
    if (!block) return {};
    const void* zero = std::memchr(block, 0, blockSize);
    if (!zero) return {};
    const size_t len = static_cast<size_t>(static_cast<const char*>(zero) - block);
    return std::string(block, std::min<size_t>(len, 512));
}

int16_t zPrintQualityValue(int32_t index) {
    return index >= 0 && index <= 3 ? static_cast<int16_t>(-1 - index) : 0;
}

}  // namespace bw
