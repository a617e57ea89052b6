// SPDX-License-Identifier: MIT
// Has a conversation in a window and tells what it cost, a line a figure: a number, a blank, and
// what it is. Its arguments are what to do and with how many messages.
#include "backend/configuration.h"
#include "backend/wire/json.h"
#include "benchmarks/support/countedmalloc.h"
#include "benchmarks/support/measures.h"
#include "benchmarks/support/photo.h"
#include "conversationscene.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "ui/images/asyncimage.h"
#include "ui/messages/messagelistmodel.h"
#include "ui/viewer/zoomcontroller.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QStringListModel>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QWheelEvent>

#include <array>
#include <cstdio>
#include <limits>

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
    /// Whose children the rows are.
    QQuickItem *rows;
    std::function<void()> goToEnd;
};

/// From the end to the beginning, at the greatest speed at which anything can be made out. Of each
/// frame counts the least of several passes: all of them do the same, and noise only ever adds.
void fling(const Scrolled &list, const QString &name, int messageCount)
{
    constexpr double distance = 120;
    constexpr int passes = 3;
    std::vector<double> frames;
    qsizetype delegates = 0;
    const auto step = [&] {
        list.flickable->setProperty("contentY",
                                    list.flickable->property("contentY").toDouble() - distance);
    };
    // What is seen for the first time, such as the letters, is not the list's.
    for (int warmUp = 0; warmUp < 50; ++warmUp)
        list.window.frame(step);
    for (int pass = 0; pass < passes; ++pass) {
        list.window.frame(list.goToEnd);
        list.window.rest(500);
        for (std::size_t at = 0; !list.flickable->property("atYBeginning").toBool(); ++at) {
            frames.resize(std::max(frames.size(), at + 1), std::numeric_limits<double>::max());
            frames[at] = std::min(frames[at], list.window.frame(step));
            delegates = std::max(delegates, list.rows->childItems().size());
        }
    }
    tell(mostOf(frames), QStringLiteral("longest frame of a fling through ") + name, messageCount);
    tell(medianOf(frames), QStringLiteral("median frame of a fling through ") + name, messageCount);
    tell(double(delegates), QStringLiteral("most delegates in ") + name, messageCount);
}

void flingThroughMessages(CannedBackend &, int messageCount)
{
    constexpr const char *page = R"(
        import Tolvane.Private
        TicketMessageList { ticketState: "open"; isAITyping: false }
    )";
    MessageListModel model;
    model.setMessages(conversation(messageCount).messages);
    HostWindow window;
    QQuickItem *list =
        window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)}});
    window.rest(1000);
    auto *rows = list->findChild<AnchoredList *>();
    fling({.window = window,
           .flickable = rows->parentItem(),
           .rows = rows,
           .goToEnd =
               [rows] {
                   rows->setProperty("isMoving", false);
                   rows->scrollToEnd(0);
                   rows->ensurePolished();
                   rows->setProperty("isMoving", true);
               }},
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
    QQuickItem *rows = list->property("contentItem").value<QQuickItem *>();
    fling({.window = window,
           .flickable = list,
           .rows = rows,
           .goToEnd = [list] { QMetaObject::invokeMethod(list, "positionViewAtEnd"); }},
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
    std::vector<double> arrivals;
    std::vector<double> motions;
    for (int i = 0; i < 5; ++i) {
        MessageDto message = scene.ticket.messages.constLast();
        message.id += QStringLiteral("-next");
        message.sender = scene.ticket.messages.at(1).sender;
        scene.ticket.messages += message;
        backend.setTicket(scene.ticket);
        const auto userInfo = UserInfo::fromRecord(message, json::dictionary<MessageDto>);
        arrivals.push_back(scene.window.frame([&] {
            platform().notificationCenter->post(notifications::didReceiveMessage, userInfo);
        }));
        for (int frame = 0; frame < 30; ++frame) {
            motions.push_back(scene.window.frame([] {}));
            scene.window.rest(16);
        }
        // Until it has been confirmed.
        scene.window.rest(1500);
        scene.window.await("the message", [&] { return scene.showsItsEnd(); });
    }
    tell(medianOf(arrivals), QStringLiteral("frame with one more message"), messageCount);
    tell(mostOf(motions), QStringLiteral("longest frame as a message comes in"), messageCount);
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
    std::vector<double> frames;
    for (int i = 0; i < 5; ++i) {
        frames.push_back(window.frame([&] {
            const int row = model.rowCount();
            model.insertRow(row);
            model.setData(model.index(row), model.stringList().constFirst());
            QMetaObject::invokeMethod(list, "positionViewAtEnd");
        }));
        window.rest(100);
    }
    tell(medianOf(frames), QStringLiteral("frame with one more row"), messageCount);
}

void quietPoll(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(1000);
    std::vector<double> polls;
    for (int i = 0; i < 20; ++i) {
        QEventLoop loop;
        QObject::connect(scene.data, &TicketScreenData::ticketChanged, &loop, &QEventLoop::quit);
        QElapsedTimer duration;
        duration.start();
        const double before = threadMilliseconds();
        scene.data->appear();
        loop.exec();
        scene.window.rest(50);
        const double after = threadMilliseconds();
        // What the screen does by itself meanwhile, such as having the cursor blink.
        scene.window.rest(int(duration.elapsed()));
        polls.push_back((after - before) - (threadMilliseconds() - after));
    }
    tell(medianOf(polls), QStringLiteral("quiet poll"), messageCount);
}

void sendKey(QWindow &window, int key, const QString &text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &event);
    }
}

void typeAmongLines(CannedBackend &backend, int messageCount)
{
    constexpr int lineCount = 200;
    constexpr int keyCount = 60;
    const QString text =
        QStringLiteral("A line of what is being written, as long as most.\n").repeated(lineCount);
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.window.rest(1000);
    scene.data->composer()->setMessage(text);
    scene.window.rest(500);
    QQuickItem *editor = scene.window.activeFocusItem();
    if (!editor || editor->property("text").toString() != text)
        qFatal("the text is not where one types");
    editor->setProperty("cursorPosition", text.size() / 2);
    std::vector<double> keys;
    for (int key = 0; key < keyCount; ++key) {
        keys.push_back(
            scene.window.frame([&] { sendKey(scene.window, Qt::Key_A, QStringLiteral("a")); }));
    }
    if (scene.data->composer()->message().size() != text.size() + keyCount)
        qFatal("the keys do not arrive");
    tell(medianOf(keys), QStringLiteral("key among 200 lines"), messageCount);
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
    window.await("the picture", [&] { return !picture->image().isNull(); });
    if (picture->image().size() != QSize(4000, 3000))
        qFatal("no picture");
    window.rest(1000);
    std::vector<double> steps;
    const int before = largeAllocations();
    for (int step = 0; step < 60; ++step) {
        steps.push_back(window.frame([&] {
            sendWheel(window, {}, step < 30 ? 24 : -12, Qt::ControlModifier);
            sendWheel(window, {step % 7 - 3, step % 5 - 2}, 8, Qt::NoModifier);
        }));
    }
    if (viewer->property("imageState").value<ZoomController *>()->scale() <= 1)
        qFatal("nothing was zoomed");
    std::printf("%d large allocations of a pinch and pan\n", largeAllocations() - before);
    std::printf("%f median frame of a pinch and pan\n", medianOf(steps));
    std::printf("%f longest frame of a pinch and pan\n", mostOf(steps));
}

bool hasAllPictures(const ConversationScene &scene)
{
    const auto pictures = scene.rows->findChildren<ThumbnailAsyncImage *>();
    return std::ranges::none_of(pictures, [](const ThumbnailAsyncImage *each) {
        return each->isVisible() && each->image().isNull();
    });
}

void readAll(CannedBackend &backend, int messageCount)
{
    ConversationScene scene(backend, messageCount);
    scene.open();
    scene.rows->setProperty("isMoving", true);
    for (;;) {
        scene.window.await("the pictures", [&] { return hasAllPictures(scene); });
        const double start = scene.rows->start();
        const double place = scene.rows->contentY();
        if (place <= start)
            break;
        scene.window.frame([&] { scene.scrollTo(std::max(start, place - 400)); });
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
    Scenario{"zoom", zoom},
    Scenario{"read", readAll},
};

} // namespace

int main(int argc, char **argv)
{
    // All of a frame's work on one thread, to be measured there.
    qputenv("QSG_RENDER_LOOP", "basic");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
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
    Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
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
