#pragma once

#include <QString>

namespace GraphViewer {

/// A figure that the user can point at: a node, a cluster or an edge.
class GraphPart
{
public:
    explicit GraphPart(const QString &name)
        : m_name(name)
    { }
    virtual ~GraphPart() = default;
    Q_DISABLE_COPY_MOVE(GraphPart)

    /// What the user knows it by, for instance "main (Start here)".
    QString name() const { return m_name; }
    virtual void setHighlighted(bool highlighted) = 0;

private:
    QString m_name;
};

} // namespace GraphViewer
