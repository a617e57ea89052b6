// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>
#include <QtCore/QProcess>
#include <QtCore/QUrl>
#include <QtWebSockets/QWebSocket>

namespace tolvane::test {

/// Chromium with one page and no window, led over its DevTools protocol. Elements are named by CSS
/// selectors. Everything waits for what takes its time, while the event loop runs, and throws a
/// std::runtime_error where that does not come.
class Browser
{
public:
    /// The profile goes into the folder, which has to be there.
    explicit Browser(const QString &folder);
    ~Browser();
    Browser(const Browser &) = delete;
    Browser &operator=(const Browser &) = delete;

    void open(const QUrl &page);
    /// The value of a JavaScript expression, once that is one which counts as true.
    QJsonValue await(const QString &expression);
    /// Once the element is there, enabled, and can be hit.
    void click(const QString &selector);
    void type(const QString &text);
    /// Goes to the element by keyboard, and presses the key of a letter there.
    void pressIn(const QString &selector, char letter);
    void choose(const QString &fileInput, const QStringList &files);

private:
    void start(const QString &folder);
    void connectTo(const QString &portFile);
    QJsonObject call(const QString &method, const QJsonObject &parameters = {});
    QJsonValue evaluate(const QString &expression);
    void mouse(const QString &type, const QJsonObject &at);

    QProcess m_process;
    QWebSocket m_socket;
    QString m_session;
    QHash<int, QJsonObject> m_answers;
    int m_lastId = 0;
};

} // namespace tolvane::test
