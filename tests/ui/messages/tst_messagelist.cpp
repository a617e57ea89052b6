// SPDX-License-Identifier: MIT
#include "platform/async/awaitfuture.h"
#include "testing/samplerecords.h"
#include "ui/markdown/inlinemarkdown.h"
#include "ui/messages/messagechunks.h"
#include "ui/messages/messagelistmodel.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

QList<MessageDto> messagesOf(int first, int last)
{
    QList<MessageDto> messages;
    for (int id = first; id <= last; ++id)
        messages += makeMessage(QString::number(id));
    return messages;
}

QStringList textsIn(const MessageListModel &model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts +=
            model.data(model.index(row), MessageListModel::contentRole).value<FormattedText>().text;
    return texts;
}

/// The HTML without its enclosing block.
QString htmlOf(const QString &source)
{
    const FormattedText styled = inlineMarkdown(source, u"E"_s);
    QString text = styled.text;
    if (styled.isRich)
        text.remove(u"<div style=\"white-space:pre-wrap\">"_s).remove(u"</div>"_s);
    return text;
}

} // namespace

class MessageListTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyChangesAreSignalled()
    {
        const Fixture fixture;
        MessageListModel model;
        const QAbstractItemModelTester tester(&model);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy changed(&model, &MessageListModel::messagesChanged);
        QSignalSpy arrived(&model, &MessageListModel::messageArrived);
        QList<MessageDto> messages = messagesOf(1, 10'000);
        model.setMessages(messages);
        model.setMessages(messages);
        model.setMessages(messagesOf(1, 10'000));
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(changed.count(), 1);
        messages += makeMessage(u"answer"_s, words::aiAgent);
        model.setMessages(messages);
        QCOMPARE(inserted.takeLast().at(1).toInt(), 10'000);
        QCOMPARE(arrived.count(), 1);
        messages[3].isRead = true;
        messages += makeMessage(u"thanks"_s);
        model.setMessages(messages);
        QCOMPARE(changed.count(), 3);
        QCOMPARE(arrived.count(), 1);
    }

    void agesAreRefreshed()
    {
        const Fixture fixture;
        MessageListModel model;
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.refreshAges();
        QVERIFY(changed.isEmpty());
        MessageDto message = makeMessage(u"m"_s);
        message.timestamp =
            fixture.clock->now().toUTC().toString(u"yyyy-MM-dd'T'HH:mm:ss'+0000'"_s);
        model.setMessages({message, makeMessage(u"old"_s)});
        const auto caption = [&] {
            return model.data(model.index(0), MessageListModel::captionRole).toString();
        };
        const QString before = caption();
        fixture.clock->advance(std::chrono::minutes(5));
        model.refreshAges();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 1);
        QVERIFY(changed.at(0).at(2).value<QList<int>>().contains(MessageListModel::captionRole));
        QVERIFY2(before != caption() && caption().startsWith(u"5 "_s), qPrintable(caption()));
    }

    void aShuffledListStaysCheap()
    {
        const Fixture fixture;
        MessageListModel model;
        QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
        QList<MessageDto> messages = messagesOf(1, 20'000);
        model.setMessages(messages);
        std::ranges::reverse(messages);
        model.setMessages(messages);
        QCOMPARE(
            model.data(model.index(0), MessageListModel::contentRole).value<FormattedText>().text,
            u"text of 20000"_s);
        QVERIFY(moved.count() < 1000);
        // Every second message is removed, which would be 10,000 steps.
        QList<MessageDto> half;
        for (qsizetype at = 0; at < messages.size(); at += 2)
            half += messages.at(at);
        model.setMessages(half);
        QCOMPARE(model.rowCount(), half.size());
    }

    void workersCompareLongLists()
    {
        Fixture fixture;
        fixture.setKey();
        fixture.workers->isHeld = true;
        TicketDto fetched = makeTicket(messagesOf(1, 300));
        fixture.session->handler = [&](const UrlRequest &) {
            return test::json(tolvane::json::encode(fetched));
        };
        const auto store = std::make_shared<TicketData>(makePreview());
        store->setDerivation(&MessageListModel::derive);
        MessageListModel model;
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        connect(store.get(), &TicketData::ticketChanged, &model, [&] {
            model.setMessages(store->ticket()->messages, store->messagesGeneration(),
                              store->derivedMessages());
        });
        for (const QByteArray steps : {"change", "change push", "", "push", "change push"}) {
            if (steps.contains("change"))
                fetched.messages[5].content += u'x';
            detach(store->silentFetchTicket());
            settle();
            fixture.workers->run(0); // Decodes the ticket. It is not compared yet.
            if (steps.contains("push")) {
                store->onMessageNotification(UserInfo::fromRecord(
                    makeMessage(u"p"_s), tolvane::json::dictionary<MessageDto>));
                QCOMPARE(textsIn(model).constLast(), u"text of p"_s);
            }
            while (!fixture.workers->held.isEmpty())
                fixture.workers->run(0);
            QCOMPARE(store->ticket(), fetched);
            QCOMPARE(textsIn(model).value(5), fetched.messages.at(5).content);
        }
        QCOMPARE(removed.count(), 3); // The pushed messages, which the fetched tickets lack.
    }

    void longMessagesTakeSeveralRows()
    {
        const Fixture fixture;
        MessageListModel model;
        MessageDto message = makeMessage(u"m"_s);
        message.attachments = QStringList{u"https://cdn.example/a.png"_s};
        message.content = QString(100'000, u'x');
        model.setMessages({message, makeMessage(u"n"_s)});
        const auto valueOf = [&model](int row, int role) {
            return model.data(model.index(row), role);
        };
        QCOMPARE(model.rowCount(), 26);
        QCOMPARE(textsIn(model).first(25).join(QString()), message.content);
        QCOMPARE(valueOf(0, MessageListModel::attachmentsRole).toStringList().size(), 1);
        QCOMPARE(valueOf(1, MessageListModel::attachmentsRole).toStringList().size(), 0);
        QVERIFY(valueOf(0, MessageListModel::isFirstRole).toBool());
        QVERIFY(!valueOf(0, MessageListModel::isLastRole).toBool());
        QVERIFY(valueOf(24, MessageListModel::isLastRole).toBool());
        message.content += u'y';
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        model.setMessages({message, makeMessage(u"n"_s)});
        QCOMPARE(inserted.count(), 1);
    }

    void chunksContainTheWholeText()
    {
        // Words, links, joined emoji, accents, combining marks, zero width, half a surrogate pair.
        for (const QString &unit : {u"abcdefg"_s, u"[some words](https://x.y) "_s, u"some words "_s,
                                    u"a line of text\n"_s,
                                    u"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"_s,
                                    u"e\u0301\u0302\u0303\u0304\u0305"_s, u"\u0301"_s, u"\u200b"_s,
                                    QString(QChar(0xd83d))}) {
            const QString text = unit.repeated(20'000 / unit.size());
            const QStringList parts = splitIntoChunks(text);
            QCOMPARE(parts.join(unit.endsWith(u'\n') ? u"\n"_s : QString()), text);
            QVERIFY(parts.size() > 4);
            for (const QString &part : parts) {
                QVERIFY(part.size() <= maxChunkLength && layoutCost(part) <= maxChunkCost);
                // No part begins within a character or a link.
                QVERIFY(part.startsWith(unit.first(1)) ||
                        (unit.at(1 % unit.size()).isLetter() && !unit.startsWith(u'[')));
            }
        }
    }

    void rowsDescribeTheSender()
    {
        const QString url = u"https://cdn.example/a.png"_s;
        const QString maya = u"\u2068Maya\u2069"_s;
        const QString support = u"ticket_support"_s;
        describe(words::customer, u"Eve"_s, url, Avatar::None, u"You"_s);
        describe(words::aiAgent, {}, url, Avatar::AI, u"ticket_ai_agent"_s);
        describe(words::humanAgent, u"Maya"_s, {}, Avatar::Person, maya);
        describe(words::humanAgent, u"Maya"_s, url, Avatar::Picture, maya);
        describe(words::humanAgent, u" "_s, url, Avatar::Picture, support);
        describe(u"Customer"_s, u"Maya"_s, url, Avatar::None, maya); // Not a known type.
        describe(words::humanAgent, u"\u202eMa\n\u2069ya"_s, {}, Avatar::Person,
                 u"\u2068Ma ya\u2069"_s);
    }

private:
    static void describe(const QString &type, const QString &name, const QString &picture,
                         Avatar::Kind avatar, const QString &label)
    {
        const Fixture fixture;
        MessageDto message = makeMessage(u"m"_s, type);
        message.content = u"**Hi**"_s;
        if (!name.isEmpty())
            message.sender.name = name;
        if (!picture.isEmpty())
            message.sender.profilePicture = picture;
        MessageListModel model;
        model.setMessages({message});
        const QModelIndex row = model.index(0);
        QCOMPARE(model.data(row, MessageListModel::avatarRole).value<Avatar::Kind>(), avatar);
        QCOMPARE(model.data(row, MessageListModel::isCustomerRole).toBool(), type == u"customer"_s);
        QCOMPARE(model.data(row, MessageListModel::captionRole).toString(),
                 u"timeago_now \u00b7 "_s + label);
        QCOMPARE(model.data(row, MessageListModel::descriptionRole).toString(),
                 label + u", Hi, timeago_now"_s);
    }

private Q_SLOTS:
    void markdownWithinALine()
    {
        QFile file(QStringLiteral(TOLVANE_SOURCES "/tests/ui/messages/inlinemarkdown.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        for (const QString &line :
             QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            const QString source = line.section(u" → "_s, 0, 0).replace(u'⏎', u'\n');
            const QString html = line.section(u" → "_s, 1).replace(u'⏎', u'\n');
            QVERIFY2(line.startsWith(u"% "_s) || htmlOf(source) == html, qPrintable(line));
        }
        QCOMPARE(htmlOf(u"a\r\n"_s), u"a\n"_s);
    }

    void anyMarkdownIsParsedInTime()
    {
        // Random texts of all special characters: parsing ends, and removes only markup.
        QRandomGenerator random(7);
        const QString letters = u"a*_~`[]()<>!\\h:/ \n\u202e\u200b"_s;
        for (int round = 0; round < 200; ++round) {
            QString text;
            while (text.size() < maxChunkLength)
                text += QString(1 + random.bounded(3), letters.at(random.bounded(letters.size())));
            const QString plain = withoutMarkdown(text);
            QCOMPARE(plain.count(u'a'), text.count(u'a'));
        }
    }
};

QTEST_GUILESS_MAIN(MessageListTest)
#include "tst_messagelist.moc"
