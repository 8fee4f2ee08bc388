#include "ExampleApplication.h"

#include <vtlpictel/figure/UpdateManager.h>
#include <vtlpictel/layers/FreeformLayeredPane.h>
#include <vtlpictel/viewer/FreeformViewer.h>

#include <QCommandLineParser>
#include <QDir>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <algorithm>
#include <cstdio>

using namespace Vantrel::Pictel;

namespace {

constexpr int margin = 24;
// Pictures have two pixels for each content unit, so that they are sharp on dense screens, too.
constexpr int pictureScale = 2;

// Before QApplication chooses a platform, and therefore before the command line is parsed.
int &preparePlatform(int &argc, char **argv)
{
    const auto needsNoScreen = [](const QByteArray &argument) {
        return argument.startsWith("--export") || argument == "--help" || argument == "-h";
    };
    if (std::any_of(argv, argv + argc, needsNoScreen) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

QRect areaOf(FreeformLayeredPane &content)
{
    return content.getFreeformExtent().adjusted(-margin, -margin, margin, margin);
}

// What the viewer and its widget do before they paint on a screen: they give the content bounds and have it laid out.
QImage pictureOf(FreeformViewer &viewer, FreeformLayeredPane &content)
{
    QStyleOptionViewItem option;
    option.initFrom(viewer.widget());
    option.rect = areaOf(content);
    content.setFreeformBounds(option.rect);
    viewer.getUpdateManager()->performUpdate();
    QImage picture(option.rect.size() * pictureScale, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(pictureScale, pictureScale);
    painter.translate(-option.rect.topLeft());
    content.render(&painter, option);
    return picture;
}

int writePicture(const QImage &picture, const QString &file)
{
    QImageWriter writer(file, "PNG");
    writer.setCompression(100);
    if (writer.write(picture))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "Cannot write \"%s\": %s.\n", qUtf8Printable(QDir::toNativeSeparators(file)),
                 qUtf8Printable(writer.errorString()));
    return EXIT_FAILURE;
}

} // namespace

ExampleApplication::ExampleApplication(int &argc, char **argv, const QString &description)
    : QApplication(preparePlatform(argc, argv), argv)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description);
    parser.addHelpOption();
    const QCommandLineOption exportOption(QStringLiteral("export"),
                                          QStringLiteral("Write a picture to <file> instead of showing a window."),
                                          QStringLiteral("file.png"));
    parser.addOption(exportOption);
    parser.process(*this);
    m_exportFile = parser.value(exportOption);
    setApplicationDisplayName(description);
}

int ExampleApplication::run(FreeformViewer &viewer)
{
    // Viewers take no other kind of content.
    auto &content = static_cast<FreeformLayeredPane &>(*viewer.getContent());
    if (!m_exportFile.isNull())
        return writePicture(pictureOf(viewer, content), m_exportFile);
    viewer.widget()->setProperty("backgroundColor", QColor(Qt::white));
    viewer.setXYMargins(margin, margin);
    const QRect area = areaOf(content);
    const int frame = 2 * viewer.frameWidth();
    viewer.resize(area.size() + QSize(frame, frame));
    viewer.show();
    const QPoint topLeft = area.topLeft();
    viewer.setScale(1.0, &topLeft);
    return exec();
}
