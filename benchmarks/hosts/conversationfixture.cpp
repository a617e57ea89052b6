// SPDX-License-Identifier: MIT
#include "conversationfixture.h"

#include "analytics/manager.h"
#include "backend/wire/json.h"
#include "benchmarks/support/conversation.h"
#include "benchmarks/support/photo.h"
#include "benchmarks/support/resourceusage.h"
#include "state/navigation/destination.h"
#include "testing/ui/createitem.h"
#include "testing/waitfor.h"

#include <QtCore/QTimer>

#include <algorithm>
#include <thread>

namespace tolvane::bench {

namespace {

/// Takes the time of the ticket's arrival.
struct ArrivalTimer final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override
    {
        if (event.name() == TolvaneAnalyticsEvent::Chat::ticketViewed)
            arrival = threadMilliseconds();
    }

    double arrival = 0;
};

} // namespace

QByteArray ConversationBackend::bodyFor(const UrlRequest &request)
{
    static const QByteArray common = photo({2400, 1800});
    if (request.url.path().endsWith(QLatin1String(".jpg")))
        return request.url == largePhoto ? photo({4000, 3000}) : common;
    // Leaves time to show the loading state.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const std::scoped_lock lock(m_mutex);
    return m_ticket;
}

void ConversationBackend::setTicket(const TicketDto &ticket)
{
    const std::scoped_lock lock(m_mutex);
    m_ticket = json::encode(ticket);
}

double medianOf(std::vector<double> figures)
{
    std::ranges::sort(figures);
    return figures[figures.size() / 2];
}

HostWindow::HostWindow()
{
    setResizeMode(SizeRootObjectToView);
    resize(480, 800);
}

QQuickItem *HostWindow::show(const QByteArray &source, const QVariantMap &properties)
{
    QQuickItem *item = test::createItem(*engine(), source, properties).release();
    setContent({}, nullptr, item);
    QQuickView::show();
    requestActivate();
    return item;
}

double HostWindow::frame(const std::function<void()> &change)
{
    const double before = threadMilliseconds();
    change();
    QEventLoop loop;
    QObject::connect(this, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    // A change without a visible effect renders no frame.
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return threadMilliseconds() - before;
}

ConversationFixture::ConversationFixture(ConversationBackend &backend, int messageCount)
    : ticket(conversation(messageCount))
    , m_backend(backend)
{
    m_backend.setTicket(ticket);
}

bool ConversationFixture::showsEnd() const
{
    return rows && rows->itemAt(int(ticket.messages.size()) - 1) && rows->contentY() == rows->end();
}

double ConversationFixture::open()
{
    const auto timer = std::make_shared<ArrivalTimer>();
    TolvaneAnalyticsManager::shared().setDelegate(timer);
    double time = 0;
    QObject context;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &context, [&] {
        rows = window.rootObject() ? window.rootObject()->findChild<AnchoredList *>() : nullptr;
        if (time == 0 && showsEnd())
            time = threadMilliseconds() - timer->arrival;
    });
    const TicketPreviewDto preview{
        .id = ticket.id, .state = ticket.state, .lastMessage = ticket.messages.constLast()};
    QQuickItem *screen = window.show(
        "import Tolvane.Private\nTicketScreen { focus: true; isOnTop: true }",
        {{QStringLiteral("destination"), QVariant::fromValue(TolvaneDestination::ticket(preview))},
         {QStringLiteral("navigation"), QVariant::fromValue(&m_navigation)},
         {QStringLiteral("messageData"), QVariant::fromValue(&m_messages)}});
    data = screen->findChild<TicketScreenData *>();
    test::waitFor(QStringLiteral("the end of the conversation"), [&time] { return time > 0; });
    return time;
}

} // namespace tolvane::bench
