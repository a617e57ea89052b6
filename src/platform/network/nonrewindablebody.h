// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace tolvane {

/// A request body that can be read once.
///
/// QNetworkAccessManager repeats a request of any method when a kept-alive connection breaks, so a
/// customer's message could arrive twice. Before that it rewinds the body, and gives up if
/// rewinding fails. Therefore every request has such a body, an empty one too. (It must not be a
/// QBuffer, whose data the network stack reads without the device.) Qt 6.11 repeats a GET all the
/// same, which does no harm.
class NonRewindableBody final : public QIODevice
{
public:
    explicit NonRewindableBody(QByteArray body);

    qint64 size() const override { return m_body.size(); }
    bool reset() override { return false; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    const QByteArray m_body;
    qsizetype m_position = 0;
};

} // namespace tolvane
