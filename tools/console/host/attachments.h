// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"

#include <QtCore/QString>

namespace tolvane::console {

/// A command failed. The text is shown to the user.
class CommandError final : public std::exception
{
public:
    explicit CommandError(const QString &text)
        : m_text(text)
        , m_what(text.toUtf8())
    {
    }

    QString text() const { return m_text; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    QString m_text;
    QByteArray m_what;
};

/// Loads the file at a path; name and content determine the MIME type. Throws CommandError.
AttachmentDto loadAttachment(const QString &path);

/// Loads an attachment of a request: a path, or name, MIME type and bytes. Throws CommandError.
AttachmentDto attachmentFromJson(const QJsonObject &object);

} // namespace tolvane::console
