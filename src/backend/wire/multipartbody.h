// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/formitems.h"
#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace tolvane {

/// Builds a multipart/form-data body (RFC 7578) in memory. Names and file names are not escaped.
class TOLVANE_AUTOTEST_EXPORT MultipartBody
{
public:
    explicit MultipartBody(QByteArray boundary, QByteArray separator = "\r\n");

    /// Reserves the total size of the parts, in bytes, so that they are copied once.
    void reserve(qsizetype size) { m_data.reserve(size); }

    void appendField(const QString &name, const QString &value);
    void appendFile(const QString &name, const QString &filename, const QString &mimeType,
                    const QByteArray &data);

    /// Appends one text part for each field of the record; nested fields have names such as "a[b]".
    template <Record T>
    void appendRecord(const T &record)
    {
        for (const FormItem &item : formItems(QString(), record))
            appendField(item.first, item.second);
    }

    /// The body with its closing delimiter. The object does not change.
    QByteArray finish() const;

    QByteArray boundary() const { return m_boundary; }

private:
    void beginPart(const QString &name);

    QByteArray m_boundary;
    QByteArray m_separator;
    QByteArray m_data;
};

} // namespace tolvane
