#pragma once

#include "support/CallLog.h"

#include <vtlpictel/figure/Border.h>
#include <vtlpictel/figure/Insets.h>

#include <QStyleOptionViewItem>

/// A border of given insets that paints nothing and logs "border.render(<option.rect>)".
class ProbeBorder : public Vantrel::Pictel::Border
{
    Q_OBJECT

public:
    explicit ProbeBorder(const Vantrel::Pictel::Insets &insets, CallLog *log = nullptr, QObject *parent = nullptr)
        : Border(parent)
        , m_log(log)
    {
        Border::setInsets(insets);
    }

    void render(QPainter *, const QStyleOptionViewItem &option) const override
    {
        if (m_log)
            m_log->add(QStringLiteral("border"), QStringLiteral("render(%1)").arg(CallLog::text(option.rect)));
    }

private:
    CallLog *m_log;
};
