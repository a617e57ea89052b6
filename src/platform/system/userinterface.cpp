// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"

#include <utility>

namespace tolvane {

namespace {

// Never destroyed, like its users.
UserInterface &registered()
{
    static auto *instance = new UserInterface;
    return *instance;
}

} // namespace

void registerUserInterface(UserInterface userInterface)
{
    registered() = std::move(userInterface);
}

const UserInterface &userInterface()
{
    return registered();
}

} // namespace tolvane
