#include <tolvane/tolvane.h>
#include <tolvane/version.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <cstdio>

using tolvane::Tolvane;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    Tolvane::initialize(QStringLiteral("key"));
    Tolvane::open();
    const auto options =
        Tolvane::willPresentNotification({{QStringLiteral("source"), QStringLiteral("tolvane")}});
    if (options != tolvane::PresentationOptions::soundAndBanner || TolvaneSdkVersionNumber < 1 ||
        Tolvane::isOpen())
        return EXIT_FAILURE;
    Tolvane::close();
    static_assert(TOLVANE_VERSION >= TOLVANE_VERSION_CHECK(1, 0, 0));
    if (Tolvane::version() != QLatin1String(TOLVANE_VERSION_STR))
        return EXIT_FAILURE;

    // The libraries that this process has mapped.
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QFile::ReadOnly))
        return EXIT_FAILURE;
    const QByteArray loaded = maps.readAll();
    if (!loaded.contains("libQt6Core"))
        return EXIT_FAILURE;
    for (const char *library : {"libQt6Gui", "libQt6Qml", "libQt6Quick", "libTolvaneSdk"}) {
        if (loaded.contains(library)) {
            std::fprintf(stderr, "%s was loaded\n", library);
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
