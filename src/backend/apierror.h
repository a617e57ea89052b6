// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/error.h>

#include <QtCore/QByteArray>

namespace tolvane {

/// An answer with an HTTP status of failure.
class TOLVANE_AUTOTEST_EXPORT APIError final : public Error
{
public:
    enum Case { clientError, serverError, unknownError };

    /// @param body the response's body, which becomes the text where it is valid UTF-8; not kept
    /// for
    ///        `unknownError`
    explicit APIError(Case failure, const QByteArray &body = {});

    Case failure() const { return static_cast<Case>(code()); }
    QByteArray body() const { return m_body; }

private:
    QByteArray m_body;
};

} // namespace tolvane
