// SPDX-License-Identifier: MIT
#include "state/destination.h"
#include "testing/samplerecords.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

class DestinationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalityAndHashCoverThePayload()
    {
        using Destination = TolvaneDestination;
        TicketPreviewDto preview = makePreview();
        TicketPreviewDto read = preview;
        read.lastMessage.isRead = true;
        TicketPreviewDto nameless = preview;
        nameless.lastMessage.sender.name = u""_s; // Empty is not absent.
        const QList<Destination> different = {
            Destination::newTicket(),
            Destination::ticket(preview),
            Destination::ticket(read),
            Destination::ticket(nameless),
            Destination::ticket({}),
            Destination::imageViewer(QUrl(u"https://cdn.example/a"_s)),
            Destination::imageViewer(QUrl(u"https://cdn.example/b"_s)),
            Destination::imageViewer({}),
        };
        QSet<std::size_t> hashes;
        for (qsizetype i = 0; i < different.size(); ++i) {
            for (qsizetype j = 0; j < different.size(); ++j)
                QCOMPARE(different[i] == different[j], i == j);
            hashes += qHash(different[i], 0);
            const Destination copy = different[i];
            QCOMPARE(qHash(copy, 7), qHash(different[i], 7));
        }
        QCOMPARE(hashes.size(), different.size());
        QCOMPARE(QSet<Destination>(different.begin(), different.end()).size(), different.size());
    }
};

QTEST_GUILESS_MAIN(DestinationTest)
#include "tst_destination.moc"
