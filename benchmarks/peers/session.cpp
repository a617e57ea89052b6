// SPDX-License-Identifier: MIT
#include "session.h"

#include "benchmarks/support/conversation.h"
#include "benchmarks/support/photo.h"
#include "screen.h"
#include "testing/samplerecords.h"

#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtNetwork/QHttpMultiPart>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <stdexcept>
#include <unistd.h>

namespace tolvane::peers {

namespace {

const QString customer = QStringLiteral("01jpeerpeerpeerpeerpeerpe0");

void writeFile(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error(fileName.toStdString());
}

/// Gray, so that an agent's bubble stands out.
QByteArray grayPhoto(int size)
{
    const QImage photo = QImage::fromData(bench::photo({size, size * 3 / 4}));
    return test::encodedImage(photo.convertToFormat(QImage::Format_Grayscale8), "jpeg", 85);
}

QString writeBranding(const QString &folder)
{
    QJsonObject branding = QJsonDocument::fromJson(json::encode(test::sampleBranding())).object();
    for (const char *key : {"logoLight", "logoDark", "updatedAt"})
        branding.remove(QLatin1String(key));
    for (const char *key : {"accentLight", "chatBackgroundLight", "fontColorUserBubbleLight"})
        branding[QLatin1String(key)] = QStringLiteral("#ffffff");
    branding[QStringLiteral("bubbleAgentLight")] = QColor(Screen::agentColor).name();
    writeFile(folder + QStringLiteral("/branding.json"), QJsonDocument(branding).toJson());
    return folder + QStringLiteral("/branding.json");
}

QByteArray bodyOf(QNetworkReply *reply)
{
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError)
        throw std::runtime_error(reply->errorString().toStdString());
    return reply->readAll();
}

QNetworkRequest agentRequest(const Conversation &conversation, const QString &path)
{
    QNetworkRequest request(QUrl(conversation.url).resolved(QUrl(QStringLiteral("/agent") + path)));
    request.setRawHeader("X-Tolvane-Agent", "1");
    return request;
}

QHttpPart part(const char *name, const QString &value)
{
    QHttpPart part;
    part.setRawHeader("Content-Disposition", QByteArray("form-data; name=\"") + name + '"');
    part.setBody(value.toUtf8());
    return part;
}

test::Process::Options optionsOf(const QString &folder)
{
    QMap<QString, QString> environment;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"})
        environment.insert(QString::fromLatin1(name), folder);
    if (geteuid() == 0) // Chromium's sandbox refuses root.
        environment.insert(QStringLiteral("QTWEBENGINE_DISABLE_SANDBOX"), QStringLiteral("1"));
    return {.environment = environment};
}

} // namespace

QString Backend::writeSeed(const QString &folder, int messageCount)
{
    constexpr int pictureCount = 20;
    for (int picture = 0; picture < pictureCount; ++picture)
        writeFile(QStringLiteral("%1/%2.jpg").arg(folder).arg(picture), grayPhoto(800 + picture));
    QJsonArray messages;
    for (const MessageDto &message : bench::conversation(messageCount).messages) {
        const bool isLast = messages.size() == messageCount - 1;
        QJsonObject seeded{
            {QStringLiteral("from"), isLast ? QStringLiteral("ines") : QStringLiteral("customer")},
            {QStringLiteral("minutesAgo"), messageCount - int(messages.size())},
            {QStringLiteral("text"), message.content}};
        if (message.attachments) {
            const int picture = int(messages.size()) / 10 % pictureCount;
            seeded.insert(QStringLiteral("attachments"),
                          QJsonArray{QStringLiteral("%1.jpg").arg(picture)});
        }
        messages += seeded;
    }
    const QJsonObject seed{
        {QStringLiteral("customer"), customer},
        {QStringLiteral("people"),
         QJsonObject{{QStringLiteral("ines"),
                      QJsonObject{{QStringLiteral("name"), QStringLiteral("Ines")}}}}},
        {QStringLiteral("conversations"),
         QJsonArray{QJsonObject{{QStringLiteral("state"), QStringLiteral("open")},
                                {QStringLiteral("messages"), messages}}}}};
    writeFile(folder + QStringLiteral("/seed.json"), QJsonDocument(seed).toJson());
    // The library's customer is the seed's.
    writeFile(folder + QStringLiteral("/tolvane-peer/com.tolvane.sdk.ini"),
              "[General]\ncustomer.id=" + customer.toUtf8() + '\n');
    return folder + QStringLiteral("/seed.json");
}

Backend::Backend(int messageCount)
    : m_program({}, QStringLiteral("0.2"),
                {QStringLiteral("--seed"), writeSeed(m_folder.path(), messageCount),
                 QStringLiteral("--branding"), writeBranding(m_folder.path())})
    , m_conversation{.url = m_program.url(),
                     .key = QStringLiteral("key"),
                     .customer = customer,
                     .ticket = {},
                     .page = {}}
{
    QNetworkAccessManager network;
    const QByteArray tickets =
        bodyOf(network.get(agentRequest(m_conversation, QStringLiteral("/api/tickets"))));
    m_conversation.ticket = QJsonDocument::fromJson(tickets)[0][QStringLiteral("id")].toString();
}

QByteArray Backend::addMessage() const
{
    QNetworkAccessManager network;
    QHttpMultiPart form(QHttpMultiPart::FormDataType);
    form.append(part("as", words::humanAgent));
    form.append(part("message", QStringLiteral("One more message")));
    const auto path = QStringLiteral("/api/ticket/%1/message").arg(m_conversation.ticket);
    const QByteArray message = bodyOf(network.post(agentRequest(m_conversation, path), &form));
    return QJsonDocument::fromJson(message).toJson(QJsonDocument::Compact);
}

Session::Session(const Peer &peer, const Backend &backend)
    : m_backend(backend)
    , m_host(peer.program,
             {backend.conversation().url, backend.conversation().key,
              backend.conversation().customer, backend.conversation().ticket, peer.page},
             optionsOf(backend.folder()))
{
}

void Session::waitUntilRunning()
{
    m_host.readLine();
}

double Session::open()
{
    return Screen::timeUntilShown([this] { startOpening(); });
}

double Session::receive()
{
    const QByteArray message = m_backend.addMessage();
    return Screen::timeUntilShown([&] { m_host.write("message " + message + '\n'); });
}

int Session::fling(int steps)
{
    m_host.write("fling " + QByteArray::number(steps) + '\n');
    return m_host.readLine().toInt();
}

} // namespace tolvane::peers
