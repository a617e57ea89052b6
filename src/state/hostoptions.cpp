// SPDX-License-Identifier: MIT
#include "state/hostoptions.h"

#include "base/sharedinstance.h"

namespace tolvane {

const std::shared_ptr<HostOptions> &HostOptions::shared()
{
    return sharedInstance<HostOptions>();
}

} // namespace tolvane
