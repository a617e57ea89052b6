#include <tolvane/views.h>

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>

#include <cstdio>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    for (const char *resource :
         {":/tolvane/icons/close.svg", ":/tolvane/shaders/roundedimage.frag.qsb",
          ":/qt-project.org/imports/Tolvane/qmldir"}) {
        if (!QFile::exists(QLatin1String(resource))) {
            std::fprintf(stderr, "%s is missing\n", resource);
            return EXIT_FAILURE;
        }
    }
    QQmlApplicationEngine engine;
    engine.load(QUrl::fromLocalFile(QStringLiteral(MAIN_QML)));
    return engine.rootObjects().isEmpty() ? EXIT_FAILURE : QGuiApplication::exec();
}
