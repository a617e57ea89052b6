// SPDX-License-Identifier: MIT
// Runs the tests in QML, with pictures and records that QML cannot create.
#include "testing/samplerecords.h"
#include "testing/ui/samples.h"
#include "ui/messages/messagelistmodel.h"

#include <QtGui/QDesktopServices>
#include <QtQml/QQmlEngine>
#include <QtQuickTest/quicktest.h>

extern void qml_register_types_Tolvane_Private();

namespace tolvane::test {

class Samples final : public QObject
{
    Q_OBJECT

public:
    /// A picture with one colour in each quarter.
    Q_INVOKABLE QImage quarters(int width, int height) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        const QRgb colors[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255),
                               qRgb(255, 255, 0)};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, colors[(y * 2 / height) * 2 + x * 2 / width]);
        }
        return image;
    }

    /// An empty list of messages for setMessages().
    Q_INVOKABLE QAbstractItemModel *messageList() { return new MessageListModel; }

    /// Each message is an object with the fields that differ from a short text of the customer.
    Q_INVOKABLE void setMessages(QAbstractItemModel *list, const QVariantList &values) const
    {
        QList<MessageDto> messages;
        for (const QVariant &value : values) {
            const QVariantMap map = value.toMap();
            const QString type = map.value(QStringLiteral("type"), words::customer).toString();
            MessageDto message = makeMessage(map.value(QStringLiteral("id")).toString(), type);
            if (map.contains(QStringLiteral("name")))
                message.sender.name = map.value(QStringLiteral("name")).toString();
            if (map.contains(QStringLiteral("content")))
                message.content = map.value(QStringLiteral("content")).toString();
            if (map.contains(QStringLiteral("attachments")))
                message.attachments = map.value(QStringLiteral("attachments")).toStringList();
            messages += message;
        }
        static_cast<MessageListModel *>(list)->setMessages(messages);
    }

    ~Samples() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    /// The links that were opened since the last call. The first call installs the handler for
    /// them.
    Q_INVOKABLE QStringList openedLinks()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "takeLink");
        return std::exchange(m_links, {});
    }

public Q_SLOTS:
    void takeLink(const QUrl &link) { m_links += link.toString(); }

private:
    Fixture fixture;
    QStringList m_links;
};

class Setup final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *)
    {
        qml_register_types_Tolvane_Private();
        qmlRegisterSingletonType<Samples>("Samples", 1, 0, "Samples",
                                          [](QQmlEngine *, QJSEngine *) { return new Samples; });
    }
};

} // namespace tolvane::test

using tolvane::test::Setup;
QUICK_TEST_MAIN_WITH_SETUP(tolvane, Setup)
#include "quickmain.moc"
