// The life of one print job on the page surface: the prologue (font, twips,
// size 8, the progress window), the progress steps with the user's cancel,
// and the three ends: sent, cancelled, failed.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "sheets/PageSurface.h"
#include "sheets/SheetArt.h"

namespace bw {

class SheetJob {
public:
    // procName: the name under which the job's errors are reported.
    SheetJob(std::string designName, std::string procName);

    // Runs the prologue, then body, then the normal exit; a cancel takes the
    // abort exit and a run-time error the trap. True when the page was sent.
    bool Run(const std::function<void(SheetJob&)>& body);
    // A progress step; a cancel seen here leaves body for the abort exit.
    void Step(int32_t value, const std::string& text);
    // Leaves body for the abort exit (the sheet gave up on its own).
    [[noreturn]] void Abort();

    IPageSurface& page;
    // The art holders and templates, fresh for this job.
    std::unique_ptr<frmPBmp> art;

private:
    void AbortExit();
    std::string designName_, procName_;
};

// The font a job prints in: "Arial", else "System", else the printer's own
// (empty: leave it).
std::string zJobFont(const std::vector<std::string>& fonts);

}  // namespace bw
