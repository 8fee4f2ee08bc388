#pragma once

#include <QApplication>
#include <QString>

namespace Vantrel::Pictel {
class FreeformViewer;
} // namespace Vantrel::Pictel

/// What every example does around its drawing: it reads the command line, and shows a window or writes a picture.
class ExampleApplication : public QApplication
{
    Q_OBJECT

public:
    /// \a description is what --help says. With --export and --help the application needs no screen.
    ExampleApplication(int &argc, char **argv, const QString &description);

    /// Shows \a viewer, which must have a content, on white until its window is closed. With --export it writes a
    /// picture of the content instead. Returns the exit status of the program: 1, and a message on standard error, when
    /// it cannot.
    int run(Vantrel::Pictel::FreeformViewer &viewer);

private:
    QString m_exportFile;
};
