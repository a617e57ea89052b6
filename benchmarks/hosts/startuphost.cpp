// SPDX-License-Identifier: MIT
// Starts like a host and ends without opening the messenger. Prints the processor time since the
// start of the process, and its memory. Compiled twice: with the messenger and without.
#include "benchmarks/support/resourceusage.h"

#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickWindow>

#ifdef TOLVANE_BENCH_LINKED
#include <tolvane/tolvane.h>
#include <tolvane/views.h>
#endif

#include <cstdio>

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    // Never happens, but the linker keeps a library only if the program refers to it.
    if (argc > 1) {
        QQuickWindow::setDefaultAlphaBuffer(true);
#ifdef TOLVANE_BENCH_LINKED
        tolvane::Tolvane::open();
#endif
    }
#ifdef TOLVANE_BENCH_LINKED
    constexpr const char *subject = "linked";
#else
    constexpr const char *subject = "not linked";
#endif
    const double time = tolvane::bench::processMilliseconds();
    std::printf("start-up, %s: %f\n", subject, time);
    std::printf("memory after start-up, %s: %f\n", subject, tolvane::bench::privateMebibytes());
    return 0;
}
