// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/tolvane.h>

#include <QtWidgets/QMainWindow>

class QDockWidget;
class QPushButton;
class QTableWidget;

/// A list of orders, with the messenger over it or in a dock beside it.
class OrdersWindow : public QMainWindow
{
    Q_OBJECT

public:
    OrdersWindow();

private:
    void createOrders();
    void createMenus();
    void updateHelp(int unreadCount);

    QTableWidget *m_orders;
    QDockWidget *m_dock;
    QPushButton *m_help;
};
