#include "Export.h"

#include "GraphScene.h"
#include "GraphView.h"

#include <vtlpictel/layout/PageLayout.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QMimeData>
#include <QPageSize>
#include <QPixmap>
#include <QPrinter>
#include <QSaveFile>
#include <QTemporaryDir>

namespace GraphViewer {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("Export", text);
}

bool hasSuffix(const QString &file, const char *suffix)
{
    return file.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
}

// While it lives, the view makes pictures: their area has its own margin, so the view's is taken away, the paper is
// part of them, and the highlight is not.
class PictureMode
{
public:
    explicit PictureMode(GraphView &view)
        : m_view(view)
    {
        m_view.clearHover();
        m_view.setXYMargins(0, 0);
        m_view.scene()->setPaperPrinted(true);
    }
    ~PictureMode()
    {
        m_view.scene()->setPaperPrinted(false);
        m_view.setXYMargins(GraphView::margin, GraphView::margin);
    }
    Q_DISABLE_COPY_MOVE(PictureMode)

private:
    GraphView &m_view;
};

// Pictures beyond this could not be painted or would exhaust the memory.
QString objectionTo(const QRect &area)
{
    constexpr int longestSide = 32767;
    constexpr qint64 mostPixels = qint64(256) * 1024 * 1024;
    const qint64 pixels = qint64(area.width()) * area.height();
    if (area.width() <= longestSide && area.height() <= longestSide && pixels <= mostPixels)
        return {};
    return translated("The graph is too large for an image (%1 x %2 pixels). A PDF file can hold it.")
        .arg(area.width())
        .arg(area.height());
}

struct Encoded
{
    QByteArray bytes;
    QString error;
};

Encoded encodePng(GraphView &view)
{
    QMimeData data;
    const QString error = copyPicture(view, data);
    if (!error.isEmpty())
        return {{}, error};
    constexpr int dotsPerMeter = 3780; // 96 to the inch
    QImage image = qvariant_cast<QImage>(data.imageData());
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const bool saved = image.save(&buffer, "PNG");
    return {buffer.data(), saved ? QString() : translated("The image could not be made.")};
}

QPageSize pageFor(const QRect &area)
{
    constexpr double pointsPerPixel = 72.0 / 96.0;
    return QPageSize(QSizeF(area.size()) * pointsPerPixel, QPageSize::Point, QString(), QPageSize::ExactMatch);
}

void printTo(const QString &pdfFile, GraphView &view)
{
    const QRect area = view.scene()->pictureArea();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdfFile);
    printer.setDocName(view.scene()->name());
    printer.setFullPage(true);
    printer.setPageSize(pageFor(area));
    printer.setPageMargins(QMarginsF());
    const PictureMode mode(view);
    view.print(&printer, GraphScene::printedLayer(), area);
}

// Through a temporary file, so that a failure leaves the user's one alone.
Encoded encodePdf(GraphView &view)
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(QStringLiteral("graph.pdf")));
    if (directory.isValid())
        printTo(file.fileName(), view);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return {{}, translated("The PDF file could not be made.")};
    return {file.readAll(), {}};
}

QString write(const QString &name, const QByteArray &bytes)
{
    QSaveFile file(name);
    file.setDirectWriteFallback(true);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (written)
        return {};
    return translated("Cannot write \"%1\": %2.").arg(QDir::toNativeSeparators(name), file.errorString());
}

} // namespace

bool isExportName(const QString &file)
{
    return hasSuffix(file, ".png") || hasSuffix(file, ".pdf");
}

QString copyPicture(GraphView &view, QMimeData &data)
{
    if (!view.scene())
        return translated("There is no graph.");
    const QRect area = view.scene()->pictureArea();
    const QString objection = objectionTo(area);
    if (!objection.isEmpty())
        return objection;
    const PictureMode mode(view);
    view.copy(&data, GraphScene::printedLayer(), area);
    return data.hasImage() ? QString() : translated("The image could not be made.");
}

QString exportPicture(GraphView &view, const QString &file)
{
    if (!view.scene())
        return translated("There is no graph.");
    if (!isExportName(file))
        return translated("\"%1\" is neither a .png nor a .pdf file.").arg(QDir::toNativeSeparators(file));
    const Encoded encoded = hasSuffix(file, ".pdf") ? encodePdf(view) : encodePng(view);
    return encoded.error.isEmpty() ? write(file, encoded.bytes) : encoded.error;
}

void printPicture(GraphView &view, QPrinter &printer)
{
    if (!view.scene())
        return;
    Vantrel::Pictel::PageLayout pageLayout;
    const PictureMode mode(view);
    view.setPageLayout(&pageLayout);
    view.print(&printer, GraphScene::printedLayer(), view.scene()->pictureArea());
    view.setPageLayout(nullptr);
}

} // namespace GraphViewer
