#pragma once

#include "support/CallLog.h"

#include <vtlpictel/figure/Figure.h>

#include <QStyleOptionViewItem>

#include <optional>

/// A figure that logs the virtual calls it gets, opens what is protected, and can be told what to answer.
///
/// The log shows operation names with those arguments that matter: rectangles as CallLog::text(), offsets as "dx,dy".
class ProbeFigure : public Vantrel::Pictel::Figure
{
    Q_OBJECT

public:
    using Figure = Vantrel::Pictel::Figure;

    explicit ProbeFigure(const QString &name = QString(), CallLog *log = nullptr, QObject *parent = nullptr);

    /// Stops revalidate() here.
    void setValidateRoot(bool validateRoot) { m_validateRoot = validateRoot; }
    /// What calculateContentSize() answers instead of the base class's value.
    void setContentSize(const QSize &size) { m_contentSize = size; }
    /// What getBoundingRect() answers instead of the bounds.
    void setBoundingRect(const QRect &rect) { m_boundingRect = rect; }
    /// The update manager that this root and, through it, its notified subtree find. A viewer does the same for the
    /// figure it shows.
    void setRootUpdateManager(Vantrel::Pictel::UpdateManager *manager) { m_rootUpdateManager = manager; }

    using Figure::applyMargin;
    using Figure::isValid;
    using Figure::removeMargin;
    using Figure::setChildrenEnabled;
    using Figure::setFlag;
    using Figure::setValid;

    void addNotify() override;
    void removeNotify() override;
    void setParentFigure(Figure *parent) override;
    void setEnabled(bool enabled) override;
    void invalidate() override;
    void validate() override;
    void translate(int dx, int dy) override;
    void erase() override;
    void revalidate() override;
    void repaint(const QRect &rect) override;
    void repaint(int x, int y, int w, int h) override;
    void repaint() override;
    void render(QPainter *painter, const QStyleOptionViewItem &option) override;
    QRect getBoundingRect() override;
    QSize calculateContentSize() override;
    void primTranslate(int dx, int dy) override;
    Vantrel::Pictel::UpdateManager *getUpdateManager() const override;

protected:
    void layout() override;
    void drawBackground(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawFigure(QPainter *painter, const QStyleOptionViewItem &option) const override;
    void drawBorder(QPainter *painter, const QStyleOptionViewItem &option,
                    const Vantrel::Pictel::Border *border) const override;
    void drawChildren(QPainter *painter, const QStyleOptionViewItem &option) const override;
    bool isValidateRoot() const override { return m_validateRoot; }

private:
    void note(const QString &call) const;
    void note(const char *operation, const QRect &rect) const;

    CallLog *m_log;
    bool m_validateRoot = false;
    std::optional<QSize> m_contentSize;
    std::optional<QRect> m_boundingRect;
    Vantrel::Pictel::UpdateManager *m_rootUpdateManager = nullptr;
};
