#pragma once

#include "layout/HintedFigure.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/XYLayout.h>

#include <memory>

class OpenXYLayout : public Vantrel::Pictel::XYLayout
{
public:
    using XYLayout::applyConstraint;
    using XYLayout::isClipping;
    using XYLayout::isLaidOut;
    using XYLayout::performLayout;
    using XYLayout::setLaidOut;
    using XYLayout::XYLayout;
};

// Overrides the hook that childMoved() and performLayout() must go through.
class CountingXYLayout : public OpenXYLayout
{
public:
    int constraintCalls = 0;
    int applyCalls = 0;

    bool setConstraint(Vantrel::Pictel::Figure *child, const QVariant &constraint) override
    {
        ++constraintCalls;
        return XYLayout::setConstraint(child, constraint);
    }

protected:
    bool applyConstraint(Vantrel::Pictel::Figure *child, const QVariant &constraint) override
    {
        ++applyCalls;
        return XYLayout::applyConstraint(child, constraint);
    }
};

/// A container with an XYLayout, and a figure of 40 by 20 to put into it.
class XYLayoutTest : public PictelTest
{
protected:
    void setUp();
    void tearDown();

    std::unique_ptr<Vantrel::Pictel::Figure> m_container;
    OpenXYLayout *m_layout = nullptr;
    std::unique_ptr<HintedFigure> m_child;
};

inline void XYLayoutTest::setUp()
{
    m_container = std::make_unique<Vantrel::Pictel::Figure>();
    m_layout = new OpenXYLayout(m_container.get());
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 500, 400));
    m_child = std::make_unique<HintedFigure>(QSize(40, 20));
}

inline void XYLayoutTest::tearDown()
{
    m_child.reset();
    m_container.reset();
}
