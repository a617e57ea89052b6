// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"

namespace tolvane::backend {

bool isUtf8(std::string_view text);
bool equalIgnoringCase(std::string_view left, std::string_view right);
std::vector<std::string_view> split(std::string_view text, char separator);

std::string percentEncoded(std::string_view text);

std::string sha256Hex(std::string_view bytes);

/// 26 lower-case characters that sort by creation time.
std::string newId();

Instant now();

/// Like "2026-11-24T13:05:00+0000".
std::string timestamp(Instant at);

/// Whether the text consists of 1 to 128 visible ASCII characters.
bool isCustomerId(std::string_view text);

/// The last component of a client's file name, without unprintable characters and leading dots, and
/// shortened.
std::string safeFileName(std::string_view name);

} // namespace tolvane::backend
