#pragma once

class QFont;
class QString;

namespace GraphViewer {

/// The font that a Graphviz file means by \a face: a family ("DejaVu Sans"), a PostScript name ("Helvetica-Bold") or
/// a list of families ("Helvetica,Arial,sans-serif"). It has no size yet.
QFont fontFromFace(const QString &face);

} // namespace GraphViewer
