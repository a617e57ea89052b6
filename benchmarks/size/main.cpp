// SPDX-License-Identifier: MIT
// tolvane-size FOLDER: what takes the room in the two libraries of a build, as a host ships them.
// Uses `strip`, `size` and `nm` of the binutils.
#include "benchmarks/support/page.h"
#include "testing/process.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QTemporaryDir>

#include <cstdio>
#include <utility>

namespace {

using namespace tolvane;
using namespace tolvane::bench;

constexpr double limit = 4;

constexpr const char *cppCode = "machine code of C++";
constexpr const char *qmlCode = "machine code of QML";
constexpr const char *qmlUnits = "bytecode and tables of QML";
constexpr const char *resources = "QML's sources, icons, shaders and translations";
constexpr const char *constants = "constants, texts and tables of types";
constexpr const char *rest = "headers, notes and alignment";

/// The first part whose text a section's name begins with.
constexpr std::pair<const char *, const char *> sectionParts[] = {
    {".text", cppCode},
    {".rodata", constants},
    {".data", constants},
    {".eh_frame", "unwind tables"},
    {".gcc_except_table", "unwind tables"},
    {".rela", "relocations and names of symbols"},
    {".dyn", "relocations and names of symbols"},
    {".gnu", "relocations and names of symbols"},
    {".plt", "relocations and names of symbols"},
    {".got", "relocations and names of symbols"},
};

/// Bytes by part.
using Sizes = QMap<QString, qint64>;

QString partOf(const QByteArray &section)
{
    for (const auto &[name, part] : sectionParts) {
        if (section.startsWith(name))
            return QString::fromUtf8(part);
    }
    return QString::fromUtf8(rest);
}

QList<QByteArrayList> wordsOf(const QString &program, const QStringList &arguments)
{
    QList<QByteArrayList> lines;
    for (const QByteArray &line : test::outputOf(program, arguments).split('\n'))
        lines += line.simplified().split(' ');
    return lines;
}

void addSections(const QString &stripped, Sizes &sizes)
{
    qint64 sum = 0;
    // The section, its bytes, and its address. Zeros that only memory has are in no file.
    for (const QByteArrayList &words :
         wordsOf(QStringLiteral("size"), {QStringLiteral("-A"), stripped})) {
        if (words.size() != 3 || !words.constFirst().startsWith('.') ||
            words.constFirst() == ".bss")
            continue;
        sizes[partOf(words.constFirst())] += words.at(1).toLongLong();
        sum += words.at(1).toLongLong();
    }
    sizes[QString::fromUtf8(rest)] += QFileInfo(stripped).size() - sum;
}

/// The part of a symbol, if its section does not tell it.
const char *partOf(const QByteArray &symbol, bool isCode)
{
    if (symbol.contains("QmlCacheGeneratedCode"))
        return isCode ? qmlCode : qmlUnits;
    return symbol.contains("qt_resource_") ? resources : nullptr;
}

/// Moves the bytes of such symbols to their parts.
void divideSections(const QString &library, Sizes &sizes)
{
    // Address, bytes, type and name of a symbol.
    for (const QByteArrayList &words :
         wordsOf(QStringLiteral("nm"), {QStringLiteral("-S"), library})) {
        if (words.size() != 4 || words.at(2).toLower() == "b")
            continue;
        const bool isCode = words.at(2).toLower() == "t";
        if (const char *part = partOf(words.at(3), isCode)) {
            const qint64 bytes = words.at(1).toLongLong(nullptr, 16);
            sizes[QString::fromUtf8(part)] += bytes;
            sizes[QString::fromUtf8(isCode ? cppCode : constants)] -= bytes;
        }
    }
}

Sizes sizesOf(const QString &library)
{
    const QTemporaryDir folder;
    const QString stripped = folder.filePath(QStringLiteral("stripped"));
    test::outputOf(QStringLiteral("strip"), {QStringLiteral("-o"), stripped, library});
    Sizes sizes;
    addSections(stripped, sizes);
    divideSections(library, sizes);
    return sizes;
}

QString mebibytes(qint64 bytes)
{
    return QString::number(double(bytes) / (1024 * 1024), 'f', 2);
}

qint64 sumOf(const Sizes &sizes)
{
    qint64 sum = 0;
    for (const qint64 bytes : sizes)
        sum += bytes;
    return sum;
}

QString table(const Sizes &core, const Sizes &views)
{
    const auto line = [](const QString &name, qint64 inCore, qint64 inViews) {
        return bench::row(
            {name, mebibytes(inCore), mebibytes(inViews), mebibytes(inCore + inViews)});
    };
    QString table = head({QStringLiteral("MiB of"), QStringLiteral("TolvaneCore"),
                          QStringLiteral("TolvaneSdk"), QStringLiteral("Both")});
    Sizes parts = core;
    parts.insert(views);
    for (auto part = parts.cbegin(); part != parts.cend(); ++part)
        table += line(part.key(), core.value(part.key()), views.value(part.key()));
    return table + line(QStringLiteral("all"), sumOf(core), sumOf(views));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    const QCommandLineOption page(QStringLiteral("page"), {}, QStringLiteral("file"));
    QCommandLineParser parser;
    parser.addOption(page);
    parser.addPositionalArgument(QStringLiteral("folder"), {});
    parser.process(app);

    const QString library = parser.positionalArguments().value(0) + QStringLiteral("/lib%1.so");
    const Sizes core = sizesOf(library.arg(QStringLiteral("TolvaneCore")));
    const Sizes views = sizesOf(library.arg(QStringLiteral("TolvaneSdk")));
    const double sum = double(sumOf(core) + sumOf(views)) / (1024 * 1024);
    bool isDone = sum <= limit;
    const QString text =
        QStringLiteral("Both libraries, optimised and stripped, have %1 MiB; at most %2: %3.\n\n%4")
            .arg(sum, 0, 'f', 2)
            .arg(limit)
            .arg(isDone ? QStringLiteral("met") : QStringLiteral("MISSED"), table(core, views));
    std::printf("%s", qPrintable(text));
    if (!parser.value(page).isEmpty()) {
        isDone =
            writeSection(parser.value(page), QStringLiteral("Size"),
                         QStringLiteral("Written by `./run bench size --page FILE`. ") + text) &&
            isDone;
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
