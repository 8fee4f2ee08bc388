#include "Proof.h"

#include <algorithm>
#include <cstdlib>

namespace Bench {

namespace {

bool isDifferent(QRgb first, QRgb second)
{
    return std::abs(qRed(first) - qRed(second)) > ColorTolerance
        || std::abs(qGreen(first) - qGreen(second)) > ColorTolerance
        || std::abs(qBlue(first) - qBlue(second)) > ColorTolerance;
}

double shareOfDifferentPixels(const QImage &first, const QImage &second)
{
    int different = 0;
    for (int y = 0; y < first.height(); ++y) {
        const auto *firstLine = reinterpret_cast<const QRgb *>(first.constScanLine(y));
        const auto *secondLine = reinterpret_cast<const QRgb *>(second.constScanLine(y));
        for (int x = 0; x < first.width(); ++x)
            different += isDifferent(firstLine[x], secondLine[x]);
    }
    return double(different) / (double(first.width()) * first.height());
}

} // namespace

Objection comparePictures(const QImage &first, const QImage &second, Contestant contestant)
{
    if (first.size() != ViewportSize || second.size() != ViewportSize)
        return QStringLiteral("%1: no picture").arg(nameOf(contestant));
    const double share = shareOfDifferentPixels(first, second);
    if (share <= PictureTolerance)
        return {};
    first.save(QStringLiteral("library.png"));
    second.save(QStringLiteral("%1.png").arg(nameOf(contestant)));
    return QStringLiteral("%1: %2 of the pixels differ").arg(nameOf(contestant)).arg(share);
}

Objection provePicture(StageSet &set, const View &view)
{
    const View agreed = set.agreedView(view);
    for (const Contestant contestant : AllContestants)
        show(set.stage(contestant), agreed);
    const QImage expected = set.reference().picture();
    for (const Contestant contestant : AllContestants) {
        const Objection objection = comparePictures(expected, set.stage(contestant).picture(), contestant);
        if (!objection.isEmpty())
            return objection;
    }
    return {};
}

Objection provePositions(StageSet &set, const std::vector<int> &removed)
{
    std::vector<bool> gone(set.scene().boxes.size());
    for (const int index : removed)
        gone[std::size_t(index)] = true;
    for (const Contestant contestant : AllContestants) {
        for (int index = 0; index < int(gone.size()); ++index) {
            if (!gone[std::size_t(index)] && set.stage(contestant).bounds(index) != set.reference().bounds(index))
                return QStringLiteral("%1: figure %2 is elsewhere").arg(nameOf(contestant)).arg(index);
        }
    }
    return {};
}

} // namespace Bench
