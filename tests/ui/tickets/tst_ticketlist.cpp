// SPDX-License-Identifier: MIT
#include "state/unreadtickets.h"
#include "testing/samplerecords.h"
#include "ui/tickets/ticketlistmodel.h"
#include "ui/tickets/ticketrow.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

using Tickets = TicketsData::Tickets;

/// A capital letter is the same ticket with another state.
Tickets ticketsOf(const QString &ids)
{
    Tickets tickets;
    for (const QChar id : ids) {
        tickets += makePreview(QString(id.toLower()));
        tickets.last().state = QString(id);
    }
    return tickets;
}

/// Records the signals of a model, one letter per row: inserted, removed, moved, changed.
struct SignalRecorder
{
    explicit SignalRecorder(TicketListModel &model)
    {
        const auto note = [this](char letter, int count) { letters += QByteArray(count, letter); };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted,
                         [note](auto, int first, int last) { note('i', last - first + 1); });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved,
                         [note](auto, int first, int last) { note('r', last - first + 1); });
        QObject::connect(&model, &QAbstractItemModel::rowsMoved, [note] { note('m', 1); });
        QObject::connect(&model, &QAbstractItemModel::dataChanged, [note] { note('c', 1); });
        QObject::connect(&model, &QAbstractItemModel::modelReset, [note] { note('!', 1); });
    }

    QByteArray letters;
};

QString idsIn(const TicketListModel &model)
{
    QString ids;
    for (int row = 0; row < model.rowCount(); ++row)
        ids += model.data(model.index(row), TicketListModel::previewRole)
                   .value<TicketPreviewDto>()
                   .state;
    return ids;
}

} // namespace

class TicketListTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewListTakesTheFewestSteps()
    {
        const std::tuple<QString, QString, QByteArray> cases[] = {
            {u"abc"_s, u"abc"_s, ""},      {{}, u"abc"_s, "iii"},
            {u"abc"_s, {}, "rrr"},         {u"abc"_s, u"xabc"_s, "i"},
            {u"abcd"_s, u"dabc"_s, "m"}, // The ticket with a new message moves to the top.
            {u"abcd"_s, u"acd"_s, "r"},    {u"abc"_s, u"xyz"_s, "rrriii"},
            {u"abc"_s, u"cxa"_s, "rmi"},   {u"aab"_s, u"aba"_s, "m"},
            {u"abcd"_s, u"aBCd"_s, "c"},   {u"abcd"_s, u"Dabc"_s, "mc"},
            {u"abcde"_s, u"AbdE"_s, "crc"}};
        for (const auto &[before, after, steps] : cases) {
            TicketListModel model;
            const QAbstractItemModelTester tester(&model);
            model.setTickets(ticketsOf(before));
            const SignalRecorder recorder(model);
            model.setTickets(ticketsOf(after));
            QCOMPARE(idsIn(model), after);
            QCOMPARE(recorder.letters, steps);
        }
    }

    void anyListReplacesAnyOther()
    {
        QRandomGenerator random(3);
        TicketListModel model;
        const QAbstractItemModelTester tester(&model);
        Tickets shown;
        for (int round = 0; round < 300; ++round) {
            QString ids;
            for (int i = random.bounded(8); i > 0; --i)
                ids += QChar((random.bounded(2) ? u'a' : u'A') + random.bounded(10));
            // Half of the comparisons begin with another list than that of the model.
            const Tickets after = ticketsOf(ids);
            model.setTickets(after, listUpdate(shown, after));
            if (random.bounded(2))
                shown = after;
            QCOMPARE(idsIn(model), ids);
        }
    }

    void rowsDescribeTheirTicket()
    {
        const QString url = u"https://cdn.example/a.png"_s;
        const QString open = u"open"_s;
        describe(words::aiAgent, url, open, Avatar::AI, words::aiAgent);
        describe(words::humanAgent, url, open, Avatar::Picture, u"Maya"_s);
        describe(words::humanAgent, {}, open, Avatar::Person, u"Maya"_s);
        describe(words::customer, {}, open, Avatar::Person, u"main_sender_customer_name"_s);
        describe(words::aiAgent, {}, words::closed, Avatar::Closed, words::aiAgent);
        describe(u"AI agent"_s, {}, u"Closed"_s, Avatar::Person, u"AI agent"_s); // Case counts.
    }

private:
    static void describe(const QString &type, const QString &picture, const QString &state,
                         Avatar::Kind icon, const QString &label)
    {
        const bool isUnread = type != words::customer;
        Fixture fixture;
        TicketPreviewDto preview = makePreview();
        preview.state = state;
        preview.lastMessage.content = u" **one**\n\n[two](https://x.y)\t three "_s;
        preview.lastMessage.sender = {
            .id = u"s"_s, .name = u"Maya"_s, .profilePicture = {}, .type = type};
        if (!picture.isEmpty())
            preview.lastMessage.sender.profilePicture = picture;
        QCOMPARE(ticketrow::icon(preview), icon);
        QCOMPARE(ticketrow::caption(preview), u"\u2068"_s + label + u"\u2069 · timeago_now"_s);
        QCOMPARE(tolvane::isUnread(preview.lastMessage), isUnread);
        QCOMPARE(ticketrow::singleLine(preview.lastMessage.content), u"one two three"_s);
        const QString description = ticketrow::description(preview);
        QVERIFY(
            description.startsWith(u"\u2068"_s + label + u"\u2069, one two three, timeago_now"_s));
        QCOMPARE(description.contains(u"accessibility_unread"_s), isUnread);

        preview.lastMessage.isRead = true;
        preview.lastMessage.sender.name = std::nullopt;
        QVERIFY(!tolvane::isUnread(preview.lastMessage));
        if (type == words::humanAgent)
            QVERIFY(ticketrow::caption(preview).contains(type));
    }
};

QTEST_GUILESS_MAIN(TicketListTest)
#include "tst_ticketlist.moc"
