// SPDX-License-Identifier: MIT
#include "idle.h"

#include "benchmarks/support/figures.h"
#include "benchmarks/support/processes.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>

namespace tolvane::bench {

namespace {

/// A number out of a "status" file of the proc file system.
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
    const Backend backend;
    qputenv("TOLVANE_API_URL", backend.url().toUtf8());

    Program baseline(QStringLiteral(TOLVANE_IDLE_BASELINE), {});
    baseline.readLine();
    figures.record("idle baseline memory", peakMebibytes(baseline.pid()));

    Program console(QStringLiteral(TOLVANE_CONSOLE), {QStringLiteral("--json")});
    console.write(R"({"id":1,"cmd":"initialize","key":"k"})");
    console.readLine();
    QString settings;
    while (!settings.contains(QLatin1String("\"settingsDidLoad\":true"))) {
        console.write(R"({"id":2,"cmd":"settings"})");
        settings = console.readLine();
    }
    // Worker threads without work go after half a minute, which is no period; let the rest settle.
    QThread::sleep(1);
    const double before = wakeUps(console.pid());
    QThread::sleep(3);
    figures.record("idle console wake-ups", wakeUps(console.pid()) - before);
    figures.record("idle console memory", peakMebibytes(console.pid()));
    qunsetenv("TOLVANE_API_URL");
}

} // namespace tolvane::bench
