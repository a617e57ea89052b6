// SPDX-License-Identifier: MIT
// tolvane-peer-NAME --versions | URL KEY CUSTOMER TICKET PAGE: a host with a window, which shows a
// conversation in one of the ways that are compared. Prints "running" when its window is painted,
// and then carries out commands, one in each line of its input.
#include "conversationview.h"
#include "testing/ui/createitem.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QWheelEvent>

#include <atomic>
#include <cstdio>
#include <unistd.h>

namespace {

using namespace tolvane::peers;

constexpr const char *hostPage = R"(
    import QtQuick
    Rectangle {
        color: "whitesmoke"
        Column {
            Repeater {
                model: 20
                Text { required property int index; height: 40; text: "Row " + index }
            }
        }
    }
)";

class Host
{
public:
    explicit Host(const Conversation &conversation)
        : m_conversation(conversation)
    {
        m_window.setResizeMode(QQuickView::SizeRootObjectToView);
        m_window.setGeometry(0, 0, 480, 800);
        m_window.setContent({}, nullptr,
                            tolvane::test::createItem(*m_window.engine(), hostPage).release());
        QObject::connect(
            &m_window, &QQuickWindow::frameSwapped, &m_window, [this] { ++m_frames; },
            Qt::DirectConnection);
        QObject::connect(
            &m_window, &QQuickWindow::frameSwapped, &m_window, [] { say("running"); },
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
        m_window.show();
        m_window.requestActivate();
        m_view = makeView(m_conversation);
    }

    void execute(const QByteArray &command)
    {
        if (command == "open")
            m_view->open(m_window);
        else if (command == "close")
            m_view->close();
        else if (command.startsWith("message "))
            m_view->receive(command.sliced(qstrlen("message ")));
        else if (command.startsWith("fling "))
            fling(command.sliced(qstrlen("fling ")).toInt());
        else
            qFatal("Unknown command: %s", command.constData());
    }

private:
    static void say(const QByteArray &line)
    {
        std::printf("%s\n", line.constData());
        std::fflush(stdout);
    }

    /// Scrolls to earlier messages like a touch pad, at 60 Hz, and prints the number of frames that
    /// were painted.
    void fling(int steps)
    {
        auto *timer = new QTimer(&m_window);
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer, &QTimer::timeout, &m_window,
                         [this, timer, steps, step = 0, before = m_frames.load()]() mutable {
                             if (step == steps) {
                                 say(QByteArray::number(m_frames - before));
                                 timer->deleteLater();
                                 return;
                             }
                             sendWheel(step == 0           ? Qt::ScrollBegin
                                       : step == steps - 1 ? Qt::ScrollEnd
                                                           : Qt::ScrollUpdate);
                             ++step;
                         });
        timer->start(16);
    }

    void sendWheel(Qt::ScrollPhase phase)
    {
        const QPointF position(m_window.width() / 2.0, m_window.height() / 2.0);
        const QPoint distance = phase == Qt::ScrollUpdate ? QPoint(0, 120) : QPoint();
        QWheelEvent event(position, m_window.mapToGlobal(position), distance, distance,
                          Qt::NoButton, Qt::NoModifier, phase, false,
                          Qt::MouseEventSynthesizedBySystem);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    Conversation m_conversation;
    std::atomic<int> m_frames = 0;
    QQuickView m_window;
    std::unique_ptr<ConversationView> m_view;
};

} // namespace

int main(int argc, char **argv)
{
    prepareProcess();
    const QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("tolvane-peer"));
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.value(1) == QLatin1String("--versions")) {
        std::puts(versions().constData());
        return EXIT_SUCCESS;
    }
    if (arguments.size() != 6)
        qFatal("usage: %s URL KEY CUSTOMER TICKET PAGE", argv[0]);
    Host host({.url = arguments.at(1),
               .key = arguments.at(2),
               .customer = arguments.at(3),
               .ticket = arguments.at(4),
               .page = arguments.at(5)});

    QByteArray input;
    const QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &app, [&] {
        char bytes[4096];
        const ssize_t size = read(STDIN_FILENO, bytes, sizeof bytes);
        if (size <= 0)
            return QGuiApplication::quit();
        input.append(bytes, size);
        for (qsizetype end = input.indexOf('\n'); end >= 0; end = input.indexOf('\n')) {
            const QByteArray command = input.first(end);
            input.remove(0, end + 1);
            host.execute(command);
        }
    });
    return QGuiApplication::exec();
}
