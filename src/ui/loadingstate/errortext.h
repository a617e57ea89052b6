// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

#include <QtCore/QString>

namespace tolvane {

/// The reason for a failure, for the customer: the words of the backend in at most 200 characters,
/// if it has any for people, else a translated text. The error's own text is for the log.
QString errorText(const Error &error);

} // namespace tolvane
