// bwtool print: a design's record sheet, printed by the program's own sheet
// routine, to a PDF file or as the page surface's operations in JSON lines.
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Commands.h"
#include "core/BinaryIO.h"
#include "core/Codepage.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "refdata/Loaders.h"
#include "sheets/RecordingSurface.h"
#include "sheets/VehicleSheet.h"
#include "sheets/qt/QtPageSurface.h"
#include "shell/qt/QtSettingsStore.h"

namespace {

// Message boxes become lines of the operations file (or of stderr when
// there is none); every box is answered as if by its first button.
class PrintUi final : public bw::IUi {
public:
    bw::RecordingSurface* ops = nullptr;
    bool toStderr = false;
    bw::MsgResult MsgBox(const std::string& text, bw::MsgButtons buttons, bw::MsgIcon icon,
                         const std::string& title) override {
        const char* iconName = icon == bw::MsgIcon::Critical      ? "critical"
                               : icon == bw::MsgIcon::Exclamation ? "exclamation"
                               : icon == bw::MsgIcon::Question    ? "question"
                                                                  : "information";
        if (ops)
            ops->Note({{"op", "Message"}, {"title", bw::zCp1252ToUtf8(title)}, {"text", bw::zCp1252ToUtf8(text)},
                       {"icon", iconName}});
        if (toStderr) std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
        return buttons == bw::MsgButtons::OK || buttons == bw::MsgButtons::OKCancel ? bw::MsgResult::OK
                                                                                    : bw::MsgResult::No;
    }
    void Beep() override {}
    std::string OpenFileDialog(const bw::FileDialogRequest&) override { return {}; }
    std::string SaveFileDialog(const bw::FileDialogRequest&) override { return {}; }
    void PointerWait() override {}
    void PointerNormal() override {}
    void DoEvents() override {}
};

std::string ToCp1252(const QString& text) {
    std::string out;
    if (!bw::zUtf8ToCp1252(text.toStdString(), out)) out.clear();
    return out;
}

void QuietQt(QtMsgType, const QMessageLogContext&, const QString&) {}

int Bad(const std::string& msg) {
    std::fprintf(stderr, "bwtool print: %s\n", msg.c_str());
    return 2;
}

// Every job ends with EndDoc: no Page line is left without one.
bool AllJobsSent(const std::vector<nlohmann::ordered_json>& ops) {
    bool open = false, ok = true;
    for (const auto& op : ops) {
        const std::string kind = op["op"];
        if (kind == "Page") open = true;
        if (kind == "KillDoc") ok = false, open = false;
        if (kind == "EndDoc") open = false;
    }
    return ok && !open;
}

std::string ProgramFolder() {
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string(".") : exe.parent_path().string();
}

int RunPrint(const std::vector<std::string>& args) {
    QStringList argv{"bwtool print"};
    for (const auto& a : args) argv << QString::fromStdString(a);
    QCommandLineParser parser;
    parser.setApplicationDescription("Print record sheets of designs in DATABASE, one job per INDEX.");
    parser.addHelpOption();
    parser.addPositionalArgument("DATABASE", "the database file");
    parser.addPositionalArgument("KIND", "vehicle or fighter");
    parser.addPositionalArgument("INDEX", "a design's index in its table, as bwtool dump shows it", "INDEX...");
    const QCommandLineOption pilot("pilot", "pilot or commander name", "TEXT");
    const QCommandLineOption piloting("piloting", "piloting skill", "TEXT");
    const QCommandLineOption gunnery("gunnery", "gunnery skill", "TEXT");
    const QCommandLineOption config("config", "OmniFighter configuration 0 to 5", "N");
    const QCommandLineOption dbl("double", "apply the double sheet rule");
    const QCommandLineOption pdf("pdf", "write the sheets to a PDF file, one page per job", "OUT.pdf");
    const QCommandLineOption opsOpt("ops", "write the page operations as JSON lines", "OUT.jsonl");
    parser.addOptions({pilot, piloting, gunnery, config, dbl, pdf, opsOpt});
    if (!parser.parse(argv)) return Bad(parser.errorText().toStdString());
    if (parser.isSet("help")) {
        QString help = parser.helpText();
        help.replace("<executable_name>", "bwtool print");
        std::printf("%s", help.toStdString().c_str());
        return 0;
    }
    const QStringList pos = parser.positionalArguments();
    if (pos.size() < 3) return Bad("usage: bwtool print DATABASE KIND INDEX... [options] (--pdf OUT.pdf | --ops OUT.jsonl)");
    if (parser.isSet(pdf) == parser.isSet(opsOpt)) return Bad("give exactly one of --pdf and --ops");
    const std::string kind = pos[1].toStdString();
    if (kind != "vehicle" && kind != "fighter") return Bad("unknown kind '" + kind + "': vehicle or fighter");

    const std::string dbPath = pos[0].toStdString();
    std::string bytes;
    try {
        bytes = bw::zReadWholeFile(dbPath);
    } catch (const bw::RunError&) {
        std::fprintf(stderr, "bwtool print: %s: cannot be read\n", dbPath.c_str());
        return 1;
    }
    const bw::DatabaseCheck check = bw::zCheckDatabaseBytes(bytes);
    if (!check.ok) {
        std::fprintf(stderr, "bwtool print: %s: %s\n", dbPath.c_str(), check.message.c_str());
        return 1;
    }
    const int32_t tableSize = kind == "vehicle" ? std::max<int32_t>(check.vehicles, 0) : std::max<int32_t>(check.fighters, 0);
    std::vector<int32_t> indices;
    for (qsizetype i = 2; i < pos.size(); ++i) {
        bool ok = false;
        const int index = pos[i].toInt(&ok);
        if (!ok || index < 0 || index >= tableSize)
            return Bad("index " + pos[i].toStdString() + " is outside the " + kind + " table (" +
                       std::to_string(tableSize) + " designs)");
        indices.push_back(index);
    }
    std::optional<int16_t> omniConfig;
    if (parser.isSet(config)) {
        bool ok = false;
        const int n = parser.value(config).toInt(&ok);
        if (kind != "fighter") return Bad("--config applies to fighters only");
        if (!ok || n < 0 || n > 5) return Bad("--config must be 0 to 5");
        omniConfig = static_cast<int16_t>(n);
    }

    // Qt draws and measures fonts only under a GUI application; no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The tool's stderr carries its own lines only.
    qInstallMessageHandler(&QuietQt);
    int qargc = 1;
    char qname[] = "bwtool";
    char* qargv[] = {qname, nullptr};
    QGuiApplication app(qargc, qargv);

    PrintUi ui;
    bw::SetUi(&ui);
    bw::qt::QtSettingsStore store;
    bw::SetSettingsStore(&store);
    bw::SetAppPath(ProgramFolder());
    bw::gArtPath = bw::zAppFile("bwp") + "/";
    bw::gLogFile = "/dev/null";

    std::unique_ptr<QPdfWriter> writer;
    std::unique_ptr<bw::RecordingSurface> surface;
    bw::qt::QtPageSurface* qtSurface = nullptr;
    if (parser.isSet(pdf)) {
        writer = std::make_unique<QPdfWriter>(parser.value(pdf));
        writer->setResolution(1440);
        writer->setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                          QMarginsF(0.25, 0.25, 0.25, 0.25), QPageLayout::Inch));
        writer->setCreator("The Brasswick Works");
        auto qs = std::make_unique<bw::qt::QtPageSurface>(*writer, false);
        qtSurface = qs.get();
        surface = std::move(qs);
        ui.toStderr = true;
    } else {
        surface = std::make_unique<bw::RecordingSurface>();
    }
    ui.ops = surface.get();
    bw::SetPageSurface(surface.get());
    // Progress steps are lines too; the window's opening is not a step.
    bw::frmProg* shown = nullptr;
    bw::SetProgFormHook([&](bw::frmProg& f, bool unload) {
        if (unload) {
            shown = nullptr;
        } else if (shown != &f) {
            shown = &f;
        } else {
            surface->Note({{"op", "Progress"}, {"value", f.PBarValue}, {"text", bw::zCp1252ToUtf8(f.LText)}});
        }
    });

    int rc = 0;
    bool loaded = true;
    for (bool (*load)() : bw::zReferenceLoaders()) loaded = load() && loaded;
    try {
        bw::zLoadSettings();
    } catch (const bw::RunError& e) {
        std::fprintf(stderr, "bwtool print: settings: %s\n", e.Description().c_str());
    }
    if (!loaded) {
        rc = 1;
    } else if (kind == "fighter") {
        std::fprintf(stderr, "bwtool print: the fighter sheet is not available yet\n");
        rc = 1;
    } else {
        bw::zResetDatabase();
        bw::zOpenDatabase(dbPath);
        const std::string pilotName = ToCp1252(parser.value(pilot));
        const std::string pilotSkill = ToCp1252(parser.value(piloting));
        const std::string gunSkill = ToCp1252(parser.value(gunnery));
        for (int32_t index : indices) {
            if (static_cast<size_t>(index) >= bw::gVehicles.size()) {
                rc = 1;
                continue;
            }
            // The editor's own copy of the stored design.
            bw::Vehicle v = *bw::gVehicles[static_cast<size_t>(index)];
            v.OverrideInteractiveMode();
            if (parser.isSet(dbl)) bw::zPrintDoubleRule(v, pilotName, pilotSkill, gunSkill);
            else bw::PrintVehicle(v, pilotName, pilotSkill, gunSkill);
        }
        if (!AllJobsSent(surface->Ops())) rc = 1;
    }
    if (qtSurface && !qtSurface->Finish()) {
        std::fprintf(stderr, "bwtool print: %s: cannot be written\n", parser.value(pdf).toStdString().c_str());
        rc = 1;
    }
    if (parser.isSet(opsOpt)) {
        std::ofstream out(parser.value(opsOpt).toStdString(), std::ios::binary | std::ios::trunc);
        out << surface->JsonLines();
        if (!out) {
            std::fprintf(stderr, "bwtool print: %s: cannot be written\n", parser.value(opsOpt).toStdString().c_str());
            rc = 1;
        }
    }
    bw::SetProgFormHook({});
    bw::SetPageSurface(nullptr);
    bw::SetUi(nullptr);
    bw::SetSettingsStore(nullptr);
    return rc;
}

bwtool::Registrar reg("print", "print DATABASE KIND INDEX... (--pdf F | --ops F)",
                      "print record sheets to a PDF file or as page operations", &RunPrint);

}  // namespace
