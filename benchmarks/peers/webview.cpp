// SPDX-License-Identifier: MIT
// A web view with a page that the host brings along: its script and styles need no request.
#include "conversationview.h"
#include "testing/ui/createitem.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>
#include <QtWebEngineQuick/QtWebEngineQuick>

namespace tolvane::peers {

namespace {

constexpr const char *view = R"qml(
    import QtQuick
    import QtWebEngine
    WebEngineView {
        anchors.fill: parent
        function show(html: string, base: url) { loadHtml(html, base) }
        function receive(message: string) { runJavaScript("receive(" + message + ")") }
        onJavaScriptConsoleMessage: (level, message) => console.warn(message)
    }
)qml";

QByteArray read(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(fileName), qPrintable(file.errorString()));
    return file.readAll();
}

/// The page has the backend's origin, so that it may send requests there.
QString html(const Conversation &conversation)
{
    const QJsonObject headers = {
        {QStringLiteral("Authorization"), QStringLiteral("Bearer ") + conversation.key},
        {QStringLiteral("X-Tolvane-Customer"), conversation.customer}};
    const QJsonObject request = {
        {QStringLiteral("address"),
         conversation.url + QStringLiteral("/ticket/") + conversation.ticket},
        {QStringLiteral("headers"), headers}};
    return QString::fromUtf8("<!doctype html><meta charset=utf-8><style>" +
                             read(conversation.page + QLatin1String(".css")) +
                             "</style><div id=root></div><script>const request = " +
                             QJsonDocument(request).toJson(QJsonDocument::Compact) +
                             ";</script><script>" + read(conversation.page + QLatin1String(".js")) +
                             "</script>");
}

class WebView final : public ConversationView
{
public:
    explicit WebView(const Conversation &conversation)
        : m_url(conversation.url)
        , m_html(html(conversation))
    {
    }

    void open(QQuickView &window) override
    {
        m_view = test::createItem(
            *window.engine(), view,
            {{QStringLiteral("parent"), QVariant::fromValue(window.rootObject())}});
        QMetaObject::invokeMethod(m_view.get(), "show", Q_ARG(QString, m_html), Q_ARG(QUrl, m_url));
    }

    void close() override { m_view.reset(); }

    void receive(const QByteArray &message) override
    {
        QMetaObject::invokeMethod(m_view.get(), "receive",
                                  Q_ARG(QString, QString::fromUtf8(message)));
    }

private:
    const QUrl m_url;
    const QString m_html;
    std::unique_ptr<QQuickItem> m_view;
};

} // namespace

void prepareProcess()
{
    QtWebEngineQuick::initialize();
}

QByteArray versions()
{
    return QByteArray("Qt WebEngine ") + qWebEngineVersion() + " with Chromium " +
           qWebEngineChromiumVersion();
}

std::unique_ptr<ConversationView> makeView(const Conversation &conversation)
{
    return std::make_unique<WebView>(conversation);
}

} // namespace tolvane::peers
