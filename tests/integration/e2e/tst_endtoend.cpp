// SPDX-License-Identifier: MIT
// A conversation from both sides: a customer in a host's window, an agent in the agents' page, and
// the local backend between them.
#include "browser.h"
#include "customer.h"
#include "testing/backendprogram.h"
#include "testing/ui/samples.h"
#include "testing/waitfor.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
    return path;
}

/// Support is available at any time.
const QByteArray alwaysOpen = R"([{"id": "always",
    "startTime": "2026-01-05T00:00:00Z", "endTime": "2026-01-05T23:59:00Z",
    "days": ["Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"]}])";

QString withoutMarks(QString text)
{
    static const QRegularExpression marks(u"[*`~]"_s);
    return text.remove(marks);
}

} // namespace

class EndToEndTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aConversationFromBothSides()
    {
        QTest::failOnWarning(QRegularExpression(u"\\.qml:"_s));
        try {
            begin();
            theCustomerOpensTwoTickets();
            theAIRepliesToBoth();
            aPictureReachesTheAgent();
            aPersonReplies();
            picturesReachTheCustomer();
            aClosedTicketIsReopened();
            theCustomerLeaves();
        } catch (const std::exception &error) {
            QFAIL(error.what());
        }
    }

    void cleanup()
    {
        m_customer.reset();
        m_browser.reset();
        m_backend.reset();
    }

private:
    void begin()
    {
        const QString schedules = writeFile(m_folder.filePath(u"schedules.json"_s), alwaysOpen);
        m_backend = std::make_unique<BackendProgram>(m_folder.path(), u"0.2"_s,
                                                     QStringList{u"--schedules"_s, schedules});
        qputenv("TOLVANE_API_URL", m_backend->url().toUtf8());
        QDir(m_folder.path()).mkdir(u"browser"_s);
        m_browser = std::make_unique<Browser>(m_folder.filePath(u"browser"_s));
        m_browser->open(QUrl(m_backend->url()).resolved(QUrl(u"/agent"_s)));
        m_browser->await(u"document.querySelector('#connection[data-state=live]') !== null"_s);
        m_browser->click(u"#automatic"_s);
        awaitAutomatic(false);
        m_customer = std::make_unique<Customer>();
    }

    void awaitAutomatic(bool isOn)
    {
        m_browser->await(
            u"fetch('/agent/api/settings').then((response) => response.json())"
            ".then((settings) => settings.automatic === %1)"_s.arg(isOn ? u"true"_s : u"false"_s));
    }

    void awaitStatus(const QString &text)
    {
        m_browser->await(
            u"document.querySelector('#ticket-status').textContent.includes('%1')"_s.arg(text));
    }

    /// Turns automatic replies off in the agent's ticket.
    void replyByHand()
    {
        m_browser->click(u"#ticket-automatic"_s);
        awaitStatus(u"replies by hand"_s);
    }

    /// Waits until the conversation consists of the texts that were sent so far.
    void checkConversation()
    {
        QStringList shown;
        const auto isComplete = [&] {
            shown = m_customer->conversation();
            return std::equal(
                shown.cbegin(), shown.cend(), m_sent.cbegin(), m_sent.cend(),
                [](const QString &row, const QString &text) { return row.contains(text); });
        };
        try {
            waitFor(u"the conversation"_s, isComplete);
        } catch (const std::exception &) {
            throw std::runtime_error("shown: " + shown.join(u" | "_s).toStdString() +
                                     "; sent: " + m_sent.join(u" | "_s).toStdString());
        }
    }

    void customerSays(const QString &text)
    {
        m_customer->says(text);
        m_sent += text;
        checkConversation();
        m_customer->sees(QAccessible::ListItem, text);
    }

    /// Also waits until the page shows the message as read: one second after a push the library
    /// fetches the ticket silently, and the backend marks fetched messages as read.
    void agentSays(const QString &text, int pictures = 0)
    {
        if (!text.isEmpty()) {
            m_browser->click(u"#message"_s);
            m_browser->type(text);
        }
        m_browser->click(u"#send"_s);
        m_browser->await(
            u"document.querySelectorAll('#messages li').length === %1"_s.arg(m_sent.size() + 1));
        m_sent += text;
        checkConversation();
        if (pictures > 0)
            m_customer->sees(QAccessible::Button, u"Picture %1 of %1"_s.arg(pictures));
        else
            m_customer->sees(QAccessible::ListItem, text);
        m_browser->await(
            u"document.querySelector('#messages li:last-child .read').textContent.includes('Read')"_s);
        checkConversation();
    }

    /// The id of the ticket whose row on the page shows that text.
    QString ticketWith(const QString &text)
    {
        return m_browser
            ->await(u"[...document.querySelectorAll('#tickets [data-ticket-id]')]"
                    ".find((row) => row.textContent.includes('%1'))?.dataset.ticketId"_s.arg(text))
            .toString();
    }

    void theCustomerOpensTwoTickets()
    {
        for (const QString &text : {u"Where is my parcel?"_s, u"My lamp is broken"_s}) {
            m_customer->clicks(QAccessible::Button, u"Send us a message"_s);
            m_customer->sees(QAccessible::Heading, u"New conversation"_s);
            m_sent.clear();
            customerSays(text);
            m_customer->sees(QAccessible::ListItem, u"AI agent is typing"_s);
            m_ticket = ticketWith(text);
            if (text.startsWith(u"Where"_s)) {
                m_customer->goesBack();
                m_customer->sees(QAccessible::ListItem, text);
            }
        }
        m_browser->click(u"[data-ticket-id=\"%1\"]"_s.arg(m_ticket));
        m_browser->await(u"document.querySelector('#messages').textContent.includes('lamp')"_s);
    }

    void theAIRepliesToBoth()
    {
        m_browser->click(u"#automatic"_s);
        awaitAutomatic(true);
        m_sent += withoutMarks(
            m_browser
                ->await(u"document.querySelector('#messages [data-sender=\"ai agent\"] .text')"
                        "?.textContent"_s)
                .toString());
        checkConversation();
        // The push for the other ticket changes only the list, which the conversation covers.
        const auto isRefreshed = [this] {
            const QStringList tickets = m_customer->tickets();
            return tickets.size() == 2 && !tickets.contains(u"Where is my parcel?"_s) &&
                   !tickets.contains(u"My lamp is broken"_s);
        };
        waitFor(u"both replies in the list"_s, isRefreshed);
        checkConversation();
    }

    void aPictureReachesTheAgent()
    {
        replyByHand();
        // Opened from the list, the ticket has a title and shows the availability of support.
        m_customer->goesBack();
        m_customer->clicks(QAccessible::ListItem, m_sent.constLast().left(20));
        m_customer->sees(QAccessible::Heading, u", Available now"_s);
        checkConversation();
        m_customer->pastes(solidImage({96, 64}, Qt::red));
        customerSays(u"This is how it looks"_s);
        m_customer->sees(QAccessible::ListItem, u"AI agent is typing"_s);
        m_browser->await(
            u"document.querySelector("
            "'#messages [data-sender=customer]:last-child img').naturalWidth === 96"_s);
    }

    void aPersonReplies()
    {
        m_browser->click(u"#agent-name"_s);
        m_browser->type(u"Nora Berg"_s);
        agentSays(u"Which lamp is it?"_s);
        m_customer->sees(QAccessible::Heading, u"\u2068Nora Berg\u2069, Available now"_s);
        m_browser->await(u"document.querySelector('#assignee').value === 'human agent'"_s);
        // This one arrives by push only: polling ended with the previous reply.
        agentSays(u"The one in your picture?"_s);
    }

    void picturesReachTheCustomer()
    {
        QStringList files;
        for (const Qt::GlobalColor color : {Qt::green, Qt::blue}) {
            files += m_folder.filePath(u"%1.png"_s.arg(color));
            if (!solidImage({96, 64}, color).save(files.constLast()))
                throw std::runtime_error("a picture cannot be written");
        }
        m_browser->choose(u"#attachment-files"_s, files);
        m_browser->await(u"document.querySelectorAll('#attachments li').length === 2"_s);
        agentSays({}, 2);
        m_customer->clicks(QAccessible::Button, u"Picture 2 of 2"_s);
        m_customer->sees(QAccessible::Graphic, u"Picture"_s);
        const QPoint middle = QRect(QPoint(), m_customer->window.size()).center();
        waitFor(u"the agent's picture in the viewer"_s, [&] {
            return m_customer->window.grabWindow().pixelColor(middle) == QColor(Qt::blue);
        });
        m_customer->clicks(QAccessible::Button, u"Back"_s);
    }

    void aClosedTicketIsReopened()
    {
        const auto awaitState = [this](const QString &state) {
            m_browser->await(
                u"document.querySelector('#conversation[data-state=%1]') !== null"_s.arg(state));
        };
        m_browser->click(u"#change-state"_s);
        awaitState(u"closed"_s);
        const QString closed = u"This conversation is closed"_s;
        m_customer->sees(QAccessible::ListItem, closed);
        customerSays(u"One more thing"_s);
        awaitState(u"open"_s);
        waitFor(u"the removal of the closed row"_s,
                [&] { return !m_customer->robot.canSee(QAccessible::ListItem, closed); });
        checkConversation();
    }

    void theCustomerLeaves()
    {
        m_customer->goesBack();
        m_customer->sees(QAccessible::ListItem, u"One more thing"_s);
        m_customer->goesBack();
        waitFor(u"the messenger to close"_s,
                [this] { return m_customer->window.contentItem()->childItems().isEmpty(); });
    }

    QTemporaryDir m_folder;
    std::unique_ptr<BackendProgram> m_backend;
    std::unique_ptr<Browser> m_browser;
    std::unique_ptr<Customer> m_customer;
    QString m_ticket;
    /// The texts sent in the open conversation, in order.
    QStringList m_sent;
};

int main(int argc, char **argv)
{
    // Isolates the test from the user's files.
    const QTemporaryDir home;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        qputenv(name, home.path().toUtf8());
    QGuiApplication application(argc, argv);
    EndToEndTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_endtoend.moc"
