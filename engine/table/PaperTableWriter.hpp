#pragma once

#include "engine/table/ModelTableReader.hpp"
#include "engine/table/TableDocument.hpp"

#include <string>
#include <vector>

namespace tovarin {

// The table as a paper prints it: BICs and differences to 2 decimals,
// weights to 3 ("<0.001" below that), Bayes factors to 2 decimals or in
// scientific form from 100000 on, under the document's caption or one that
// names the file and says what the columns mean.

// A pipe table with a pandoc-style "Table:" caption, whose names are escaped
// for pandoc's Markdown and GitHub's. Its rows have no padding, so that
// pandoc sizes a table of short lines to its cells; in a longer one each
// column's share of the width is its widest cell's.
void writeMarkdownTable(std::string& out, const TableDocument& table);

// A LaTeX table environment with booktabs rules (\usepackage{booktabs}),
// a \label and \small type, set right by pdflatex with its default encoding:
// Greek letters go into math mode. A character it cannot set without a
// package gets a note naming the package (the line of the model's name, or 0
// for the caption), once for each package.
void writeLatexTable(std::string& out, const TableDocument& table, std::vector<TableNote>& notes);

} // namespace tovarin
