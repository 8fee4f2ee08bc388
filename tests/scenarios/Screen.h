#pragma once

#include <vtlpictel/viewer/FreeformViewer.h>

#include <QImage>
#include <QList>
#include <QObject>
#include <QRegion>

/// What a user would see of a viewer: a picture that only ever receives the regions the viewer repaints.
///
/// The paint events of the scrolled widget are taken over: each region is rendered into the picture, clipped to that
/// region as on a real screen, and everything outside keeps what was painted there before.
class Screen : public QObject
{
    Q_OBJECT

public:
    explicit Screen(Vantrel::Pictel::FreeformViewer &viewer);

    /// Asks for a paint event, as small as can be. Validation waits for one, also when all dirty areas lie off screen.
    void askForPaint();
    /// Delivers all pending events and repaints until nothing is left to repaint.
    void settle();
    /// The visible part of what has been painted bit by bit.
    QImage accumulated() const;
    /// The visible part, painted afresh in one go.
    QImage repainted() const;
    /// Forgets the past: the picture is painted afresh.
    void restart();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QRegion visibleRegion() const;
    void deliverPaintEvents();
    void paint(QImage &image, const QRegion &region) const;

    QWidget &m_widget;
    QWidget &m_viewport;
    QList<QRegion> m_pending;
    QImage m_picture;
    mutable bool m_isRendering = false;
};

/// Where two pictures differ: the bounds of the differing pixels, and one of them; empty when the pictures are equal.
QString difference(const QImage &actual, const QImage &expected);
