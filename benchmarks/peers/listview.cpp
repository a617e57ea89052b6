// SPDX-License-Identifier: MIT
// The floor: a list of Qt Quick with texts and pictures, and no messenger around it.
#include "conversationview.h"
#include "testing/ui/createitem.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

namespace tolvane::peers {

namespace {

constexpr const char *page = R"(
    import QtQuick
    Rectangle {
        property alias model: list.model
        anchors.fill: parent
        ListView {
            id: list
            anchors.fill: parent
            spacing: 8
            onCountChanged: Qt.callLater(positionViewAtEnd)
            delegate: Column {
                required property string text
                required property string picture
                required property bool isAgent
                width: ListView.view.width
                Rectangle {
                    x: 16
                    width: parent.width - 32
                    height: text.height
                    color: isAgent ? "#e91e63" : "gainsboro"
                    Text {
                        id: text
                        width: parent.width
                        text: parent.parent.text
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        font.pixelSize: 14
                    }
                }
                Image {
                    x: 16
                    width: 240
                    height: visible ? 180 : 0
                    visible: source != ""
                    source: parent.picture
                    sourceSize.width: width
                    fillMode: Image.PreserveAspectCrop
                    asynchronous: true
                }
            }
        }
    }
)";

class Messages final : public QAbstractListModel
{
public:
    enum Role { Text = Qt::UserRole, Picture, IsAgent };

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_messages.size());
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const QJsonObject message = m_messages.at(index.row()).toObject();
        if (role == IsAgent)
            return message[QStringLiteral("sender")][QStringLiteral("type")].toString() !=
                   QLatin1String("customer");
        return role == Text ? message[QStringLiteral("content")].toString()
                            : message[QStringLiteral("attachments")][0].toString();
    }
    QHash<int, QByteArray> roleNames() const override
    {
        return {{Text, "text"}, {Picture, "picture"}, {IsAgent, "isAgent"}};
    }

    void append(const QJsonArray &messages)
    {
        const int count = rowCount();
        beginInsertRows({}, count, count + int(messages.size()) - 1);
        for (const QJsonValue message : messages)
            m_messages += message;
        endInsertRows();
    }

private:
    QJsonArray m_messages;
};

class ListView final : public ConversationView
{
public:
    explicit ListView(const Conversation &conversation)
        : m_request(conversation.url + QStringLiteral("/ticket/") + conversation.ticket)
    {
        m_request.setRawHeader("Authorization", "Bearer " + conversation.key.toUtf8());
        m_request.setRawHeader("X-Tolvane-Customer", conversation.customer.toUtf8());
    }

    void open(QQuickView &window) override
    {
        m_messages = std::make_unique<Messages>();
        m_list =
            test::createItem(*window.engine(), page,
                             {{QStringLiteral("parent"), QVariant::fromValue(window.rootObject())},
                              {QStringLiteral("model"), QVariant::fromValue(m_messages.get())}});
        QNetworkReply *reply = m_network.get(m_request);
        QObject::connect(reply, &QNetworkReply::finished, m_messages.get(), [this, reply] {
            const QJsonObject ticket = QJsonDocument::fromJson(reply->readAll()).object();
            m_messages->append(ticket[QStringLiteral("messages")].toArray());
            reply->deleteLater();
        });
    }

    void close() override
    {
        m_list.reset();
        m_messages.reset();
    }

    void receive(const QByteArray &message) override
    {
        m_messages->append({QJsonDocument::fromJson(message).object()});
    }

private:
    QNetworkAccessManager m_network;
    QNetworkRequest m_request;
    std::unique_ptr<Messages> m_messages;
    std::unique_ptr<QQuickItem> m_list;
};

} // namespace

void prepareProcess() {}

QByteArray versions()
{
    return QByteArray("Qt ") + qVersion();
}

std::unique_ptr<ConversationView> makeView(const Conversation &conversation)
{
    return std::make_unique<ListView>(conversation);
}

} // namespace tolvane::peers
