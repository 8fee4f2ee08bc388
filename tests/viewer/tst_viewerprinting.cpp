#include "support/TestMain.h"

#include "Drawing.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/PageLayout.h>

#include <QFile>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QStyleOptionViewItem>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>

using namespace Vantrel::Pictel;

class tst_ViewerPrinting : public PictelTest
{
    Q_OBJECT

private Q_SLOTS:
    void exactlyOnePageIsPrinted();
    void visibleFiguresArePaintedOnThePrinter();
    void areaWithMarginsFillsThePage();
    void pageLayoutPlacesTheArea();
    void invalidAreaPrintsTheFreeformLayers();
    void layerIsPrintedWithTheViewOptions();
    void hiddenFiguresAreValidatedBeforePrinting();
    void decorationFollowsTheContent();
    void pageLayoutWithoutRoomPrintsNothing();
    void printingNeedsContentManagerLayerAndArea_data();
    void printingNeedsContentManagerLayerAndArea();
    void nullPrinterPrintsNothing();
    void unusablePrinterPrintsNothing();
    void deletedPageLayoutIsNotAsked();

    void pictureShowsTheAreaWithMargins();
    void pictureIgnoresTheZoom();
    void pictureHasTheBaseColorOfThePalette();
    void pictureOfAllFreeformLayers();
    void pictureOfALayerWithoutFreeformLayersIsNull();
    void pictureOfAPlainLayerNeedsAnArea();
    void pictureNeedsContentManagerLayerAndArea();
    void pictureOfNestedLayer();
    void enormousPictureIsNull_data();
    void enormousPictureIsNull();
    void copyPutsThePictureIntoMimeData();
    void copyOfNothingIsANullPicture();
};

namespace {

// What a layer was asked to paint.
class ProbeLayer : public FreeformLayer
{
public:
    ProbeLayer()
        : FreeformLayer(nullptr, true)
    { }

    QList<QRect> areas;
    QList<QTransform> transforms;
    QFont font;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        areas << option.rect;
        transforms << painter->transform();
        font = option.font;
        FreeformLayer::render(painter, option);
    }
};

// A figure that remembers what it was painted on.
class DeviceProbe : public Figure
{
public:
    QList<QPaintDevice *> devices;

    void render(QPainter *painter, const QStyleOptionViewItem &option) override
    {
        devices << painter->device();
        Figure::render(painter, option);
    }
};

class ProbePage : public PageLayout
{
public:
    QRectF content;
    int decorations = 0;
    int layersBefore = -1;
    QVariant pageInfo = 1;
    QTransform transform;
    ProbeLayer *layer = nullptr;

    QRectF getContentRect(QPainter *painter) const override
    {
        return content.isNull() ? PageLayout::getContentRect(painter) : content;
    }
    void paintPageDecoration(QPainter *painter, const QVariant &info) override
    {
        ++decorations;
        pageInfo = info;
        transform = painter->transform();
        layersBefore = layer ? static_cast<int>(layer->areas.size()) : -1;
    }
};

// A viewer over an outer pane "all" with the layer "probe": a red figure at (0, 0, 100, 100), in bounds that hold it.
struct PrintedDrawing
{
    PrintedDrawing()
    {
        viewer.resize(400, 300);
        figure.setBackgroundColor(Qt::red);
        layer.add(&figure, QRect(0, 0, 100, 100));
        pane.addLayer(&inner, "all");
        inner.addLayer(&layer, "probe");
        inner.addLayer(&plain, "plain");
        plain.setBounds(QRect(0, 0, 10, 10));
        pane.setFreeformBounds(QRect(-1000, -1000, 3000, 3000));
        viewer.setContent(&pane);
    }

    FreeformViewer viewer;
    FreeformWidget &widget = *qobject_cast<FreeformWidget *>(viewer.widget());
    FreeformLayeredPane pane;
    FreeformLayeredPane inner;
    ProbeLayer layer;
    Layer plain;
    Figure figure;
};

// A printer that writes a page of 10 x 5 inches without borders, at 200 dots per inch: 2000 x 1000 pixels.
class FilePrinter : public QPrinter
{
public:
    FilePrinter()
    {
        setOutputFormat(QPrinter::PdfFormat);
        setOutputFileName(path());
        setPageSize(QPageSize(QSizeF(10, 5), QPageSize::Inch, QString(), QPageSize::ExactMatch));
        setFullPage(true);
        setPageMargins(QMarginsF(0, 0, 0, 0));
        setResolution(200);
    }

    QByteArray written() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QString path() const { return m_directory.filePath(QStringLiteral("page.pdf")); }

    QTemporaryDir m_directory;
};

int pageCount(const QByteArray &document)
{
    int pages = 0;
    for (const QByteArray &line : document.split('\n')) {
        if (line.contains("/Type /Page") && !line.contains("/Type /Pages"))
            ++pages;
    }
    return pages;
}

} // namespace

void tst_ViewerPrinting::exactlyOnePageIsPrinted()
{
    PrintedDrawing drawing;
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 5000, 5000));
    const QByteArray document = printer.written();
    QVERIFY(document.startsWith("%PDF-"));
    QCOMPARE(pageCount(document), 1);
    QCOMPARE(drawing.layer.areas.size(), 1);
}

void tst_ViewerPrinting::visibleFiguresArePaintedOnThePrinter()
{
    PrintedDrawing drawing;
    DeviceProbe probe;
    drawing.layer.add(&probe, QRect(10, 10, 20, 20));
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 100, 100));
    QCOMPARE(probe.devices, QList<QPaintDevice *>({&printer}));
    probe.setVisible(false);
    FilePrinter next;
    drawing.viewer.print(&next, "probe", QRect(0, 0, 100, 100));
    QCOMPARE(probe.devices.size(), 1);
}

void tst_ViewerPrinting::areaWithMarginsFillsThePage()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(20, 50);
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(10, 30, 60, 100));
    // (-10, -20, 100, 200) onto 2000 x 1000: the height decides.
    QCOMPARE(drawing.layer.areas, QList<QRect>({QRect(-10, -20, 100, 200)}));
    QCOMPARE(drawing.layer.transforms, QList<QTransform>({QTransform(5, 0, 0, 5, 50, 100)}));
    drawing.viewer.setXYMargins(0, 0);
    FilePrinter next;
    drawing.viewer.print(&next, "probe", QRect(10, 30, 400, 100));
    QCOMPARE(drawing.layer.areas.last(), QRect(10, 30, 400, 100));
    QCOMPARE(drawing.layer.transforms.last(), QTransform(5, 0, 0, 5, -50, -150));
}

void tst_ViewerPrinting::pageLayoutPlacesTheArea()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(0, 0);
    ProbePage page;
    page.content = QRectF(100, 200, 300, 600);
    drawing.viewer.setPageLayout(&page);
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(10, 20, 100, 100));
    // Scaled by 3, and (10, 20) goes to (100, 200).
    QCOMPARE(drawing.layer.transforms, QList<QTransform>({QTransform(3, 0, 0, 3, 70, 140)}));
}

void tst_ViewerPrinting::invalidAreaPrintsTheFreeformLayers()
{
    PrintedDrawing drawing;
    FreeformLayer second(nullptr, true);
    Figure far;
    second.add(&far, QRect(300, 200, 50, 40));
    second.setFreeformBounds(QRect(-1000, -1000, 3000, 3000));
    drawing.inner.addLayer(&second, "second");
    FilePrinter printer;
    drawing.viewer.print(&printer, "all", QRect());
    // (0, 0, 350, 240) with margins.
    QCOMPARE(drawing.layer.areas, QList<QRect>({QRect(-50, -50, 450, 340)}));
}

void tst_ViewerPrinting::layerIsPrintedWithTheViewOptions()
{
    PrintedDrawing drawing;
    drawing.widget.setFont(QFont(QStringLiteral("DejaVu Sans"), 19));
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(drawing.layer.font.pointSize(), 19);
}

void tst_ViewerPrinting::hiddenFiguresAreValidatedBeforePrinting()
{
    PrintedDrawing drawing;
    QStringList calls;
    connect(drawing.viewer.getUpdateManager(), &UpdateManager::aboutToValidate, this,
            [&] { calls << QStringLiteral("validate after %1").arg(drawing.layer.areas.size()); });
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(calls, QStringList({"validate after 0"}));
}

void tst_ViewerPrinting::decorationFollowsTheContent()
{
    PrintedDrawing drawing;
    ProbePage page;
    page.layer = &drawing.layer;
    drawing.viewer.setPageLayout(&page);
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(page.decorations, 1);
    QCOMPARE(page.layersBefore, 1);
    QCOMPARE(page.pageInfo, QVariant());
    QCOMPARE(page.transform, QTransform());
}

void tst_ViewerPrinting::pageLayoutWithoutRoomPrintsNothing()
{
    PrintedDrawing drawing;
    ProbePage page;
    drawing.viewer.setPageLayout(&page);
    for (const QRectF content : {QRectF(0, 0, -10, 10), QRectF(10, 10, 0, 100)}) {
        page.content = content;
        FilePrinter printer;
        drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    }
    QCOMPARE(drawing.layer.areas.size(), 0);
    QCOMPARE(page.decorations, 0);
}

void tst_ViewerPrinting::printingNeedsContentManagerLayerAndArea_data()
{
    QTest::addColumn<QString>("layerName");
    QTest::addColumn<QRect>("area");
    QTest::addColumn<bool>("hasManager");
    QTest::newRow("unknown layer") << "unknown" << QRect(0, 0, 10, 10) << true;
    QTest::newRow("no freeform layers below") << "probe" << QRect() << true;
    QTest::newRow("no update manager") << "probe" << QRect(0, 0, 10, 10) << false;
}

void tst_ViewerPrinting::printingNeedsContentManagerLayerAndArea()
{
    QFETCH(QString, layerName);
    QFETCH(QRect, area);
    QFETCH(bool, hasManager);
    PrintedDrawing drawing;
    ProbePage page;
    drawing.viewer.setPageLayout(&page);
    if (!hasManager)
        drawing.viewer.setUpdateManager(nullptr);
    FilePrinter printer;
    drawing.viewer.print(&printer, layerName, area);
    QCOMPARE(drawing.layer.areas.size(), 0);
    QCOMPARE(page.decorations, 0);
    FreeformViewer empty;
    empty.setPageLayout(&page);
    FilePrinter next;
    empty.print(&next, layerName, area);
    QCOMPARE(page.decorations, 0);
}

void tst_ViewerPrinting::nullPrinterPrintsNothing()
{
    PrintedDrawing drawing;
    drawing.viewer.print(nullptr, "probe", QRect(0, 0, 10, 10));
    drawing.widget.print(nullptr, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(drawing.layer.areas.size(), 0);
}

void tst_ViewerPrinting::unusablePrinterPrintsNothing()
{
    PrintedDrawing drawing;
    FilePrinter printer;
    QPainter busy(&printer);
    expectWarning("QPainter::begin: A paint device can only be painted by one painter at a time.");
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(drawing.layer.areas.size(), 0);
}

void tst_ViewerPrinting::deletedPageLayoutIsNotAsked()
{
    PrintedDrawing drawing;
    auto page = std::make_unique<ProbePage>();
    page->content = QRectF(100, 200, 300, 600);
    drawing.viewer.setPageLayout(page.get());
    page.reset();
    drawing.viewer.setXYMargins(0, 0);
    FilePrinter printer;
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 100, 100));
    QCOMPARE(drawing.layer.transforms, QList<QTransform>({QTransform(10, 0, 0, 10, 0, 0)}));
}

void tst_ViewerPrinting::pictureShowsTheAreaWithMargins()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(10, 20);
    const QPixmap picture = drawing.widget.printToPixmap("probe", QRect(0, 0, 120, 130));
    QCOMPARE(picture.size(), QSize(140, 170));
    QCOMPARE(drawing.layer.areas, QList<QRect>({QRect(-10, -20, 140, 170)}));
    const QImage image = picture.toImage();
    QCOMPARE(image.pixelColor(10, 20), QColor(Qt::red));
    QCOMPARE(image.pixelColor(109, 119), QColor(Qt::red));
    QCOMPARE(image.pixelColor(9, 20), QColor(Qt::white));
    QCOMPARE(image.pixelColor(10, 19), QColor(Qt::white));
    QCOMPARE(image.pixelColor(110, 119), QColor(Qt::white));
}

void tst_ViewerPrinting::pictureIgnoresTheZoom()
{
    PrintedDrawing drawing;
    drawing.viewer.setScale(3.0);
    const QPixmap picture = drawing.widget.printToPixmap("probe", QRect(0, 0, 100, 100));
    QCOMPARE(picture.size(), QSize(200, 200));
    QCOMPARE(drawing.layer.transforms, QList<QTransform>({QTransform::fromTranslate(50, 50)}));
}

void tst_ViewerPrinting::pictureHasTheBaseColorOfThePalette()
{
    PrintedDrawing drawing;
    QPalette palette = drawing.widget.palette();
    palette.setColor(QPalette::Active, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Inactive, QPalette::Base, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::cyan);
    drawing.widget.setPalette(palette);
    const QRect area(0, 0, 100, 100);
    QCOMPARE(drawing.widget.printToPixmap("probe", area).toImage().pixelColor(0, 0), QColor(Qt::yellow));
    drawing.widget.setEnabled(false);
    QCOMPARE(drawing.widget.printToPixmap("probe", area).toImage().pixelColor(0, 0), QColor(Qt::cyan));
}

void tst_ViewerPrinting::pictureOfAllFreeformLayers()
{
    PrintedDrawing drawing;
    FreeformLayer second(nullptr, true);
    Figure far;
    second.add(&far, QRect(-30, 200, 50, 40));
    second.setFreeformBounds(QRect(-1000, -1000, 3000, 3000));
    drawing.inner.addLayer(&second, "second");
    drawing.viewer.setXYMargins(0, 0);
    const QPixmap picture = drawing.widget.printToPixmap("all", QRect());
    QCOMPARE(picture.size(), QSize(130, 240));
    QCOMPARE(picture.toImage().pixelColor(30, 0), QColor(Qt::red));
}

void tst_ViewerPrinting::pictureOfALayerWithoutFreeformLayersIsNull()
{
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("probe", QRect()).isNull());
    QVERIFY(drawing.widget.printToPixmap("plain", QRect(0, 0, 0, 10)).isNull());
}

void tst_ViewerPrinting::pictureOfAPlainLayerNeedsAnArea()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(0, 0);
    QCOMPARE(drawing.widget.printToPixmap("plain", QRect(0, 0, 30, 20)).size(), QSize(30, 20));
}

void tst_ViewerPrinting::pictureNeedsContentManagerLayerAndArea()
{
    const QRect area(0, 0, 10, 10);
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("unknown", area).isNull());
    QVERIFY(!drawing.widget.printToPixmap("probe", area).isNull());
    drawing.viewer.setUpdateManager(nullptr);
    QVERIFY(drawing.widget.printToPixmap("probe", area).isNull());
    FreeformViewer empty;
    QVERIFY(qobject_cast<FreeformWidget *>(empty.widget())->printToPixmap("probe", area).isNull());
}

void tst_ViewerPrinting::pictureOfNestedLayer()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(0, 0);
    const QPixmap picture = drawing.widget.printToPixmap("all", QRect(50, 50, 100, 100));
    QCOMPARE(picture.toImage().pixelColor(49, 49), QColor(Qt::red));
    QCOMPARE(picture.toImage().pixelColor(50, 50), QColor(Qt::white));
}

void tst_ViewerPrinting::enormousPictureIsNull_data()
{
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::addColumn<QRect>("area");
    QTest::newRow("too wide") << QRect(0, 0, 32668, 1);
    QTest::newRow("too high") << QRect(0, 0, 1, 32668);
    QTest::newRow("too many pixels") << QRect(0, 0, 32000, 32000);
    QTest::newRow("all there is") << QRect(QPoint(-highest, -highest), QPoint(highest, highest));
}

void tst_ViewerPrinting::enormousPictureIsNull()
{
    QFETCH(QRect, area);
    PrintedDrawing drawing;
    QVERIFY(drawing.widget.printToPixmap("probe", area).isNull());
    QCOMPARE(drawing.layer.areas.size(), 0);
    QCOMPARE(drawing.widget.printToPixmap("probe", QRect(0, 0, 32667, 1)).width(), 32767);
}

void tst_ViewerPrinting::copyPutsThePictureIntoMimeData()
{
    PrintedDrawing drawing;
    drawing.viewer.setXYMargins(5, 5);
    QMimeData data;
    drawing.viewer.copy(&data, "probe", QRect(0, 0, 100, 100));
    QVERIFY(data.hasImage());
    const QImage image = data.imageData().value<QImage>();
    QCOMPARE(image.size(), QSize(110, 110));
    QCOMPARE(image.pixelColor(4, 5), QColor(Qt::white));
    QCOMPARE(image.pixelColor(5, 5), QColor(Qt::red));
}

void tst_ViewerPrinting::copyOfNothingIsANullPicture()
{
    PrintedDrawing drawing;
    QMimeData data;
    drawing.viewer.copy(&data, "unknown", QRect(0, 0, 100, 100));
    QVERIFY(data.imageData().value<QPixmap>().isNull());
}

PICTEL_TEST_MAIN(tst_ViewerPrinting)
#include "tst_viewerprinting.moc"
