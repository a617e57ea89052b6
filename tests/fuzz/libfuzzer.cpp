// SPDX-License-Identifier: MIT
// The entry points for libFuzzer. TOLVANE_FUZZ_TARGET names the target.
#include "targets.h"

using namespace tolvane::fuzz;

namespace {

const Target *target = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    prepare();
    target = &targetNamed(qgetenv("TOLVANE_FUZZ_TARGET"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    target->run(Input(QByteArrayView(data, static_cast<qsizetype>(size))));
    return 0;
}
