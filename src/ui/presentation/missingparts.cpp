// SPDX-License-Identifier: MIT
#include "ui/presentation/missingparts.h"

#include <QtCore/QFileInfo>
#include <QtGui/QGuiApplication>
#include <QtGui/QImageReader>
#include <QtGui/QRawFont>
#include <QtQml/QQmlEngine>

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

bool hasFonts()
{
    // Without fonts, Qt still lists general families, and draws boxes. Those have no table of
    // characters.
    return !QRawFont::fromFont(QGuiApplication::font()).fontTable("cmap").isEmpty();
}

bool hasModule(const QQmlEngine &engine, const char *folder)
{
    const QStringList paths = engine.importPathList();
    return std::ranges::any_of(paths, [folder](QString path) {
        if (path.startsWith(QLatin1String("qrc:")))
            path.remove(0, 3);
        return QFileInfo::exists(path + QLatin1Char('/') + QLatin1String(folder) +
                                 QLatin1String("/qmldir"));
    });
}

bool hasDialogs(const QQmlEngine &engine)
{
    // As PictureDialog.qml imports them.
    constexpr std::array modules = {"QtQuick/Dialogs", "Qt/labs/folderlistmodel",
                                    "QtQuick/Controls", "QtQuick/Layouts"};
    return std::ranges::all_of(modules,
                               [&engine](const char *module) { return hasModule(engine, module); });
}

} // namespace

QString missingParts(const QQmlEngine &engine)
{
    QStringList parts;
    if (!hasFonts())
        parts << QStringLiteral("fonts (texts are boxes)");
    if (!QImageReader::supportedImageFormats().contains("webp"))
        parts << QStringLiteral("Qt Image Formats (no WebP pictures)");
    if (!hasDialogs(engine))
        parts << QStringLiteral("Qt Quick Dialogs with its modules (no dialogs for pictures)");
    return parts.join(QLatin1String(", "));
}

} // namespace tolvane
