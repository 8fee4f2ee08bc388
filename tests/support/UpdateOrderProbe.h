#pragma once

#include "support/CallLog.h"

/// A figure that logs "figure.revalidate" and "figure.repaint" instead of doing either.
template <typename FigureClass>
class UpdateOrderProbe : public FigureClass
{
public:
    explicit UpdateOrderProbe(CallLog &log)
        : m_log(log)
    { }

    using FigureClass::repaint;

    void revalidate() override { m_log.add(QStringLiteral("figure"), QStringLiteral("revalidate")); }
    void repaint() override { m_log.add(QStringLiteral("figure"), QStringLiteral("repaint")); }

private:
    CallLog &m_log;
};
