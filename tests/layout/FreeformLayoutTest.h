#pragma once

#include "layout/HintedFigure.h"
#include "support/TestMain.h"

#include <vtlpictel/layout/FreeformLayout.h>

#include <memory>
#include <vector>

class OpenFreeformLayout : public Vantrel::Pictel::FreeformLayout
{
public:
    using FreeformLayout::calculateFreeformExtent;
    using FreeformLayout::FreeformLayout;
    using FreeformLayout::isClipping;
    using FreeformLayout::setLaidOut;
};

/// A sheet with a monitored FreeformLayout, and figures of 40 by 20 on it.
class FreeformLayoutTest : public PictelTest
{
protected:
    void setUp();
    void tearDown();
    HintedFigure *addChild(const QVariant &constraint);

    std::unique_ptr<HintedFigure> m_container;
    OpenFreeformLayout *m_layout = nullptr;
    std::vector<std::unique_ptr<HintedFigure>> m_children;
};

inline void FreeformLayoutTest::setUp()
{
    m_container = std::make_unique<HintedFigure>();
    m_layout = new OpenFreeformLayout(m_container.get(), true);
    m_container->setLayoutManager(m_layout);
    m_container->setBounds(QRect(0, 0, 500, 400));
}

inline void FreeformLayoutTest::tearDown()
{
    m_children.clear();
    m_container.reset();
}

inline HintedFigure *FreeformLayoutTest::addChild(const QVariant &constraint)
{
    m_children.push_back(std::make_unique<HintedFigure>(QSize(40, 20)));
    m_container->add(m_children.back().get(), constraint);
    return m_children.back().get();
}
