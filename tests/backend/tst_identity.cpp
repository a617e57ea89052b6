// SPDX-License-Identifier: MIT
#include "backend/wire/json.h"
#include "base/decodingerror.h"
#include "base/ulid.h"
#include "platform/logger.h"
#include "testing/fixture.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QTimeZone>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

class IdentityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parses()
    {
        const QString id = u"01hq3v6m5y9t8s7r6q5p4n3m2k"_s;
        const std::pair<QString, QString> cases[] = {
            {id, id},
            {id.toUpper(), id},
            {u"OIhq3v6m5y9t8s7r6q5p4n3m2k"_s, id}, // Letters that stand for digits.
            {u"8"_s + id.sliced(1), id},           // Bits that overflow are dropped.
            {id.chopped(1), {}},
            {id + u'0', {}},
            {id.chopped(1) + u'u', {}},
            {id.chopped(1) + u'=', {}},
            {id.chopped(1) + u'é', {}}}; // 26 characters, 27 bytes.
        for (const auto &[text, canonical] : cases) {
            const std::optional<ULID> parsed = ULID::parse(text);
            QCOMPARE(parsed ? parsed->description() : QString(), canonical);
            try {
                const auto decoded = json::decode<ULID>(u"\"%1\""_s.arg(text).toUtf8());
                QCOMPARE(decoded, parsed);
                QCOMPARE(json::encode(decoded), u"\"%1\""_s.arg(canonical).toUtf8());
            } catch (const DecodingError &error) {
                QVERIFY(!parsed);
                QCOMPARE(error.localizedDescription(),
                         u"Attempted to decode ULID from invalid ULID string."_s);
            }
        }
    }

    void sortsByTime()
    {
        const auto at = [](qint64 ms) {
            return ULID::generate(QDateTime::fromMSecsSinceEpoch(ms, QTimeZone::utc()));
        };
        QCOMPARE(at(0).description().first(10), u"0000000000"_s);
        QCOMPARE(at((1LL << 48) - 1).description().first(10), u"7zzzzzzzzz"_s);
        QCOMPARE(at(1LL << 48).description().first(10), u"0000000000"_s);
        for (qint64 ms = 1'773'489'600'000; ms < 1'773'489'600'100; ++ms) {
            QVERIFY(at(ms) < at(ms + 1));
            QVERIFY(at(ms).description() < at(ms + 1).description());
            QVERIFY(at(ms) != at(ms));
        }
    }

    void logLinesAreFormatted()
    {
        formatLine(LogLevel(0), u"DEBUG"_s, LogType::debug);
        formatLine(LogLevel(1), u"INFO"_s, LogType::info);
        formatLine(LogLevel(2), u"WARNING"_s, LogType::error);
        formatLine(LogLevel(3), u"ERROR"_s, LogType::error);
        formatLine(LogLevel(4), u"CRITICAL"_s, LogType::fault);
    }

private:
    void formatLine(LogLevel level, const QString &word, LogType type)
    {
        Fixture fixture;
        Logger &logger = Logger::shared();
        logger.log(level, u"100 %s %1 %n"_s);
        const QString time = fixture.clock->now().toLocalTime().toString(u"HH:mm:ss"_s);
        QCOMPARE(fixture.log->lines,
                 QStringList{u"[Tolvane] [%1] [%2.000] "_s.arg(word, time) + u"100 %s %1 %n"_s});
        QCOMPARE(fixture.log->types.constFirst(), type);
        fixture.log->disabledTypes = {type};
        logger.log(level, u"disabled by the platform"_s);
        logger.setEnabled(false);
        fixture.log->disabledTypes.clear();
        logger.log(level, u"disabled by the host"_s);
        QCOMPARE(fixture.log->lines.size(), 1);
    }

private Q_SLOTS:
    void linesGoToTheCategoryWithTheirLevel()
    {
        static QStringList written;
        const auto sink = makeLoggingCategorySink(u"com.example"_s, u"sink"_s);
        const QtMessageHandler before = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
                written +=
                    QString::number(type) + u' ' + QLatin1String(context.category) + u' ' + text;
            });
        for (const LogType type : {LogType::debug, LogType::info, LogType::error, LogType::fault})
            sink->write(type, u"100 %s"_s);
        qInstallMessageHandler(before);
        QStringList expected;
        for (const QtMsgType type : {QtDebugMsg, QtInfoMsg, QtWarningMsg, QtCriticalMsg})
            expected += QString::number(type) + u" com.example.sink 100 %s"_s;
        QCOMPARE(written, expected);
        QLoggingCategory::setFilterRules(u"com.example.sink.info=false"_s);
        QVERIFY(!sink->isEnabled(LogType::info) && sink->isEnabled(LogType::fault));
    }
};

QTEST_GUILESS_MAIN(IdentityTest)
#include "tst_identity.moc"
