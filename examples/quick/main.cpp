// SPDX-License-Identifier: MIT
// A host application with a "Help" button.
#include <tolvane/tolvane.h>

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQml/QQmlContext>

/// What the page of the host may ask of the messenger.
class Help : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void open() const { tolvane::Tolvane::open(); }
};

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("tolvane-quick-host"));
    QGuiApplication::setApplicationVersion(QStringLiteral("1.4.0"));
    tolvane::Tolvane::initialize(QStringLiteral("demo-key"));

    Help help;
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("help"), &help);
    engine.load(QUrl(QStringLiteral("qrc:/Shop.qml")));
    return QGuiApplication::exec();
}

#include "main.moc"
