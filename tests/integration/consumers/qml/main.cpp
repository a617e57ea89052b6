#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(QUrl::fromLocalFile(QStringLiteral(MAIN_QML)));
    return engine.rootObjects().isEmpty() ? EXIT_FAILURE : QGuiApplication::exec();
}
