// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <string>
#include <string_view>
#include <vector>

namespace tolvane::backend {

bool isUtf8(std::string_view text);
bool equalIgnoringCase(std::string_view left, std::string_view right);
std::string_view trimmed(std::string_view text);
std::vector<std::string_view> split(std::string_view text, char separator);

/// A "%" that begins no escape stands for itself, as does "+".
std::string percentDecoded(std::string_view text);
std::string percentEncoded(std::string_view text);

/// Takes equally long wherever the two differ, so that a key cannot be guessed letter by letter.
bool equalInConstantTime(std::string_view left, std::string_view right);

std::string sha256Hex(std::string_view bytes);

/// 26 lower-case characters that sort by the time at which they were made.
std::string newId();

Instant now();

/// Like "2026-11-24T13:05:00+0000".
std::string timestamp(Instant at);

/// The last component of a client's file name, fit to be the last component of a URL.
std::string safeFileName(std::string_view name);

} // namespace tolvane::backend
