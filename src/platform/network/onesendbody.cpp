// SPDX-License-Identifier: MIT
#include "platform/network/onesendbody.h"

#include <algorithm>

namespace tolvane {

OneSendBody::OneSendBody(QByteArray body)
    : m_body(std::move(body))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 OneSendBody::readData(char *data, qint64 maxSize)
{
    const auto amount = std::min<qsizetype>(maxSize, m_body.size() - m_read);
    if (amount <= 0)
        return -1;
    std::copy_n(m_body.constData() + m_read, amount, data);
    m_read += amount;
    return amount;
}

qint64 OneSendBody::writeData(const char *, qint64)
{
    return -1;
}

} // namespace tolvane
