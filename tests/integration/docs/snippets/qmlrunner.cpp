// SPDX-License-Identifier: MIT
// Runs QML files. It does not link the modules that they import.
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QQmlApplicationEngine engine;
    for (const QString &file : QGuiApplication::arguments().sliced(1))
        engine.load(file);
    return engine.rootObjects().size() == argc - 1 ? QGuiApplication::exec() : EXIT_FAILURE;
}
