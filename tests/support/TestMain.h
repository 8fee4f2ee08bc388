#pragma once

#include <QObject>

/// Base of every test: a warning or debug message that was not announced fails the test function that caused it.
/// A subclass with its own init() calls PictelTest::init() first.
class PictelTest : public QObject
{
    Q_OBJECT

public:
    /// Announces exactly one debug-level message of the library.
    static void expectDebug(const char *text);
    /// Announces exactly one warning of the library.
    static void expectWarning(const char *text);

protected Q_SLOTS:
    void init();
};

/// Runs \a test as the shared main does: offscreen, fixed style, font, resolution and locale.
int runPictelTest(QObject &(*makeTest)(), int argc, char *argv[]);

/// Defines main() for a test class that can be created by default.
#define PICTEL_TEST_MAIN(TestClass)                                                                                    \
    static QObject &make##TestClass()                                                                                  \
    {                                                                                                                  \
        static TestClass test;                                                                                         \
        return test;                                                                                                   \
    }                                                                                                                  \
    int main(int argc, char *argv[])                                                                                   \
    {                                                                                                                  \
        return runPictelTest(&make##TestClass, argc, argv);                                                            \
    }
