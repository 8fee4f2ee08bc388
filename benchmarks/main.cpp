// Times the library, Graphics View and the bare painter at the same work.
// usage: pictelbench [--quick | --huge | --smoke] [options of Google Benchmark]

#include "Workload.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

#include <cstring>
#include <limits>

#include <malloc.h>

namespace {

bool takeFlag(int &argc, char **argv, const char *flag)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], flag) == 0) {
            std::copy(argv + i + 1, argv + argc + 1, argv + i);
            --argc;
            return true;
        }
    }
    return false;
}

Bench::Sizes sizesFor(int &argc, char **argv)
{
    if (takeFlag(argc, argv, "--smoke"))
        return {{1000}, {1000}, {1000}, {100}};
    if (takeFlag(argc, argv, "--quick"))
        return {{1000, 10000}, {1000, 10000}, {10000}, {100, 1000, 10000}};
    Bench::Sizes sizes {{1000, 10000, 100000}, {1000, 10000, 100000}, {40000}, {100, 1000, 10000, 100000}};
    if (takeFlag(argc, argv, "--huge"))
        sizes.extended.push_back(1000000);
    return sizes;
}

void fixAppearance()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
}

// Freed memory stays with the program. What the operating system takes to hand out and clear memory would otherwise
// count in the large scenes alone, where the C library returns it after each of them.
void keepMemory()
{
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_MAX, 0);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    keepMemory();
    QApplication application(argc, argv);
    fixAppearance();
    Bench::registerWorkloads(sizesFor(argc, argv));
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    Bench::StageSet::forget();
    return Bench::anyObjection() ? 1 : 0;
}
