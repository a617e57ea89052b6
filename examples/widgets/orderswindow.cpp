// SPDX-License-Identifier: MIT
#include "orderswindow.h"

#include <tolvane/messengerwidget.h>
#include <tolvane/notifier.h>

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTableWidget>

using tolvane::Tolvane;

namespace {

struct Order
{
    const char *number;
    const char *customer;
    const char *article;
    const char *total;
    const char *state;
};

constexpr Order orders[] = {
    {"NL-2041", "Ada Lindqvist", "Fjell 30 pack", "129 €", "packed"},
    {"NL-2042", "Jonas Brandt", "Regn shell, Ull base layer", "298 €", "paid"},
    {"NL-2043", "Marisol Ferreira", "Telt for two", "349 €", "sent"},
    {"NL-2044", "Olena Koval", "Kaffe mug, Stjerne lamp", "64 €", "sent"},
    {"NL-2045", "Haruto Sato", "Ull base layer", "79 €", "returned"},
    {"NL-2046", "Layla Haddad", "Regn shell", "219 €", "paid"},
    {"NL-2047", "Piotr Zielinski", "Stjerne lamp", "45 €", "packed"},
};

} // namespace

OrdersWindow::OrdersWindow()
    : m_orders(new QTableWidget(int(std::size(orders)), 5))
    , m_dock(new QDockWidget(tr("Help")))
    , m_help(new QPushButton)
{
    setWindowTitle(tr("Nordlicht Orders"));
    resize(1180, 760);
    createOrders();
    setCentralWidget(m_orders);

    // The messenger in the dock is open while the dock is visible.
    m_dock->setObjectName(QStringLiteral("help"));
    m_dock->setWidget(new tolvane::MessengerWidget);
    addDockWidget(Qt::RightDockWidgetArea, m_dock);
    m_dock->hide();
    createMenus();

    statusBar()->addPermanentWidget(m_help);
    connect(m_help, &QPushButton::clicked, this, &Tolvane::open);
    connect(Tolvane::notifier(), &tolvane::TolvaneNotifier::unreadCountChanged, this,
            &OrdersWindow::updateHelp);
    updateHelp(Tolvane::unreadCount());
    Tolvane::setPresentation(Tolvane::Presentation::panel);
    Tolvane::setScreenshotEnabled(true);
}

void OrdersWindow::createOrders()
{
    m_orders->setHorizontalHeaderLabels(
        {tr("Order"), tr("Customer"), tr("Articles"), tr("Total"), tr("State")});
    m_orders->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_orders->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    m_orders->verticalHeader()->hide();
    m_orders->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_orders->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_orders->setAlternatingRowColors(true);
    m_orders->setShowGrid(false);
    m_orders->setTabKeyNavigation(false);
    int row = 0;
    for (const Order &order : orders) {
        int column = 0;
        for (const char *text :
             {order.number, order.customer, order.article, order.total, order.state})
            m_orders->setItem(row, column++, new QTableWidgetItem(QString::fromUtf8(text)));
        ++row;
    }
    m_orders->setCurrentCell(0, 0);
}

void OrdersWindow::createMenus()
{
    menuBar()
        ->addMenu(tr("&Orders"))
        ->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&Write to us"), QKeySequence::HelpContents, this, &Tolvane::open);
    help->addAction(tr("Ask about this &order"), this, [this] {
        const QString number = m_orders->item(m_orders->currentRow(), 0)->text();
        Tolvane::openNewConversation(tr("My question about order %1: ").arg(number));
    });
    help->addSeparator();
    QAction *isPanel = help->addAction(tr("As a &panel"));
    isPanel->setCheckable(true);
    isPanel->setChecked(true);
    connect(isPanel, &QAction::toggled, this, [](bool isOn) {
        Tolvane::setPresentation(isOn ? Tolvane::Presentation::panel : Tolvane::Presentation::full);
    });
    QAction *isDocked = m_dock->toggleViewAction();
    isDocked->setText(tr("In a &dock"));
    help->addAction(isDocked);
}

void OrdersWindow::updateHelp(int unreadCount)
{
    m_help->setText(unreadCount > 0 ? tr("Help (%1 unread)").arg(unreadCount) : tr("Help"));
}
