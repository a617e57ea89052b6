#include <tolvane/messengerwidget.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

using tolvane::Tolvane;

namespace {

/// While the messenger is open, pushes of the library need no banner.
bool isOpen()
{
    return Tolvane::willPresentNotification(
               {{QStringLiteral("source"), QStringLiteral("tolvane")}}) ==
           tolvane::PresentationOptions::sound;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QPushButton help(QStringLiteral("Help"));
    Tolvane::initialize(QStringLiteral("key"));
    QObject::connect(&help, &QPushButton::clicked, [] { Tolvane::open(); });
    help.show();
    // In a tab that is not shown.
    tolvane::MessengerWidget messenger;

    QTimer::singleShot(100, &help, [&help] {
        help.click();
        QApplication::exit(isOpen() ? EXIT_SUCCESS : EXIT_FAILURE);
    });
    return QApplication::exec();
}
