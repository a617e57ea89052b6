// SPDX-License-Identifier: MIT
#include "state/navigationdata.h"
#include "testing/samplerecords.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

using Destination = TolvaneDestination;

class NavigationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void stepsAreReportedBeforeThePathChanges_data()
    {
        QTest::addColumn<Destination>("to");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("action");
        const QUrl picture(u"https://cdn.example/a b.png"_s);
        QTest::newRow("ticket") << Destination::ticket(makePreview(u"t7"_s)) << u"ticket"_s
                                << u"navigate_to_ticket chat_list t7 "_s;
        QTest::newRow("picture") << Destination::imageViewer(picture) << u"imageViewer"_s
                                 << u"navigate_to_image_viewer ticket  %1"_s.arg(
                                        QString::fromLatin1(picture.toEncoded()));
        QTest::newRow("new ticket") << Destination::newTicket() << u"newTicket"_s
                                    << u"navigate_to_new_ticket chat_list  "_s;
    }

    void stepsAreReportedBeforeThePathChanges()
    {
        QFETCH(const Destination, to);
        QFETCH(const QString, kind);
        QFETCH(const QString, action);
        const Fixture fixture;
        NavigationData navigation;
        QStringList actions;
        connect(&navigation, &NavigationData::pathChanged, this, [&] {
            const QVariantMap event = fixture.delegate->properties(u"user_action"_s);
            QStringList values;
            for (const char *key : {"action_type", "screen_name", "ticket_id", "image_url"})
                values += event.value(QLatin1String(key)).toString();
            actions += values.join(u' ');
        });
        navigation.goBack(); // There is nowhere to go back to.
        navigation.navigate(to);
        navigation.navigate(to); // An equal destination on top does not matter.
        QCOMPARE(navigation.path(), NavigationData::Path({to, to}));
        QCOMPARE(navigation.path().constFirst().kindName(), kind);
        navigation.goBack();
        QCOMPARE(actions, QStringList({action, action, action}));
        navigation.setPath({to}); // Equal to the present one.
        QCOMPARE(actions.size(), 3);
        navigation.setPath({});
        QCOMPARE(actions.size(), 4);
    }
};

QTEST_GUILESS_MAIN(NavigationTest)
#include "tst_navigation.moc"
