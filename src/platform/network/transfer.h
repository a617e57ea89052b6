// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"
#include "platform/network/addresspolicy.h"
#include "platform/network/urlsession.h"

#include <QtCore/QObject>
#include <QtCore/QPromise>
#include <QtCore/QTimer>

#include <memory>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

namespace tolvane {

/// One running request with its redirects. It lives on the network thread and deletes itself.
class Transfer final : public QObject
{
public:
    Transfer(QNetworkAccessManager &manager, UrlRequest request,
             std::shared_ptr<QPromise<UrlResponse>> promise);

    void begin();

private:
    void checkAddress();
    void checkBackendAddress(const Addresses &target);
    void send();
    void readHead();
    void readAvailable();
    void finish();
    bool followRedirect(int status);
    void abort(UrlError::Code failure);
    void succeed(int status);
    void fail(const UrlError &error);

    QNetworkAccessManager &m_manager;
    UrlRequest m_request;
    std::shared_ptr<QPromise<UrlResponse>> m_promise;
    QNetworkReply *m_reply = nullptr;
    QByteArray m_body;
    /// The reason for which the library aborted the transfer; absent after errors of the network.
    std::optional<UrlError::Code> m_failure;
    int m_redirects = 0;
    QTimer m_deadline;
};

} // namespace tolvane
