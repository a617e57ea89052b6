// SPDX-License-Identifier: MIT
#include "platform/network/nonrewindablebody.h"

#include <algorithm>

namespace tolvane {

NonRewindableBody::NonRewindableBody(QByteArray body)
    : m_body(std::move(body))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 NonRewindableBody::readData(char *data, qint64 maxSize)
{
    const auto amount = std::min<qsizetype>(maxSize, m_body.size() - m_position);
    if (amount <= 0)
        return -1;
    std::copy_n(m_body.constData() + m_position, amount, data);
    m_position += amount;
    return amount;
}

qint64 NonRewindableBody::writeData(const char *, qint64)
{
    return -1;
}

} // namespace tolvane
