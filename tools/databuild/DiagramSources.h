// Where the dot tables come from when the reference files are built.
#pragma once

#include <string>
#include <vector>

#include "refdata/DiagramTables.h"

namespace bw {

// Builds the armor and internal structure dot tables from the sources under
// dataDir; outDir is the folder the reference files go to, for sources that
// produce companion files. False with a one-line error naming the file and
// line at fault.
bool BuildDiagramData(const std::string& dataDir, const std::string& outDir, std::vector<DotRecord>& armor,
                      std::vector<DotRecord>& internal, std::string& error);
// The two tables alone, from the sources of one folder; writes nothing.
bool BuildDotTables(const std::string& diagramsDir, std::vector<DotRecord>& armor, std::vector<DotRecord>& internal,
                    std::string& error);

}  // namespace bw
