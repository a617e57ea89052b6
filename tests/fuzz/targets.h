// SPDX-License-Identifier: MIT
#pragma once

#include "input.h"

#include <array>

/// Fuzz targets: code that reads untrusted bytes, with the properties that must hold for any bytes.
namespace tolvane::fuzz {

void responses(Input input);
void pushes(Input input);
void markdown(Input input);
void preferences(Input input);
void multipart(Input input);
void times(Input input);
void pictures(Input input);

struct Target
{
    const char *name;
    void (*run)(Input input);
};

inline constexpr std::array targets = {
    Target{"responses", responses}, Target{"pushes", pushes},
    Target{"markdown", markdown},   Target{"preferences", preferences},
    Target{"multipart", multipart}, Target{"times", times},
    Target{"pictures", pictures},
};

/// Ends the program with a list of the targets when there is no such name.
const Target &targetNamed(QByteArrayView name);

/// Creates what the targets need: an application without windows, and temporary folders. Call it
/// once, before any target.
void prepare();

} // namespace tolvane::fuzz
