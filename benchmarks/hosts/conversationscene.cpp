// SPDX-License-Identifier: MIT
#include "conversationscene.h"

#include "analytics/manager.h"
#include "backend/wire/json.h"
#include "benchmarks/support/measures.h"
#include "benchmarks/support/photo.h"
#include "platform/platform.h"
#include "state/destination.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

namespace tolvane::bench {

namespace {

constexpr int patience = 60'000;

constexpr std::array texts = {
    "Hello?",
    "Where is my parcel? It *should* have been here on Monday – thanks for looking.",
    "I have looked it up for you: it left our warehouse on Friday, and the carrier has had it "
    "since. "
    "Sometimes their updates are a day late. May I ask whether anybody was at home on Monday?",
    "Yes, all day.",
    "Then there is a list of what you can do: see https://shop.example/parcels/lost for the form, "
    "wait **until Thursday**, or tell me that you would rather have it sent again. In the last "
    "case "
    "I need the address once more, with the name that is on the door, and a time of day at which "
    "somebody is there. It costs nothing either way, and I am sorry for the trouble.",
};

/// Hears of the moment at which the ticket is there.
struct ArrivalWatch final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override
    {
        if (event.name() == TolvaneAnalyticsEvent::Chat::ticketViewed)
            arrived = threadMilliseconds();
    }

    double arrived = 0;
};

} // namespace

TicketDto conversation(int messageCount)
{
    TicketDto ticket{.id = QStringLiteral("ticket"),
                     .state = QStringLiteral("open"),
                     .assignee = words::humanAgent,
                     .messages = {},
                     .schedules = {}};
    const SenderDto customer{.id = QStringLiteral("customer"),
                             .name = {},
                             .profilePicture = {},
                             .type = words::customer};
    const SenderDto agent{.id = QStringLiteral("agent"),
                          .name = QStringLiteral("Ines"),
                          .profilePicture = {},
                          .type = words::humanAgent};
    for (int i = 0; i < messageCount; ++i) {
        MessageDto message{.id = QStringLiteral("01j%1").arg(i, 23, 10, QLatin1Char('0')),
                           .ticketId = ticket.id,
                           .sender = i % 2 ? agent : customer,
                           .content = QString::fromUtf8(texts[std::size_t(i) % texts.size()]),
                           .isRead = true,
                           .timestamp = QStringLiteral("2026-03-14T12:00:00+0000"),
                           .attachments = {}};
        if (i % 10 == 3)
            message.attachments = {QStringLiteral("https://cdn.example/%1.jpg").arg(i)};
        ticket.messages += message;
    }
    return ticket;
}

QFuture<UrlResponse> CannedBackend::send(std::function<UrlRequest()> build)
{
    return platform().workers->run([this, build] {
        const QByteArray body = bodyOf(build().url.path());
        // Bytes of its own, as a network would have.
        return UrlResponse{
            .status = 200, .headers = {}, .body = QByteArray(body.constData(), body.size())};
    });
}

QByteArray CannedBackend::bodyOf(const QString &path)
{
    static const QByteArray common = photo({2400, 1800});
    if (path.endsWith(QLatin1String(".jpg")))
        return path == largePhoto.path() ? photo({4000, 3000}) : common;
    // The screen has the time to show that it waits.
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    const std::scoped_lock lock(m_mutex);
    return m_ticket;
}

void CannedBackend::setTicket(const TicketDto &ticket)
{
    const std::scoped_lock lock(m_mutex);
    m_ticket = json::encode(ticket);
}

double mostOf(const std::vector<double> &figures)
{
    return *std::ranges::max_element(figures);
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
    QQmlComponent component(engine());
    component.setData(source, QUrl());
    auto *item = qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties));
    if (!item)
        qFatal("%s", qPrintable(component.errorString()));
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
    // What changes nothing to be seen makes no frame.
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return threadMilliseconds() - before;
}

void HostWindow::rest(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void HostWindow::await(const char *what, const std::function<bool()> &hasCome)
{
    constexpr int step = 5;
    for (int waited = 0; !hasCome(); waited += step) {
        if (waited > patience)
            qFatal("%s: it does not come", what);
        rest(step);
    }
}

ConversationScene::ConversationScene(CannedBackend &backend, int messageCount)
    : ticket(conversation(messageCount))
    , m_backend(backend)
{
    m_backend.setTicket(ticket);
}

bool ConversationScene::showsItsEnd() const
{
    return rows && rows->itemAt(int(ticket.messages.size()) - 1) && rows->contentY() == rows->end();
}

double ConversationScene::open()
{
    const auto watch = std::make_shared<ArrivalWatch>();
    TolvaneAnalyticsManager::shared().setDelegate(watch);
    QEventLoop loop;
    double time = 0;
    const auto connection = QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, [&] {
        rows = window.rootObject() ? window.rootObject()->findChild<AnchoredList *>() : nullptr;
        if (!showsItsEnd())
            return;
        time = threadMilliseconds() - watch->arrived;
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, [] { qFatal("the conversation does not open"); });
    const TicketPreviewDto preview{
        .id = ticket.id, .state = ticket.state, .lastMessage = ticket.messages.constLast()};
    QQuickItem *screen = window.show(
        "import Tolvane.Private\nTicketScreen { focus: true; isOnTop: true }",
        {{QStringLiteral("destination"), QVariant::fromValue(TolvaneDestination::ticket(preview))},
         {QStringLiteral("navigation"), QVariant::fromValue(&m_navigation)},
         {QStringLiteral("messageData"), QVariant::fromValue(&m_messages)}});
    data = screen->findChild<TicketScreenData *>();
    loop.exec();
    QObject::disconnect(connection);
    return time;
}

} // namespace tolvane::bench
