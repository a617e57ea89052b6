// SPDX-License-Identifier: MIT
// tolvane-widgets-host: a list of orders. Its "Help" button opens the messenger.
#include "orderswindow.h"

#include <QtWidgets/QApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(u"tolvane-widgets-host"_s);
    QApplication::setApplicationVersion(u"1.4.0"_s);

    tolvane::Tolvane::initialize(u"demo-key"_s);
    tolvane::Tolvane::refreshUnread(); // For the text of the button.
    OrdersWindow window;
    window.show();
    return QApplication::exec();
}
