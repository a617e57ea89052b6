// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

namespace tolvane {

/// JSON that is broken, or is not of the form that a record asks for.
class DecodingError final : public Error
{
public:
    enum Kind { dataCorrupted = 1, typeMismatch = 2, keyNotFound = 3, valueNotFound = 4 };

    /// @param codingPath where it happened, such as "messages[3].sender.type"; empty for the whole
    /// @param problem what is wrong there, as the end of a sentence that begins with the path
    DecodingError(Kind kind, QString codingPath, const QString &problem);

    Kind kind() const { return static_cast<Kind>(code()); }
    QString codingPath() const { return m_codingPath; }

private:
    QString m_codingPath;
};

} // namespace tolvane
