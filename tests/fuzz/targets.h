// SPDX-License-Identifier: MIT
#pragma once

#include "input.h"

#include <array>

/// What reads bytes that come from elsewhere, each with what must hold for any bytes at all.
namespace tolvane::fuzz {

void responses(Input input);
void pushes(Input input);
void markdown(Input input);
void branding(Input input);
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
    Target{"responses", responses},
    Target{"pushes", pushes},
    Target{"markdown", markdown},
    Target{"branding", branding},
    Target{"preferences", preferences},
    Target{"multipart", multipart},
    Target{"times", times},
    Target{"pictures", pictures},
};

/// Ends the program, with a list of them, where there is none of that name.
const Target &targetNamed(QByteArrayView name);

/// What the targets stand on: an application without windows, and folders that go with it. To be
/// called once, and first.
void prepare();

} // namespace tolvane::fuzz
