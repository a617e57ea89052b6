// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

namespace tolvane {

/// Malformed JSON, or JSON that does not match a record.
class DecodingError final : public Error
{
public:
    enum Kind { dataCorrupted = 1, typeMismatch = 2, keyNotFound = 3, valueNotFound = 4 };

    /// @param codingPath the position, such as "messages[3].sender.type"; empty for the whole
    /// document
    /// @param problem the problem, as the end of a sentence that begins with the path
    DecodingError(Kind kind, QString codingPath, const QString &problem);

    Kind kind() const { return static_cast<Kind>(code()); }
    QString codingPath() const { return m_codingPath; }

private:
    QString m_codingPath;
};

} // namespace tolvane
