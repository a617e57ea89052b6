// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/ticketsdata.h"
#include "state/unreadtickets.h"
#include "testing/samplerecords.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

using Case = TicketsData::State::Case;

namespace {

struct TicketListFixture : Fixture
{
    TicketListFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (failing)
                throw APIError(APIError::clientError, "no");
            return test::json(encodeList(rows_));
        };
        QObject::connect(store.get(), &TicketsData::changed, &lifetime,
                         [this, raw = store.get()] { cases += raw->state().current(); });
    }

    void run(QCoro::Task<> task)
    {
        detach(std::move(task));
        settle();
    }

    qsizetype requestCount() const { return session->requests.size(); }
    qsizetype skipCount() const
    {
        return log->lines.filter(u"Skipping reload - too soon since last reload"_s).size();
    }

    bool failing = false;
    TicketsData::Tickets rows_ = {makePreview(u"b"_s), makePreview(u"a"_s)};
    std::shared_ptr<TicketsData> store = std::make_shared<TicketsData>();
    QList<Case> cases;
    QObject lifetime; ///< Ends the connection before `cases` is destroyed.
};

void load(bool silent, bool failing, const QList<Case> &cases, const QString &line)
{
    TicketListFixture fixture;
    fixture.rows_.clear();
    fixture.failing = failing;
    fixture.run(silent ? fixture.store->silentReload() : fixture.store->load());
    QCOMPARE(fixture.cases, cases);
    QCOMPARE(fixture.log->lines.filter(u"Error"_s).value(0).section(u"] "_s, 3), line);
    // Only `loaded` leaves a last value.
    fixture.run(fixture.store->load());
    QVERIFY(!fixture.store->lastValue());
}

} // namespace

class TicketsDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadPassesThroughLoading()
    {
        TicketListFixture fixture;
        QCOMPARE(fixture.store->lastValue(), TicketsData::Tickets());
        fixture.run(fixture.store->load());
        QCOMPARE(fixture.cases, QList<Case>({Case::loading, Case::loaded}));
        QCOMPARE(fixture.store->state().value(), fixture.rows_); // In the backend's order.
        QVERIFY(!fixture.store->lastValue());                    // It was idle before.
        fixture.run(fixture.store->load());
        QCOMPARE(fixture.store->lastValue(), fixture.rows_);
        // Loads are not throttled and do not throttle the refresh, which never shows `loading`.
        fixture.cases.clear();
        fixture.rows_.removeLast();
        fixture.run(fixture.store->reload());
        QCOMPARE(fixture.cases, QList<Case>{Case::loaded});
        QCOMPARE(fixture.store->state().value(), fixture.rows_);
        fixture.run(fixture.store->load());
        QCOMPARE(fixture.requestCount(), 4);
        QCOMPARE(fixture.skipCount(), 0);
    }

    void outcomes()
    {
        load(false, false, {Case::loading, Case::empty}, {});
        load(false, true, {Case::loading, Case::error},
             u"Error fetching tickets: Client error: no"_s);
        load(true, false, {Case::empty}, {});
        load(true, true, {Case::error},
             u"Error fetching tickets in silent reload: Client error: no"_s);
    }

    void aBurstEndsWithOneRefreshASecondLater()
    {
        TicketListFixture fixture;
        fixture.run(fixture.store->reload());
        for (int i = 0; i < 3; ++i) {
            fixture.clock->advance(200ms);
            fixture.run(fixture.store->reload());
        }
        QCOMPARE(fixture.skipCount(), 3);
        fixture.clock->advance(999ms);
        QCOMPARE(fixture.requestCount(), 1);
        fixture.clock->advance(1ms);
        QCOMPARE(fixture.requestCount(), 2);
        fixture.clock->advance(10s);
        QCOMPARE(fixture.requestCount(), 2);
    }

    void theLatestOfTwoLongListsStays()
    {
        TicketListFixture fixture;
        fixture.workers->isHeld = true;
        fixture.rows_.fill(makePreview(), 300);
        fixture.run(fixture.store->silentReload());
        fixture.rows_.removeLast();
        fixture.run(fixture.store->silentReload());
        for (const qsizetype job : {0, 0, 1}) {
            // Both lists are decoded. While they are compared, a message arrives.
            if (job == 1)
                platform().notificationCenter->post(
                    notifications::didReceiveMessage,
                    UserInfo::fromRecord(makeMessage(u"r"_s, words::aiAgent),
                                         tolvane::json::dictionary<MessageDto>));
            fixture.workers->run(job);
        }
        fixture.workers->run(0);
        QCOMPARE(fixture.store->state().value(), fixture.rows_);
        QCOMPARE(fixture.cases, QList<Case>{Case::loaded});
        QCOMPARE(UnreadTickets::shared()->count(), 1);
    }

    void aFailedRefreshThrottlesUntilExactlyOneSecond()
    {
        TicketListFixture fixture;
        fixture.failing = true;
        fixture.run(fixture.store->reload());
        fixture.run(fixture.store->reload());
        QCOMPARE(fixture.skipCount(), 1);
        fixture.clock->advance(1s); // The deferred refresh starts another second.
        fixture.clock->advance(1s);
        fixture.run(fixture.store->reload());
        QCOMPARE(fixture.requestCount(), 3);
        QCOMPARE(fixture.skipCount(), 1);
    }
};

QTEST_GUILESS_MAIN(TicketsDataTest)
#include "tst_ticketsdata.moc"
