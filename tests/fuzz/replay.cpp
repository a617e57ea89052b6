// SPDX-License-Identifier: MIT
// replay TARGET FOLDER: runs a target on every file of a folder, without a fuzzer.
#include "targets.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <ctime>

using namespace tolvane::fuzz;

namespace {

// Processor time, on a slow machine under sanitizers.
constexpr double maxSeconds = 10;

/// Copies the input into a block of exactly its size, so that the sanitizer detects reads beyond
/// it.
void run(const Target &target, const QByteArray &bytes)
{
    const std::vector<char> exact(bytes.cbegin(), bytes.cend());
    const std::clock_t begin = std::clock();
    target.run(Input(QByteArrayView(exact.data(), static_cast<qsizetype>(exact.size()))));
    require(double(std::clock() - begin) / CLOCKS_PER_SEC < maxSeconds,
            "the target finishes in time");
}

QByteArrayList filesIn(const QString &folder)
{
    QByteArrayList contents;
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(QDir(folder).filePath(name));
        require(file.open(QIODevice::ReadOnly), "the corpus can be read");
        contents += file.readAll();
    }
    return contents;
}

} // namespace

int main(int argc, char **argv)
{
    prepare();
    require(argc == 3, "there are two arguments: TARGET FOLDER");
    const Target &target = targetNamed(argv[1]);
    const QByteArrayList corpus = filesIn(QString::fromLocal8Bit(argv[2]));
    require(!corpus.isEmpty(), "there is a corpus");
    run(target, {});
    for (const QByteArray &bytes : corpus)
        run(target, bytes);
    std::printf("%s: %d files\n", target.name, int(corpus.size()));
}
