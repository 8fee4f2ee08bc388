#pragma once

#include "support/CallLog.h"

#include <vtlpictel/layout/ILayoutListener.h>
#include <vtlpictel/layout/Layout.h>

#include <QRect>
#include <QVariant>

#include <optional>

/// The smallest concrete layout: it moves nothing, logs what it is asked, and answers what it is told to.
class ProbeLayout : public Vantrel::Pictel::Layout
{
    Q_OBJECT

public:
    using Figure = Vantrel::Pictel::Figure;
    using Layout = Vantrel::Pictel::Layout;

    explicit ProbeLayout(const QString &name = QString(), CallLog *log = nullptr, QObject *parent = nullptr);

    QSize preferredSize {0, 0}; ///< calculatePreferredSize()
    QSize minimumSize {0, 0}; ///< calculateMinimumSize()
    bool layoutSucceeds = true; ///< performLayout()
    bool isRelative = true; ///< isRelativeLayout()
    std::optional<bool> clips; ///< isClipping() instead of the base class's answer

    using Layout::getHelper;
    using Layout::getHTotalStretch;
    using Layout::getVTotalStretch;
    using Layout::isLaidOut;
    using Layout::setLaidOut;

    bool add(Figure *child, const QVariant &constraint, int index) override;
    bool add(Figure *child, unsigned int vStretch, unsigned int hStretch, int index) override;
    bool remove(Figure *child) override;
    bool setConstraint(Figure *child, const QVariant &constraint) override;
    bool isRelativeLayout() const override { return isRelative; }
    void invalidate() override;

    bool applyConstraint(Figure *child, const QVariant &constraint) override;

protected:
    QSize calculatePreferredSize() override;
    QSize calculateMinimumSize() override;
    bool performLayout(const QRect &clientArea) override;
    bool isClipping() const override { return clips ? *clips : Layout::isClipping(); }

private:
    void note(const QString &call) const;

    CallLog *m_log;
};

/// A listener that logs its calls as "<name>.<operation>(<container>)".
class LayoutListenerProbe : public Vantrel::Pictel::ILayoutListener
{
public:
    using Figure = Vantrel::Pictel::Figure;

    LayoutListenerProbe(const QString &name, CallLog &log, bool laysOut = false);

    void invalidate(Figure *container) override;
    bool layout(Figure *container) override;
    void postLayout(Figure *container) override;
    void remove(Figure *container) override;
    void setConstraint(Figure *container, const QVariant &constraint) override;

private:
    void note(const char *operation, const Figure *container);

    QString m_name;
    CallLog &m_log;
    bool m_laysOut;
};
