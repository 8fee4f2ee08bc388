#pragma once

#include <QString>

class QMimeData;
class QPrinter;

namespace GraphViewer {

class GraphView;

/// True for the file names that exportPicture() has a format for: "*.png" and "*.pdf".
bool isExportName(const QString &file);

/// Writes the whole graph of \a view, without grid and highlight, to \a file as PNG (96 pixels to the inch) or PDF.
/// Returns an empty string, or the reason why it failed as a sentence for the user; \a file is untouched then.
QString exportPicture(GraphView &view, const QString &file);

/// Puts the whole graph of \a view into \a data as an image; returns as exportPicture().
QString copyPicture(GraphView &view, QMimeData &data);

/// Prints the whole graph of \a view on one page, as large as fits within page margins.
void printPicture(GraphView &view, QPrinter &printer);

} // namespace GraphViewer
