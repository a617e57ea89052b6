// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/json.h"
#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tolvane {

/// Builds a multipart/form-data body (RFC 7578) in memory. Names and file names go in as they
/// stand.
class TOLVANE_AUTOTEST_EXPORT MultipartBody
{
public:
    explicit MultipartBody(QByteArray boundary, QByteArray separator = "\r\n");

    /// Makes room for parts of that many bytes in all, so that they are copied once.
    void reserve(qsizetype size) { m_data.reserve(size); }

    void appendField(const QString &name, const QString &value);
    void appendFile(const QString &name, const QString &filename, const QString &mimeType,
                    const QByteArray &data);

    /// One text part for each field of the record, nested ones with names such as "a[b]".
    template <Record T>
    void appendRecord(const T &record)
    {
        appendJsonObject(json::encode(record));
    }

    /// The body with its closing delimiter; this stays as it is.
    QByteArray finish() const;

    QByteArray boundary() const { return m_boundary; }

private:
    void beginPart(const QString &name);
    void appendJsonObject(const QByteArray &bytes);

    QByteArray m_boundary;
    QByteArray m_separator;
    QByteArray m_data;
};

} // namespace tolvane
