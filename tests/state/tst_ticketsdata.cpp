// SPDX-License-Identifier: MIT
#include "backend/apierror.h"
#include "platform/async/await.h"
#include "state/ticketsdata.h"
#include "testing/wire.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

using Case = TicketsData::State::Case;

namespace {

struct Scene : Fixture
{
    Scene()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (failing)
                throw APIError(APIError::clientError, "no");
            QByteArrayList rows;
            for (const TicketPreviewDto &row : rows_)
                rows += tolvane::json::encode(row);
            return test::json('[' + rows.join(',') + ']');
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

} // namespace

class TicketsDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadPassesThroughLoading()
    {
        Scene scene;
        QCOMPARE(scene.store->lastValue(), TicketsData::Tickets());
        scene.run(scene.store->load());
        QCOMPARE(scene.cases, QList<Case>({Case::loading, Case::loaded}));
        QCOMPARE(scene.store->state().value(), scene.rows_); // In the backend's order.
        QVERIFY(!scene.store->lastValue());                  // It was idle before.
        scene.run(scene.store->load());
        QCOMPARE(scene.store->lastValue(), scene.rows_);
    }

    void outcomes_data()
    {
        QTest::addColumn<bool>("silent");
        QTest::addColumn<bool>("failing");
        QTest::addColumn<QList<Case>>("cases");
        QTest::addColumn<QString>("line");
        const QList<Case> loading = {Case::loading};
        QTest::newRow("load, empty") << false << false << loading + QList{Case::empty} << QString();
        QTest::newRow("load, failure") << false << true << loading + QList{Case::error}
                                       << "Error fetching tickets: Client error: no";
        QTest::newRow("refresh, empty") << true << false << QList{Case::empty} << QString();
        QTest::newRow("refresh, failure")
            << true << true << QList{Case::error}
            << "Error fetching tickets in silent reload: Client error: no";
    }

    void outcomes()
    {
        QFETCH(const bool, silent);
        QFETCH(const bool, failing);
        QFETCH(const QList<Case>, cases);
        QFETCH(const QString, line);
        Scene scene;
        scene.rows_.clear();
        scene.failing = failing;
        scene.run(silent ? scene.store->silentReload() : scene.store->load());
        QCOMPARE(scene.cases, cases);
        QCOMPARE(scene.log->lines.filter(u"Error"_s).value(0).section(u"] "_s, 3), line);
        // Only `loaded` leaves a last value.
        scene.run(scene.store->load());
        QVERIFY(!scene.store->lastValue());
    }

    void aRefreshNeverShowsLoading()
    {
        Scene scene;
        scene.run(scene.store->load());
        scene.cases.clear();
        scene.rows_.removeLast();
        scene.run(scene.store->reload());
        QCOMPARE(scene.cases, QList<Case>{Case::loaded});
        QCOMPARE(scene.store->state().value(), scene.rows_);
    }

    void loadIsNeitherThrottledNorThrottles()
    {
        Scene scene;
        scene.run(scene.store->load());
        scene.run(scene.store->reload());
        scene.run(scene.store->load());
        QCOMPARE(scene.requestCount(), 3);
        QCOMPARE(scene.skipCount(), 0);
    }

    void aBurstEndsWithOneRefreshASecondLater()
    {
        Scene scene;
        scene.run(scene.store->reload());
        for (int i = 0; i < 3; ++i) {
            scene.clock->advance(200ms);
            scene.run(scene.store->reload());
        }
        QCOMPARE(scene.skipCount(), 3);
        scene.clock->advance(999ms);
        QCOMPARE(scene.requestCount(), 1);
        scene.clock->advance(1ms);
        QCOMPARE(scene.requestCount(), 2);
        scene.clock->advance(10s);
        QCOMPARE(scene.requestCount(), 2);
    }

    void aFailedRefreshThrottlesUntilExactlyOneSecond()
    {
        Scene scene;
        scene.failing = true;
        scene.run(scene.store->reload());
        scene.run(scene.store->reload());
        QCOMPARE(scene.skipCount(), 1);
        scene.clock->advance(1s); // The deferred refresh starts another second.
        scene.clock->advance(1s);
        scene.run(scene.store->reload());
        QCOMPARE(scene.requestCount(), 3);
        QCOMPARE(scene.skipCount(), 1);
    }

    void theLastResponseWins()
    {
        Scene scene;
        scene.session->held = true;
        scene.run(scene.store->load());
        scene.run(scene.store->silentReload());
        QCOMPARE(scene.cases, QList<Case>{Case::loading});
        scene.session->release();
        QCOMPARE(scene.cases, QList<Case>({Case::loading, Case::loaded, Case::loaded}));
    }

    void aDeferredRefreshKeepsItsStoreAlive()
    {
        Scene scene;
        scene.run(scene.store->reload());
        scene.run(scene.store->reload());
        const std::weak_ptr<TicketsData> store = scene.store;
        scene.store.reset();
        QVERIFY(!store.expired());
        scene.clock->advance(1s);
        QCOMPARE(scene.requestCount(), 2);
        QVERIFY(store.expired());
    }
};

QTEST_GUILESS_MAIN(TicketsDataTest)
#include "tst_ticketsdata.moc"
