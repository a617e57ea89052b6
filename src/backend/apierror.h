// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/error.h>

#include <QtCore/QByteArray>

namespace tolvane {

/// A response whose HTTP status is a failure.
class TOLVANE_AUTOTEST_EXPORT APIError final : public Error
{
public:
    enum Case { clientError, serverError, unknownError };

    /// @param body the response's body, which becomes the text if it is valid UTF-8; `unknownError`
    /// does not keep it
    explicit APIError(Case failure, const QByteArray &body = {});

    Case failure() const { return static_cast<Case>(code()); }
    QByteArray body() const { return m_body; }

private:
    QByteArray m_body;
};

} // namespace tolvane
