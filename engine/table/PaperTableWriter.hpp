#pragma once

#include "engine/table/TableDocument.hpp"

#include <string>

namespace tovarin {

// The table as a paper prints it: BICs and differences to 2 decimals,
// weights to 3 ("<0.001" below that), Bayes factors to 2 decimals or in
// scientific form from 100000 on, behind a caption line that names the file.

// A pipe table with a pandoc-style "Table:" caption.
void writeMarkdownTable(std::string& out, const TableDocument& table);

// A LaTeX table environment with booktabs rules (\usepackage{booktabs}).
void writeLatexTable(std::string& out, const TableDocument& table);

} // namespace tovarin
