#include "support/TestMain.h"

#include "PrintedDrawing.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layout/PageLayout.h>

#include <QFile>
#include <QPointer>
#include <QPrintEngine>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

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
    void layerDeletedByThePageLayoutIsNotPrinted();
    void printerStateDecides_data();
    void printerStateDecides();
    void deletedPageLayoutIsNotAsked();
};

namespace {

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

// Prints as another engine does, but says that it is in a chosen state.
class StateEngine : public QPrintEngine
{
public:
    StateEngine(QPrintEngine &engine, QPrinter::PrinterState state)
        : m_engine(engine)
        , m_state(state)
    { }

    void setProperty(PrintEnginePropertyKey key, const QVariant &value) override { m_engine.setProperty(key, value); }
    QVariant property(PrintEnginePropertyKey key) const override { return m_engine.property(key); }
    bool newPage() override { return m_engine.newPage(); }
    bool abort() override { return m_engine.abort(); }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override { return m_engine.metric(metric); }
    QPrinter::PrinterState printerState() const override { return m_state; }

private:
    QPrintEngine &m_engine;
    QPrinter::PrinterState m_state;
};

class StatePrinter : public QPrinter
{
public:
    explicit StatePrinter(QPrinter::PrinterState state)
        : m_engine(*m_printer.printEngine(), state)
    {
        setEngines(&m_engine, m_printer.paintEngine());
    }

private:
    FilePrinter m_printer;
    StateEngine m_engine;
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

void tst_ViewerPrinting::layerDeletedByThePageLayoutIsNotPrinted()
{
    class DeletingPage : public PageLayout
    {
    public:
        QRectF getContentRect(QPainter *painter) const override
        {
            delete layer;
            return PageLayout::getContentRect(painter);
        }

        QPointer<Layer> layer = new Layer;
    };
    PrintedDrawing drawing;
    DeletingPage page;
    drawing.inner.addLayer(page.layer, "doomed");
    drawing.viewer.setPageLayout(&page);
    FilePrinter printer;
    drawing.viewer.print(&printer, "doomed", QRect(0, 0, 10, 10));
    QVERIFY(!page.layer);
    QCOMPARE(drawing.inner.getLayer("doomed"), nullptr);
}

void tst_ViewerPrinting::printerStateDecides_data()
{
    QTest::addColumn<QPrinter::PrinterState>("state");
    QTest::addColumn<int>("printed");
    QTest::newRow("idle") << QPrinter::Idle << 1;
    QTest::newRow("active") << QPrinter::Active << 1;
    QTest::newRow("aborted") << QPrinter::Aborted << 0;
    QTest::newRow("error") << QPrinter::Error << 0;
}

void tst_ViewerPrinting::printerStateDecides()
{
    QFETCH(QPrinter::PrinterState, state);
    QFETCH(int, printed);
    PrintedDrawing drawing;
    ProbePage page;
    drawing.viewer.setPageLayout(&page);
    StatePrinter printer(state);
    drawing.viewer.print(&printer, "probe", QRect(0, 0, 10, 10));
    QCOMPARE(drawing.layer.areas.size(), printed);
    QCOMPARE(page.decorations, printed);
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

PICTEL_TEST_MAIN(tst_ViewerPrinting)
#include "tst_viewerprinting.moc"
