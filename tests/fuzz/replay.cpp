// SPDX-License-Identifier: MIT
// replay TARGET FOLDER MUTATIONS: gives a target every file of a folder, and so many changed ones,
// the same in every run. It needs no fuzzer.
#include "targets.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <ctime>
#include <random>

using namespace tolvane::fuzz;

namespace {

constexpr double longestSeconds = 10; // Of the processor, on a slow machine under sanitizers.
constexpr qsizetype longestInput = 4096;

using Random = std::mt19937;

qsizetype below(Random &random, qsizetype bound)
{
    return static_cast<qsizetype>(random() % static_cast<Random::result_type>(bound));
}

void replaceByte(QByteArray &bytes, Random &random)
{
    bytes[below(random, bytes.size())] = static_cast<char>(random());
}

void flipBit(QByteArray &bytes, Random &random)
{
    const qsizetype at = below(random, bytes.size());
    bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << below(random, 8)));
}

void removePart(QByteArray &bytes, Random &random)
{
    bytes.remove(below(random, bytes.size()), 1 + below(random, 16));
}

void repeatPart(QByteArray &bytes, Random &random)
{
    const QByteArray part = bytes.mid(below(random, bytes.size()), 1 + below(random, 64));
    bytes.insert(below(random, bytes.size() + 1), part.repeated(1 + int(below(random, 8))));
}

void insertPunctuation(QByteArray &bytes, Random &random)
{
    constexpr char signs[] = "\"\\{}[]:,*_~`<>()&#=;\r\n\0 0-";
    bytes.insert(below(random, bytes.size() + 1), signs[below(random, sizeof signs - 1)]);
}

void cutOff(QByteArray &bytes, Random &random)
{
    bytes.truncate(below(random, bytes.size()));
}

constexpr std::array changes = {replaceByte, flipBit,           removePart,
                                repeatPart,  insertPunctuation, cutOff};

QByteArray changed(QByteArray bytes, Random &random)
{
    for (qsizetype count = 1 + below(random, 5); count > 0 && !bytes.isEmpty(); --count)
        changes[static_cast<std::size_t>(below(random, changes.size()))](bytes, random);
    return bytes.left(std::max(longestInput, bytes.size() / 2));
}

/// Each input in a block of exactly its size, so that a read behind its end is seen.
void run(const Target &target, const QByteArray &bytes)
{
    const std::vector<char> exact(bytes.cbegin(), bytes.cend());
    const std::clock_t begin = std::clock();
    target.run(Input(QByteArrayView(exact.data(), static_cast<qsizetype>(exact.size()))));
    require(double(std::clock() - begin) / CLOCKS_PER_SEC < longestSeconds, "it comes to an end");
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
    require(argc == 4, "there are three arguments: TARGET FOLDER MUTATIONS");
    const Target &target = targetNamed(argv[1]);
    const QByteArrayList corpus = filesIn(QString::fromLocal8Bit(argv[2]));
    require(!corpus.isEmpty(), "there is a corpus");
    const int mutations = QByteArray(argv[3]).toInt();
    Random random;
    run(target, {});
    for (const QByteArray &bytes : corpus)
        run(target, bytes);
    for (int i = 0; i < mutations; ++i)
        run(target, changed(corpus.at(i % corpus.size()), random));
    std::printf("%s: %d files, %d changed ones\n", target.name, int(corpus.size()), mutations);
}
