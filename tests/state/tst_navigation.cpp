// SPDX-License-Identifier: MIT
#include "state/navigation/navigationdata.h"
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

    void stepsAreReportedBeforeThePathChanges()
    {
        const QUrl picture(u"https://cdn.example/a b.png"_s);
        step(Destination::ticket(makePreview(u"t7"_s)), u"ticket"_s,
             u"navigate_to_ticket chat_list t7 "_s);
        step(Destination::imageViewer(picture), u"imageViewer"_s,
             u"navigate_to_image_viewer ticket  "_s + QString::fromLatin1(picture.toEncoded()));
        step(Destination::newTicket(), u"newTicket"_s, u"navigate_to_new_ticket chat_list  "_s);
    }

private:
    static void step(const Destination &to, const QString &kind, const QString &action)
    {
        const Fixture fixture;
        NavigationData navigation;
        QStringList actions;
        connect(&navigation, &NavigationData::pathChanged, &navigation, [&] {
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
