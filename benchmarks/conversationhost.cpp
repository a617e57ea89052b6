// SPDX-License-Identifier: MIT
// Has a conversation in a window and tells what it cost, a line a figure: a number, a blank, and
// what it is. Its arguments are what to do and with how many messages.
#include "backend/json.h"
#include "conversationscene.h"
#include "core/configuration.h"
#include "core/notifications.h"
#include "countedmalloc.h"
#include "measures.h"
#include "photo.h"
#include "platform/platform.h"
#include "ui/conversation/messages/messagelistmodel.h"
#include "ui/conversation/viewer/imagestatetype.h"
#include "ui/images/asyncimage.h"

#include <QtCore/QStringListModel>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QWheelEvent>

#include <array>
#include <cstdio>

extern void qml_register_types_Tolvane_Private();

namespace {

using namespace tolvane;
using namespace tolvane::bench;

void tell(double figure, const QString &what, int messageCount)
{
    std::printf("%f %s with %d messages\n", figure, qPrintable(what), messageCount);
}

QStringList textsOf(const TicketDto &ticket)
{
    QStringList texts;
    for (const MessageDto &message : ticket.messages)
        texts += message.content;
    return texts;
}

/// The list of messages, or another that is filled alike.
struct Scrolled
{
    HostWindow &window;
    QQuickItem *flickable;
    std::function<qsizetype()> delegateCount;
};

/// From the end to the beginning, at the greatest speed that a frame can be read at.
void fling(const Scrolled &list, const QString &name, int messageCount)
{
    constexpr double distance = 120;
    FrameTimes frames;
    qsizetype delegates = 0;
    const auto step = [&] {
        list.flickable->setProperty("contentY",
                                    list.flickable->property("contentY").toDouble() - distance);
    };
    // What is seen for the first time, such as the letters, is not the list's.
    for (int warmUp = 0; warmUp < 50; ++warmUp)
        list.window.frame(step);
    while (!list.flickable->property("atYBeginning").toBool()) {
        frames.all.push_back(list.window.frame(step));
        delegates = std::max(delegates, list.delegateCount());
    }
    tell(frames.most(), QStringLiteral("longest frame of a fling through ") + name, messageCount);
    tell(frames.median(), QStringLiteral("median frame of a fling through ") + name, messageCount);
    tell(double(delegates), QStringLiteral("most delegates in ") + name, messageCount);
}

void flingThroughMessages(CannedBackend &, int messageCount)
{
    constexpr const char *page = R"(
        import Tolvane.Private
        TicketMessageList { ticketState: "open"; isAITyping: false }
    )";
    MessageData selection;
    MessageListModel model;
    model.setMessages(conversation(messageCount).messages);
    HostWindow window;
    QQuickItem *list =
        window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)},
                           {QStringLiteral("messageData"), QVariant::fromValue(&selection)}});
    window.rest(1000);
    auto *rows = list->findChild<AnchoredList *>();
    rows->setProperty("isMoving", true);
    fling({.window = window,
           .flickable = rows->parentItem(),
           .delegateCount = [rows] { return rows->childItems().size(); }},
          QStringLiteral("the conversation"), messageCount);
}

/// The least that could be done for the same texts: rows as high as the messages', with nothing but
/// text.
void flingThroughPlainList(CannedBackend &, int messageCount)
{
    constexpr const char *page = R"(
        import QtQuick
        ListView {
            id: list
            delegate: Item {
                required property string display
                required property int index
                width: list.width
                height: text.height + (index % 10 === 3 ? 306 : 96)
                Text {
                    id: text
                    x: 16
                    y: 26
                    width: list.width - 106
                    text: parent.display
                    textFormat: Text.PlainText
                    wrapMode: Text.Wrap
                    font.pixelSize: 14
                }
                Text {
                    x: 16
                    y: text.height + 52
                    text: "5 days ago"
                    textFormat: Text.PlainText
                    font.pixelSize: 12
                }
            }
        }
    )";
    QStringListModel model(textsOf(conversation(messageCount)));
    HostWindow window;
    QQuickItem *list = window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)}});
    window.rest(1000);
    QMetaObject::invokeMethod(list, "positionViewAtEnd");
    QQuickItem *rows = list->property("contentItem").value<QQuickItem *>();
    fling({.window = window,
           .flickable = list,
           .delegateCount = [rows] { return rows->childItems().size(); }},
          QStringLiteral("a plain list"), messageCount);
}

void openConversation(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    tell(scene.open(), QStringLiteral("first frame"), messageCount);
}

void append(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(1000);
    FrameTimes arrivals;
    FrameTimes motions;
    for (int i = 0; i < 5; ++i) {
        MessageDto message = scene.ticket.messages.constLast();
        message.id += QStringLiteral("-next");
        message.sender = scene.ticket.messages.at(1).sender;
        scene.ticket.messages += message;
        backend.setTicket(scene.ticket);
        const QVariantMap userInfo = json::dictionary(message);
        arrivals.all.push_back(scene.window.frame([&] {
            platform().notificationCenter->post(notifications::didReceiveMessage, userInfo);
        }));
        for (int frame = 0; frame < 30; ++frame) {
            motions.all.push_back(scene.window.frame([] {}));
            scene.window.rest(16);
        }
        scene.window.rest(1500);
        if (!scene.showsItsEnd())
            qFatal("the message does not arrive");
    }
    tell(arrivals.median(), QStringLiteral("frame with one more message"), messageCount);
    tell(motions.most(), QStringLiteral("longest frame as a message comes in"), messageCount);
}

void appendToPlainList(CannedBackend &, int messageCount)
{
    constexpr const char *page = R"(
        import QtQuick
        ListView {
            id: list
            delegate: Text {
                required property string display
                width: list.width
                text: display
                wrapMode: Text.Wrap
                font.pixelSize: 14
            }
        }
    )";
    QStringListModel model(textsOf(conversation(messageCount)));
    HostWindow window;
    QQuickItem *list = window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)}});
    window.rest(1000);
    QMetaObject::invokeMethod(list, "positionViewAtEnd");
    window.rest(100);
    FrameTimes frames;
    for (int i = 0; i < 5; ++i) {
        frames.all.push_back(window.frame([&] {
            const int row = model.rowCount();
            model.insertRow(row);
            model.setData(model.index(row), model.stringList().constFirst());
            QMetaObject::invokeMethod(list, "positionViewAtEnd");
        }));
        window.rest(100);
    }
    tell(frames.median(), QStringLiteral("frame with one more row"), messageCount);
}

void quietPoll(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(1000);
    FrameTimes polls;
    for (int i = 0; i < 20; ++i) {
        int changes = 0;
        const auto counted = QObject::connect(scene.data, &TicketScreenData::changed, scene.data,
                                              [&] { ++changes; });
        const double before = threadMilliseconds();
        scene.data->appear();
        scene.window.rest(500);
        polls.all.push_back(threadMilliseconds() - before);
        QObject::disconnect(counted);
        if (changes < 2)
            qFatal("the ticket did not come");
    }
    tell(polls.median(), QStringLiteral("quiet poll"), messageCount);
}

void sendKey(QWindow &window, int key, const QString &text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &event);
    }
}

void typeInto(CannedBackend &backend, int messageCount, const QString &text, const QString &name)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(1000);
    scene.data->composer()->setMessage(text);
    scene.window.rest(500);
    QQuickItem *editor = scene.window.activeFocusItem();
    if (!editor || editor->property("text").toString() != text)
        qFatal("the text is not where one types");
    editor->setProperty("cursorPosition", text.size() / 2);
    FrameTimes keys;
    for (int key = 0; key < 60; ++key) {
        keys.all.push_back(
            scene.window.frame([&] { sendKey(scene.window, Qt::Key_A, QStringLiteral("a")); }));
    }
    if (scene.data->composer()->message().size() != text.size() + 60)
        qFatal("the keys do not arrive");
    tell(keys.median(), QStringLiteral("key in ") + name, messageCount);
    tell(keys.most(), QStringLiteral("longest key in ") + name, messageCount);
}

void typeAmongLines(CannedBackend &backend, int messageCount)
{
    const QString line = QStringLiteral("A line of what is being written, as long as most.\n");
    typeInto(backend, messageCount, line.repeated(200), QStringLiteral("200 lines"));
}

void typeInMegabyte(CannedBackend &backend, int messageCount)
{
    typeInto(backend, messageCount, QStringLiteral("word ").repeated(200'000),
             QStringLiteral("a megabyte"));
}

void sendWheel(QWindow &window, const QPoint &pixels, int angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF middle(window.width() / 2.0, window.height() / 2.0);
    QWheelEvent event(middle, window.mapToGlobal(middle), pixels, {0, angle}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
}

void zoom(CannedBackend &, int)
{
    HostWindow window;
    QQuickItem *viewer = window.show("import Tolvane.Private\nImageViewer { focus: true }",
                                     {{QStringLiteral("imageUrl"), CannedBackend::largePhoto}});
    auto *picture = viewer->findChild<CachedAsyncImage *>();
    for (int wait = 0; picture->image().isNull() && wait < 100; ++wait)
        window.rest(100);
    if (picture->image().size() != QSize(4000, 3000))
        qFatal("no picture");
    window.rest(1000);
    FrameTimes steps;
    const int before = largeAllocations();
    for (int step = 0; step < 60; ++step) {
        steps.all.push_back(window.frame([&] {
            sendWheel(window, {}, step < 30 ? 24 : -12, Qt::ControlModifier);
            sendWheel(window, {step % 7 - 3, step % 5 - 2}, 8, Qt::NoModifier);
        }));
    }
    if (viewer->property("imageState").value<ImageStateType *>()->scale() <= 1)
        qFatal("nothing was zoomed");
    std::printf("%d large allocations of a pinch and pan\n", largeAllocations() - before);
    std::printf("%f median frame of a pinch and pan\n", steps.median());
    std::printf("%f longest frame of a pinch and pan\n", steps.most());
}

/// Waits for all pictures in sight.
void awaitPictures(ConversationScene &scene)
{
    const auto isLoading = [&] {
        const auto pictures = scene.rows->findChildren<ThumbnailAsyncImage *>();
        return std::ranges::any_of(pictures,
                                   [](const auto *each) { return each->image().isNull(); });
    };
    for (int wait = 0; isLoading(); ++wait) {
        if (wait > 1000)
            qFatal("a picture does not come");
        scene.window.rest(10);
    }
}

void readAll(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(500);
    for (;;) {
        awaitPictures(scene);
        if (scene.rows->contentY() <= scene.rows->start())
            break;
        scene.window.frame(
            [&] { scene.scrollTo(std::max(scene.rows->start(), scene.rows->contentY() - 400)); });
    }
    tell(peakMebibytes(), QStringLiteral("peak memory"), messageCount);
}

struct Scenario
{
    const char *name;
    void (*run)(CannedBackend &backend, int messageCount);
};

constexpr std::array scenarios = {
    Scenario{"open", openConversation},
    Scenario{"append", append},
    Scenario{"append-plain", appendToPlainList},
    Scenario{"poll", quietPoll},
    Scenario{"fling", flingThroughMessages},
    Scenario{"fling-plain", flingThroughPlainList},
    Scenario{"type", typeAmongLines},
    Scenario{"type-megabyte", typeInMegabyte},
    Scenario{"zoom", zoom},
    Scenario{"read", readAll},
};

} // namespace

int main(int argc, char **argv)
{
    // All of a frame's work on one thread, to be measured there.
    qputenv("QSG_RENDER_LOOP", "basic");
    const QGuiApplication app(argc, argv);
    const QTemporaryDir caches;
    auto installed = std::make_unique<Platform>(makeProductionPlatform());
    auto network = std::make_unique<CannedBackend>();
    CannedBackend &backend = *network;
    installed->urlSession = std::move(network);
    installed->makeUrlCache = [&](UrlCache::Settings settings) {
        settings.diskPath = caches.filePath(settings.diskPath);
        return makeUrlCache(settings);
    };
    exchangePlatform(std::move(installed));
    Configuration::shared().adoptApiKey(QStringLiteral("key"));
    qml_register_types_Tolvane_Private();

    const auto *scenario = std::ranges::find_if(scenarios, [&](const Scenario &each) {
        return argc == 3 && qstrcmp(each.name, argv[1]) == 0;
    });
    if (scenario == scenarios.end())
        qFatal("what is there to do?");
    QTimer::singleShot(0, [&] {
        scenario->run(backend, QByteArray(argv[2]).toInt());
        QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}
