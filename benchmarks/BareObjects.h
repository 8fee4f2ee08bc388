#pragma once

#include <QObject>

#include <memory>
#include <vector>

namespace Bench {

/// QObjects of a figure's size that do nothing, each with one connection to a common receiver: what coming and going
/// costs a program that has such an object for each figure, whatever else it does.
class BareObjects
{
public:
    explicit BareObjects(int count);
    void remove(const std::vector<int> &indices);
    /// How many are left and still connected.
    int connectedCount() const;

private:
    QObject m_receiver;
    std::vector<std::unique_ptr<QObject>> m_objects;
};

} // namespace Bench
