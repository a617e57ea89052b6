// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

#include <QtCore/QString>

namespace tolvane {

/// The reason for a failure, for the customer: a translated text for network errors, else the
/// error's own description in at most 200 characters, without HTML.
QString errorText(const Error &error);

} // namespace tolvane
