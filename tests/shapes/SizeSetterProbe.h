#pragma once

#include <QSize>
#include <QStringList>

/// Opens what content figures protect, and lists the size setters as they are called.
template <typename Base>
class SizeSetterProbe : public Base
{
public:
    using Base::Base;
    using Base::calculateContentSize;
    using Base::drawFigure;

    QStringList setters;

    bool setMinimumSize(const QSize &size) override { return note("minimum"), Base::setMinimumSize(size); }
    bool setPreferredSize(const QSize &size) override { return note("preferred"), Base::setPreferredSize(size); }
    bool setMaximumSize(const QSize &size) override { return note("maximum"), Base::setMaximumSize(size); }

private:
    void note(const char *setter) { setters << QString::fromLatin1(setter); }
};
