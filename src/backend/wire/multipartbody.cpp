// SPDX-License-Identifier: MIT
#include "backend/wire/multipartbody.h"

namespace tolvane {

MultipartBody::MultipartBody(QByteArray boundary, QByteArray separator)
    : m_boundary(std::move(boundary))
    , m_separator(std::move(separator))
{
}

void MultipartBody::beginPart(const QString &name)
{
    m_data += "--" + m_boundary + m_separator;
    m_data += "Content-Disposition: form-data; name=\"" + name.toUtf8() + '"';
}

void MultipartBody::appendField(const QString &name, const QString &value)
{
    beginPart(name);
    m_data += m_separator + m_separator + value.toUtf8() + m_separator;
}

void MultipartBody::appendFile(const QString &name, const QString &filename,
                               const QString &mimeType, const QByteArray &data)
{
    beginPart(name);
    m_data += "; filename=\"" + filename.toUtf8() + '"' + m_separator;
    m_data += "Content-Type: " + mimeType.toUtf8() + m_separator + m_separator;
    m_data += data;
    m_data += m_separator;
}

QByteArray MultipartBody::finish() const
{
    const QByteArray end = "--" + m_boundary + "--";
    QByteArray body;
    body.reserve(m_data.size() + end.size());
    body += m_data;
    body += end;
    return body;
}

} // namespace tolvane
