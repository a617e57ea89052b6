// SPDX-License-Identifier: MIT
#include "soak.h"
#include "state/sdkdata.h"
#include "testing/ui/samples.h"
#include "testing/waitfor.h"

#include <tolvane/tolvane.h>

#include <QtCore/QDir>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <array>

namespace tolvane::soak {

using test::waitFor;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Chat = TolvaneAnalyticsEvent::Chat;
using Errors = TolvaneAnalyticsEvent::Errors;

const QString replyDelay = u"0.1"_s;

QVariantMap pushOf(int number)
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

} // namespace

int EventCounter::failures() const
{
    return count(Errors::apiError) + count(Errors::networkError);
}

Rounds::Rounds(const QString &folder)
    : m_folder(folder)
    , m_backend(std::in_place, folder, replyDelay)
    , m_proxy(m_backend->port())
{
}

void Rounds::begin()
{
    Tolvane::setAnalyticsDelegate(m_events);
    Tolvane::initialize(u"soak-key"_s);
    waitFor(u"the settings"_s, [this] {
        return m_events->count(TolvaneAnalyticsEvent::Lifecycle::fetchedSettings) > 0;
    });
}

void Rounds::run()
{
    constexpr std::array steps = {Step{"the window", &Rounds::showWindow},
                                  Step{"a conversation", &Rounds::converse},
                                  Step{"a push", &Rounds::openPush},
                                  Step{"faults", &Rounds::injectFaults},
                                  Step{"no network", &Rounds::loseNetwork},
                                  Step{"no backend", &Rounds::loseBackend},
                                  Step{"closing the window", &Rounds::closeWindow},
                                  Step{"idle", &Rounds::becomeIdle}};
    ++m_round;
    for (const Step &step : steps)
        runStep(step);
}

void Rounds::runStep(const Step &step)
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

void Rounds::showWindow()
{
    m_window = std::make_unique<QQuickView>();
    m_window->resize(412, 860);
    m_window->show();
    m_window->requestActivate();
    waitFor(u"the active window"_s, [this] { return m_window->isActive(); });
    m_robot.emplace(*m_window);
}

void Rounds::open()
{
    Tolvane::open();
    m_robot->find(QAccessible::Button, u"Send us a message"_s);
}

void Rounds::back()
{
    m_robot->waitForAnimations();
    m_robot->press(Qt::Key_Escape);
    m_robot->waitForAnimations();
}

void Rounds::close()
{
    back();
    waitFor(u"the messenger to close"_s, [] { return !SdkData::shared()->isOpen(); });
}

QString Rounds::nextText()
{
    return u"Note %1 of this customer"_s.arg(++m_textCount);
}

void Rounds::write(const QString &text)
{
    m_robot->find(QAccessible::EditableText);
    m_robot->type(text);
    m_robot->press(Qt::Key_Return, Qt::ControlModifier);
}

void Rounds::openConversation()
{
    m_robot->click(m_robot->find(QAccessible::ListItem));
    m_robot->find(QAccessible::EditableText);
    m_robot->waitForAnimations();
}

void Rounds::converse()
{
    open();
    m_robot->click(m_robot->find(QAccessible::Button, u"Send us a message"_s));
    const int received = m_events->count(Chat::messageReceived);
    const QString text = nextText();
    write(text);
    m_robot->find(QAccessible::ListItem, text);
    waitFor(u"an answer"_s, [&] { return m_events->count(Chat::messageReceived) > received; });
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

void Rounds::openPush()
{
    Tolvane::handlePushNotification(pushOf(m_round));
    m_robot->find(QAccessible::Button, u"Send us a message"_s);
    close();
}

// Three of ten requests fail, each in another way. The messenger may show any of its states.
void Rounds::injectFaults()
{
    m_proxy.chooseFault = [this](const test::ServedRequest &) -> const test::Fault & {
        if (m_random() % 10 >= 3)
            return test::faults::none;
        return *test::faults::all.at(m_random() % test::faults::all.size());
    };
    Tolvane::open();
    m_robot->waitForAnimations();
    for (int i = 0; i < 4; ++i) {
        m_robot->press(Qt::Key_F5);
        test::wait(150ms);
    }
    m_robot->click(m_robot->find(QAccessible::Button, u"Send us a message"_s));
    for (int i = 0; i < 4; ++i) {
        write(nextText());
        m_robot->waitForAnimations();
    }
    m_proxy.chooseFault = {};
    back();
    close();
}

// The first attempt to send fails. The draft must survive for the second one.
void Rounds::sendAgainAfter(const std::function<void()> &lose, const std::function<void()> &restore)
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

void Rounds::loseNetwork()
{
    sendAgainAfter([this] { m_proxy.setOffline(true); }, [this] { m_proxy.setOffline(false); });
}

void Rounds::loseBackend()
{
    sendAgainAfter([this] { m_backend->kill(); },
                   [this] {
                       m_backend.emplace(m_folder, replyDelay);
                       m_proxy.setBackend(m_backend->port());
                   });
}

void Rounds::closeWindow()
{
    open();
    m_robot.reset();
    m_window.reset();
}

// Without a network, polling and connections end.
void Rounds::becomeIdle()
{
    m_proxy.setOffline(true);
    test::wait(2500ms);
    m_proxy.setOffline(false);
    m_proxy.clearRequests();
    QGuiApplication::clipboard()->clear();
}

} // namespace tolvane::soak
