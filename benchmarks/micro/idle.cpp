// SPDX-License-Identifier: MIT
#include "idle.h"

#include "benchmarks/support/figures.h"
#include "testing/backendprogram.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>

namespace tolvane::bench {

namespace {

/// A number in a "status" file of the proc file system; 0 if the process has ended.
double statusNumber(const QString &path, const QString &key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QRegularExpression line(QStringLiteral("^%1:\\s+(\\d+)").arg(key),
                                  QRegularExpression::MultilineOption);
    return line.match(QString::fromUtf8(file.readAll())).captured(1).toDouble();
}

double peakMebibytes(qint64 pid)
{
    return statusNumber(QStringLiteral("/proc/%1/status").arg(pid), QStringLiteral("VmHWM")) / 1024;
}

double wakeUps(qint64 pid)
{
    double sum = 0;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(pid));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        sum += statusNumber(tasks.filePath(task + QStringLiteral("/status")),
                            QStringLiteral("voluntary_ctxt_switches"));
    }
    return sum;
}

} // namespace

void measureIdle(Figures &figures)
{
    const test::BackendProgram backend;
    qputenv("TOLVANE_API_URL", backend.url().toUtf8());

    test::Process baseline(QStringLiteral(TOLVANE_IDLE_BASELINE), {});
    baseline.readLine();
    figures.record("idle baseline memory", peakMebibytes(baseline.id()));

    test::Process console(QStringLiteral(TOLVANE_CONSOLE), {QStringLiteral("--json")});
    console.write("{\"id\":1,\"cmd\":\"initialize\",\"key\":\"k\"}\n");
    console.readLine();
    QByteArray settings;
    while (!settings.contains("\"settingsDidLoad\":true")) {
        console.write("{\"id\":2,\"cmd\":\"settings\"}\n");
        settings = console.readLine();
    }
    // Lets the start-up end. Idle worker threads end once after 30 seconds, which is not periodic.
    QThread::sleep(1);
    const double before = wakeUps(console.id());
    QThread::sleep(3);
    figures.record("idle console wake-ups", wakeUps(console.id()) - before);
    figures.record("idle console memory", peakMebibytes(console.id()));
    qunsetenv("TOLVANE_API_URL");
}

} // namespace tolvane::bench
