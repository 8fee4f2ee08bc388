#pragma once

#include <QObject>
#include <QWidget>

namespace Bench {

/// Counts the paint events of one widget, and waits for the next one.
class PaintWatch final : public QObject
{
public:
    /// \a widget is not owned and outlives the watch.
    explicit PaintWatch(QWidget *widget);

    /// Handles events until the widget is painted; ends the program when nothing wants to
    /// paint it.
    void wait();

private:
    bool eventFilter(QObject *object, QEvent *event) override;

    int m_paints = 0;
};

/// The pixels of the window of \a widget as they stand on the screen.
QImage screenPicture(const QWidget &widget);

} // namespace Bench
