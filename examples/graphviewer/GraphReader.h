#pragma once

#include "GraphDocument.h"

#include <optional>

class QByteArray;
class QDir;

namespace GraphViewer {

/// A graph, or the reason why there is none.
struct ReadResult
{
    std::optional<GraphDocument> document;
    QString error; ///< A sentence for the user; empty with a document.
};

/// Reads what "dot -Tjson" wrote. Pictures are looked up relative to \a directory. Of several graphs the first counts.
ReadResult readGraph(const QByteArray &json, const QDir &directory);

} // namespace GraphViewer
