// SPDX-License-Identifier: MIT
// tolvane-conversation-host SCENARIO COUNT: runs a scenario of a conversation with this number of
// messages in a window. Prints each measurement as a line "NUMBER NAME".
#include "backend/configuration.h"
#include "backend/wire/json.h"
#include "benchmarks/support/conversation.h"
#include "benchmarks/support/countedmalloc.h"
#include "benchmarks/support/resourceusage.h"
#include "conversationfixture.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "testing/waitfor.h"
#include "ui/images/asyncimage.h"
#include "ui/messages/messagelistmodel.h"
#include "ui/viewer/zoomcontroller.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringListModel>
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
using namespace std::chrono_literals;

void report(double figure, const QString &name, int messageCount)
{
    std::printf("%f %s with %d messages\n", figure, qPrintable(name), messageCount);
}

QStringList textsOf(const TicketDto &ticket)
{
    QStringList texts;
    for (const MessageDto &message : ticket.messages)
        texts += message.content;
    return texts;
}

/// The list of messages, or a list to compare it with.
struct List
{
    HostWindow &window;
    QQuickItem *flickable;
    /// The parent of the rows.
    QQuickItem *rows;
    std::function<void()> goToEnd;
};

/// Flings from the end towards the beginning, at the highest speed at which texts are recognizable.
/// Takes the minimum of several equal passes for each frame, because noise only adds time.
void fling(const List &list, const QString &name, int messageCount)
{
    constexpr double distance = 120;
    constexpr int passes = 3;
    constexpr std::size_t mostFrames = 5'000;
    std::vector<double> frames;
    qsizetype delegates = 0;
    const auto step = [&] {
        list.flickable->setProperty("contentY",
                                    list.flickable->property("contentY").toDouble() - distance);
    };
    // Excludes first-time costs such as the glyph cache.
    for (int warmUp = 0; warmUp < 50; ++warmUp)
        list.window.frame(step);
    for (int pass = 0; pass < passes; ++pass) {
        list.window.frame(list.goToEnd);
        test::wait(500ms);
        for (std::size_t at = 0;
             at < mostFrames && !list.flickable->property("atYBeginning").toBool(); ++at) {
            frames.resize(std::max(frames.size(), at + 1), std::numeric_limits<double>::max());
            frames[at] = std::min(frames[at], list.window.frame(step));
            delegates = std::max(delegates, list.rows->childItems().size());
        }
    }
    report(std::ranges::max(frames), QStringLiteral("longest frame of a fling through ") + name,
           messageCount);
    report(medianOf(frames), QStringLiteral("median frame of a fling through ") + name,
           messageCount);
    report(double(delegates), QStringLiteral("most delegates in ") + name, messageCount);
}

void flingThroughMessages(ConversationBackend &, int messageCount)
{
    constexpr const char *page = R"(
        import Tolvane.Private
        TicketMessageList { ticketState: "open"; isAITyping: false }
    )";
    MessageListModel model;
    model.setMessages(conversation(messageCount).messages);
    HostWindow window;
    QQuickItem *list = window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)}});
    test::wait(1000ms);
    auto *rows = list->findChild<AnchoredList *>();
    fling({.window = window,
           .flickable = rows->parentItem(),
           .rows = rows->content(),
           .goToEnd =
               [rows] {
                   rows->setProperty("isMoving", false);
                   rows->scrollToEnd(0);
                   rows->ensurePolished();
                   rows->setProperty("isMoving", true);
               }},
          QStringLiteral("the conversation"), messageCount);
}

/// The same with a minimal list: rows as high as the messages, with the same texts and nothing
/// else.
void flingThroughPlainList(ConversationBackend &, int messageCount)
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
                    text: "More than a week ago · " + (parent.index % 2 ? "Ines" : "You")
                    textFormat: Text.PlainText
                    font.pixelSize: 12
                }
            }
        }
    )";
    QStringListModel model(textsOf(conversation(messageCount)));
    HostWindow window;
    QQuickItem *list = window.show(page, {{QStringLiteral("model"), QVariant::fromValue(&model)}});
    test::wait(1000ms);
    QQuickItem *rows = list->property("contentItem").value<QQuickItem *>();
    fling({.window = window,
           .flickable = list,
           .rows = rows,
           .goToEnd = [list] { QMetaObject::invokeMethod(list, "positionViewAtEnd"); }},
          QStringLiteral("a plain list"), messageCount);
}

void openConversation(ConversationBackend &backend, int messageCount)
{
    ConversationFixture fixture(backend, messageCount);
    const double memory = privateMebibytes(); // The backend's messages are not the library's.
    report(fixture.open(), QStringLiteral("first frame"), messageCount);
    test::wait(1000ms);
    report(privateMebibytes() - memory, QStringLiteral("memory"), messageCount);
}

void append(ConversationBackend &backend, int messageCount)
{
    ConversationFixture fixture(backend, messageCount);
    fixture.open();
    test::wait(1000ms);
    std::vector<double> arrivals;
    std::vector<double> motions;
    for (int i = 0; i < 5; ++i) {
        MessageDto message = fixture.ticket.messages.constLast();
        message.id += QStringLiteral("-next");
        message.sender = fixture.ticket.messages.at(1).sender;
        fixture.ticket.messages += message;
        backend.setTicket(fixture.ticket);
        const auto userInfo = UserInfo::fromRecord(message, json::dictionary<MessageDto>);
        arrivals.push_back(fixture.window.frame([&] {
            platform().notificationCenter->post(notifications::didReceiveMessage, userInfo);
        }));
        for (int frame = 0; frame < 30; ++frame) {
            motions.push_back(fixture.window.frame([] {}));
            test::wait(16ms);
        }
        test::wait(1500ms); // The silent fetch confirms the message.
        test::waitFor(QStringLiteral("the message"), [&] { return fixture.showsEnd(); });
    }
    report(medianOf(arrivals), QStringLiteral("frame with one more message"), messageCount);
    report(std::ranges::max(motions), QStringLiteral("longest frame as a message comes in"),
           messageCount);
}

void appendToPlainList(ConversationBackend &, int messageCount)
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
    test::wait(1000ms);
    QMetaObject::invokeMethod(list, "positionViewAtEnd");
    test::wait(100ms);
    std::vector<double> frames;
    for (int i = 0; i < 5; ++i) {
        frames.push_back(window.frame([&] {
            const int row = model.rowCount();
            model.insertRow(row);
            model.setData(model.index(row), model.stringList().constFirst());
            QMetaObject::invokeMethod(list, "positionViewAtEnd");
        }));
        test::wait(2000ms); // As long as between two messages: a rest makes a frame longer.
    }
    report(medianOf(frames), QStringLiteral("frame with one more row"), messageCount);
}

void unchangedPoll(ConversationBackend &backend, int messageCount)
{
    ConversationFixture fixture(backend, messageCount);
    fixture.open();
    test::wait(1000ms);
    std::vector<double> polls;
    for (int i = 0; i < 20; ++i) {
        QEventLoop loop;
        QObject::connect(fixture.data, &TicketScreenData::ticketChanged, &loop, &QEventLoop::quit);
        QElapsedTimer duration;
        duration.start();
        const double before = threadMilliseconds();
        fixture.data->appear();
        loop.exec();
        test::wait(50ms);
        const double after = threadMilliseconds();
        // Subtracts the screen's other work in the same time, such as the blinking cursor.
        test::wait(std::chrono::milliseconds(duration.elapsed()));
        polls.push_back((after - before) - (threadMilliseconds() - after));
    }
    report(medianOf(polls), QStringLiteral("unchanged poll"), messageCount);
}

void sendKey(QWindow &window, int key, const QString &text)
{
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window, &event);
    }
}

void typeInLongText(ConversationBackend &backend, int messageCount)
{
    constexpr int lineCount = 200;
    constexpr int keyCount = 60;
    const QString text =
        QStringLiteral("A line of a draft of the customer, as long as most.\n").repeated(lineCount);
    ConversationFixture fixture(backend, messageCount);
    fixture.open();
    test::wait(1000ms);
    fixture.data->composer()->setMessage(text);
    test::wait(500ms);
    QQuickItem *editor = fixture.window.activeFocusItem();
    if (!editor || editor->property("text").toString() != text)
        qFatal("The draft is not in the item with the focus");
    editor->setProperty("cursorPosition", text.size() / 2);
    std::vector<double> keys;
    for (int key = 0; key < keyCount; ++key) {
        keys.push_back(
            fixture.window.frame([&] { sendKey(fixture.window, Qt::Key_A, QStringLiteral("a")); }));
    }
    if (fixture.data->composer()->message().size() != text.size() + keyCount)
        qFatal("The keys do not arrive");
    report(medianOf(keys), QStringLiteral("key in 200 lines"), messageCount);
}

void sendWheel(QWindow &window, const QPoint &pixels, int angle, Qt::KeyboardModifiers modifiers)
{
    const QPointF middle(window.width() / 2.0, window.height() / 2.0);
    QWheelEvent event(middle, window.mapToGlobal(middle), pixels, {0, angle}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
}

void zoom(ConversationBackend &, int)
{
    HostWindow window;
    QQuickItem *viewer =
        window.show("import Tolvane.Private\nImageViewer { focus: true }",
                    {{QStringLiteral("imageUrl"), ConversationBackend::largePhoto}});
    auto *picture = viewer->findChild<CachedAsyncImage *>();
    test::waitFor(QStringLiteral("the picture"), [&] { return !picture->image().isNull(); });
    if (picture->image().size() != QSize(4000, 3000))
        qFatal("The picture has another size");
    test::wait(1000ms);
    std::vector<double> steps;
    const int before = largeAllocations();
    for (int step = 0; step < 60; ++step) {
        steps.push_back(window.frame([&] {
            sendWheel(window, {}, step < 30 ? 24 : -12, Qt::ControlModifier);
            sendWheel(window, {step % 7 - 3, step % 5 - 2}, 8, Qt::NoModifier);
        }));
    }
    if (viewer->property("imageState").value<ZoomController *>()->scale() <= 1)
        qFatal("The picture was not zoomed");
    std::printf("%d large allocations of a pinch and pan\n", largeAllocations() - before);
    std::printf("%f median frame of a pinch and pan\n", medianOf(steps));
    std::printf("%f longest frame of a pinch and pan\n", std::ranges::max(steps));
}

bool hasAllPictures(const ConversationFixture &fixture)
{
    const auto pictures = fixture.rows->findChildren<ThumbnailAsyncImage *>();
    return std::ranges::none_of(pictures, [](const ThumbnailAsyncImage *each) {
        return each->isVisible() && each->image().isNull();
    });
}

void readAll(ConversationBackend &backend, int messageCount)
{
    ConversationFixture fixture(backend, messageCount);
    fixture.open();
    fixture.rows->setProperty("isMoving", true);
    for (;;) {
        test::waitFor(QStringLiteral("the pictures"), [&] { return hasAllPictures(fixture); });
        const double start = fixture.rows->start();
        const double position = fixture.rows->contentY();
        if (position <= start)
            break;
        fixture.window.frame([&] { fixture.scrollTo(std::max(start, position - 400)); });
    }
    report(peakMebibytes(), QStringLiteral("peak memory"), messageCount);
}

struct Scenario
{
    const char *name;
    void (*run)(ConversationBackend &backend, int messageCount);
};

constexpr std::array scenarios = {
    Scenario{"open", openConversation},
    Scenario{"append", append},
    Scenario{"append-plain", appendToPlainList},
    Scenario{"poll", unchangedPoll},
    Scenario{"fling", flingThroughMessages},
    Scenario{"fling-plain", flingThroughPlainList},
    Scenario{"type", typeInLongText},
    Scenario{"zoom", zoom},
    Scenario{"read", readAll},
};

} // namespace

int main(int argc, char **argv)
{
    // Does all work for a frame on the main thread, where it is measured.
    qputenv("QSG_RENDER_LOOP", "basic");
    qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
    const QGuiApplication app(argc, argv);
    ConversationBackend backend;
    const HostPlatform installed(std::make_unique<WorkerSession>(
        [&backend](const UrlRequest &request) { return backend.bodyFor(request); }));
    Configuration::shared().setApiKeyOnce(QStringLiteral("key"));
    qml_register_types_Tolvane_Private();

    const auto *scenario = std::ranges::find_if(scenarios, [&](const Scenario &each) {
        return argc == 3 && qstrcmp(each.name, argv[1]) == 0;
    });
    if (scenario == scenarios.end())
        qFatal("usage: tolvane-conversation-host SCENARIO COUNT");
    QTimer::singleShot(0, [&] {
        scenario->run(backend, QByteArray(argv[2]).toInt());
        QGuiApplication::quit();
    });
    return QGuiApplication::exec();
}
