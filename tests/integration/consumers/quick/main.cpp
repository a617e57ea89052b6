#include <tolvane/tolvane.h>

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

using tolvane::Tolvane;

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QQuickView window;
    window.resize(400, 700);
    Tolvane::initialize(QStringLiteral("key"));
    window.show();

    QTimer::singleShot(100, &window, [&window] {
        Tolvane::open();
        // The messenger is added on top of the host's content.
        const bool isOpen = !window.contentItem()->childItems().isEmpty();
        QGuiApplication::exit(isOpen ? EXIT_SUCCESS : EXIT_FAILURE);
    });
    return QGuiApplication::exec();
}
