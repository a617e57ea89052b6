// SPDX-License-Identifier: MIT
#pragma once

#include "state/sdkdata.h"
#include "state/ticketdata.h"
#include "state/ticketsdata.h"
#include "testing/backendprogram.h"
#include "testing/faultproxy.h"
#include "testing/ui/samples.h"
#include "testing/ui/uirobot.h"
#include "testing/waitfor.h"

#include <tolvane/tolvane.h>

#include <QCoroTask>
#include <QtCore/QDir>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickView>

#include <random>

namespace tolvane::soak {

using test::waitFor;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Chat = TolvaneAnalyticsEvent::Chat;
using Errors = TolvaneAnalyticsEvent::Errors;

inline const QString replyDelay = u"0.1"_s;

inline QVariantMap pushOf(int number)
{
    const QVariantMap sender = {{u"id"_s, u"agent"_s}, {u"type"_s, u"human agent"_s}};
    return {{u"source"_s, u"tolvane"_s},
            {u"message"_s, QVariantMap{{u"id"_s, u"push-%1"_s.arg(number)},
                                       {u"ticketId"_s, u"elsewhere"_s},
                                       {u"sender"_s, sender},
                                       {u"content"_s, u"pushed"_s},
                                       {u"isRead"_s, false},
                                       {u"timestamp"_s, u"2026-03-14T12:00:00+0000"_s}}}};
}

/// Counts the analytics events.
class EventCounter final : public TolvaneAnalyticsDelegate
{
public:
    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { ++m_counts[event.name()]; }

    int count(const QString &name) const { return m_counts.value(name); }
    int failures() const { return count(Errors::apiError) + count(Errors::networkError); }

private:
    QHash<QString, int> m_counts;
};

/// Repeats everything that a customer does with a host, and that can happen to a host. Throws
/// std::runtime_error if a step does not have its result.
class Rounds
{
public:
    /// @param folder where the backend keeps its data
    explicit Rounds(const QString &folder)
        : m_folder(folder)
        , m_backend(std::in_place, folder, replyDelay)
        , m_proxy(m_backend->port())
    {
    }

    QString url() const { return m_proxy.url(u"/api"_s); }
    const EventCounter &events() const { return *m_events; }
    void begin()
    {
        Tolvane::setAnalyticsDelegate(m_events);
        Tolvane::initialize(u"soak-key"_s);
        waitFor(u"the settings"_s, [this] {
            return m_events->count(TolvaneAnalyticsEvent::Lifecycle::fetchedSettings) > 0;
        });
    }

    /// Runs one round, from a new window to its closing. The library is idle afterwards.
    void run()
    {
        constexpr std::array steps = {Step{"the window", &Rounds::showWindow},
                                      Step{"a conversation", &Rounds::converse},
                                      Step{"a push", &Rounds::openPush},
                                      Step{"faults", &Rounds::injectFaults},
                                      Step{"no network", &Rounds::loseNetwork},
                                      Step{"no backend", &Rounds::loseBackend},
                                      Step{"the backend's messages", &Rounds::checkMessages},
                                      Step{"closing the window", &Rounds::closeWindow},
                                      Step{"idle", &Rounds::becomeIdle}};
        ++m_round;
        for (const Step &step : steps)
            runStep(step);
    }

private:
    struct Step
    {
        const char *name;
        void (Rounds::*run)();
    };

    void runStep(const Step &step)
    {
        try {
            (this->*step.run)();
        } catch (const std::runtime_error &error) {
            const QString picture = u"out/soak-failure.png"_s;
            const bool isSaved =
                QDir().mkpath(u"out"_s) && m_window && m_window->grabWindow().save(picture);
            throw std::runtime_error(std::string(step.name) + ": " + error.what() +
                                     (isSaved ? "; see " + picture.toStdString() : ""));
        }
    }

    void showWindow()
    {
        m_window = std::make_unique<QQuickView>();
        m_window->resize(412, 860);
        m_window->show();
        m_window->requestActivate();
        waitFor(u"the active window"_s, [this] { return m_window->isActive(); });
        m_robot.emplace(*m_window);
    }

    void open()
    {
        Tolvane::open();
        m_robot->find(QAccessible::Button, u"Send us a message"_s);
    }

    void back()
    {
        m_robot->waitForAnimations();
        m_robot->press(Qt::Key_Escape);
        m_robot->waitForAnimations();
    }

    void close()
    {
        back();
        waitFor(u"the messenger to close"_s, [] { return !SdkData::shared()->isOpen(); });
    }

    static QString text(int number) { return u"Note %1 of this customer"_s.arg(number); }
    QString nextText() { return text(++m_textCount); }

    void write(const QString &text)
    {
        m_robot->find(QAccessible::EditableText);
        m_robot->type(text);
        m_robot->press(Qt::Key_Return, Qt::ControlModifier);
    }

    void openConversation()
    {
        m_robot->click(m_robot->find(QAccessible::ListItem));
        m_robot->find(QAccessible::EditableText);
        m_robot->waitForAnimations();
    }

    void converse()
    {
        open();
        m_robot->click(m_robot->find(QAccessible::Button, u"Send us a message"_s));
        const int received = m_events->count(Chat::messageReceived);
        const QString text = nextText();
        write(text);
        m_robot->find(QAccessible::ListItem, text);
        waitFor(u"a reply"_s, [&] { return m_events->count(Chat::messageReceived) > received; });
        const QColor color = QColor::fromHsv(m_round * 37 % 360, 200, 200);
        QGuiApplication::clipboard()->setImage(test::solidImage({16, 12}, color));
        m_robot->press(Qt::Key_V, Qt::ControlModifier);
        m_robot->waitForAnimations();
        write(nextText());
        m_robot->click(m_robot->find(QAccessible::Button, u"Picture "_s));
        m_robot->find(QAccessible::Graphic, u"Picture"_s);
        back(); // Leaves the picture.
        back(); // Leaves the conversation.
        close();
    }

    void openPush()
    {
        Tolvane::handlePushNotification(pushOf(m_round));
        m_robot->find(QAccessible::EditableText); // The conversation of the push.
        back();
        close();
    }

    // Three of ten requests fail, each in another way. The messenger may show any of its states.
    void injectFaults()
    {
        const auto faults = [this](const test::ServedRequest &request) -> const test::Fault & {
            if (m_random() % 10 >= 3)
                return test::faults::none;
            const auto *fault = test::faults::all.at(m_random() % test::faults::all.size());
            // Says that the backend does not have the message, although it has.
            const bool isLie = fault == &test::faults::badGateway && request.method == "POST";
            return isLie ? test::faults::unavailable : *fault;
        };
        m_proxy.chooseFault = faults;
        Tolvane::open();
        m_robot->waitForAnimations();
        for (int i = 0; i < 4; ++i) {
            m_robot->press(Qt::Key_F5);
            test::wait(150ms);
        }
        // Without the list, a new conversation whose response is lost is not found.
        m_proxy.chooseFault = {};
        close();
        open();
        m_robot->find(QAccessible::ListItem);
        m_proxy.chooseFault = faults;
        m_robot->click(m_robot->find(QAccessible::Button, u"Send us a message"_s));
        for (int i = 0; i < 4; ++i) {
            const QString text = nextText();
            write(text);
            const auto isSent = [&] {
                return m_robot->canSee(QAccessible::ListItem, text) &&
                       !m_robot->canSee(QAccessible::Indicator, u"Sending"_s) &&
                       !m_robot->canSee(QAccessible::AlertMessage, u"not sent"_s);
            };
            for (int attempt = 0; !isSent(); ++attempt) {
                if (attempt == 40)
                    throw std::runtime_error("a message is not sent: " + text.toStdString());
                m_robot->press(Qt::Key_Return, Qt::ControlModifier);
                m_robot->waitForAnimations();
            }
        }
        m_proxy.chooseFault = {};
        back();
        close();
    }

    // The first attempt to send fails. The draft must survive for the second one.
    void sendAgainAfter(const std::function<void()> &lose, const std::function<void()> &restore)
    {
        open();
        openConversation();
        lose();
        const int failures = m_events->failures();
        const QString text = nextText();
        write(text);
        waitFor(u"a reported failure"_s, [&] { return m_events->failures() > failures; });
        restore();
        m_robot->waitForAnimations();
        m_robot->press(Qt::Key_Return, Qt::ControlModifier);
        m_robot->find(QAccessible::ListItem, text);
        back();
        close();
    }

    void loseNetwork()
    {
        sendAgainAfter([this] { m_proxy.setOffline(true); }, [this] { m_proxy.setOffline(false); });
    }

    void loseBackend()
    {
        sendAgainAfter([this] { m_backend->kill(); },
                       [this] {
                           m_backend.emplace(m_folder, replyDelay);
                           m_proxy.setBackend(m_backend->port());
                       });
    }

    /// The backend has each message, and has it once.
    void checkMessages()
    {
        QHash<QString, int> counts;
        const auto list = std::make_shared<TicketsData>();
        QCoro::waitFor(list->load());
        const TicketsData::Tickets previews = list->state().value().value();
        for (const TicketPreviewDto &preview : previews) {
            const auto ticket = std::make_shared<TicketData>(preview);
            QCoro::waitFor(ticket->fetchTicket());
            for (const MessageDto &message : ticket->ticket().value().messages)
                ++counts[message.content];
        }
        for (int number = 1; number <= m_textCount; ++number) {
            if (const int count = counts.value(text(number)); count != 1)
                throw std::runtime_error(text(number).toStdString() + " is there " +
                                         std::to_string(count) + " times");
        }
    }

    void closeWindow()
    {
        open();
        m_robot.reset();
        m_window.reset();
    }

    // Without a network, polling and connections end.
    void becomeIdle()
    {
        m_proxy.setOffline(true);
        test::wait(2500ms);
        m_proxy.setOffline(false);
        m_proxy.clearRequests();
        QGuiApplication::clipboard()->clear();
    }

    const QString m_folder;
    std::optional<test::BackendProgram> m_backend;
    test::FaultProxy m_proxy;
    std::shared_ptr<EventCounter> m_events = std::make_shared<EventCounter>();
    std::unique_ptr<QQuickView> m_window;
    std::optional<test::UiRobot> m_robot;
    std::mt19937 m_random;
    int m_round = 0;
    int m_textCount = 0;
};

} // namespace tolvane::soak
