#pragma once

#include <vtlpictel/figure/ITreeSearch.h>

#include <QList>

namespace Vantrel::Pictel {

/// A hit test that skips some figures together with all that lies below them and accepts every other one.
///
/// It keeps its own copy of the list but owns none of the figures: they are only compared, so it does not matter
/// whether they still live. A null figure is always skipped.
class VTLPICTEL_EXPORT ExclusionSearch : public QObject, public ITreeSearch
{
    Q_OBJECT
    Q_INTERFACES(Vantrel::Pictel::ITreeSearch)

public:
    explicit ExclusionSearch(const QList<Figure *> &excluded, QObject *parent = nullptr);
    ~ExclusionSearch() override;

    bool accept(const Figure *figure) const override;
    bool prune(const Figure *figure) const override;

private:
    QList<Figure *> m_excluded;
};

} // namespace Vantrel::Pictel
