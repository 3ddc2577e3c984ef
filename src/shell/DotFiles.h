// "Create Armor File" and "Create Internal File": the maintenance commands
// that rebuild a dot table file from the diagram sources kept beside the
// program, in data/diagrams.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "refdata/DiagramTables.h"

namespace bw {

// Lays out both tables from the sources of one folder; false with a one-line
// error. The program registers the build tools' builder, so this layer
// neither needs nor includes them.
using DotTableBuilder = std::function<bool(const std::string& diagramsDir, std::vector<DotRecord>& armor,
                                           std::vector<DotRecord>& internal, std::string& error)>;
void zSetDotTableBuilder(DotTableBuilder builder);

// Where the commands look for the sources.
std::string zDiagramSourceFolder();

// Rebuilds "armorloc.bin" (or "intloc.bin") in the program's folder,
// replacing it safely, loads the new table and tells the user the outcome.
void zCreateDotFile(bool internal);

}  // namespace bw
