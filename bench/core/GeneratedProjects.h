#pragma once
// The large projects the benchmarks load, save, dump and build, generated in memory.
#include "document/ProjectFile.h"

namespace velto::benchdata {

// notes: 100,000 nodes (98 MB) with a note of about 0.5 KB, two hours entries and one entry in each
// cost list; hours, costs: 1,000 nodes with thousands of entries whose texts are empty; minimal
// nodes: 400,000 nodes with empty texts and no entries.
enum class Shape { Notes, Hours, Costs, MinimalNodes };

struct ShapeSize {
    int nodes;
    int entriesPerNode;
};

ShapeSize SizeOf(Shape shape);
ProjectContent GenerateProject(Shape shape);

} // namespace velto::benchdata
