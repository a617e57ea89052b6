// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace tolvane {

/// A request body that can be read once.
///
/// QNetworkAccessManager sends a request again by itself when a kept-alive connection breaks under
/// it, whatever the method: a customer's message would arrive twice. Before it does, it rewinds the
/// body, and gives up where that fails. Every request therefore gets such a body, an empty one too.
/// (It must not be a QBuffer: those are rewound behind the device's back.)
class OneSendBody final : public QIODevice
{
public:
    explicit OneSendBody(QByteArray body);

    qint64 size() const override { return m_body.size(); }
    bool reset() override { return false; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    const QByteArray m_body;
    qsizetype m_read = 0;
};

} // namespace tolvane
