// SPDX-License-Identifier: MIT
#include "round.h"

#include "state/sdkdata.h"
#include "victim.h"

#include <tolvane/tolvane.h>

#include <QtCore/QDir>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <array>

namespace tolvane::soak {

using namespace Qt::StringLiterals;

namespace {

using Chat = TolvaneAnalyticsEvent::Chat;
using Errors = TolvaneAnalyticsEvent::Errors;

constexpr int timeout = 20'000;
const QString replyDelay = u"0.1"_s;

void waitFor(const std::function<bool()> &holds, const char *what)
{
    if (!QTest::qWaitFor(holds, timeout))
        throw NotFound(what);
}

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

int Tally::failures() const
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
    Tolvane::setAnalyticsDelegate(m_tally);
    Tolvane::initialize(u"soak-key"_s);
    waitFor(
        [this] { return m_tally->count(TolvaneAnalyticsEvent::Lifecycle::fetchedSettings) > 0; },
        "the settings do not come");
    m_customer = customerOnDisk();
}

void Rounds::run()
{
    constexpr std::array steps = {Step{"the window", &Rounds::showWindow},
                                  Step{"talk", &Rounds::talk},
                                  Step{"a push", &Rounds::answerPush},
                                  Step{"a storm", &Rounds::weatherStorm},
                                  Step{"no network", &Rounds::loseTheNetwork},
                                  Step{"no backend", &Rounds::loseTheBackend},
                                  Step{"a process killed", &Rounds::killAnother},
                                  Step{"the end", &Rounds::closeTheWindow},
                                  Step{"rest", &Rounds::rest}};
    ++m_round;
    for (const Step &step : steps)
        take(step);
}

void Rounds::take(const Step &step)
{
    try {
        (this->*step.run)();
    } catch (const NotFound &error) {
        const QString picture = u"out/soak-ended-here.png"_s;
        const bool isSeen =
            QDir().mkpath(u"out"_s) && m_window && m_window->grabWindow().save(picture);
        throw NotFound(std::string(step.name) + ": " + error.what() +
                       (isSeen ? "; see " + picture.toStdString() : ""));
    }
}

void Rounds::killAnother()
{
    killAVictim();
    if (m_customer.isEmpty() || customerOnDisk() != m_customer)
        throw NotFound("the customer is another one");
}

void Rounds::showWindow()
{
    m_window = std::make_unique<QQuickView>();
    m_window->resize(412, 860);
    m_window->show();
    m_window->requestActivate();
    waitFor([this] { return m_window->isActive(); }, "the window is not active");
    m_visitor.emplace(*m_window);
}

void Rounds::open()
{
    Tolvane::open();
    m_visitor->find(QAccessible::Button, u"Send us a message"_s);
}

void Rounds::back()
{
    m_visitor->rest();
    m_visitor->press(Qt::Key_Escape);
    m_visitor->rest();
}

void Rounds::close()
{
    back();
    waitFor([] { return !SdkData::shared()->isOpen(); }, "the messenger does not close");
}

QString Rounds::newText()
{
    return u"Note %1 of this customer"_s.arg(++m_texts);
}

void Rounds::write(const QString &text)
{
    m_visitor->find(QAccessible::EditableText);
    m_visitor->type(text);
    m_visitor->press(Qt::Key_Return, Qt::ControlModifier);
}

void Rounds::enterConversation()
{
    m_visitor->click(m_visitor->find(QAccessible::ListItem));
    m_visitor->find(QAccessible::EditableText);
    m_visitor->rest();
}

/// A new conversation, an answer, and a picture.
void Rounds::talk()
{
    open();
    m_visitor->click(m_visitor->find(QAccessible::Button, u"Send us a message"_s));
    const int received = m_tally->count(Chat::messageReceived);
    const QString text = newText();
    write(text);
    m_visitor->find(QAccessible::ListItem, text);
    waitFor([&] { return m_tally->count(Chat::messageReceived) > received; }, "no answer comes");
    QImage picture(16, 12, QImage::Format_RGB32);
    picture.fill(QColor::fromHsv(m_round * 37 % 360, 200, 200));
    QGuiApplication::clipboard()->setImage(picture);
    m_visitor->press(Qt::Key_V, Qt::ControlModifier);
    m_visitor->rest();
    write(newText());
    m_visitor->click(m_visitor->find(QAccessible::Button, u"Picture "_s));
    m_visitor->find(QAccessible::Graphic, u"Picture"_s);
    back(); // From the picture, and from the conversation.
    back();
    close();
}

void Rounds::answerPush()
{
    Tolvane::handlePushNotification(pushOf(m_round));
    m_visitor->find(QAccessible::Button, u"Send us a message"_s);
    close();
}

/// Three requests of ten go wrong, each in another way. What is seen then may be anything.
void Rounds::weatherStorm()
{
    m_proxy.chooseFault = [this](const test::ServedRequest &) -> const test::Fault & {
        if (m_random() % 10 >= 3)
            return test::faults::none;
        return *test::faults::all.at(m_random() % test::faults::all.size());
    };
    Tolvane::open();
    m_visitor->rest();
    for (int i = 0; i < 4; ++i) {
        m_visitor->press(Qt::Key_F5);
        QTest::qWait(150);
    }
    m_visitor->click(m_visitor->find(QAccessible::Button, u"Send us a message"_s));
    for (int i = 0; i < 4; ++i) {
        write(newText());
        m_visitor->rest();
    }
    m_proxy.chooseFault = {};
    back();
    close();
}

/// Sends in vain, and once more: what was written is still there.
void Rounds::sendAgainAfter(const std::function<void()> &lose, const std::function<void()> &regain)
{
    open();
    enterConversation();
    lose();
    const int failures = m_tally->failures();
    const QString text = newText();
    write(text);
    waitFor([&] { return m_tally->failures() > failures; }, "no failure is told");
    regain();
    m_visitor->rest();
    m_visitor->press(Qt::Key_Return, Qt::ControlModifier);
    m_visitor->find(QAccessible::ListItem, text);
    back();
    close();
}

void Rounds::loseTheNetwork()
{
    sendAgainAfter([this] { m_proxy.setOffline(true); }, [this] { m_proxy.setOffline(false); });
}

void Rounds::loseTheBackend()
{
    sendAgainAfter([this] { m_backend->kill(); },
                   [this] {
                       m_backend.emplace(m_folder, replyDelay);
                       m_proxy.setBackend(m_backend->port());
                   });
}

void Rounds::closeTheWindow()
{
    open();
    m_visitor.reset();
    m_window.reset();
}

/// Without a network polling comes to its end, and connections too.
void Rounds::rest()
{
    m_proxy.setOffline(true);
    QTest::qWait(2500);
    m_proxy.setOffline(false);
    m_proxy.clearRequests();
    QGuiApplication::clipboard()->clear();
}

} // namespace tolvane::soak
