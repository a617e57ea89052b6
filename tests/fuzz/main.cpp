// SPDX-License-Identifier: MIT
// TOLVANE_FUZZ_TARGET names the target. libFuzzer calls it with random bytes; without libFuzzer,
// the program runs it on every file of the folder that is its argument.
#include "targets.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDirIterator>
#include <QtCore/QTemporaryDir>

#include <ctime>

using namespace tolvane::fuzz;

namespace {

struct Target
{
    const char *name;
    void (*run)(Input input);
};

constexpr Target targets[] = {
    {"responses", responses}, {"markdown", markdown}, {"pictures", pictures}};

const Target *target = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    static const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    static int argc = 1;
    static char name[] = "tolvane-fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    for (const Target &each : targets) {
        if (qgetenv("TOLVANE_FUZZ_TARGET") == each.name)
            target = &each;
    }
    require(target != nullptr, "TOLVANE_FUZZ_TARGET names a target");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    target->run(Input(QByteArrayView(data, static_cast<qsizetype>(size))));
    return 0;
}

#ifndef TOLVANE_LIBFUZZER
int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (QDirIterator files(QString::fromLocal8Bit(argv[1]), QDir::Files); files.hasNext();) {
        QFile file(files.next());
        require(file.open(QIODevice::ReadOnly), "the corpus can be read");
        const QByteArray bytes = file.readAll();
        // In a block of exactly its size, so that the sanitizer detects reads beyond it.
        const std::vector<std::uint8_t> exact(bytes.cbegin(), bytes.cend());
        const std::clock_t begin = std::clock();
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
        // Processor time, on a slow machine under sanitizers.
        require(std::clock() - begin < 10 * CLOCKS_PER_SEC, "the target finishes in time");
        ++count;
    }
    require(count > 0, "there is a corpus");
}
#endif
