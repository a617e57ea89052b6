// SPDX-License-Identifier: MIT
// A backend that starts with the conversations of a seed file.
#include "errors.h"
#include "runningbackend.h"
#include "seed.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

class SeedTest : public QObject
{
    Q_OBJECT

    /// Writes a seed file next to "tent.png". In the text, single quotation marks stand for double
    /// ones. Returns its path.
    std::string fileOf(QByteArray text) const
    {
        QFile file(m_folder.filePath(u"seed.json"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(text.replace('\'', '"')) < 0)
            qFatal("the seed cannot be written");
        return file.fileName().toStdString();
    }

    static httplib::Response fetch(Customer &customer, const QJsonValue &address)
    {
        return customer.get(QUrl(address.toString()).path(QUrl::FullyEncoded).toStdString());
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(
            QFile::copy(TOLVANE_DEMO "/pictures/nora.png"_L1, m_folder.filePath(u"tent.png"_s)));
    }

    void theDemoSeedIsLoaded()
    {
        const std::string path = m_folder.filePath(u"demo.sqlite"_s).toStdString();
        for (int run = 0; run < 2; ++run) {
            Database database = openDatabase(path);
            loadSeed(TOLVANE_DEMO "/seed.json", database);
        }
        RunningBackend backend(path, 1h, {}, TOLVANE_DEMO "/branding.json");
        Customer customer(backend.port(), "01kb5j7hq2r5v8z1d4g6k9m3pt");
        const QJsonArray tickets = customer.tickets();
        QCOMPARE(tickets.size(), 8);
        QString newer = u"9"_s;
        for (const QJsonValue ticket : tickets) {
            const QString time = ticket["lastMessage"_L1]["timestamp"_L1].toString();
            QVERIFY2(time < newer, qPrintable(time));
            newer = time;
        }
        const QJsonValue fromNora = tickets.at(1)["lastMessage"_L1];
        QCOMPARE(fromNora["isRead"_L1].toBool(true), false);
        QCOMPARE(fromNora["sender"_L1]["name"_L1], "Nora Berg"_L1);
        QCOMPARE(fetch(customer, fromNora["sender"_L1]["profilePicture"_L1])
                     .get_header_value("Content-Type"),
                 "image/png"s);
        QCOMPARE(fetch(customer, fromNora["attachments"_L1][0]).status, 200);
        QVERIFY(tickets.at(3)["lastMessage"_L1]["sender"_L1]["profilePicture"_L1].isUndefined());

        const std::string album = "/api/ticket/" + tickets.at(6)["id"_L1].toString().toStdString();
        const QJsonValue ticket = json(customer.get(album)).object();
        QCOMPARE(ticket["state"_L1], "closed"_L1);
        QCOMPARE(ticket["assignee"_L1], "human agent"_L1);
        QCOMPARE(ticket["messages"_L1][0]["attachments"_L1].toArray().size(), 5);

        const QJsonDocument branding = json(customer.get("/api/settings"));
        QCOMPARE(fetch(customer, branding["logoDark"_L1]).status, 200);
        QCOMPARE(customer.get("/api/attachments/none/logo-dark.png").status, 404);
    }

    void pendingAnswersAreSentAndPushed()
    {
        const std::string path = m_folder.filePath(u"owed.sqlite"_s).toStdString();
        {
            Database database = openDatabase(path);
            loadSeed(fileOf("{'customer':'ada','deviceToken':'00ff','conversations':[{'state':"
                            "'open','secondsUntilAnswer':0,'messages':[{'from':'customer',"
                            "'minutesAgo':2.5,'attachments':['tent.png']}]}]}"),
                     database);
        }
        RunningBackend backend(path);
        PushStream pushes(backend.pushService, "00ff", {});
        QTRY_VERIFY_WITH_TIMEOUT(pushes.next().has_value(), timeout);
    }

    void errorsNameTheField_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("reason");
        const auto conversation = [](const QByteArray &fields) {
            return "{'customer':'ada','people':{'bo':{'name':'Bo'}},'conversations':[{" + fields +
                   "}]}";
        };
        const auto message = [&](const QByteArray &fields) {
            return conversation("'state':'open','messages':[{" + fields + "}]");
        };
        const auto row = [](const QByteArray &text, const char *reason) {
            QTest::newRow(reason) << text << QByteArray(reason);
        };
        row("{", "is not valid JSON");
        row("[]", "needs an object");
        row("{'customer':'ada','colour':1}", "unknown field 'colour'");
        row("{}", "at customer: needs a string");
        row("{'customer':'a b'}", "visible ASCII");
        row("{'customer':'ada','pictures':['none.png']}", "'none.png' cannot be read");
        row("{'customer':'ada','pictures':['seed.json']}", "'seed.json' is not a picture");
        row("{'customer':'ada','people':{'bo':{}}}", "at people.bo.name: needs a string");
        row("{'customer':'ada','people':7}", "at people: needs an object");
        row("{'customer':'ada','conversations':{}}", "at conversations: needs a list");
        row(conversation("'state':'asleep'"), "needs open or closed");
        row(conversation("'state':'open'"), "needs messages");
        row(message("'from':'eve','minutesAgo':1,'text':'x'"), "'eve' is neither");
        row(message("'from':'ai','text':'x'"), "messages[0].minutesAgo: needs a number");
        row(message("'from':'ai','minutesAgo':1"), "messages[0].text: needs a string");
        row(message("'from':'customer','minutesAgo':1,'text':'x','unread':true"),
            "cannot be unread");
        row(conversation("'state':'open','messages':[{'from':'ai','minutesAgo':1,'text':'x'},"
                         "{'from':'bo','minutesAgo':2,'text':'y'}]"),
            "messages[1]: is older");
        row(conversation("'state':'open','secondsUntilAnswer':1,'messages':[{'from':'ai',"
                         "'minutesAgo':1,'text':'x'}]"),
            "not the customer's");
    }

    void errorsNameTheField()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, reason);
        Database database = openDatabase(inMemory);
        try {
            loadSeed(fileOf(text), database);
            QFAIL("The seed was accepted");
        } catch (const StartError &error) {
            QVERIFY2(QByteArray(error.what()).contains(reason), error.what());
        }
        QVERIFY(!database.query("SELECT 1 FROM customers").step());
    }

private:
    const QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(SeedTest)
#include "tst_seed.moc"
