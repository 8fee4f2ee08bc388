#pragma once

#include <vtlpictel/vtlpictel_export.h>

#include <QObject>

class QPoint;
class QRect;
class QSize;

namespace Vantrel::Pictel {

class Insets;

/// Swaps x and y while it is enabled, so that one horizontal algorithm also serves the vertical case.
///
/// Values may be in any coordinate system; transposing twice gives back the original.
class VTLPICTEL_EXPORT Transposer : public QObject
{
    Q_OBJECT

public:
    /// Creates a disabled transposer, which leaves every value as it is.
    explicit Transposer(QObject *parent = nullptr);
    ~Transposer() override;

    void enable() { m_enabled = true; }
    void disable() { m_enabled = false; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }

    /// The value with x and y swapped, or unchanged while disabled.
    QPoint t(const QPoint &point) const;
    /// \copydoc t(const QPoint &) const
    QSize t(const QSize &size) const;
    /// \copydoc t(const QPoint &) const
    QRect t(const QRect &rect) const;
    /// Swaps top with left and bottom with right, or nothing while disabled.
    Insets t(const Insets &insets) const;

private:
    bool m_enabled = false;
};

} // namespace Vantrel::Pictel
